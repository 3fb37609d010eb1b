// The engine window's procedure. It turns messages into records for the worker and does no MHEG-5
// work itself.
#include "host/window_procedure.h"

#include <cstdint>

#include "host/engine_window.h"
#include "host/host.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/trace.h"
#include "host/window_messages.h"
#include "host/window_timers.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

bool IsWorkerThere() noexcept { return hostState.window.worker != nullptr; }

void QueueForWorker(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (!IsWorkerThere()) return;
  Trace("thread1 enter CS !!\n");
  QueueInput({message, static_cast<std::uint32_t>(wParam), static_cast<std::uint32_t>(lParam)});
  Trace("thread1 leave CS !!\n");
}

LRESULT DefaultResult(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  return IsWindow(window) ? DefWindowProcA(window, message, wParam, lParam) : 0;
}

void NoteModifier(WPARAM virtualKey, bool isDown) noexcept {
  if (virtualKey == VK_CONTROL) hostState.window.isCtrlDown = isDown;
  if (virtualKey == VK_MENU) hostState.window.isAltDown = isDown;
}

// Together, Ctrl and Alt mean that the keys are for somebody else.
void TakeKey(WPARAM virtualKey, LPARAM lParam) noexcept {
  NoteModifier(virtualKey, true);
  if (hostState.window.isCtrlDown && hostState.window.isAltDown) return;
  QueueForWorker(WM_KEYDOWN, virtualKey, lParam);
}

// The region is made valid first: the black of its erasing must not come over the picture, and a
// region that stayed invalid would be painted again and again.
void Paint(HWND window) noexcept {
  if (!MayRun()) return;
  PAINTSTRUCT paint;
  BeginPaint(window, &paint);
  EndPaint(window, &paint);
  HDC deviceContext = GetDC(window);
  if (deviceContext == nullptr) return;
  PaintWindow(deviceContext);
  ReleaseDC(window, deviceContext);
}

// A second close while the first waits for the worker would destroy the window twice.
void Close() noexcept {
  if (!hostState.window.isWaitingForWorker) EndWorkerAndWindow();
}

}  // namespace

LRESULT CALLBACK EngineWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_DESTROY: PostQuitMessage(0); return 0;
  case WM_KILLFOCUS:
    NoteModifier(VK_CONTROL, false);
    NoteModifier(VK_MENU, false);
    return 0;
  case WM_PAINT: Paint(window); return DefaultResult(window, message, wParam, lParam);
  case WM_CLOSE: Close(); return 0;
  case WM_KEYDOWN: TakeKey(wParam, lParam); return 0;
  case WM_KEYUP: NoteModifier(wParam, false); return 0;
  case WM_SYSKEYDOWN:
  case WM_SYSKEYUP:
    // Alt alone arrives here and not as a plain key. The system goes on to use it for its menu.
    if (wParam == VK_MENU) NoteModifier(wParam, message == WM_SYSKEYDOWN);
    return DefaultResult(window, message, wParam, lParam);
  case WM_TIMER:
    TakeTimerExpiry(window, static_cast<std::uint32_t>(wParam),
                    IsWorkerThere() ? ExpiryUse::Queued : ExpiryUse::Dropped);
    return 0;
  case kSetWindowTimer:
    SetRequestedTimer(window, static_cast<std::uint32_t>(wParam),
                      static_cast<std::uint32_t>(lParam));
    return 0;
  case kRestartAfterQuit:
  case kRestartAfterTune: QueueForWorker(message, wParam, lParam); return 0;
  default: return DefaultResult(window, message, wParam, lParam);
  }
}

}  // namespace korvel
