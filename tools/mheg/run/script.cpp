// Names of keys are the player's; their numbers come from the keyboard of the engine.
#include "mheg/run/script.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <optional>
#include <utility>

#include "mheg/run/expectations.h"
#include "objects/vocabulary.h"
#include "player/key_names.h"

namespace mheg {
namespace {

constexpr const char* kBlanks = " \t\r";
constexpr const char* kKeyNames =
    "Up, Down, Left, Right, OK, Cancel, Info, 0 to 9, Red, Green, Yellow, Blue, Text";
constexpr const char* kStepNames =
    "key NAME, wait MS, expect STATE, exit; shot, until, catch and expose are skipped";
constexpr std::string_view kPictureSteps[] = {"shot", "until", "catch", "expose"};

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<std::uint32_t> NumberIn(std::string_view text) {
  std::uint32_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

// A time: "500", "500ms" or "2s".
std::optional<std::uint32_t> MillisecondsIn(std::string_view text) {
  constexpr std::uint32_t kMsPerSecond = 1000;
  constexpr std::uint32_t kMost = UINT32_MAX / kMsPerSecond;
  if (text.ends_with("ms")) return NumberIn(text.substr(0, text.size() - 2));
  if (!text.ends_with('s')) return NumberIn(text);
  const auto seconds = NumberIn(text.substr(0, text.size() - 1));
  if (!seconds || *seconds > kMost) return std::nullopt;
  return *seconds * kMsPerSecond;
}

bool ReadKey(const std::string& name, Step& step, std::string& problem) {
  const auto virtualKey = player::VirtualKeyOf(name);
  step.kind = StepKind::Key;
  step.number = virtualKey ? static_cast<std::uint32_t>(korvel::UserInputKey(*virtualKey)) : 0;
  if (virtualKey) return true;
  problem = "no such key: " + name + " (keys: " + kKeyNames + ")";
  return false;
}

bool ReadWait(const std::string& time, Step& step, std::string& problem) {
  const auto milliseconds = MillisecondsIn(time);
  step.kind = StepKind::Wait;
  step.number = milliseconds.value_or(0);
  if (!milliseconds) problem = "no such time: " + time + " (milliseconds, or seconds as 2s)";
  return milliseconds.has_value();
}

// A word that begins with a quote ends at the next one that no backslash precedes.
std::vector<std::string> WordsOf(const std::string& text) {
  std::vector<std::string> words;
  std::size_t at = text.find_first_not_of(kBlanks);
  while (at != std::string::npos) {
    std::size_t end = at + 1;
    if (text[at] == '"') {
      while (end < text.size() && text[end] != '"') end += text[end] == '\\' ? 2 : 1;
    }
    end = std::min(text.find_first_of(kBlanks, end), text.size());
    words.push_back(text.substr(at, end - at));
    at = text.find_first_not_of(kBlanks, end);
  }
  return words;
}

bool ReadStep(const std::string& word, const std::string& argument, Step& step,
              std::string& problem) {
  if (word == "key") return ReadKey(argument, step, problem);
  if (word == "wait") return ReadWait(argument, step, problem);
  if (word == "expect") {
    step.kind = StepKind::Expect;
    step.words = WordsOf(argument);
    return IsExpectation(step.words, problem);
  }
  step.kind = StepKind::Exit;
  if (word == "exit" && argument.empty()) return true;
  problem = "no such step: " + step.text + " (steps: " + kStepNames + ")";
  return false;
}

// A key with an optional count, or a wait.
bool ReadKeyWord(const std::string& word, Step& step, std::string& problem) {
  constexpr std::string_view kWait = "wait:";
  if (word.starts_with(kWait)) return ReadWait(word.substr(kWait.size()), step, problem);
  const std::size_t star = std::min(word.find('*'), word.size());
  if (star < word.size()) {
    const auto count = NumberIn(std::string_view(word).substr(star + 1));
    if (!count) {
      problem = "no such count: " + word;
      return false;
    }
    step.count = *count;
  }
  return ReadKey(word.substr(0, star), step, problem);
}

}  // namespace

bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem) {
  std::string line;
  for (unsigned number = 1; std::getline(text, line); ++number) {
    line = Trimmed(line);
    if (line.empty() || line.front() == '#') continue;
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    const std::string word = line.substr(0, end);
    if (std::ranges::find(kPictureSteps, word) != std::end(kPictureSteps)) continue;
    Step step;
    step.text = line;
    step.line = number;
    if (!ReadStep(word, Trimmed(line.substr(end)), step, problem)) {
      problem.insert(0, std::to_string(number) + ": ");
      return false;
    }
    steps.push_back(std::move(step));
  }
  return true;
}

bool ReadKeys(std::string_view text, std::vector<Step>& steps, std::string& problem) {
  for (const std::string& word : WordsOf(std::string(text))) {
    Step step;
    step.text = word;
    if (!ReadKeyWord(word, step, problem)) return false;
    steps.push_back(std::move(step));
  }
  return true;
}

}  // namespace mheg
