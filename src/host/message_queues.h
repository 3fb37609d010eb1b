// The two queues in which the engine thread passes window messages to the worker, and the queue
// lock. A close is taken before all other messages.
#pragma once

#include <windows.h>

#include <cstdint>

namespace korvel {

struct QueuedMessage {
  UINT number = 0;
  std::uint32_t wParam = 0;
};

// Engine thread: opens the queues before the window is created, closes them after the worker ended.
void OpenMessageQueues();
void CloseMessageQueues();

// Engine thread: adds a close. Cannot fail.
void QueueClose();

// Engine thread: adds a message at the end of the input queue. It is lost if memory runs out.
void QueueInput(const QueuedMessage& message);

// Worker: removes the next message, a close before any other. False if there is none.
[[nodiscard]] bool TakeQueuedMessage(QueuedMessage& message);

// Worker: removes the queued expiries of the timer `id`.
void RemoveQueuedExpiries(std::uint32_t id);

// Worker: releases all remaining messages.
void DrainMessageQueues();

// Holds the queue lock for a scope, which makes several of the calls above one atomic step. The
// functions take the lock themselves; it is recursive.
class [[nodiscard]] QueuesLocked {
 public:
  QueuesLocked();
  ~QueuesLocked();
  QueuesLocked(const QueuesLocked&) = delete;
  QueuesLocked& operator=(const QueuesLocked&) = delete;
};

}  // namespace korvel
