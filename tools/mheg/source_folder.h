// The files of an author's folder, and which of them are broadcast.
#pragma once

#include <filesystem>
#include <map>
#include <string_view>
#include <vector>

#include "mheg/message.h"

namespace mheg {

// The extension of texts.
inline constexpr std::string_view kTextExtension = ".mheg";

// Whether links to folders are followed.
enum class FolderLinks { Followed, Skipped };

// The files of a folder and its subfolders, in no order, except files and folders whose names begin
// with a dot. Adds a message for each folder that cannot be read and for each followed link that
// leads back to a folder around it.
[[nodiscard]] std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder,
                                                         FolderLinks links, Messages& messages);

struct BroadcastFile {
  std::filesystem::path source;  // in the folder
  // One for each other file of the folder with the same name in the carousel: none of them can be
  // broadcast.
  Messages clashes{};
};
using BroadcastFiles = std::map<std::filesystem::path, BroadcastFile>;  // by path in the carousel

// The files that `mheg build` makes from a folder, and that `mheg run` and the player play: all
// files of FilesIn except README.md and *.script in the folder itself. Links are followed. A text
// "menu.mheg" becomes the file "menu". Adds the messages of FilesIn.
[[nodiscard]] BroadcastFiles FindBroadcastFiles(const std::filesystem::path& folder,
                                                Messages& messages);

// Whether the file is a text, which is broadcast compiled, and under its name without extension.
[[nodiscard]] bool IsText(const std::filesystem::path& file);

}  // namespace mheg
