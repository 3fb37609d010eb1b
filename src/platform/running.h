// Whether the engine may work: the running flag, the request to close, and the request to restart.
// Worker thread only.
#pragma once

#include <cstdint>

namespace korvel {

// Whether MHEG-5 work may be done: the engine running flag is set and no close has been asked for.
[[nodiscard]] bool MayRun();

// Whether a close has been asked for. Once true it stays so until the engine has ended.
[[nodiscard]] bool IsClosing();

// Waits, but not once a close has been asked for.
void PauseUnlessClosing(std::uint32_t milliseconds);

enum class RestartReason {
  QuitWithoutParent,  // the application has quit and none is left to return to
  Tune,               // a resident program asks for another service
};

// Asks for the engine to be started again from the start-up search once the current work is done:
// clears the surface, clears the running flag, and posts the request to the engine window.
void RequestRestart(RestartReason reason);

}  // namespace korvel
