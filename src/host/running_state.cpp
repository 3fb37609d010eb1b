// The engine running flag and the request to close. The flag comes and goes with restarts; the
// request stays, and while it stands the flag counts for nothing.
#include "host/running_state.h"

#include "host/host.h"
#include "host/host_state.h"

namespace korvel {

void AllowRunning() noexcept { hostState.isRunning = true; }

void StopRunning() noexcept { hostState.isRunning = false; }

void StopForClose() noexcept {
  hostState.isClosing = true;
  StopRunning();
}

bool MayRun() noexcept { return hostState.isRunning && !hostState.isClosing; }

bool IsClosing() noexcept { return hostState.isClosing; }

void PauseUnlessClosing(std::uint32_t milliseconds) noexcept {
  if (!IsClosing()) Sleep(milliseconds);
}

}  // namespace korvel
