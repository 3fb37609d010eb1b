// The four functions that the library exports. They run on the host's threads, only start, post
// and wait, and leave all work to the engine's own threads.
#include <cstdint>

#include "host/engine_thread.h"
#include "host/host_object.h"
#include "host/host_state.h"
#include "korvel.h"

namespace korvel {
namespace {

enum class WindowTest { Tested, NotTested };

// The window ends only under the same lock, so that the close reaches this engine or none.
void AskToClose(WindowTest test) {
  const StateLocked locked;
  HWND window = hostState.engineWindow;
  if (hostState.engineThread == nullptr) return;
  if (window != nullptr) {
    StopForClose();
  } else if (test == WindowTest::Tested) {
    return;
  } else {
    StopRunning();
  }
  PostMessageA(window, WM_CLOSE, 0, 0);
}

}  // namespace
}  // namespace korvel

extern "C" {

uint32_t KORVEL_CALL RunMHEG5Window(MHEG5Host* host, HWND hostWindow) {
  using namespace korvel;
  if (!IsUsable(host) || !ClaimStart()) return 1;
  if (!CreateEngineThread()) {
    AbandonStart();
    return 1;
  }
  StoreHostObject(host);
  hostState.hostWindow = hostWindow;
  GiveExitCallback();
  CompleteStart();
  OpenStartGate();
  return 0;
}

uint32_t KORVEL_CALL ExitMHEG5(void) {
  korvel::AskToClose(korvel::WindowTest::Tested);
  return 0;
}

uint32_t KORVEL_CALL MHEG5ReStart(void) {
  korvel::AskToClose(korvel::WindowTest::NotTested);
  return 0;
}

uint32_t KORVEL_CALL MHEG5WaitForClose(void) {
  korvel::WaitForEngineThread();
  return 0;
}

}  // extern "C"
