// The close queue and the input queue between the engine thread and the worker, and the lock that
// guards them.
#include "host/message_queues.h"

#include <new>
#include <utility>

#include "objects/memory.h"

namespace korvel {
namespace {

struct Record {
  QueuedMessage message;
  Record* next = nullptr;
};

// Plain pointers and no destructor: nothing may be released while the process ends.
struct MessageQueues {
  CRITICAL_SECTION lock;
  unsigned closes = 0;  // closes have no parameters, so a count is enough and cannot fail
  Record* head = nullptr;
  Record* tail = nullptr;
};

constinit MessageQueues queues = {};

// The queue has the order of the window's messages, but expiries may be removed from its middle.
void Unlink(Record* before, Record* record) {
  (before == nullptr ? queues.head : before->next) = record->next;
  if (queues.tail == record) queues.tail = before;
  ReleaseMemory(record);
}

}  // namespace

QueuesLocked::QueuesLocked() { EnterCriticalSection(&queues.lock); }

QueuesLocked::~QueuesLocked() { LeaveCriticalSection(&queues.lock); }

void OpenMessageQueues() { InitializeCriticalSection(&queues.lock); }

void CloseMessageQueues() {
  DrainMessageQueues();
  DeleteCriticalSection(&queues.lock);
}

void QueueClose() {
  const QueuesLocked locked;
  ++queues.closes;
}

void QueueInput(const QueuedMessage& message) {
  const QueuesLocked locked;
  void* block = AllocateZeroed(sizeof(Record));
  if (block == nullptr) return;
  auto* record = new (block) Record{message};
  (queues.tail == nullptr ? queues.head : queues.tail->next) = record;
  queues.tail = record;
}

bool TakeQueuedMessage(QueuedMessage& message) {
  const QueuesLocked locked;
  if (queues.closes > 0) {
    --queues.closes;
    message = {WM_CLOSE, 0};
    return true;
  }
  if (queues.head == nullptr) return false;
  message = queues.head->message;
  Unlink(nullptr, queues.head);
  return true;
}

void RemoveQueuedExpiries(std::uint32_t id) {
  const QueuesLocked locked;
  Record* before = nullptr;
  for (Record* record = queues.head; record != nullptr;) {
    Record* next = record->next;
    if (record->message.number == WM_TIMER && record->message.wParam == id) {
      Unlink(before, record);
    } else {
      before = record;
    }
    record = next;
  }
}

void DrainMessageQueues() {
  const QueuesLocked locked;
  queues.closes = 0;
  while (queues.head != nullptr) Unlink(nullptr, queues.head);
}

}  // namespace korvel
