// The clocks of the platform, as the engine core needs them.
#include <windows.h>

#include <ctime>

#include "host/host.h"

namespace korvel {

namespace {

std::uint64_t InMilliseconds(const FILETIME& time) noexcept {
  constexpr std::uint64_t kTicksPerMillisecond = 10'000;
  const std::uint64_t high = time.dwHighDateTime;
  return (high << 32U | time.dwLowDateTime) / kTicksPerMillisecond;
}

}  // namespace

// Not the C library's clock, which stops telling after 24 days.
std::uint32_t MillisecondsSinceProcessStart() noexcept {
  FILETIME start = {};
  FILETIME unused = {};
  FILETIME now = {};
  GetProcessTimes(GetCurrentProcess(), &start, &unused, &unused, &unused);
  GetSystemTimeAsFileTime(&now);
  return static_cast<std::uint32_t>(InMilliseconds(now) - InMilliseconds(start));
}

std::uint32_t SecondsNow() noexcept { return static_cast<std::uint32_t>(std::time(nullptr)); }

bool GetLocalClock(LocalTime& now) noexcept {
  SYSTEMTIME time;
  ::GetLocalTime(&time);
  now = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
  return true;
}

}  // namespace korvel
