// A line has the word of a step and its argument. The argument is the rest of the line, because
// names of keys and files may contain blanks.
#include "mheg/script.h"

#include <algorithm>
#include <charconv>
#include <istream>
#include <optional>
#include <sstream>
#include <utility>

#include "mheg/key_names.h"
#include "mheg/path_text.h"
#include "mheg/read_file.h"

namespace mheg {
namespace {

constexpr const char* kBlanks = " \t\r";

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::optional<std::uint32_t> NumberIn(std::string_view text, int base = 10) {
  std::uint32_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, base);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

std::optional<std::uint32_t> MillisecondsIn(std::string_view text) {
  constexpr std::uint32_t kMsPerSecond = 1000;
  constexpr std::uint32_t kMost = UINT32_MAX / kMsPerSecond;
  if (text.ends_with("ms")) return NumberIn(text.substr(0, text.size() - 2));
  if (!text.ends_with('s')) return NumberIn(text);
  const auto seconds = NumberIn(text.substr(0, text.size() - 1));
  if (!seconds || *seconds > kMost) return std::nullopt;
  return *seconds * kMsPerSecond;
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

// Divides the text at blanks. Blanks inside double quotes, where a backslash escapes a quote, do
// not divide it.
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

// Each function below reads the argument of one kind of step. If it is invalid, the function
// returns false, and may describe the mistake in `problem`.

bool ReadKey(const std::string& name, Step& step, std::string& problem) {
  const auto virtualKey = VirtualKeyOf(name);
  step.number = virtualKey.value_or(0);
  if (!virtualKey) problem = "no such key: " + name + " (keys: " + kKeyList + ")";
  return virtualKey.has_value();
}

bool ReadWait(const std::string& time, Step& step, std::string& problem) {
  const auto milliseconds = MillisecondsIn(time);
  step.number = milliseconds.value_or(0);
  if (!milliseconds) problem = "no such time: " + time + " (milliseconds, or seconds as 2s)";
  return milliseconds.has_value();
}

bool ReadPixel(const std::string& argument, Step& step) {
  const auto pixel = PixelIn(argument, step.file);
  step.pixel = pixel.value_or(Pixel{});
  return pixel && step.file.empty() == (step.kind == StepKind::Until);
}

bool ReadArgument(const std::string& argument, Step& step, std::string& problem) {
  switch (step.kind) {
  case StepKind::Key: return ReadKey(argument, step, problem);
  case StepKind::Wait: return ReadWait(argument, step, problem);
  case StepKind::Until:
  case StepKind::Catch: return ReadPixel(argument, step);
  case StepKind::Shot: step.file = argument; return !argument.empty();
  case StepKind::Expect: step.words = WordsOf(argument); return !argument.empty();
  case StepKind::Expose:
  case StepKind::Exit: return argument.empty();
  }
  return false;
}

struct StepForm {
  StepKind kind;
  std::string_view word;
  const char* form;
};

constexpr StepForm kForms[] = {
    {StepKind::Key, "key", "key NAME"},
    {StepKind::Wait, "wait", "wait MS"},
    {StepKind::Shot, "shot", "shot FILE.png"},
    {StepKind::Until, "until", "until X Y #RRGGBB"},
    {StepKind::Catch, "catch", "catch X Y #RRGGBB FILE.png"},
    {StepKind::Expose, "expose", "expose"},
    {StepKind::Expect, "expect", "expect STATE"},
    {StepKind::Exit, "exit", "exit"},
};

// Reads the step that is written in `step.text`.
bool ReadStep(Step& step, std::string& problem) {
  const std::size_t end = std::min(step.text.find_first_of(kBlanks), step.text.size());
  const std::string word = step.text.substr(0, end);
  const auto* form = std::ranges::find(kForms, word, &StepForm::word);
  if (form != std::end(kForms)) {
    step.kind = form->kind;
    if (ReadArgument(Trimmed(step.text.substr(end)), step, problem)) return true;
  }
  if (problem.empty()) problem = "no such step: " + step.text + " (steps: " + StepForms() + ")";
  return false;
}

// A key with an optional count, or a wait.
bool ReadKeyWord(const std::string& word, Step& step, std::string& problem) {
  constexpr std::string_view kWait = "wait:";
  step.kind = StepKind::Wait;
  if (word.starts_with(kWait)) return ReadWait(word.substr(kWait.size()), step, problem);
  step.kind = StepKind::Key;
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

std::string StepForms() {
  std::string forms;
  for (const StepForm& step : kForms) forms.append(forms.empty() ? "" : ", ").append(step.form);
  return forms;
}

bool ReadScript(std::istream& text, std::vector<Step>& steps, std::string& problem) {
  std::vector<Step> read;
  std::string line;
  for (unsigned number = 1; std::getline(text, line); ++number) {
    Step step;
    step.text = Trimmed(line);
    step.line = number;
    if (step.text.empty() || step.text.front() == '#') continue;
    problem.clear();
    if (!ReadStep(step, problem)) {
      problem.insert(0, std::to_string(number) + ": ");
      return false;
    }
    read.push_back(std::move(step));
  }
  steps = std::move(read);
  return true;
}

bool ReadScriptFile(const std::filesystem::path& file, std::vector<Step>& steps,
                    std::string& problem) {
  std::string bytes;
  if (const char* reason = ReadBytes(file, bytes)) {
    problem = TextOf(file) + ": " + reason;
    return false;
  }
  std::istringstream text(bytes);
  if (ReadScript(text, steps, problem)) return true;
  problem.insert(0, TextOf(file) + ":");
  return false;
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
