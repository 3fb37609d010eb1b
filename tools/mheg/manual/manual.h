// The manual page and the completions of the command line, from its one description.
#pragma once

#include <filesystem>

namespace mheg {

// Writes both below a folder where packages have them: share/man and share/bash-completion. Returns
// false, after a message, if that fails.
[[nodiscard]] bool WriteManual(const std::filesystem::path& folder);

}  // namespace mheg
