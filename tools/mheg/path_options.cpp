// CLI11 passes the arguments as strings to functions that convert them to paths.
#include "mheg/path_options.h"

#include <system_error>

#include "mheg/path_text.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

bool Exists(const std::string& text) {
  std::error_code ignored;
  return fs::exists(PathOf(text), ignored);
}

bool IsFolder(const std::string& text) {
  std::error_code ignored;
  return fs::is_directory(PathOf(text), ignored);
}

}  // namespace

CLI::Option* AddPath(CLI::App& app, const std::string& name, fs::path& path,
                     const std::string& description) {
  const auto set = [&path](const std::string& text) { path = PathOf(text); };
  return app.add_option_function<std::string>(name, set, description);
}

CLI::Option* AddPaths(CLI::App& app, const std::string& name, std::vector<fs::path>& paths,
                      const std::string& description) {
  const auto set = [&paths](const std::vector<std::string>& texts) {
    for (const std::string& text : texts) paths.push_back(PathOf(text));
  };
  return app.add_option_function<std::vector<std::string>>(name, set, description);
}

CLI::Validator IsExistingPath() {
  return {
      [](const std::string& text) { return Exists(text) ? "" : "Path does not exist: " + text; },
      "PATH(existing)"};
}

CLI::Validator IsExistingFile() {
  return {[](const std::string& text) {
            if (!Exists(text)) return "File does not exist: " + text;
            return IsFolder(text) ? "File is actually a directory: " + text : "";
          },
          "FILE"};
}

CLI::Validator IsExistingFolder() {
  return {[](const std::string& text) {
            if (!Exists(text)) return "Directory does not exist: " + text;
            return IsFolder(text) ? "" : "Directory is actually a file: " + text;
          },
          "DIR"};
}

}  // namespace mheg
