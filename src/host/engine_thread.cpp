// The engine thread from the start gate to the message that tells the host of the close. What the
// window makes of its messages stands in the window procedure.
#include "host/engine_thread.h"

#include <windows.h>

#include <utility>

#include "host/engine_lifetime.h"
#include "host/engine_window.h"
#include "host/host_object.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/worker_thread.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

// The library must not be unloaded under its own thread, whatever the host does when it hears of
// the close; the thread gives this reference back as it ends.
HMODULE ReferToThisLibrary() noexcept {
  HMODULE library = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCSTR>(&ReferToThisLibrary), &library);
  return library;
}

void PassStartGate() noexcept {
  WaitForSingleObject(hostState.startGate, INFINITE);
  CloseHandle(std::exchange(hostState.startGate, nullptr));
}

void RunMessageLoop() noexcept {
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

// Runs the engine in its window until the window has gone and the worker has ended.
void RunInWindow() noexcept {
  if (!CreateEngineWindow()) return;
  if (CreateWorker()) {
    ShowEngineWindow();
    RunMessageLoop();
  }
  EndWorkerAndWindow();
}

// From the first call on, a start is accepted: it waits for the thread's end.
void TellHostOfClose() noexcept {
  EnterEpilogue();
  HWND hostWindow = hostState.hostWindow;
  if (hostWindow != nullptr) PostMessageA(hostWindow, kMHEG5ClosedMessage, 0, 0);
  hostState.hostWindow = nullptr;
}

DWORD WINAPI EngineThread(void*) {
  PassStartGate();
  OpenMessageQueues();
  OpenScreen();
  if (RegisterEngineWindowClass()) {
    RunInWindow();
    UnregisterEngineWindowClass();
  }
  WithdrawHostObject();  // done by the worker, unless there was none
  hostState.engineThreadId = 0;
  TellHostOfClose();
  CloseScreen();
  CloseMessageQueues();
  HMODULE library = hostState.library;
  LeaveEngineThread();
  FreeLibraryAndExitThread(library, 0);
}

bool MakeThread() noexcept {
  DWORD id = 0;
  HANDLE thread = CreateThread(nullptr, 0, EngineThread, nullptr, 0, &id);
  if (thread != nullptr) EnterEngineThread(thread, id);
  return thread != nullptr;
}

}  // namespace

bool CreateEngineThread() noexcept {
  hostState.library = ReferToThisLibrary();
  hostState.startGate = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  if (hostState.library != nullptr && hostState.startGate != nullptr && MakeThread()) return true;
  if (hostState.startGate != nullptr) CloseHandle(std::exchange(hostState.startGate, nullptr));
  if (hostState.library != nullptr) FreeLibrary(std::exchange(hostState.library, nullptr));
  return false;
}

void OpenStartGate() noexcept { SetEvent(hostState.startGate); }

}  // namespace korvel
