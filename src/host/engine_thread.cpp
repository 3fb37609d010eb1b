// The engine thread from its start to its end, and the four functions that the library exports.
// These run on the host's threads: they only start, post and wait, and leave all work to the
// engine's own threads. The engine thread closes its own handle as it ends, because the host need
// not wait for it. A wait therefore uses a duplicate of the handle. A wait that begins after the
// handle is closed must still last until the thread has ended: hosts end the process next, and
// under Wine that can crash while a thread is ending. Such a wait finds the thread by its id and
// creation time.
#include <windows.h>

#include <cstdint>
#include <utility>

#include "host/host_object.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/threads.h"
#include "korvel.h"
#include "platform/running.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

// PeekMessage dispatches sent messages. The filter excludes all posted ones.
void AnswerSentMessages() {
  MSG message;
  PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

// How long a start waits for the thread of the previous engine, which has reported its close and
// has only a few calls left.
constexpr DWORD kEpilogueLimitMs = 5000;

std::uint64_t CreationTime(HANDLE thread) {
  FILETIME created = {};
  FILETIME unused = {};
  GetThreadTimes(thread, &created, &unused, &unused, &unused);
  const std::uint64_t high = created.dwHighDateTime;
  return high << 32U | created.dwLowDateTime;
}

// The caller of the next two functions holds the state lock and closes the returned handle.
HANDLE DuplicateEngineThread() {
  HANDLE duplicate = nullptr;
  DuplicateHandle(GetCurrentProcess(), hostState.engineThread, GetCurrentProcess(), &duplicate,
                  SYNCHRONIZE, FALSE, 0);
  return duplicate;
}

// Null if the thread is gone.
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

// Keeps the library loaded for the engine thread: the host may unload it as soon as it is notified
// of the close. The thread releases this reference as it ends.
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

// The system's own loops, for moving the window and for its menu, may take the quit message. So the
// loop also ends when the window is gone.
void RunMessageLoop() {
  MSG message;
  while (IsWindow(hostState.engineWindow) && GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

// Runs the engine in its window until the window is gone and the worker has ended.
void RunInWindow() {
  if (!CreateEngineWindow()) return;
  // The window's first painting erases it, so the window is shown before the worker paints the
  // fixed screens. A message that another thread sends meanwhile may close the window.
  ShowEngineWindow();
  if (hostState.engineWindow != nullptr && CreateWorker()) RunMessageLoop();
  EndWorkerAndWindow();
}

// The last step of the thread: closes its own handle and allows a new start. Later waits find the
// thread through `lastThread`.
void LeaveEngineThread() {
  const StateLocked locked;
  hostState.lastThread = {GetCurrentThreadId(), CreationTime(GetCurrentThread())};
  CloseHandle(std::exchange(hostState.engineThread, nullptr));
  hostState.phase = Phase::Idle;
}

// From here on a start is accepted and waits for this thread to end.
void EnterEpilogue() {
  const StateLocked locked;
  hostState.phase = Phase::Epilogue;
}

void NotifyHostOfClose() {
  HWND hostWindow = hostState.hostWindow.exchange(nullptr);
  if (hostWindow != nullptr) PostMessageA(hostWindow, kMHEG5ClosedMessage, 0, 0);
}

DWORD WINAPI EngineThread(void*) {
  PassStartGate();
  OpenMessageQueues();
  OpenScreen();
  if (RegisterEngineWindowClass()) {
    RunInWindow();
    UnregisterEngineWindowClass();
  }
  ReleaseHostObject();  // needed only if there was no worker
  hostState.engineThreadId = 0;
  EnterEpilogue();
  NotifyHostOfClose();
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

// ---- Start and wait, on the host's threads ----

// Claims the start for the caller. False if an engine exists. If the host has been notified of the
// close but the engine thread has not quite ended, waits for that first: hosts restart from the
// handler of the closed message.
[[nodiscard]] bool ClaimStart() {
  if (HANDLE ending = DuplicateEndingThread(); ending != nullptr) {
    WaitAnsweringSentMessages(ending, kEpilogueLimitMs);
    CloseHandle(ending);
  }
  return ClaimIfIdle();
}

// Ends the claim: the engine is alive, or the start has failed.
void EndStart(Phase phase) {
  const StateLocked locked;
  hostState.startingThreadId = 0;
  hostState.phase = phase;
}

// Creates the engine thread, which waits at the start gate. On failure returns false and releases
// everything.
[[nodiscard]] bool CreateEngineThread() {
  hostState.library = ReferToThisLibrary();
  hostState.startGate = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  if (hostState.library != nullptr && hostState.startGate != nullptr && MakeThread()) return true;
  if (hostState.startGate != nullptr) CloseHandle(std::exchange(hostState.startGate, nullptr));
  if (hostState.library != nullptr) FreeLibrary(std::exchange(hostState.library, nullptr));
  return false;
}

// The effect of a close request while the engine has no window.
enum class WithoutWindow { Ignore, Stop };

// Asks the running engine to close. The window is forgotten under the same lock before it is
// destroyed, so the request cannot reach a later engine.
void AskToClose(WithoutWindow withoutWindow) {
  const StateLocked locked;
  HWND window = hostState.engineWindow;
  if (hostState.engineThread == nullptr) return;
  // Without a window the message goes to the caller's own queue, but not during a close.
  if (window == nullptr && (withoutWindow == WithoutWindow::Ignore || IsClosing())) return;
  window == nullptr ? StopRunning() : StopForClose();
  PostMessageA(window, WM_CLOSE, 0, 0);
}

}  // namespace

void WaitAnsweringSentMessages(HANDLE object, DWORD limitMs) {
  const ULONGLONG start = GetTickCount64();
  for (DWORD remaining = limitMs;;) {
    // With this flag the wait also wakes for messages that the caller has seen in its queue but not
    // answered yet.
    const DWORD answer =
        MsgWaitForMultipleObjectsEx(1, &object, remaining, QS_SENDMESSAGE, MWMO_INPUTAVAILABLE);
    if (answer != WAIT_OBJECT_0 + 1) return;
    AnswerSentMessages();
    if (limitMs == INFINITE) continue;
    const ULONGLONG passed = GetTickCount64() - start;
    if (passed >= limitMs) return;
    remaining = limitMs - static_cast<DWORD>(passed);
  }
}

}  // namespace korvel

extern "C" {

uint32_t KORVEL_CALL RunMHEG5Window(MHEG5Host* host, HWND hostWindow) {
  using namespace korvel;
  if (!IsUsable(host) || !ClaimStart()) return 1;
  if (!CreateEngineThread()) {
    EndStart(Phase::Idle);
    return 1;
  }
  hostState.hostWindow = hostWindow;
  KeepHostObject(host);
  EndStart(Phase::Alive);
  SetEvent(hostState.startGate);
  return 0;
}

uint32_t KORVEL_CALL ExitMHEG5(void) {
  korvel::AskToClose(korvel::WithoutWindow::Ignore);
  return 0;
}

uint32_t KORVEL_CALL MHEG5ReStart(void) {
  korvel::AskToClose(korvel::WithoutWindow::Stop);
  return 0;
}

// Waits for the thread's last calls too, because hosts unload the library or end the process next.
// The engine's own threads and the thread that is starting the engine would wait for themselves.
uint32_t KORVEL_CALL MHEG5WaitForClose(void) {
  HANDLE thread = korvel::OpenThreadToWaitFor();
  if (thread == nullptr) return 0;
  korvel::WaitAnsweringSentMessages(thread, INFINITE);
  CloseHandle(thread);
  return 0;
}

}  // extern "C"
