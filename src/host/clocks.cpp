// The clocks of the platform, as the engine core needs them.
#include <windows.h>

#include <ctime>

#include "host/host.h"

namespace korvel {

// On this platform the C library's clock runs with real time from the start of the process.
std::uint32_t MillisecondsSinceProcessStart() noexcept {
  static_assert(CLOCKS_PER_SEC == 1000);
  return static_cast<std::uint32_t>(std::clock());
}

std::uint32_t SecondsNow() noexcept { return static_cast<std::uint32_t>(std::time(nullptr)); }

bool GetLocalClock(LocalTime& now) noexcept {
  SYSTEMTIME time;
  ::GetLocalTime(&time);
  now = {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
  return true;
}

}  // namespace korvel
