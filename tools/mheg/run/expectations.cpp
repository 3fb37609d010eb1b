// Compares the state of the engine core with the words of a script.
#include "mheg/run/expectations.h"

#include <charconv>
#include <cstdint>
#include <string_view>

#include "engine/engine.h"
#include "mheg/run/surroundings.h"
#include "mheg/run/words.h"

namespace mheg {
namespace {

using korvel::FoundObject;
using korvel::ItemType;
using Words = std::vector<std::string>;

// The form of an expectation: its word, whether an object follows, and the number of values.
struct Form {
  std::string_view word;
  bool hasObject;
  std::size_t fewestValues;
  std::size_t mostValues;
  const char* text;
};

constexpr std::size_t kAny = 100'000;
constexpr Form kForms[] = {
    {"scene", false, 1, 1, "scene NAME"},
    {"application", false, 1, 1, "application NAME"},
    {"variable", true, 1, kAny, "variable [GROUP] N VALUE"},
    {"text", true, 1, kAny, "text [GROUP] N TEXT"},
    {"running", true, 0, 0, "running [GROUP] N"},
    {"stopped", true, 0, 0, "stopped [GROUP] N"},
    {"available", true, 0, 0, "available [GROUP] N"},
    {"position", true, 2, 2, "position [GROUP] N X Y"},
    {"list", true, 1, kAny, "list [GROUP] N FIRST [ITEM ...]"},
    {"silence", false, 0, 0, "silence"},
};

std::optional<std::int32_t> NumberIn(std::string_view text) {
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

// The parts of an expectation.
struct Expectation {
  const Form* form = nullptr;
  std::string group;  // empty: the current scene or application
  std::int32_t number = 0;
  Words values;
};

std::optional<Expectation> Parse(const Words& words) {
  Expectation parsed;
  for (const Form& form : kForms) {
    if (!words.empty() && words.front() == form.word) parsed.form = &form;
  }
  if (parsed.form == nullptr) return std::nullopt;
  auto next = words.begin() + 1;
  if (parsed.form->hasObject) {
    if (next != words.end() && !NumberIn(*next)) parsed.group = *next++;
    if (next == words.end()) return std::nullopt;
    const auto number = NumberIn(*next++);
    if (!number) return std::nullopt;
    parsed.number = *number;
  }
  parsed.values.assign(next, words.end());
  const std::size_t count = parsed.values.size();
  if (count < parsed.form->fewestValues || count > parsed.form->mostValues) return std::nullopt;
  return parsed;
}

std::string_view GroupName(const korvel::Group* group) {
  return group == nullptr ? "none" : group->Reference.GroupIdentifier.View();
}

FoundObject Find(const Expectation& expected) {
  using korvel::FindObject;
  using korvel::Scope;
  if (!expected.group.empty()) {
    return FindObject(Scope::SceneFirst, expected.group, expected.number);
  }
  const std::string_view scene = GroupName(korvel::CurrentScene());
  const FoundObject found = FindObject(Scope::SceneFirst, scene, expected.number);
  if (found) return found;
  const std::string_view application = GroupName(korvel::CurrentApplication());
  return FindObject(Scope::SceneFirst, application, expected.number);
}

// A script may omit the quotes around a string.
bool IsSameValue(const std::string& actual, const std::string& expected) {
  return actual == expected || actual == Quoted(expected);
}

std::string StatusOf(const FoundObject& found) {
  if (found.object->RunningStatus) return "running";
  return found.object->AvailabilityStatus ? "stopped" : "not available";
}

std::string StateOf(const korvel::ListGroup& list) {
  std::string state = std::to_string(list.FirstItem);
  for (const korvel::ListItem& item : list.ItemList) {
    state += " " + std::to_string(item.AVisible.Number) + (item.IsSelected ? "*" : "");
  }
  return state;
}

std::optional<std::string> ActualUnless(bool isSame, const std::string& actual) {
  return isSame ? std::nullopt : std::optional(actual);
}

std::optional<std::string> DifferenceOfStatus(const FoundObject& found, std::string_view word) {
  const std::string status = StatusOf(found);
  const bool isAvailable = word == "available" && found.object->AvailabilityStatus;
  const bool isStopped = word == "stopped" && !found.object->RunningStatus;
  return ActualUnless(isAvailable || isStopped || status == word, status);
}

// Compares the state of an object that exists.
std::optional<std::string> DifferenceOf(const Expectation& expected, const FoundObject& found) {
  const std::string_view word = expected.form->word;
  if (word == "running" || word == "stopped" || word == "available") {
    return DifferenceOfStatus(found, word);
  }
  if (word == "variable" && korvel::Contains(korvel::kVariables, found.type)) {
    const std::string value = ValueOf(found.As<korvel::Ingredient>());
    return ActualUnless(IsSameValue(value, Joined(expected.values, " ")), value);
  }
  if (word == "text" && korvel::Contains(korvel::kTexts, found.type)) {
    const std::string text = Quoted(found.As<korvel::Text>().TextData.View());
    return ActualUnless(IsSameValue(text, Joined(expected.values, " ")), text);
  }
  if (word == "position" && korvel::Contains(korvel::kVisibles, found.type)) {
    const korvel::Position& at = found.As<korvel::Visible>().Position;
    const std::string position = std::to_string(at.X) + " " + std::to_string(at.Y);
    return ActualUnless(position == Joined(expected.values, " "), position);
  }
  if (word == "list" && found.type == ItemType::ListGroup) {
    const std::string state = StateOf(found.As<korvel::ListGroup>());
    const std::string wanted = Joined(expected.values, " ");
    const bool isFirstAlone = expected.values.size() == 1;
    return ActualUnless(state == wanted || (isFirstAlone && state.starts_with(wanted + " ")),
                        state);
  }
  return "an object of class " + ClassName(found.type);
}

std::optional<std::string> DifferenceOfGroup(const std::string& expected,
                                             const korvel::Group* group) {
  const std::string_view name = GroupName(group);
  return ActualUnless(korvel::IsSameGroup(name, expected), std::string(name));
}

}  // namespace

bool IsExpectation(const Words& words, std::string& problem) {
  if (Parse(words)) return true;
  problem = "no such state: " + Joined(words, " ") + " (states:";
  for (const Form& form : kForms) problem += std::string(" ") + form.text + ",";
  problem.back() = ')';
  return false;
}

std::optional<std::string> FindDifference(const Words& words) {
  const std::optional<Expectation> expected = Parse(words);
  const std::string_view word = expected->form->word;
  if (word == "scene") return DifferenceOfGroup(expected->values[0], korvel::CurrentScene());
  if (word == "application") {
    return DifferenceOfGroup(expected->values[0], korvel::CurrentApplication());
  }
  if (word == "silence") {
    const auto& messages = TheSurroundings().messages;
    return messages.empty() ? std::nullopt : std::optional("the message " + messages.front());
  }
  const FoundObject found = Find(*expected);
  return found ? DifferenceOf(*expected, found) : std::optional<std::string>("no such object");
}

}  // namespace mheg
