// Does the work of the library's worker thread, one step after the other: raises events for keys
// and timers, restarts the engine, and closes it at the end.
#include "mheg/run/run.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

#include "engine/engine.h"
#include "mheg/path_text.h"
#include "mheg/run/expectations.h"
#include "mheg/run/scene_graph.h"
#include "mheg/run/surroundings.h"
#include "mheg/run/tracer.h"
#include "mheg/run/words.h"
#include "mheg/script.h"
#include "objects/vocabulary.h"
#include "platform/screen.h"
#include "presentation/presentation.h"

namespace mheg {
namespace {

using korvel::EventType;
using korvel::RestartReason;
using korvel::Status;

// Without this limit, an application that quits as soon as it starts would be restarted forever.
constexpr int kMostRestartsInARow = 10;
// The time limit for content that runs without keys and without a script, until nothing can happen
// any more.
constexpr std::uint32_t kLongestRunMs = 60'000;

void RedrawNow() {
  korvel::ResetRedrawCounter();
  static_cast<void>(korvel::Redraw());
}

// Starts the engine. Returns false if there is no start-up application.
bool Start(std::string_view path) {
  korvel::BeginWork();
  korvel::ResetRedrawCounter();
  TheSurroundings().mayRun = true;
  const bool isStarted = korvel::StartEngine(path) != Status::Refused;
  if (isStarted) RedrawNow();
  TheSurroundings().mayRun = isStarted && !TheSurroundings().restart;
  return isStarted;
}

// Restarts the engine if content has requested that. Returns false if the engine no longer runs.
bool RestartIfRequested() {
  for (int restarts = 0; TheSurroundings().restart; ++restarts) {
    if (restarts == kMostRestartsInARow) {
      std::fprintf(stderr, "mheg: the application quits whenever it starts\n");
      TheSurroundings().restart.reset();
      return false;
    }
    const RestartReason reason = *std::exchange(TheSurroundings().restart, std::nullopt);
    TraceStep("restart", "the engine starts again");
    korvel::BeginWork();
    if (reason == RestartReason::Tune) {
      korvel::CloseDown();
    } else {
      korvel::EmptyPersistentStore();
    }
    if (!Start({})) return false;
  }
  return true;
}

void Raise(EventType type, std::int32_t value) {
  korvel::BeginWork();
  if (!korvel::MayRun()) return;
  korvel::ResetRedrawCounter();
  static_cast<void>(korvel::RaiseOutsideEvent(0, type, value));
  RedrawNow();
}

class Player {
 public:
  explicit Player(const RunOptions& options) : options_(options) {}

  // Returns the exit status.
  int Play(const std::vector<Step>& steps) {
    StartTrace(options_.trace);
    TraceStep("start", "start");
    TheSurroundings().isPlaying = true;
    bool isGood = Start(options_.start);
    if (!isGood) std::fprintf(stderr, "mheg: there is no application to start\n");
    isGood = isGood && RestartIfRequested() && PlaySteps(steps);
    if (options_.showsSceneGraph) PrintSceneGraph(GraphForm());
    TraceStep("close", "close");
    TheSurroundings().isClosing = true;
    korvel::BeginWork();
    korvel::CloseDown();
    korvel::ResetEngine();
    return isGood && !hasDifferences_ ? 0 : kBadInput;
  }

 private:
  [[nodiscard]] TraceForm GraphForm() const {
    return options_.trace == TraceForm::Json ? TraceForm::Json : TraceForm::Text;
  }

  // Returns false if the engine no longer runs.
  bool PlaySteps(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      if (!ExpireTimers(TheSurroundings().now)) return false;
      switch (step.kind) {
      case StepKind::Key:
        if (!Press(step)) return false;
        break;
      case StepKind::Wait:
        TraceStep("wait", "wait " + std::to_string(step.number) + " ms");
        if (!Wait(step.number)) return false;
        break;
      case StepKind::Expect: Expect(step); break;
      case StepKind::Exit: return true;
      case StepKind::Until:
      case StepKind::Expose:
      case StepKind::Shot:
      case StepKind::Catch: break;  // these need a picture
      }
    }
    return options_.HasSteps() || WaitUntilIdle();
  }

  static bool Press(const Step& step) {
    const std::int32_t key = korvel::UserInputKey(step.number);
    const std::string words = IsTracing() ? "key " + KeyName(key) : std::string();
    for (std::uint32_t i = 0; i < step.count; ++i) {
      TraceStep("key", words);
      Raise(EventType::UserInput, key);
      if (!RestartIfRequested()) return false;
    }
    return true;
  }

  // Expires the timers that are due at `limit` or earlier. Returns false if the engine no longer
  // runs.
  static bool ExpireTimers(std::uint64_t limit) {
    Surroundings& surroundings = TheSurroundings();
    while (const auto id = NextTimer(limit)) {
      surroundings.now = std::max(surroundings.now, surroundings.timers[*id].due);
      surroundings.timers.erase(*id);
      const auto number = static_cast<std::int32_t>(*id);
      if (IsTracing()) TraceStep("timer", "timer " + std::to_string(number) + " expires");
      Raise(EventType::TimerFired, number);
      if (!RestartIfRequested()) return false;
    }
    return true;
  }

  static bool Wait(std::uint32_t milliseconds) {
    const std::uint64_t end = TheSurroundings().now + milliseconds;
    if (!ExpireTimers(end)) return false;
    TheSurroundings().now = std::max(TheSurroundings().now, end);
    return true;
  }

  static bool WaitUntilIdle() { return ExpireTimers(TheSurroundings().now + kLongestRunMs); }

  void Expect(const Step& step) {
    const auto actual = FindDifference(step.words);
    if (!actual) return;
    hasDifferences_ = true;
    std::fflush(stdout);
    std::fprintf(stderr, "%s:%u: expected %s, found %s\n", TextOf(options_.script).c_str(),
                 step.line, step.text.substr(step.text.find(' ') + 1).c_str(), actual->c_str());
  }

  const RunOptions& options_;
  bool hasDifferences_ = false;
};

// Reads a date and a time such as "2024-06-07T20:15:00". A date alone means midnight.
std::optional<std::chrono::sys_seconds> ReadLocalTime(const std::string& text) {
  using namespace std::chrono;
  int year = 0;
  unsigned month = 0, day = 0, hour = 0, minute = 0, second = 0;
  int dateLength = 0, length = 0;
  const int count = std::sscanf(text.c_str(), "%4d-%2u-%2u%nT%2u:%2u:%2u%n", &year, &month, &day,
                                &dateLength, &hour, &minute, &second, &length);
  const bool isWhole = count == 6 && static_cast<std::size_t>(length) == text.size();
  const bool isDateAlone = count == 3 && static_cast<std::size_t>(dateLength) == text.size();
  const year_month_day date{std::chrono::year(year), std::chrono::month(month),
                            std::chrono::day(day)};
  if ((!isWhole && !isDateAlone) || !date.ok() || hour > 23 || minute > 59 || second > 59) {
    return std::nullopt;
  }
  return sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

int FailUsage(const std::string& problem) {
  std::fprintf(stderr, "mheg: %s\n", problem.c_str());
  return kWrongUse;
}

bool ReadSteps(const RunOptions& options, std::vector<Step>& steps, std::string& problem) {
  if (!options.script.empty() && !ReadScriptFile(options.script, steps, problem)) return false;
  for (const Step& step : steps) {
    if (step.kind != StepKind::Expect || IsExpectation(step.words, problem)) continue;
    problem.insert(0, TextOf(options.script) + ":" + std::to_string(step.line) + ": ");
    return false;
  }
  return ReadKeys(options.keys, steps, problem);
}

}  // namespace

int Run(const RunOptions& options) {
  std::vector<Step> steps;
  std::string problem;
  if (!ReadSteps(options, steps, problem)) return FailUsage(problem);
  const auto localTimeAtStart = ReadLocalTime(options.date);
  if (!localTimeAtStart)
    return FailUsage("no such date: " + options.date + " (as 2024-06-07T20:15:00)");

  Messages messages;
  Surroundings& surroundings = TheSurroundings();
  surroundings.files.Load(options.carousel, messages);
  Print(messages, stderr);
  if (!messages.empty()) return kBadInput;
  for (const std::string& path : options.missing) {
    if (!surroundings.files.Remove(path)) return FailUsage("--missing: there is no file " + path);
  }
  surroundings.latencyMs = options.latencyMs;
  surroundings.localTimeAtStart = *localTimeAtStart;
  return Player(options).Play(steps);
}

}  // namespace mheg
