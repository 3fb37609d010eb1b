// The engine window. Its procedure turns messages into records for the worker and does no MHEG-5
// work itself. The worker sets and kills the one-shot timers, and the engine thread receives their
// expiries. The worker first waits for an expiry that is on its way, so that it can neither kill
// the timer that replaces it nor fire in its place.
#include <cstdint>

#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/threads.h"
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

// After this, a close request finds no window, so it never reaches another program's window with
// the same handle.
HWND ForgetEngineWindow() {
  const StateLocked locked;
  return hostState.engineWindow.exchange(nullptr);
}

bool HasWorker() { return hostState.window.worker != nullptr; }

void QueueForWorker(UINT message, WPARAM wParam) {
  if (!HasWorker()) return;
  Trace("thread1 enter CS !!\n");
  QueueInput({message, static_cast<std::uint32_t>(wParam)});
  Trace("thread1 leave CS !!\n");
}

LRESULT DefaultResult(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return IsWindow(window) ? DefWindowProcA(window, message, wParam, lParam) : 0;
}

void NoteModifier(WPARAM virtualKey, bool isDown) {
  if (virtualKey == VK_CONTROL) hostState.window.isCtrlDown = isDown;
  if (virtualKey == VK_MENU) hostState.window.isAltDown = isDown;
}

// The engine ignores keys that are pressed while both Ctrl and Alt are down.
void HandleKeyDown(WPARAM virtualKey) {
  NoteModifier(virtualKey, true);
  if (hostState.window.isCtrlDown && hostState.window.isAltDown) return;
  QueueForWorker(WM_KEYDOWN, virtualKey);
}

// Validates the region first: erasing it to black must not overwrite the picture, and a region that
// stayed invalid would be painted again and again. Default processing would validate it once more,
// and with it the parts that were uncovered meanwhile. False if nothing may be shown.
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

// A second close while the first one waits for the worker must not destroy the window too.
void Close() {
  if (!hostState.window.isWaitingForWorker) EndWorkerAndWindow();
}

// Every timer of the engine fires once.
void HandleExpiry(HWND window, std::uint32_t id) {
  KillTimer(window, id);
  if (HasWorker()) QueueInput({WM_TIMER, id});
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
  case WM_KEYDOWN: HandleKeyDown(wParam); return 0;
  case WM_KEYUP: NoteModifier(wParam, false); return 0;
  case WM_SYSKEYDOWN:
  case WM_SYSKEYUP:
    // Alt without another key arrives here, not as a plain key, and so does a Ctrl that is released
    // while Alt is down. The system also uses Alt for its menu.
    NoteModifier(wParam, message == WM_SYSKEYDOWN);
    return DefaultResult(window, message, wParam, lParam);
  case WM_TIMER: HandleExpiry(window, static_cast<std::uint32_t>(wParam)); return 0;
  case kSetWindowTimer: SetTimer(window, wParam, static_cast<UINT>(lParam), nullptr); return 0;
  case kRestartAfterQuit:
  case kRestartAfterTune: QueueForWorker(message, wParam); return 0;
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
  if (HWND window = ForgetEngineWindow(); window != nullptr) DestroyWindow(window);
}

void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs) {
  HWND window = hostState.engineWindow;
  KillWindowTimer(id);
  if (SetTimer(window, id, periodMs, nullptr) == 0) {
    PostMessageA(window, kSetWindowTimer, id, static_cast<LPARAM>(periodMs));
  }
}

// The engine thread may have taken an expiry from its message queue already. It answers the sent
// message only after it has handled that.
void KillWindowTimer(std::uint32_t id) {
  HWND window = hostState.engineWindow;
  KillTimer(window, id);
  SendMessageA(window, WM_NULL, 0, 0);
  RemoveQueuedExpiries(id);
}

}  // namespace korvel
