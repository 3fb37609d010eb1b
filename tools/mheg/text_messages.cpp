// A message names the construct with the error, the text that was found, the alternatives that were
// expected, and the alternative that is most similar to a misspelt word.
#include "mheg/text_messages.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "mheg/parameter_names.h"
#include "mheg/report_words.h"
#include "mheg/suggestion.h"
#include "objects/objects.h"

namespace mheg {
namespace {

using namespace korvel;

using Candidates = std::vector<std::string_view>;

// ---- The text that was found ----

std::size_t CharacterLength(char first) {
  const auto byte = static_cast<unsigned char>(first);
  if (byte < 0x80) return 1;
  if (byte < 0xE0) return 2;
  return byte < 0xF0 ? 3 : 4;
}

std::string Shown(std::string_view found) {
  constexpr std::size_t kMostBytes = 40;
  constexpr std::string_view kPunctuation = ",;.=<>[]|&*+!?";
  if (found.empty()) return "the end of the text";
  if (found == "\xEF\xBB\xBF") return "a byte order mark";
  const auto first = static_cast<unsigned char>(found.front());
  const bool isCharacter = first > ' ' && first != 127 && (first < 0x80 || first >= 0xC2) &&
                           CharacterLength(found.front()) <= found.size();
  if (!isCharacter) return "byte " + std::to_string(first);
  std::string shown(found.substr(0, kMostBytes));
  if (found.size() > kMostBytes) shown += "...";
  std::replace_if(
      shown.begin(), shown.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return kPunctuation.find(found.front()) == std::string_view::npos ? shown : '"' + shown + '"';
}

// ---- The expected alternatives ----

template <class Record> void AddAttributes(std::string_view className, Candidates& candidates) {
  if (Description<Record>::heading.keyword + 1 != className) return;
  ForEachWrittenAttribute<Record>(
      [&](const char* keyword, const Form& /*form*/) { candidates.emplace_back(keyword); });
}

Candidates AttributesOf(std::string_view className) {
  Candidates candidates;
  const auto add = [&]<class Record>() { AddAttributes<Record>(className, candidates); };
  ForEachClass(Classes<Application, Scene>{}, add);
  ForEachClass(ItemClasses{}, add);
  ForEachClass(ComponentClasses{}, add);
  return candidates;
}

template <class AnyClasses> Candidates KeywordsOf(AnyClasses classes) {
  Candidates candidates;
  ForEachClass(classes, [&]<class Record>() {
    candidates.emplace_back(Description<Record>::heading.keyword);
  });
  return candidates;
}

Candidates ClassesIn(const TextError& error) {
  if (*error.owner == 0) return KeywordsOf(Classes<Application, Scene>{});
  const bool isStream = std::string_view(error.owner) == Description<Stream>::heading.keyword + 1;
  return isStream ? KeywordsOf(ComponentClasses{}) : KeywordsOf(ItemClasses{});
}

// The keywords of all actions, with their colons.
const Candidates& AllActions() {
  static const std::vector<std::string> keywords = [] {
    std::vector<std::string> all;
    for (std::uint8_t number = 1; number <= kDecodedActionCount; ++number) {
      all.push_back(std::string(":") + FindAction(number)->name);
    }
    return all;
  }();
  static const Candidates candidates(keywords.begin(), keywords.end());
  return candidates;
}

Candidates CandidatesFor(const TextError& error) {
  switch (error.choice) {
  case TextChoice::None: break;
  case TextChoice::Attribute: return AttributesOf(error.owner);
  case TextChoice::Class: return ClassesIn(error);
  case TextChoice::Action: return AllActions();
  }
  Candidates candidates(error.words.begin(), error.words.end());
  if (error.expected[0] == ':') candidates.emplace_back(error.expected);
  return candidates;
}

// Lists the alternatives, or only describes them if there are many. Events are listed in full
// unless the message has a hint.
std::string ChoiceOf(const TextError& error, const Candidates& candidates, bool hasHint) {
  constexpr std::size_t kMostListed = 8;
  const bool areEvents = error.words.size() > kMostListed;  // no other type has as many words
  if (areEvents && hasHint) return "an event";
  if (!error.words.empty()) return Joined(candidates, ", ", " or ");
  if (error.choice == TextChoice::Attribute) return std::string("an attribute of ") + error.owner;
  if (error.choice == TextChoice::Action) return "an action";
  return candidates.size() <= kMostListed ? Joined(candidates, ", ", " or ")
                                          : "a class such as :Text";
}

std::string Expected(const TextError& error, const Candidates& candidates, bool hasHint) {
  const bool hasChoice = error.choice != TextChoice::None || !error.words.empty();
  std::string expected = error.expected;
  if (!hasChoice) return expected;
  if (!expected.empty()) expected += " or ";
  return expected + ChoiceOf(error, candidates, hasHint);
}

// ---- Hints ----

bool IsWebColour(std::string_view found) {
  return found.size() == 7 && found.front() == '#' &&
         found.find_first_not_of("0123456789ABCDEFabcdef", 1) == std::string_view::npos;
}

std::string Hint(std::string_view found, const Candidates& candidates) {
  if (found.starts_with(',')) return " (values are separated by spaces)";
  if (IsWebColour(found)) {
    std::string colour = "'";
    for (std::size_t i = 1; i < found.size(); i += 2) colour.append("=").append(found.substr(i, 2));
    return " (did you mean " + colour + "'?)";
  }
  const std::string_view nearest = NearestWord(found, candidates);
  return nearest.empty() ? "" : " (did you mean " + std::string(nearest) + "?)";
}

// ---- Messages ----

std::string Context(const TextError& error) {
  const std::string owner = error.owner;
  if (owner.empty()) return "";
  return "in " + owner + (*error.part == 0 ? "" : " ") + error.part + ": ";
}

std::string FirstOccurrence(std::string_view text, const TextError& error) {
  if (error.first == 0) return "";
  return " (the first one is in line " + std::to_string(PlaceInText(text, error.first).line) + ")";
}

std::string Explained(std::string_view text, const TextError& error) {
  const std::string_view found = text.substr(error.offset, error.length);
  const Candidates candidates = CandidatesFor(error);
  const std::string hint = Hint(found, candidates);
  return Context(error) + "found " + Shown(found) + ", expected " +
         Expected(error, candidates, !hint.empty()) + hint + FirstOccurrence(text, error);
}

std::string Explained(const MissingPart& part) {
  std::string missing = part.name;
  const auto names = ParameterNames(part.owner);
  if (missing.empty()) missing = names[part.parameter];
  return std::string(part.owner) + " lacks " + missing;
}

Message MessageAt(std::string_view text, std::size_t offset, std::size_t length,
                  std::string explained, const GroupFile& file) {
  const TextPlace place = PlaceInText(text, offset);
  return {file.path, std::move(explained), place, ExcerptAt(text, place, length)};
}

}  // namespace

void AddMessages(std::string_view text, const TextReport& report, GroupFile& file) {
  const std::size_t first = file.messages.size();
  for (const TextError& error : report.errors) {
    file.messages.push_back(
        MessageAt(text, error.offset, error.length, Explained(text, error), file));
  }
  for (const MissingPart& part : report.missing) {
    file.messages.push_back(MessageAt(text, part.offset, 1, Explained(part), file));
  }
  std::stable_sort(file.messages.begin() + static_cast<std::ptrdiff_t>(first), file.messages.end(),
                   [](const Message& one, const Message& other) {
                     return one.place.line != other.place.line
                                ? one.place.line < other.place.line
                                : one.place.column < other.place.column;
                   });
  if (report.errors.Size() == kMostTextErrors) {
    file.messages.push_back(
        {file.path, "only the first " + std::to_string(kMostTextErrors) + " errors are reported"});
  }
}

}  // namespace mheg
