// The two queues in which the engine thread hands window messages to the worker, and the queue
// lock. A close overtakes whatever else is waiting.
#pragma once

#include <windows.h>

#include <cstdint>

namespace korvel {

struct QueuedMessage {
  UINT Number = 0;
  std::uint32_t WParam = 0;
  std::uint32_t LParam = 0;
};

// Engine thread: before the window is made, and after the worker has ended.
void OpenMessageQueues() noexcept;
void CloseMessageQueues() noexcept;

// Engine thread: adds a close. Cannot fail.
void QueueClose() noexcept;

// Engine thread: adds a message at the end of the input queue; without memory it is lost.
void QueueInput(const QueuedMessage& message) noexcept;

// Worker: takes the next message, a close before any other. False when there is none.
[[nodiscard]] bool TakeQueuedMessage(QueuedMessage& message) noexcept;

// Worker: takes out the queued expiries of the timer `id`.
void RemoveQueuedExpiries(std::uint32_t id) noexcept;

// Worker: frees every message that is left.
void DrainMessageQueues() noexcept;

// The queue lock, for a scope that does several of the above, or sets a timer, as one step. All
// the functions take it themselves, which the scope's own thread may do again.
class [[nodiscard]] QueuesLocked {
 public:
  QueuesLocked() noexcept;
  ~QueuesLocked();
  QueuesLocked(const QueuesLocked&) = delete;
  QueuesLocked& operator=(const QueuesLocked&) = delete;
};

}  // namespace korvel
