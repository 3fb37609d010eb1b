// The clocks: elapsed time, and the time of day. Worker thread only.
#pragma once

#include <cstdint>

namespace korvel {

// Milliseconds since the process started, by a clock that nobody can set. For absolute timers, and
// for what is limited in time.
[[nodiscard]] std::uint32_t MillisecondsSinceProcessStart();

// The wall clock in seconds since 1970, for the seed of the random generator.
[[nodiscard]] std::uint32_t SecondsNow();

struct LocalTime {
  std::int32_t Year = 0;   // in full
  std::int32_t Month = 0;  // 1 to 12
  std::int32_t Day = 0;
  std::int32_t Hour = 0;
  std::int32_t Minute = 0;
  std::int32_t Second = 0;
};

// The local time of day. False when the platform cannot tell.
[[nodiscard]] bool GetLocalClock(LocalTime& now);

}  // namespace korvel
