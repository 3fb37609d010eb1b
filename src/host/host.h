// The doorway of the platform: broadcast files, the running flag, timers of the engine window,
// clocks, and the requests that the engine posts to its own window. Everything here is called on
// the worker thread only.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/octet_string.h"
#include "objects/status.h"

namespace korvel {

// Reads a broadcast file through the host object. Waits, asking again every 500 ms, while the host
// answers that the file is not there yet and the engine may run. Done, with the bytes copied to
// `bytes`; Refused, with `bytes` untouched, for an empty path, without a host object, on any other
// answer of the host, when the engine may not run, and when memory is out. A null `bytes` only asks
// whether the file is there.
Status FetchFile(std::string_view path, OctetString* bytes) noexcept;

// Whether MHEG-5 work may be done: the engine running flag is set and no close has been asked for.
[[nodiscard]] bool MayRun() noexcept;

// Whether a close has been asked for. Once true it stays so until the engine has ended.
[[nodiscard]] bool IsClosing() noexcept;

// Waits, but not once a close has been asked for.
void PauseUnlessClosing(std::uint32_t milliseconds) noexcept;

// Starts the one-shot timer `id` of the engine window, replacing a pending one; its expiry arrives
// as an outside event of type TimerFired. An expiry of the id that is queued already is dropped.
void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs) noexcept;

// Stops the timer `id` and drops an expiry of it that is queued already.
void KillWindowTimer(std::uint32_t id) noexcept;

enum class RestartReason {
  QuitWithoutParent,  // the application has quit and none is left to return to
  Tune,               // a resident program asks for another service
};

// Asks for the engine to be started again from the start-up search once the current work is done:
// clears the surface, clears the running flag, and posts the request to the engine window.
void RequestRestart(RestartReason reason) noexcept;

// A clock in milliseconds for absolute timers: the time since the process started.
[[nodiscard]] std::uint32_t MillisecondsSinceProcessStart() noexcept;

// The wall clock in seconds since 1970, for the seed of the random generator.
[[nodiscard]] std::uint32_t SecondsNow() noexcept;

struct LocalTime {
  std::int32_t Year = 0;   // in full
  std::int32_t Month = 0;  // 1 to 12
  std::int32_t Day = 0;
  std::int32_t Hour = 0;
  std::int32_t Minute = 0;
  std::int32_t Second = 0;
};

// The local time of day. False when the platform cannot tell.
[[nodiscard]] bool GetLocalClock(LocalTime& now) noexcept;

// Any thread: writes the line, as it stands, to the trace stream and flushes it if it is open. No
// part of the engine opens it.
void Trace(const char* line) noexcept;

}  // namespace korvel
