// Makes a small working application for an author to begin with.
#pragma once

#include <filesystem>

namespace mheg {

// Writes an application with three scenes, and a script that tests it, to a folder that does not
// exist or is empty. Prints the next steps. Returns false, after a message, if that fails.
[[nodiscard]] bool MakeNew(const std::filesystem::path& folder);

}  // namespace mheg
