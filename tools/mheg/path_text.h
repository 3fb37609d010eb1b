// Paths as text. The tools have all text in UTF-8, so that a name in content means the same file on
// every platform. Windows has names in UTF-16 and its narrow functions another encoding, so use
// these functions instead of path::string() and of paths from strings.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace mheg {

// Any path has a text: parts of a name that are not Unicode are replaced. That happens on Windows
// alone.
[[nodiscard]] std::string TextOf(const std::filesystem::path& path);

// The same with '/' between the parts.
[[nodiscard]] std::string GenericTextOf(const std::filesystem::path& path);

// The path with that text. Text that is not UTF-8 leads to no file on Windows.
[[nodiscard]] std::filesystem::path PathOf(std::string_view text);

// The arguments of main in UTF-8, without the name of the program.
[[nodiscard]] std::vector<std::string> TextOfArguments(int count, const char* const* arguments);

#ifdef _WIN32
// While it exists, the console shows output as UTF-8.
class Utf8Console {
 public:
  Utf8Console();
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;
  ~Utf8Console();

 private:
  unsigned before_;  // code page
};
#endif

}  // namespace mheg
