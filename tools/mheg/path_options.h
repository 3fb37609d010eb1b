// Options and arguments that are paths. CLI11's own path options construct paths from strings,
// which is wrong on Windows (path_text.h).
#pragma once

#include <CLI/CLI.hpp>

#include <filesystem>
#include <string>
#include <vector>

namespace mheg {

// Adds an option or argument that is a path, or any number of them.
CLI::Option* AddPath(CLI::App& app, const std::string& name, std::filesystem::path& path,
                     const std::string& description);
CLI::Option* AddPaths(CLI::App& app, const std::string& name,
                      std::vector<std::filesystem::path>& paths, const std::string& description);

// Validators for such options, with the messages of CLI11's own validators.
[[nodiscard]] CLI::Validator IsExistingPath();
[[nodiscard]] CLI::Validator IsExistingFile();
[[nodiscard]] CLI::Validator IsExistingFolder();

}  // namespace mheg
