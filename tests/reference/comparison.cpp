// Starts the application of a case, plays its steps, and collects what the engine reports.
#include "comparison.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <unordered_map>
#include <utility>

#include "actions/actions.h"
#include "actions/behaviours.h"
#include "objects/action_table.h"
#include "objects/ownership.h"
#include "substitutes/host.h"
#include "substitutes/presentation.h"
#include "support/text_content.h"

namespace korvel::test {
namespace {

// Everything that the engine prints. glibc allows replacing stdout by a stream in memory, which is
// much faster than redirecting it to a file for each step.
struct Printed {
  std::FILE* original = nullptr;
  char* text = nullptr;
  std::size_t length = 0;
};
Printed printed;

std::string TakePrinted() {
  std::fflush(stdout);
  std::string text(printed.text, printed.length);
  std::rewind(stdout);
  return text;
}

std::uint64_t NumberFrom(const char* variable, std::uint64_t fallback) {
  const char* text = std::getenv(variable);
  return text == nullptr ? fallback : std::strtoull(text, nullptr, 10);
}

// Many cases contain the same texts, so each text is compiled once.
const std::string& Compiled(const std::string& text) {
  static std::unordered_map<std::string, std::string> cache;
  if (cache.size() > 10'000) cache.clear();
  std::string& bytes = cache[text];
  if (bytes.empty()) bytes = CompileText(text);
  return bytes;
}
const ActionList& ActionsOf(const Step& step) {
  static std::unordered_map<std::string, OwnedGroup> cache;
  if (cache.size() > 10'000) cache.clear();
  OwnedGroup& group = cache[step.Text()];
  if (group) return group->OnCloseDown;
  // The textual notation lacks SetCellPosition: read a DrawLine and replace its action number.
  Step written = step;
  const bool isCell = step.action == "SetCellPosition";
  if (isCell) {
    written.action = "DrawLine";
    written.numbers.push_back(0);
  }
  group = ParseText("{:Application (\"~/a\" 0) :OnCloseDown (" + written.Text() + ")}");
  if (isCell) group->OnCloseDown[0].ActionType = static_cast<std::uint8_t>(Action::SetCellPosition);
  return group->OnCloseDown;
}

}  // namespace

std::int32_t Random::Around(std::int32_t least, std::int32_t most) {
  if (!OneIn(20)) return Between(least, most);
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  const std::array values = {kMin, kMin + 1, -1000, 1000, kMax - 1, kMax};
  return values[static_cast<std::size_t>(Between(0, static_cast<std::int32_t>(values.size()) - 1))];
}

std::string Step::Text() const {
  std::string text = ":" + action + "(";
  for (const std::int32_t number : numbers) text += std::to_string(number) + " ";
  return text + last + ")";
}

std::string WatchLinks(std::int32_t source, std::string_view event, std::string_view data) {
  const auto& words = kWords<EventType>;
  const auto index = std::find(words.begin(), words.end(), event) - words.begin();
  std::int32_t number = 10'000 * source + 100 * static_cast<std::int32_t>(index + 1);
  std::string links;
  const auto add = [&](const std::string& value, std::string_view mark) {
    links += "{:Link " + std::to_string(number++) + " :Shared TRUE :EventSource " +
             std::to_string(source) + " :EventType " + std::string(event) +
             (value.empty() ? "" : " :EventData " + value) + " :LinkEffect (:Append(" +
             std::to_string(kLog) + " \"" + std::string(mark) + " \"))}\n";
  };
  add("", event);
  if (data == "boolean") {
    add("FALSE", "FALSE");
    add("TRUE", "TRUE");
  }
  if (data == "integer") {
    for (std::int32_t value = kLeastWatched; value <= kMostWatched; ++value) {
      add(std::to_string(value), std::to_string(value));
    }
  }
  return links;
}

std::string FailLink(std::int32_t number, std::int32_t source, std::string_view event) {
  return "{:Link " + std::to_string(number) + " :EventSource " + std::to_string(source) +
         " :EventType " + std::string(event) + " :LinkEffect (" + std::string(kFail) + ")}\n";
}

void StartCase(const std::string& items, const std::map<std::string, std::string>& scenes) {
  TheHost().fetched.clear();
  for (const auto& [file, text] : scenes) TheHost().files[file] = Compiled(text);
  TheHost().files["a"] =
      Compiled("{:Application (\"~/a\" 0) :Items ({:OStringVar " + std::to_string(kLog) +
               " :Shared TRUE :OrigValue \"\"} {:TokenGroup 901 :Shared TRUE"
               " :MovementTable ((1)) :TokenGroupItems ()}\n" +
               items + ")}");
  BeginWork();
  EXPECT_EQ(StartEngine(""), Status::Done);
  EXPECT_TRUE(ObjectOf<OctetStringVariable>(kLog).Value.Assign(""));
  TakePrinted();
}

Outcome Play(const Step& step) {
  Outcome outcome;
  ThePresentation().redraws = 0;
  BeginWork();
  const std::vector<std::int32_t>& numbers = step.numbers;
  if (step.action == "Key") {
    outcome.status = RaiseOutsideEvent(0, EventType::UserInput, numbers[0]);
  } else if (step.action == "Enter") {
    auto& field = ObjectOf<EntryField>(numbers[0]);
    if (field.InteractionStatus) {
      outcome.status = EnterCharacter(field, static_cast<char>(numbers[1]));
    }
  } else if (step.action == "Raise") {
    const auto type = static_cast<EventType>(numbers[1]);
    const EventData data = {static_cast<ValueKind>(numbers[2]), numbers[3]};
    outcome.status = step.last.empty() ? RaiseEventByType(type, data)
                                       : RaiseEvent(step.last, numbers[0], type, data);
  } else {
    outcome.status =
        RunActions(Scope::ApplicationFirst, {&ActionsOf(step), CurrentApplication()}, "~/a");
  }
  outcome.messages = TakePrinted();
  outcome.redraws = ThePresentation().redraws;
  OctetString& log = ObjectOf<OctetStringVariable>(kLog).Value;
  outcome.events = log.View();
  EXPECT_TRUE(log.Assign(""));
  return outcome;
}

std::string StackText() {
  std::string numbers;
  for (const StackedVisible& entry : CurrentApplication()->DisplayStack) {
    numbers += std::to_string(entry.visible->Reference.Number) + " ";
  }
  return numbers;
}

EngineRun::EngineRun() {
  TheHost() = {};
  ThePresentation() = {};
  printed.original = stdout;
  stdout = open_memstream(&printed.text, &printed.length);
}

EngineRun::~EngineRun() {
  CloseDown();
  ResetEngine();
  std::fclose(std::exchange(stdout, printed.original));
  std::free(printed.text);
}

std::uint64_t FirstSeed() { return NumberFrom("KORVEL_REFERENCE_SEED", 1); }
std::uint64_t CaseCount(std::uint64_t usual) { return NumberFrom("KORVEL_REFERENCE_CASES", usual); }

std::string Difference(const Outcome& model, const Outcome& engine) {
  const auto text = [](const Outcome& outcome) {
    return "status " + std::to_string(static_cast<std::uint32_t>(outcome.status)) + ", events \"" +
           outcome.events + "\", messages \"" + outcome.messages + "\", redraws " +
           std::to_string(outcome.redraws);
  };
  return "\n  model  " + text(model) + "\n  engine " + text(engine);
}

}  // namespace korvel::test
