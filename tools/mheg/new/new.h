// Makes a small working application for an author to start from.
#pragma once

#include <filesystem>

namespace mheg {

// Writes an application with three scenes, and a script that tests it, to a folder that does not
// exist or is empty. Prints the next steps. If that fails, reports it and returns false.
[[nodiscard]] bool MakeNew(const std::filesystem::path& folder);

}  // namespace mheg
