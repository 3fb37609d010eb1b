// The clocks for elapsed time and the time of day, and the one-shot timers of the engine window.
// Worker thread only.
#pragma once

#include <cstdint>

namespace korvel {

// Milliseconds since the process started, from a clock that cannot be set. Used for absolute timers
// and for limits in time.
[[nodiscard]] std::uint32_t MillisecondsSinceProcessStart();

// The wall clock in seconds since 1970, for the seed of the random generator.
[[nodiscard]] std::uint32_t SecondsNow();

struct LocalTime {
  std::int32_t year = 0;   // all four digits
  std::int32_t month = 0;  // 1 to 12
  std::int32_t day = 0;
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::int32_t second = 0;
};

// The local time of day. False if the platform cannot report it.
[[nodiscard]] bool GetLocalClock(LocalTime& now);

// Starts the one-shot timer `id` of the engine window, replacing a pending one. Its expiry arrives
// as an outside event of type TimerFired. Removes expiries of the id that are already queued.
void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs);

// Stops the timer `id` and removes its expiries that are already queued.
void KillWindowTimer(std::uint32_t id);

}  // namespace korvel
