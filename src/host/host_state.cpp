// The one instance of the record, the engine running flag and the request to close. The flag comes
// and goes with restarts; the request stays until the engine has ended, and overrides the flag.
#include "host/host_state.h"

#include "platform/running.h"

namespace korvel {

namespace {}  // namespace

constinit HostState hostState;

void AllowRunning() { hostState.isRunning = true; }

void StopRunning() { hostState.isRunning = false; }

void StopForClose() {
  hostState.isClosing = true;
  StopRunning();
}

bool MayRun() { return hostState.isRunning && !hostState.isClosing; }

bool IsClosing() { return hostState.isClosing; }

void PauseUnlessClosing(std::uint32_t milliseconds) {
  if (!IsClosing()) Sleep(milliseconds);
}

}  // namespace korvel
