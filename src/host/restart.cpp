// The request to start again from the start-up search, made by what runs on the worker.
#include <windows.h>

#include "host/host.h"
#include "host/host_state.h"
#include "host/running_state.h"
#include "host/window_messages.h"
#include "presentation/presentation.h"

namespace korvel {

void RequestRestart(RestartReason reason) noexcept {
  const UINT message =
      reason == RestartReason::QuitWithoutParent ? kRestartAfterQuit : kRestartAfterTune;
  ClearSurface();
  StopRunning();
  PostMessageA(hostState.engineWindow, message, 0, 0);
}

}  // namespace korvel
