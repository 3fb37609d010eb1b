// The platform functions that the core calls, for a run without a window.
#include "mheg/run/surroundings.h"

#include <algorithm>

#include "mheg/run/tracer.h"
#include "platform/clocks.h"
#include "platform/files.h"
#include "presentation/presentation.h"

namespace mheg {
namespace {

// Windows timers have no shorter period.
constexpr std::uint32_t kShortestPeriodMs = 10;

}  // namespace

Surroundings& TheSurroundings() {
  static Surroundings surroundings;
  return surroundings;
}

std::optional<std::uint32_t> NextTimer(std::uint64_t limit) {
  const auto& timers = TheSurroundings().timers;
  const auto isEarlier = [](const auto& one, const auto& other) {
    return std::pair(one.second.due, one.second.order) <
           std::pair(other.second.due, other.second.order);
  };
  const auto next = std::min_element(timers.begin(), timers.end(), isEarlier);
  if (next == timers.end() || next->second.due > limit) return std::nullopt;
  return next->first;
}

}  // namespace mheg

namespace korvel {

using mheg::TheSurroundings;

bool FetchFile(std::string_view path, OctetString* bytes) {
  if (path.empty() || !MayRun()) return false;
  TheSurroundings().now += TheSurroundings().latencyMs;
  const mheg::CarouselFile* file = TheSurroundings().files.Find(path);
  mheg::TraceFile(path, file);
  return file != nullptr && (bytes == nullptr || bytes->Assign(file->bytes));
}

bool MayRun() { return TheSurroundings().mayRun && !IsClosing(); }

bool IsClosing() { return TheSurroundings().isClosing; }

void PauseUnlessClosing(std::uint32_t milliseconds) {
  if (IsClosing()) return;
  mheg::TracePause(milliseconds);
  TheSurroundings().now += milliseconds;
}

void RequestRestart(RestartReason reason) {
  ClearSurface();
  TheSurroundings().mayRun = false;
  TheSurroundings().restart = reason;
}

// The library writes the line to its trace stream, which only its developers open.
void Trace(const char* /*line*/) {}

std::uint32_t MillisecondsSinceProcessStart() {
  return static_cast<std::uint32_t>(TheSurroundings().now);
}

std::uint32_t SecondsNow() {
  const auto elapsed = std::chrono::seconds(TheSurroundings().now / 1000);
  const auto now = TheSurroundings().localTimeAtStart.time_since_epoch() + elapsed;
  return static_cast<std::uint32_t>(now.count());
}

bool GetLocalClock(LocalTime& now) {
  using namespace std::chrono;
  const sys_seconds time =
      TheSurroundings().localTimeAtStart + seconds(TheSurroundings().now / 1000);
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  now = {static_cast<int>(date.year()),
         static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
         static_cast<std::int32_t>(static_cast<unsigned>(date.day())),
         static_cast<std::int32_t>(clock.hours().count()),
         static_cast<std::int32_t>(clock.minutes().count()),
         static_cast<std::int32_t>(clock.seconds().count())};
  return true;
}

void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs) {
  mheg::Surroundings& surroundings = TheSurroundings();
  const std::uint64_t due = surroundings.now + std::max(periodMs, mheg::kShortestPeriodMs);
  surroundings.timers[id] = {due, ++surroundings.timersSet};
  mheg::TraceTimer(id, periodMs);
}

void KillWindowTimer(std::uint32_t id) { TheSurroundings().timers.erase(id); }

}  // namespace korvel
