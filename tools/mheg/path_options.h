// Paths on the command line. CLI11 would make them from strings, which path_text.h advises against.
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

// Checks of such options, with the messages of CLI11's own.
[[nodiscard]] CLI::Validator IsExistingPath();
[[nodiscard]] CLI::Validator IsExistingFile();
[[nodiscard]] CLI::Validator IsExistingFolder();

}  // namespace mheg
