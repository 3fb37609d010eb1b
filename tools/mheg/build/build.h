// Makes a carousel, the folder that is broadcast, from an author's folder.
#pragma once

#include <filesystem>

namespace mheg {

// Brings the carousel `output` up to date with the folder `source`, on `jobs` threads (0: one per
// processor): compiles each text NAME.mheg to NAME and copies all other files, including
// subfolders, if they are broadcast (source_folder.h). Only files that change are written. Products
// of an earlier build whose source no longer exists are removed; other files in the carousel are
// not touched.
//
// Prints errors, the findings of the check, and a line with the numbers of files. If a
// source file has errors, the result of its last good build is kept. Returns whether every file of
// the carousel is up to date, whatever the findings.
[[nodiscard]] bool Build(const std::filesystem::path& source, const std::filesystem::path& output,
                         unsigned jobs);

// Builds now and after each change in the source, as long as it can be watched. Then returns false.
[[nodiscard]] bool BuildAfterEachChange(const std::filesystem::path& source,
                                        const std::filesystem::path& output, unsigned jobs);

}  // namespace mheg
