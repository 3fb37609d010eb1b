// On systems other than Windows, names are bytes. They are UTF-8 if the user's terminal and editor
// use it.
#include "mheg/path_text.h"

#include <algorithm>

#ifdef _WIN32
#include <windows.h>

#include <shellapi.h>
#endif

namespace mheg {

namespace fs = std::filesystem;

#ifdef _WIN32

namespace {

std::string Utf8(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  const auto convert = [&](char* text, int size) {
    return WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text, size, nullptr, nullptr);
  };
  std::string text(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(text.data(), static_cast<int>(text.size()));
  return text;
}

}  // namespace

std::string TextOf(const fs::path& path) { return Utf8(path.native()); }

std::string GenericTextOf(const fs::path& path) { return Utf8(path.generic_wstring()); }

fs::path PathOf(std::string_view text) {
  const int length = static_cast<int>(text.size());
  const auto convert = [&](wchar_t* wide, int size) {
    return MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide, size);
  };
  std::wstring wide(static_cast<std::size_t>(convert(nullptr, 0)), L'\0');
  convert(wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::vector<std::string> TextOfArguments(int /*count*/, const char* const* /*arguments*/) {
  int count = 0;
  wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> text;
  for (int i = 1; wide != nullptr && i < count; ++i) text.push_back(Utf8(wide[i]));
  LocalFree(wide);
  return text;
}

Utf8Console::Utf8Console() : before_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }

Utf8Console::~Utf8Console() { SetConsoleOutputCP(before_); }

#else

std::string TextOf(const fs::path& path) { return path.native(); }

std::string GenericTextOf(const fs::path& path) { return path.generic_string(); }

fs::path PathOf(std::string_view text) { return text; }

std::vector<std::string> TextOfArguments(int count, const char* const* arguments) {
  return {arguments + std::min(count, 1), arguments + count};
}

#endif

}  // namespace mheg
