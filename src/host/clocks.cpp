// The clocks of the platform. Elapsed time never comes from the wall clock, which advances in steps
// of up to 16 ms and can be set.
#include <windows.h>

#include <chrono>
#include <ctime>

#include "platform/clocks.h"

namespace korvel {
namespace {

using SteadyClock = std::chrono::steady_clock;  // the performance counter of the platform

using FileTimes = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;

FileTimes TimeOf(const FILETIME& time) {
  const std::uint64_t high = time.dwHighDateTime;
  return FileTimes(static_cast<std::int64_t>(high << 32U | time.dwLowDateTime));
}

// Not the C library's clock, which fails after 24 days.
FileTimes AgeOfProcess() {
  FILETIME start = {};
  FILETIME unused = {};
  FILETIME now = {};
  GetProcessTimes(GetCurrentProcess(), &start, &unused, &unused, &unused);
  GetSystemTimeAsFileTime(&now);
  return TimeOf(now) - TimeOf(start);
}

// The platform reports the start of a process only as a wall-clock time. So the wall clock is read
// once, as early as possible: when the library is loaded.
const SteadyClock::time_point processStart = SteadyClock::now() - AgeOfProcess();

}  // namespace

std::uint32_t MillisecondsSinceProcessStart() {
  using std::chrono::milliseconds;
  const auto elapsed = std::chrono::duration_cast<milliseconds>(SteadyClock::now() - processStart);
  return static_cast<std::uint32_t>(elapsed.count());
}

std::uint32_t SecondsNow() { return static_cast<std::uint32_t>(std::time(nullptr)); }

bool GetLocalClock(LocalTime& now) {
  SYSTEMTIME time;
  ::GetLocalTime(&time);
  now = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
  return true;
}

}  // namespace korvel
