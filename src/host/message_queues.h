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
void OpenMessageQueues();
void CloseMessageQueues();

// Engine thread: adds a close. Cannot fail.
void QueueClose();

// Engine thread: adds a message at the end of the input queue; without memory it is lost.
void QueueInput(const QueuedMessage& message);

// Worker: takes the next message, a close before any other. False when there is none.
[[nodiscard]] bool TakeQueuedMessage(QueuedMessage& message);

// Worker: takes out the queued expiries of the timer `id`.
void RemoveQueuedExpiries(std::uint32_t id);

// Worker: frees every message that is left.
void DrainMessageQueues();

// The queue lock, for a scope that does several of the above, or sets a timer, as one step. All
// the functions take it themselves, which the scope's own thread may do again.
class [[nodiscard]] QueuesLocked {
 public:
  QueuesLocked();
  ~QueuesLocked();
  QueuesLocked(const QueuesLocked&) = delete;
  QueuesLocked& operator=(const QueuesLocked&) = delete;
};

}  // namespace korvel
