// Paths as text. The tools hold all text in UTF-8, so that a name in content means the same file on
// every platform. On Windows, names are UTF-16, and path::string() and the construction of a path
// from a string use another encoding; use these functions instead.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace mheg {

// The path in UTF-8. Parts of a name that are not Unicode are replaced, which happens only on
// Windows.
[[nodiscard]] std::string TextOf(const std::filesystem::path& path);

// The path in UTF-8, with '/' between its parts on every platform.
[[nodiscard]] std::string GenericTextOf(const std::filesystem::path& path);

// The path with that text. If the text is not UTF-8, no file has that path on Windows.
[[nodiscard]] std::filesystem::path PathOf(std::string_view text);

// The arguments of main in UTF-8, without the name of the program.
[[nodiscard]] std::vector<std::string> TextOfArguments(int count, const char* const* arguments);

#ifdef _WIN32
// Makes the console interpret output as UTF-8 for the lifetime of this object.
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
