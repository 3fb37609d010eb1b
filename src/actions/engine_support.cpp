// The features that the engine reports as supported: those of the broadcast profile, by their long
// and short names. All others are reported as not supported.
#include <charconv>
#include <string_view>

#include "actions/behaviours.h"
#include "objects/bounded_list.h"

namespace korvel {
namespace {

// The arguments with which a feature is supported.
enum class Rule : std::uint8_t {
  Always,        // no argument
  AnyNumber,     // one argument of any value
  AtMostOne,     // one argument, at most 1
  ExactlyOne,    // one argument, which is 1
  SceneSize,     // width and height
  SceneRatio,    // width and height
  PositiveSize,  // a content hook, a width and a height
};

struct Feature {
  std::string_view longName;
  std::string_view shortName;
  Rule rule;
};

constexpr Feature kFeatures[] = {
    {"ApplicationStacking", "ASt", Rule::Always},
    {"OverlappingVisibles", "OvV", Rule::AnyNumber},
    {"MultipleAudioStreams", "MAS", Rule::AtMostOne},
    {"MultipleVideoStreams", "MVS", Rule::AtMostOne},
    {"SceneCoordinateSystem", "SCS", Rule::SceneSize},
    {"SceneAspectRatio", "SAR", Rule::SceneRatio},
    {"BitmapScaling", "BSc", Rule::PositiveSize},
    {"VideoScaling", "VSc", Rule::PositiveSize},
    {"UKEngineProfile", "UEP", Rule::ExactlyOne},
};

constexpr std::size_t kMostNumbers = 3;

// A parsed query: the name of a feature, and numbers in parentheses.
struct Question {
  std::string_view name;
  BoundedList<std::int32_t, kMostNumbers> numbers;
};

// Removes one number from the front of `rest`. False when there is none.
bool TakeNumber(std::string_view& rest, std::int32_t& number) {
  const char* const end = rest.data() + rest.size();
  const auto [next, error] = std::from_chars(rest.data(), end, number);
  if (error != std::errc()) return false;
  rest.remove_prefix(static_cast<std::size_t>(next - rest.data()));
  return true;
}

// False if the text is malformed.
bool ReadQuestion(std::string_view text, Question& question) {
  const std::size_t open = text.find('(');
  question.name = text.substr(0, open);
  if (open == std::string_view::npos) return true;
  std::string_view rest = text.substr(open + 1);
  std::int32_t number = 0;
  while (!question.numbers.IsFull() && TakeNumber(rest, number)) {
    question.numbers.Append(number);
    if (rest == ")") return true;
    if (!rest.starts_with(',')) return false;
    rest.remove_prefix(1);
  }
  return false;
}

bool IsSupported(Rule rule, const Question& question) {
  const auto& numbers = question.numbers;
  const std::size_t count = numbers.Size();
  switch (rule) {
  case Rule::Always: return count == 0;
  case Rule::AnyNumber: return count == 1;
  case Rule::AtMostOne: return count == 1 && numbers[0] <= 1;
  case Rule::ExactlyOne: return count == 1 && numbers[0] == 1;
  case Rule::SceneSize: return count == 2 && numbers[0] == 720 && numbers[1] == 576;
  case Rule::SceneRatio: return count == 2 && numbers[0] == 4 && numbers[1] == 3;
  case Rule::PositiveSize: return count == 3 && numbers[1] > 0 && numbers[2] > 0;
  }
  return false;
}

bool IsFeatureSupported(std::string_view text) {
  Question question;
  if (!ReadQuestion(text, question)) return false;
  for (const Feature& feature : kFeatures) {
    if (question.name == feature.longName || question.name == feature.shortName) {
      return IsSupported(feature.rule, question);
    }
  }
  return false;
}

}  // namespace

Status GetEngineSupport(const Arguments& arguments) {
  return AnswerBoolean(arguments, 1, IsFeatureSupported(arguments.Octets(0)));
}

}  // namespace korvel
