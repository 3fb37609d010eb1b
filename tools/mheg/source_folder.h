// The files of an author's folder, and which of them are broadcast.
#pragma once

#include <filesystem>
#include <set>

namespace mheg {

// Adds the files to broadcast with their paths in the folder: all files of the folder and its
// subfolders except those whose names begin with a dot, and README.md and *.script in the folder
// itself. Symbolic links are followed. Returns false if a folder cannot be read.
[[nodiscard]] bool FindBroadcastFiles(const std::filesystem::path& folder,
                                      std::set<std::filesystem::path>& files);

// Whether the file is a text, which is broadcast compiled, and under its name without extension.
[[nodiscard]] bool IsText(const std::filesystem::path& file);

}  // namespace mheg
