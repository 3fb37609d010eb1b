// The files of a folder as they are broadcast, in memory. A text "menu.mheg" is compiled and counts
// as the file "menu"; all other files are kept as they are.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "mheg/message.h"
#include "mheg/source_places.h"

namespace mheg {

struct CarouselFile {
  std::string bytes;
  // Of a file that was compiled from a text: the text's path in the folder, the places in it, and
  // the name of its group.
  std::string text;
  SourcePlaces places;
  std::string group;
};

class CarouselFiles {
 public:
  // Reads the files of the folder that are broadcast (source_folder.h). Adds a message for each
  // file that cannot be read or compiled; the folder is then not fit to be played.
  void Load(const std::filesystem::path& folder, Messages& messages);

  // Makes the engine see the file as missing. False if there is no such file.
  [[nodiscard]] bool Remove(const std::string& path);

  // A file; null if there is none. The path has the form in which the engine asks for it: '/' and
  // '\\' separate folders, a leading one is ignored, and ".." must not lead out of the folder.
  // Upper and lower case differ on every platform.
  [[nodiscard]] const CarouselFile* Find(std::string_view path);

 private:
  std::map<std::string, CarouselFile> files_;                        // by path, with '/'
  std::unordered_map<std::string, const CarouselFile*> foundPaths_;  // by path as it was asked for
};

}  // namespace mheg
