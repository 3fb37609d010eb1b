// A line is a step's word and its argument: the rest of the line, which may contain blanks (in
// names of keys and files).
#include "player/script.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <optional>
#include <sstream>

#include "player/key_names.h"

namespace player {
namespace {

constexpr const char* kBlanks = " \t\r";

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<unsigned> NumberIn(const std::string& text, int base = 10) {
  unsigned number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, base);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

// The pixel at the start of the text; `rest` receives the text after it.
std::optional<Pixel> PixelIn(const std::string& text, std::string& rest) {
  std::istringstream words(text);
  std::string x, y, colour;
  words >> x >> y >> colour;
  std::getline(words >> std::ws, rest);
  if (colour.size() != 7 || colour.front() != '#') return std::nullopt;
  const auto column = NumberIn(x);
  const auto row = NumberIn(y);
  const auto value = NumberIn(colour.substr(1), 16);
  if (!column || !row || !value) return std::nullopt;
  return Pixel{*column, *row, *value};
}

// The step for a word and its argument; nothing if they are invalid.
std::optional<Step> StepOf(const std::string& word, const std::string& argument) {
  std::string rest;
  if (word == "wait") {
    const auto milliseconds = NumberIn(argument);
    if (milliseconds) return Step{StepKind::Wait, *milliseconds, {}, {}};
  } else if (word == "until") {
    const auto pixel = PixelIn(argument, rest);
    if (pixel && rest.empty()) return Step{StepKind::Until, 0, {}, *pixel};
  } else if (word == "catch") {
    const auto pixel = PixelIn(argument, rest);
    if (pixel && !rest.empty()) return Step{StepKind::Catch, 0, rest, *pixel};
  } else if (word == "key") {
    const auto virtualKey = VirtualKeyOf(argument);
    if (virtualKey) return Step{StepKind::Key, *virtualKey, {}, {}};
  } else if (word == "shot") {
    if (!argument.empty()) return Step{StepKind::Shot, 0, argument, {}};
  } else if (word == "expose") {
    if (argument.empty()) return Step{StepKind::Expose, 0, {}, {}};
  } else if (word == "exit") {
    if (argument.empty()) return Step{StepKind::Exit, 0, {}, {}};
  }
  return std::nullopt;
}

}  // namespace

bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem) {
  std::vector<Step> read;
  std::string line;
  for (unsigned number = 1; std::getline(text, line); ++number) {
    line = Trimmed(line);
    if (line.empty() || line.front() == '#') continue;
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    const auto step = StepOf(line.substr(0, end), Trimmed(line.substr(end)));
    if (!step) {
      problem = "line " + std::to_string(number) + ": no such step: " + line;
      return false;
    }
    read.push_back(*step);
  }
  steps = std::move(read);
  return true;
}

}  // namespace player
