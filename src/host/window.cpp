// The engine window. Its procedure turns messages into records for the worker and does no MHEG-5
// work itself. The worker sets and kills the one-shot timers, the engine thread sees them expire;
// both do so under the queue lock, so that an expiry that is under way can neither kill the timer
// that replaces it nor fire in its place.
#include "host/window.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "host/engine_thread.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/trace.h"
#include "objects/limits.h"
#include "platform/clocks.h"
#include "platform/running.h"
#include "presentation/presentation.h"

namespace korvel {

namespace {

constexpr char kClassName[] = "MHEG5 Window";
constexpr char kTitle[] = "MHEG5 Window";
constexpr WORD kIcon = 104;

// A caption without a sizing frame: the scene is never scaled. The outer size gives a client area
// of exactly the scene's size with the frame and caption of the classic theme.
constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU;
constexpr int kLeft = 100;
constexpr int kTop = 50;
constexpr int kOuterWidth = 726;
constexpr int kOuterHeight = 607;

void EndWorker() {
  WindowState& window = hostState.window;
  if (window.worker == nullptr) return;
  {
    const QueuesLocked locked;
    QueueClose();
    StopForClose();
  }
  window.isWaitingForWorker = true;
  WaitAnsweringSentMessages(window.worker, INFINITE);
  window.isWaitingForWorker = false;
  CloseHandle(std::exchange(window.worker, nullptr));
}

// From here on a close request finds no window, and never another program's that the number has
// passed to.
HWND TakeEngineWindow() {
  const StateLocked locked;
  return hostState.engineWindow.exchange(nullptr);
}

bool IsWorkerThere() { return hostState.window.worker != nullptr; }

void QueueForWorker(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!IsWorkerThere()) return;
  Trace("thread1 enter CS !!\n");
  QueueInput({message, static_cast<std::uint32_t>(wParam), static_cast<std::uint32_t>(lParam)});
  Trace("thread1 leave CS !!\n");
}

LRESULT DefaultResult(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return IsWindow(window) ? DefWindowProcA(window, message, wParam, lParam) : 0;
}

void NoteModifier(WPARAM virtualKey, bool isDown) {
  if (virtualKey == VK_CONTROL) hostState.window.isCtrlDown = isDown;
  if (virtualKey == VK_MENU) hostState.window.isAltDown = isDown;
}

// Together, Ctrl and Alt mean that the keys are for somebody else.
void TakeKey(WPARAM virtualKey, LPARAM lParam) {
  NoteModifier(virtualKey, true);
  if (hostState.window.isCtrlDown && hostState.window.isAltDown) return;
  QueueForWorker(WM_KEYDOWN, virtualKey, lParam);
}

// The region is made valid first: the black of its erasing must not come over the picture, and a
// region that stayed invalid would be painted again and again. Default processing would make it
// valid once more, and with it what was exposed meanwhile. False while nothing may be shown.
[[nodiscard]] bool Paint(HWND window) {
  if (!MayRun()) return false;
  PAINTSTRUCT paint;
  BeginPaint(window, &paint);
  EndPaint(window, &paint);
  HDC deviceContext = GetDC(window);
  if (deviceContext != nullptr) {
    PaintWindow(deviceContext);
    ReleaseDC(window, deviceContext);
  }
  return true;
}

// A second close while the first waits for the worker would destroy the window twice.
void Close() {
  if (!hostState.window.isWaitingForWorker) EndWorkerAndWindow();
}

// Every timer of the engine fires once.
void TakeTimerExpiry(HWND window, std::uint32_t id) {
  const QueuesLocked locked;
  KillTimer(window, id);
  if (IsWorkerThere()) QueueInput({WM_TIMER, id, 0});
}

// Sets a timer that the platform has refused to set from the worker.
void SetRequestedTimer(HWND window, std::uint32_t id, std::uint32_t periodMs) {
  SetTimer(window, id, periodMs, nullptr);
}

LRESULT CALLBACK EngineWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
  case WM_DESTROY: PostQuitMessage(0); return 0;
  case WM_KILLFOCUS:
    NoteModifier(VK_CONTROL, false);
    NoteModifier(VK_MENU, false);
    return 0;
  case WM_PAINT: return Paint(window) ? 0 : DefaultResult(window, message, wParam, lParam);
  case WM_CLOSE: Close(); return 0;
  case WM_KEYDOWN: TakeKey(wParam, lParam); return 0;
  case WM_KEYUP: NoteModifier(wParam, false); return 0;
  case WM_SYSKEYDOWN:
  case WM_SYSKEYUP:
    // Alt alone arrives here and not as a plain key. The system goes on to use it for its menu.
    if (wParam == VK_MENU) NoteModifier(wParam, message == WM_SYSKEYDOWN);
    return DefaultResult(window, message, wParam, lParam);
  case WM_TIMER: TakeTimerExpiry(window, static_cast<std::uint32_t>(wParam)); return 0;
  case kSetWindowTimer:
    SetRequestedTimer(window, static_cast<std::uint32_t>(wParam),
                      static_cast<std::uint32_t>(lParam));
    return 0;
  case kRestartAfterQuit:
  case kRestartAfterTune: QueueForWorker(message, wParam, lParam); return 0;
  default: return DefaultResult(window, message, wParam, lParam);
  }
}

}  // namespace

bool RegisterEngineWindowClass() {
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = EngineWindowProcedure;
  windowClass.hInstance = hostState.library;
  windowClass.hIcon = LoadIconA(hostState.library, MAKEINTRESOURCEA(kIcon));
  windowClass.hIconSm = windowClass.hIcon;
  windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  windowClass.lpszClassName = kClassName;
  return RegisterClassExA(&windowClass) != 0;
}

void UnregisterEngineWindowClass() { UnregisterClassA(kClassName, hostState.library); }

bool CreateEngineWindow() {
  HWND window = CreateWindowExA(0, kClassName, kTitle, kStyle, kLeft, kTop, kOuterWidth,
                                kOuterHeight, nullptr, nullptr, nullptr, nullptr);
  hostState.engineWindow = window;
  return window != nullptr;
}

void ShowEngineWindow() {
  ShowWindow(hostState.engineWindow, SW_SHOWDEFAULT);
  UpdateWindow(hostState.engineWindow);
}

void EndWorkerAndWindow() {
  EndWorker();
  if (HWND window = TakeEngineWindow(); window != nullptr) DestroyWindow(window);
}

void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs) {
  HWND window = hostState.engineWindow;
  const std::uint32_t period = std::min(periodMs, kLongestPeriodMs);
  const QueuesLocked locked;
  RemoveQueuedExpiries(id);
  KillTimer(window, id);
  if (SetTimer(window, id, period, nullptr) == 0) {
    PostMessageA(window, kSetWindowTimer, id, static_cast<LPARAM>(period));
  }
}

void KillWindowTimer(std::uint32_t id) {
  const QueuesLocked locked;
  KillTimer(hostState.engineWindow, id);
  RemoveQueuedExpiries(id);
}

}  // namespace korvel
