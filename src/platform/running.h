// Whether the engine may work (the running flag and the request to close), the request to restart,
// and the trace. MayRun, IsClosing and Trace may be called on any thread, the others only on the
// worker thread.
#pragma once

#include <cstdint>

namespace korvel {

// Whether MHEG-5 work may be done: the running flag is set and no close was requested.
[[nodiscard]] bool MayRun();

// Whether a close was requested. Once true it stays true until the engine has ended.
[[nodiscard]] bool IsClosing();

// Waits, unless a close was requested.
void PauseUnlessClosing(std::uint32_t milliseconds);

enum class RestartReason {
  QuitWithoutParent,  // the application has quit and no other one spawned it
  Tune,               // a resident program selects another service
};

// Requests a restart from the start-up search after the current work: clears the surface and the
// running flag, and posts the request to the engine window.
void RequestRestart(RestartReason reason);

// Any thread: if the trace stream is open, writes the line to it unchanged and flushes it.
void Trace(const char* line);

}  // namespace korvel
