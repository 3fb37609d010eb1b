// The files of an author's folder, and which of them are broadcast.
#pragma once

#include <filesystem>
#include <map>
#include <string_view>
#include <vector>

#include "mheg/message.h"

namespace mheg {

// The extension of source files.
inline constexpr std::string_view kSourceExtension = ".mheg";

// Whether links to folders are followed.
enum class FolderLinks { Followed, Skipped };

// The files of a folder and its subfolders, in no particular order, except files and folders whose
// names begin with a dot. Adds a message for each folder that cannot be read, and for each followed
// link that leads to a folder that contains the link.
[[nodiscard]] std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder,
                                                         FolderLinks links, Messages& messages);

struct BroadcastFile {
  std::filesystem::path source;  // relative to the folder
  // A message for each other file that would have the same path in the carousel. If there is one,
  // none of these files can be broadcast.
  Messages clashes{};
};
using BroadcastFiles = std::map<std::filesystem::path, BroadcastFile>;  // by path in the carousel

// The files that `mheg build` makes from a folder, and that `mheg run` and the player play: all
// files of FilesIn except README.md and *.script in the folder itself. Links are followed. A source
// file "menu.mheg" becomes the file "menu". Adds the messages of FilesIn.
[[nodiscard]] BroadcastFiles FindBroadcastFiles(const std::filesystem::path& folder,
                                                Messages& messages);

// Whether the file is a source file, which is compiled and broadcast without its extension.
[[nodiscard]] bool IsSourceFile(const std::filesystem::path& file);

}  // namespace mheg
