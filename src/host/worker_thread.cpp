// The worker thread, from the opening of the presentation to its closing, and its loop over the
// queued messages: keys and timer expiries become events, restarts start the engine again, and a
// close ends the running groups.
#include <windows.h>

#include <cstdint>
#include <utility>

#include "engine/engine.h"
#include "host/host_object.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/threads.h"
#include "objects/vocabulary.h"
#include "platform/running.h"
#include "platform/screen.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

constexpr DWORD kPollPeriodMs = 10;
constexpr std::int32_t kNoSource = 0;

// Shows the result of the viewer's input even if the last copy was made in the same millisecond, or
// if the last request to paint came just before the change.
void RedrawAtOnce() {
  DiscardUpdateStamp();
  ResetRedrawCounter();
  static_cast<void>(Redraw());
}

// The results of events are ignored: they only stop action lists.
void HandleTimer(std::uint32_t id) {
  if (!MayRun()) return;
  static_cast<void>(
      RaiseOutsideEvent(kNoSource, EventType::TimerFired, static_cast<std::int32_t>(id)));
  RedrawAtOnce();
}

// The counter is also reset before the key, so that the first redraw that its actions request
// paints.
void HandleKey(std::uint32_t virtualKey) {
  if (!MayRun()) return;
  ResetRedrawCounter();
  if (const std::int32_t key = UserInputKey(virtualKey); key != kNoUserInput) {
    static_cast<void>(RaiseOutsideEvent(kNoSource, EventType::UserInput, key));
  }
  RedrawAtOnce();
}

// Starts the engine from the start-up search and shows the result. False if no application could be
// started; the caller then clears the running flag.
[[nodiscard]] bool StartAndShow() {
  BeginWork();
  ResetRedrawCounter();
  if (StartEngine({}) == Status::Refused) return false;
  RedrawAtOnce();
  DeviceUpdate();
  AllowRunning();
  return true;
}

void Restart() {
  ClearImageCache();
  AllowRunning();
  if (!StartAndShow()) StopRunning();
}

void HandleMessage(const QueuedMessage& message) {
  BeginWork();
  switch (message.number) {
  case WM_TIMER: return HandleTimer(message.wParam);
  case WM_CLOSE: return CloseDown();
  case WM_KEYDOWN: return HandleKey(message.wParam);
  case kRestartAfterQuit: EmptyPersistentStore(); return Restart();
  case kRestartAfterTune: CloseDown(); return Restart();
  default: return;
  }
}

// Handles queued messages until a close has been handled.
void RunWorkerLoop() {
  for (QueuedMessage message; message.number != WM_CLOSE;) {
    if (TakeQueuedMessage(message)) {
      HandleMessage(message);
    } else {
      Sleep(kPollPeriodMs);
    }
  }
}

void ShowScreenText(std::string_view text) {
  ClearSurface();
  DrawScreenText(text);
  DeviceUpdate();
}

void OpenWorker() {
  hostState.workerThreadId = GetCurrentThreadId();
  OpenPresentation(hostState.engineWindow);
  DeleteFileA("debug.txt");  // the trace file of an earlier run
  EmptyPersistentStore();
  AllowRunning();
}

void StartFirstTime() {
  ShowScreenText("Please Wait");
  if (StartAndShow()) return;
  StopRunning();
  DiscardUpdateStamp();  // the start may have failed in the millisecond of the first text
  ShowScreenText("No MHEG5 Service");
}

// GDI+ ends last, because the engine's canvases need it.
void CloseWorker() {
  DrainMessageQueues();
  DiscardUpdateStamp();
  ReleasePictures();
  ReleaseHostObject();
  ResetEngine();
  hostState.workerThreadId = 0;
  ClosePresentation();
}

DWORD WINAPI WorkerThread(void*) {
  OpenWorker();
  StartFirstTime();
  RunWorkerLoop();
  CloseWorker();
  return 0;
}

}  // namespace

bool CreateWorker() {
  hostState.window.worker = CreateThread(nullptr, 0, WorkerThread, nullptr, 0, nullptr);
  return hostState.window.worker != nullptr;
}

void EndWorker() {
  WindowState& window = hostState.window;
  if (window.worker == nullptr) return StopForClose();
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

void RequestRestart(RestartReason reason) {
  const UINT message =
      reason == RestartReason::QuitWithoutParent ? kRestartAfterQuit : kRestartAfterTune;
  ClearSurface();
  StopRunning();
  PostMessageA(hostState.engineWindow, message, 0, 0);
}

}  // namespace korvel
