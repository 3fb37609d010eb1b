// The manual page and the shell completions, made from the description of the command line.
#pragma once

#include <filesystem>

namespace mheg {

// Writes both to the subfolders of `folder` where packages have them: share/man and
// share/bash-completion. If that fails, reports it and returns false.
[[nodiscard]] bool WriteManual(const std::filesystem::path& folder);

}  // namespace mheg
