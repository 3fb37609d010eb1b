// The manual page and the completions of the command line, from its one description.
#pragma once

#include <filesystem>
#include <string>

namespace CLI {
class App;
}

namespace mheg {

// A page for `man`, with all commands that --help lists.
[[nodiscard]] std::string ManualPage(const CLI::App& app);

// A script for bash that completes commands, options, their words, and files.
[[nodiscard]] std::string BashCompletions(const CLI::App& app);

// Writes both below a folder where packages have them: share/man and share/bash-completion. Returns
// false if that fails.
[[nodiscard]] bool WriteManual(const CLI::App& app, const std::filesystem::path& folder);

}  // namespace mheg
