// The files of a folder as they are broadcast, in memory: those that `mheg build` would write.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "mheg/convert.h"
#include "mheg/message.h"

namespace mheg {

// Only its bytes are known unless it was compiled from a text.
struct CarouselFile : CompiledText {
  std::string text;  // the text's path in the folder
};

class CarouselFiles {
 public:
  // Reads the files of the folder that are broadcast (source_folder.h). Adds a message for each
  // file that cannot be read or compiled or whose name clashes with another one's; the folder is
  // then not fit to be played.
  void Load(const std::filesystem::path& folder, Messages& messages);

  // Makes the engine see the file as missing. False if there is no such file.
  [[nodiscard]] bool Remove(const std::string& path);

  // A file; null if there is none. The path has the form in which the engine asks for it: '/' and
  // '\\' separate folders, a leading one is ignored, and ".." must not lead out of the folder.
  // Upper and lower case differ on every platform.
  [[nodiscard]] const CarouselFile* Find(std::string_view path) const;

 private:
  std::map<std::string, CarouselFile> files_;  // by path, with '/'
};

}  // namespace mheg
