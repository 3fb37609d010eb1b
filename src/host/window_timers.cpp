// One-shot timers of the engine window. The worker sets and kills them, the engine thread sees
// them expire; both do so under the queue lock, so that an expiry that is under way can neither
// kill the timer that replaces it nor fire in its place.
#include "host/window_timers.h"

#include <algorithm>

#include "host/host.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/window_messages.h"

namespace korvel {
namespace {

// Above it, older systems fire at once instead of late.
constexpr std::uint32_t kLongestPeriodMs = 0x7FFFFFFF;

}  // namespace

void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs) noexcept {
  HWND window = hostState.engineWindow;
  const std::uint32_t period = std::min(periodMs, kLongestPeriodMs);
  const QueuesLocked locked;
  RemoveQueuedExpiries(id);
  KillTimer(window, id);
  if (SetTimer(window, id, period, nullptr) == 0) {
    PostMessageA(window, kSetWindowTimer, id, static_cast<LPARAM>(period));
  }
}

void KillWindowTimer(std::uint32_t id) noexcept {
  const QueuesLocked locked;
  KillTimer(hostState.engineWindow, id);
  RemoveQueuedExpiries(id);
}

void TakeTimerExpiry(HWND window, std::uint32_t id, ExpiryUse use) noexcept {
  const QueuesLocked locked;
  KillTimer(window, id);
  if (use == ExpiryUse::Queued) QueueInput({WM_TIMER, id, 0});
}

void SetRequestedTimer(HWND window, std::uint32_t id, std::uint32_t periodMs) noexcept {
  SetTimer(window, id, periodMs, nullptr);
}

}  // namespace korvel
