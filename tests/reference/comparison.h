// Plays random cases in the engine and in a reference model, and compares both after every step:
// the result, the events in order, the messages, the redraws, and the state. A failure prints the
// case in the textual notation, with as few steps as still show the difference.
// KORVEL_REFERENCE_CASES and KORVEL_REFERENCE_SEED set the number of cases and the seed of the
// first one; case n has the seed of the first case plus n.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine.h"

namespace korvel::test {

// Generates the same numbers on every machine, which the distributions of the standard library do
// not promise.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed * 0xD1342543DE82EF95U) {}
  // A number from `least` to `most`.
  std::int32_t Between(std::int32_t least, std::int32_t most) {
    const auto count = static_cast<std::uint64_t>(std::int64_t{most} - least + 1);
    return static_cast<std::int32_t>(least + static_cast<std::int64_t>(Next() % count));
  }
  bool OneIn(std::int32_t count) { return Between(1, count) == 1; }
  // Mostly a number from `least` to `most`, sometimes a very small or large one.
  std::int32_t Around(std::int32_t least, std::int32_t most);
  template <class T> const T& Of(const std::vector<T>& values) {
    return values[static_cast<std::size_t>(Next() % values.size())];
  }

 private:
  // The generator splitmix64.
  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = (state_ ^ (state_ >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }
  std::uint64_t state_;
};

// The element at a 1-based index.
template <class List> auto& At(List& list, std::int32_t number) {
  return list[static_cast<std::size_t>(number) - 1];
}

// An elementary action with a target and integers or references, which are written alike. Three
// kinds of step are not actions: "Key" has a key number; "Enter" has an entry field and a
// character, which arrives only while the field interacts; "Raise" has the number of the source,
// the event type, the kind and the value of the data, and the source's group, or no group for an
// event that is raised by type.
struct Step {
  std::string action;
  std::vector<std::int32_t> numbers;  // the target comes first
  std::string last = {};              // another parameter in the textual notation

  [[nodiscard]] std::string Text() const;
};

// The effects of a step.
struct Outcome {
  Status status = Status::Done;
  std::string events;
  std::string messages;
  int redraws = 0;  // requested by the actions
  bool operator==(const Outcome&) const = default;
};
// The integers that a link waits for, as data of an event.
inline constexpr std::int32_t kLeastWatched = -3;
inline constexpr std::int32_t kMostWatched = 10;

// The marks of an event. The engine's links and the models write the same ones.
inline std::string Mark(std::string_view event) { return std::string(event) + " "; }
inline std::string Mark(std::string_view event, std::int32_t data) {
  const bool isWatched = data >= kLeastWatched && data <= kMostWatched;
  return Mark(event) + (isWatched ? std::to_string(data) + " " : "");
}
inline std::string Mark(std::string_view event, bool data) {
  return Mark(event) + (data ? "TRUE " : "FALSE ");
}

// The values of a state, separated by blanks.
inline std::string Word(bool value) { return value ? "TRUE" : "FALSE"; }
inline std::string Word(std::int32_t value) { return std::to_string(value); }
inline std::string Word(std::string_view value) { return std::string(value); }
inline std::string Word(const char* value) { return value; }
template <class... Values> std::string Words(const Values&... values) {
  return ((Word(values) + " ") + ...);
}

// ---- The engine with one application ----

// Links of the application that write the marks of an event to its log. `data` is "integer",
// "boolean" or "none".
std::string WatchLinks(std::int32_t source, std::string_view event,
                       std::string_view data = "integer");

// The number of the variable that collects the marks.
inline constexpr std::int32_t kLog = 900;

// Actions that fail, which ends their list and all lists that caused it, and the message that they
// print.
inline constexpr std::string_view kFail = ":MoveTo((\"~/a\" 901) 5) :Move((\"~/a\" 901) 1)";
inline constexpr std::string_view kFailMessage = "Element Error\n";

// A link of the application that fails when the event occurs.
std::string FailLink(std::int32_t number, std::int32_t source, std::string_view event);

// Starts the application "~/a" with these items, in place of the running one. `scenes` maps file
// names to groups in the textual notation.
void StartCase(const std::string& items, const std::map<std::string, std::string>& scenes);
Outcome Play(const Step& step);

// The run-time value of an object of the application.
template <class Record> Record& ObjectOf(std::int32_t number) {
  return FindObject(Scope::ApplicationFirst, "~/a", number).As<Record>();
}
// The numbers of the visibles in the display stack, from the bottom.
std::string StackText();

// ---- The comparison ----

// Collects everything that the engine prints while the object exists. The destructor ends the
// engine.
class EngineRun {
 public:
  EngineRun();
  ~EngineRun();
  EngineRun(const EngineRun&) = delete;
  EngineRun& operator=(const EngineRun&) = delete;
};

std::uint64_t FirstSeed();
std::uint64_t CaseCount(std::uint64_t usual);
std::string Difference(const Outcome& model, const Outcome& engine);

// The scenes of a case, if the subject has any.
template <class Subject, class Setup>
std::map<std::string, std::string> ScenesOf(const Setup& setup) {
  if constexpr (requires { Subject::Scenes(setup); }) {
    return Subject::Scenes(setup);
  } else {
    return {};
  }
}

// Plays a step, with the subject's own function if it has one.
template <class Subject> Outcome PlayStep(const Step& step) {
  if constexpr (requires { Subject::Play(step); }) {
    return Subject::Play(step);
  } else {
    return Play(step);
  }
}

// The difference between model and engine after one of the steps, or nothing.
template <class Subject, class Setup>
std::optional<std::string> FindDifference(const Setup& setup, const std::vector<Step>& steps) {
  StartCase(Subject::Items(setup), ScenesOf<Subject>(setup));
  typename Subject::Model model(setup);
  if (Subject::EngineState(setup) != model.State()) {
    return "at the start\n  model  " + model.State() + "\n  engine " + Subject::EngineState(setup);
  }
  for (const Step& step : steps) {
    const Outcome engine = PlayStep<Subject>(step);
    const Outcome expected = model.Do(step);
    if (engine != expected) return "after " + step.Text() + Difference(expected, engine);
    if (Subject::EngineState(setup) != model.State()) {
      return "after " + step.Text() + "\n  model  " + model.State() + "\n  engine " +
             Subject::EngineState(setup);
    }
  }
  return std::nullopt;
}

// Removes every step without which the case still differs.
template <class Subject, class Setup> void Shrink(const Setup& setup, std::vector<Step>& steps) {
  for (std::size_t i = steps.size(); i-- > 0;) {
    std::vector<Step> fewer = steps;
    fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
    if (FindDifference<Subject>(setup, fewer)) steps = fewer;
  }
}

// `Subject` has a type Model, which is constructed from a setup and has Do(step) and State(),
// and the functions MakeSetup(random), MakeSteps(random, setup), Items(setup) and
// EngineState(setup).
template <class Subject> void CompareWithEngine(std::uint64_t usualCases) {
  std::optional<std::string> report;
  {
    const EngineRun run;
    const std::uint64_t first = FirstSeed();
    const std::uint64_t count = CaseCount(usualCases);
    for (std::uint64_t seed = first; seed < first + count && !report; ++seed) {
      Random random(seed);
      const auto setup = Subject::MakeSetup(random);
      std::vector<Step> steps = Subject::MakeSteps(random, setup);
      if (!FindDifference<Subject>(setup, steps)) continue;
      Shrink<Subject>(setup, steps);
      report = "seed " + std::to_string(seed) + "\n" + Subject::Items(setup) + "\n";
      for (const auto& [file, text] : ScenesOf<Subject>(setup)) *report += text + "\n";
      for (const Step& step : steps) *report += step.Text() + "\n";
      *report += *FindDifference<Subject>(setup, steps);
    }
  }
  if (report) ADD_FAILURE() << *report;
}

}  // namespace korvel::test
