// What the worker does with each queued message: keys and timer expiries become events, restarts
// start the engine again, a close ends what runs.
#include "host/worker_loop.h"

#include <windows.h>

#include "engine/engine.h"
#include "host/host.h"
#include "host/key_table.h"
#include "host/message_queues.h"
#include "host/running_state.h"
#include "host/window_messages.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

constexpr DWORD kPollPeriodMs = 10;
constexpr std::int32_t kNoSource = 0;

// A change may have been drawn within the last copy's millisecond or just after a painting
// request: what the viewer has asked for is shown all the same.
void RedrawAtOnce() noexcept {
  DiscardUpdateStamp();
  ResetRedrawCounter();
  static_cast<void>(Redraw());
}

// Results of events are of no concern here: whoever was to stop has stopped.
void HandleTimer(std::uint32_t id) noexcept {
  if (!MayRun()) return;
  static_cast<void>(
      RaiseOutsideEvent(kNoSource, EventType::TimerFired, static_cast<std::int32_t>(id)));
  RedrawAtOnce();
}

// The counter is reset before the key as well, so that the first redraw that its actions ask for
// paints.
void HandleKey(std::uint32_t virtualKey) noexcept {
  if (!MayRun()) return;
  ResetRedrawCounter();
  if (const std::int32_t key = UserInputKey(virtualKey); key != kNoUserInput) {
    static_cast<void>(RaiseOutsideEvent(kNoSource, EventType::UserInput, key));
  }
  RedrawAtOnce();
}

void Restart() noexcept {
  ClearImageCache();
  AllowRunning();
  if (!StartAndShow()) StopRunning();
}

void HandleMessage(const QueuedMessage& message) noexcept {
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

}  // namespace

bool StartAndShow() noexcept {
  BeginWork();
  ResetRedrawCounter();
  if (StartEngine({}) == Status::Refused) return false;
  RedrawAtOnce();
  static_cast<void>(DeviceUpdate());
  AllowRunning();
  return true;
}

void RunWorkerLoop() noexcept {
  for (QueuedMessage message; message.Number != WM_CLOSE;) {
    if (TakeQueuedMessage(message)) {
      HandleMessage(message);
    } else {
      Sleep(kPollPeriodMs);
    }
  }
}

}  // namespace korvel
