// Formats source files in place.
#pragma once

#include <filesystem>
#include <vector>

namespace mheg {

// Lays out these source files, and those in these folders and their subfolders, on `jobs` threads
// (0: one per processor). Files that are already laid out or have errors are not written. With
// `isCheck`, lists the files that are not laid out on standard output, and writes none. Returns
// whether all files are laid out.
[[nodiscard]] bool Format(const std::vector<std::filesystem::path>& paths, bool isCheck,
                          unsigned jobs);

}  // namespace mheg
