// The files of a folder as they are broadcast, in memory: those that `mheg build` would write.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "mheg/convert.h"
#include "mheg/message.h"

namespace mheg {

// Only `bytes` is set unless the file was compiled from a source file.
struct CarouselFile : CompiledGroup {
  std::string source;  // path of the source file in the folder
};

class CarouselFiles {
 public:
  // Reads the files of the folder that are broadcast (source_folder.h). Adds a message for each
  // file that cannot be read or compiled, or whose name clashes with that of another file; the
  // folder cannot be played then.
  void Load(const std::filesystem::path& folder, Messages& messages);

  // Removes a file, so that the engine does not find it. Returns false if there is no such file.
  [[nodiscard]] bool Remove(const std::string& path);

  // The file that the engine requests with this path; null if there is none. '/' and '\\' separate
  // folders, a leading separator is ignored, and ".." must not leave the folder. The case of
  // letters matters on every platform.
  [[nodiscard]] const CarouselFile* Find(std::string_view path) const;

 private:
  std::map<std::string, CarouselFile> files_;  // by path, with '/'
};

}  // namespace mheg
