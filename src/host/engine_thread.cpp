// The engine thread from the start gate to its end. It closes its own handle, because the host need
// not wait for it; so a wait uses a duplicate. A wait that begins later still has to last until the
// thread is gone: hosts go on to end the process, and under Wine that can crash while a thread is
// ending. Such a wait finds the thread by its number.
#include "host/engine_thread.h"

#include <windows.h>

#include <utility>

#include "host/host_object.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/window.h"
#include "host/worker_thread.h"
#include "presentation/presentation.h"

namespace korvel {

namespace {

// Looking for a message is what has the sent ones answered. Of the posted ones none is asked for.
void AnswerSentMessages() {
  MSG message;
  PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

// How long a start waits for an engine that has reported its close; what is left of that engine's
// thread then is a few calls.
constexpr DWORD kEpilogueLimitMs = 5000;

std::uint64_t CreationTime(HANDLE thread) {
  FILETIME created = {};
  FILETIME unused = {};
  GetThreadTimes(thread, &created, &unused, &unused, &unused);
  const std::uint64_t high = created.dwHighDateTime;
  return high << 32U | created.dwLowDateTime;
}

// For these two the caller holds the state lock, and closes the handle afterwards.
HANDLE DuplicateEngineThread() {
  HANDLE duplicate = nullptr;
  DuplicateHandle(GetCurrentProcess(), hostState.engineThread, GetCurrentProcess(), &duplicate,
                  SYNCHRONIZE, FALSE, 0);
  return duplicate;
}

// Null when the thread is gone.
HANDLE OpenLastThread() {
  const ThreadIdentity& last = hostState.lastThread;
  HANDLE thread = OpenThread(SYNCHRONIZE | THREAD_QUERY_LIMITED_INFORMATION, FALSE, last.id);
  if (thread == nullptr || CreationTime(thread) == last.creationTime) return thread;
  CloseHandle(thread);
  return nullptr;
}

bool ClaimIfIdle() {
  const StateLocked locked;
  if (hostState.phase != Phase::Idle) return false;
  hostState.phase = Phase::Starting;
  hostState.startingThreadId = GetCurrentThreadId();
  hostState.window = {};
  hostState.isRunning = false;
  hostState.isClosing = false;
  return true;
}

HANDLE DuplicateEndingThread() {
  const StateLocked locked;
  return hostState.phase == Phase::Epilogue ? DuplicateEngineThread() : nullptr;
}

HANDLE OpenThreadToWaitFor() {
  const StateLocked locked;
  const DWORD caller = GetCurrentThreadId();
  const bool isOwn = caller == hostState.engineThreadId || caller == hostState.workerThreadId ||
                     caller == hostState.startingThreadId;
  if (isOwn) return nullptr;
  return hostState.engineThread == nullptr ? OpenLastThread() : DuplicateEngineThread();
}

// The library must not be unloaded under its own thread, whatever the host does when it hears of
// the close; the thread gives this reference back as it ends.
HMODULE ReferToThisLibrary() {
  HMODULE library = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<LPCSTR>(&ReferToThisLibrary), &library);
  return library;
}

void PassStartGate() {
  WaitForSingleObject(hostState.startGate, INFINITE);
  CloseHandle(std::exchange(hostState.startGate, nullptr));
}

void RunMessageLoop() {
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

// Runs the engine in its window until the window has gone and the worker has ended.
void RunInWindow() {
  if (!CreateEngineWindow()) return;
  if (CreateWorker()) {
    ShowEngineWindow();
    RunMessageLoop();
  }
  EndWorkerAndWindow();
}

// The thread's last act: closes its own handle and accepts a new start. Waits still find the
// thread.
void LeaveEngineThread() {
  const StateLocked locked;
  hostState.lastThread = {GetCurrentThreadId(), CreationTime(GetCurrentThread())};
  CloseHandle(std::exchange(hostState.engineThread, nullptr));
  hostState.phase = Phase::Idle;
}

void EnterEpilogue() {
  const StateLocked locked;
  hostState.phase = Phase::Epilogue;
}

// From the first call on, a start is accepted: it waits for the thread's end.
void TellHostOfClose() {
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

void EnterEngineThread(HANDLE thread, DWORD id) {
  const StateLocked locked;
  hostState.engineThread = thread;
  hostState.engineThreadId = id;
}

bool MakeThread() {
  DWORD id = 0;
  HANDLE thread = CreateThread(nullptr, 0, EngineThread, nullptr, 0, &id);
  if (thread != nullptr) EnterEngineThread(thread, id);
  return thread != nullptr;
}

}  // namespace

void WaitAnsweringSentMessages(HANDLE object, DWORD limitMs) {
  const ULONGLONG start = GetTickCount64();
  for (DWORD remaining = limitMs;;) {
    if (MsgWaitForMultipleObjects(1, &object, FALSE, remaining, QS_SENDMESSAGE) !=
        WAIT_OBJECT_0 + 1) {
      return;
    }
    AnswerSentMessages();
    if (limitMs == INFINITE) continue;
    const ULONGLONG passed = GetTickCount64() - start;
    if (passed >= limitMs) return;
    remaining = limitMs - static_cast<DWORD>(passed);
  }
}

bool ClaimStart() {
  if (HANDLE ending = DuplicateEndingThread(); ending != nullptr) {
    WaitAnsweringSentMessages(ending, kEpilogueLimitMs);
    CloseHandle(ending);
  }
  return ClaimIfIdle();
}

void AbandonStart() {
  const StateLocked locked;
  hostState.startingThreadId = 0;
  hostState.phase = Phase::Idle;
}

void CompleteStart() {
  const StateLocked locked;
  hostState.startingThreadId = 0;
  hostState.phase = Phase::Alive;
}

void WaitForEngineThread() {
  HANDLE thread = OpenThreadToWaitFor();
  if (thread == nullptr) return;
  WaitAnsweringSentMessages(thread, INFINITE);
  CloseHandle(thread);
}

bool CreateEngineThread() {
  hostState.library = ReferToThisLibrary();
  hostState.startGate = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  if (hostState.library != nullptr && hostState.startGate != nullptr && MakeThread()) return true;
  if (hostState.startGate != nullptr) CloseHandle(std::exchange(hostState.startGate, nullptr));
  if (hostState.library != nullptr) FreeLibrary(std::exchange(hostState.library, nullptr));
  return false;
}

void OpenStartGate() { SetEvent(hostState.startGate); }

}  // namespace korvel
