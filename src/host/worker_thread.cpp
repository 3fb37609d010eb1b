// The worker thread from the opening of the presentation to its closing, and its loop over the
// queued messages: keys and timer expiries become events, restarts start the engine again, a close
// ends what runs.
#include "host/worker_thread.h"

#include <windows.h>

#include "engine/engine.h"
#include "host/host_object.h"
#include "host/host_state.h"
#include "host/key_table.h"
#include "host/message_queues.h"
#include "host/trace.h"
#include "host/window.h"
#include "platform/running.h"
#include "platform/screen.h"
#include "presentation/presentation.h"

namespace korvel {

namespace {

constexpr DWORD kPollPeriodMs = 10;
constexpr std::int32_t kNoSource = 0;

// A change may have been drawn within the last copy's millisecond or just after a painting
// request: what the viewer has asked for is shown all the same.
void RedrawAtOnce() {
  DiscardUpdateStamp();
  ResetRedrawCounter();
  static_cast<void>(Redraw());
}

// The results of events are ignored: the actions that had to stop have stopped.
void HandleTimer(std::uint32_t id) {
  if (!MayRun()) return;
  static_cast<void>(
      RaiseOutsideEvent(kNoSource, EventType::TimerFired, static_cast<std::int32_t>(id)));
  RedrawAtOnce();
}

// The counter is reset before the key as well, so that the first redraw that its actions ask for
// paints.
void HandleKey(std::uint32_t virtualKey) {
  if (!MayRun()) return;
  ResetRedrawCounter();
  if (const std::int32_t key = UserInputKey(virtualKey); key != kNoUserInput) {
    static_cast<void>(RaiseOutsideEvent(kNoSource, EventType::UserInput, key));
  }
  RedrawAtOnce();
}

// Starts the engine from the start-up search and shows what it has drawn. False when no application
// could be started; the running flag is then the caller's to clear.
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
  switch (message.Number) {
  case WM_TIMER: return HandleTimer(message.WParam);
  case WM_CLOSE: return CloseDown();
  case WM_KEYDOWN: return HandleKey(message.WParam);
  case kRestartAfterQuit: EmptyPersistentStore(); return Restart();
  case kRestartAfterTune: CloseDown(); return Restart();
  default: return;
  }
}

// Handles queued messages until a close has been handled.
void RunWorkerLoop() {
  for (QueuedMessage message; message.Number != WM_CLOSE;) {
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
  DeleteOldTraceFile();
  EmptyPersistentStore();
  AllowRunning();
}

void StartFirstTime() {
  ShowScreenText("Please Wait");
  if (StartAndShow()) return;
  StopRunning();
  ShowScreenText("No MHEG5 Service");
}

// GDI+ goes last: the engine's canvases need it too.
void CloseWorker() {
  DrainMessageQueues();
  DiscardUpdateStamp();
  ReleasePictures();
  WithdrawHostObject();
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

void RequestRestart(RestartReason reason) {
  const UINT message =
      reason == RestartReason::QuitWithoutParent ? kRestartAfterQuit : kRestartAfterTune;
  ClearSurface();
  StopRunning();
  PostMessageA(hostState.engineWindow, message, 0, 0);
}

}  // namespace korvel
