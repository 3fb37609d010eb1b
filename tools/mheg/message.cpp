// Messages have the layout of compiler messages, so that editors recognise the positions.
#include "mheg/message.h"

#include <algorithm>
#include <cstdlib>

#include "mheg/path_text.h"

#ifdef _WIN32
#include <windows.h>

#include <io.h>
#else
#include <unistd.h>
#endif

namespace mheg {
namespace {

constexpr std::size_t kMostCharacters = 100;       // of an excerpt
constexpr std::size_t kCharactersBeforeMark = 60;  // of an excerpt that is cut at its start

bool IsControl(char c) { return static_cast<unsigned char>(c) < 32 || c == 127; }

std::string_view LineOf(std::string_view text, std::uint32_t line) {
  for (; line > 1; --line) text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
  return text.substr(0, text.find('\n'));
}

// The bytes of `count` characters, starting with the character at index `begin`.
std::string_view Characters(std::string_view text, std::size_t begin, std::size_t count) {
  std::size_t offset = 0;
  const auto skip = [&](std::size_t characters) {
    for (; characters > 0 && offset < text.size(); --characters) {
      do ++offset;
      while (offset < text.size() && !korvel::BeginsCharacter(text[offset]));
    }
    return offset;
  };
  const std::size_t first = skip(begin);
  return text.substr(first, skip(count) - first);
}

#ifdef _WIN32
// The console interprets escape sequences only in this mode.
bool AcceptsColours(std::FILE* stream) {
  const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  DWORD mode = 0;
  return GetConsoleMode(console, &mode) != 0 &&
         SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}
#else
bool AcceptsColours(std::FILE* stream) { return IsTerminal(stream); }
#endif

bool IsColoured(std::FILE* stream) {
  const char* noColour = std::getenv("NO_COLOR");
  return (noColour == nullptr || *noColour == 0) && AcceptsColours(stream);
}

std::string PositionOf(const Message& message) {
  std::string position = TextOf(message.file);
  if (message.place.line > 0) {
    position +=
        ":" + std::to_string(message.place.line) + ":" + std::to_string(message.place.column);
  }
  return position + ": ";
}

void PrintOne(const Message& message, bool isColoured, std::FILE* stream) {
  const char* bold = isColoured ? "\x1B[1m" : "";
  const char* green = isColoured ? "\x1B[1;32m" : "";
  const char* plain = isColoured ? "\x1B[0m" : "";
  std::fprintf(stream, "%s%s%s%s\n", bold, PositionOf(message).c_str(), plain,
               message.text.c_str());
  const Excerpt& excerpt = message.excerpt;
  if (excerpt.line.empty()) return;
  const std::string marks = "^" + std::string(excerpt.length - 1, '~');
  std::fprintf(stream, "%5u | %s\n      | %s%s%s%s\n", message.place.line, excerpt.line.c_str(),
               std::string(excerpt.begin, ' ').c_str(), green, marks.c_str(), plain);
}

}  // namespace

bool IsTerminal(std::FILE* stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), korvel::BeginsCharacter));
}

Excerpt ExcerptAt(std::string_view text, korvel::TextPlace place, std::size_t length) {
  std::string_view line = LineOf(text, place.line);
  while (!line.empty() && IsControl(line.back())) line.remove_suffix(1);
  const std::size_t column = place.column - 1;
  const std::size_t count = CharacterCount(line);
  const std::size_t cut = count > kMostCharacters && column > kCharactersBeforeMark
                              ? column - kCharactersBeforeMark
                              : 0;
  Excerpt excerpt;
  excerpt.line = Characters(line, cut, kMostCharacters);
  std::replace_if(excerpt.line.begin(), excerpt.line.end(), IsControl, ' ');
  excerpt.begin = column - cut;
  const std::size_t shown = std::min(count - cut, kMostCharacters);
  const std::size_t marked = CharacterCount(Characters(line, column, count).substr(0, length));
  const std::size_t most = shown > excerpt.begin ? shown - excerpt.begin : 1;
  excerpt.length = std::clamp<std::size_t>(marked, 1, most);
  return excerpt;
}

std::string OneLine(const Message& message) { return PositionOf(message) + message.text; }

void Print(const Messages& messages, std::FILE* stream) {
  const bool isColoured = IsColoured(stream);
  for (const Message& message : messages) PrintOne(message, isColoured, stream);
}

}  // namespace mheg
