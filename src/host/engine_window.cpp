// The engine window's class, making and end.
#include "host/engine_window.h"

#include <utility>

#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/running_state.h"
#include "host/sent_message_wait.h"
#include "host/window_procedure.h"

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

void EndWorker() noexcept {
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
HWND TakeEngineWindow() noexcept {
  const StateLocked locked;
  return hostState.engineWindow.exchange(nullptr);
}

}  // namespace

bool RegisterEngineWindowClass() noexcept {
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

void UnregisterEngineWindowClass() noexcept { UnregisterClassA(kClassName, hostState.library); }

bool CreateEngineWindow() noexcept {
  HWND window = CreateWindowExA(0, kClassName, kTitle, kStyle, kLeft, kTop, kOuterWidth,
                                kOuterHeight, nullptr, nullptr, nullptr, nullptr);
  hostState.engineWindow = window;
  return window != nullptr;
}

void ShowEngineWindow() noexcept {
  ShowWindow(hostState.engineWindow, SW_SHOWDEFAULT);
  UpdateWindow(hostState.engineWindow);
}

void EndWorkerAndWindow() noexcept {
  EndWorker();
  if (HWND window = TakeEngineWindow(); window != nullptr) DestroyWindow(window);
}

}  // namespace korvel
