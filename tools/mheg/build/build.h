// Makes a carousel, the folder that is broadcast, from an author's folder.
#pragma once

#include <filesystem>

namespace mheg {

// Brings the carousel `output` up to date with the folder `source`, on `jobs` threads (0: one per
// processor): compiles each source file NAME.mheg to NAME and copies all other files that are
// broadcast (source_folder.h), including those in subfolders. Writes only files that change.
// Removes products of an earlier build that no longer have a source. Other files in the carousel
// are left unchanged.
//
// Prints errors, the findings of the check, and a line with the numbers of files. If a source file
// has errors, the file that was last compiled from it stays. Returns whether every file of the
// carousel is up to date, whatever the check finds.
[[nodiscard]] bool Build(const std::filesystem::path& source, const std::filesystem::path& output,
                         unsigned jobs);

// Builds now and after each change in the source. Returns only if the source can no longer be
// watched, and then false.
[[nodiscard]] bool BuildAfterEachChange(const std::filesystem::path& source,
                                        const std::filesystem::path& output, unsigned jobs);

}  // namespace mheg
