// The phases of an engine's life and the handle of its thread. Whoever waits for the thread waits
// on a duplicate: others may close the handle meanwhile, and a closed number may come back as
// another object's.
#include "host/engine_lifetime.h"

#include <utility>

#include "host/host_state.h"
#include "host/sent_message_wait.h"

namespace korvel {
namespace {

// How long a start waits for an engine that has reported its close; what is left of that engine's
// thread then is a few calls.
constexpr DWORD kEpilogueLimitMs = 5000;

// Null when there is none. The caller holds the state lock and closes the handle.
HANDLE Duplicate(HANDLE thread) noexcept {
  HANDLE duplicate = nullptr;
  if (thread != nullptr) {
    DuplicateHandle(GetCurrentProcess(), thread, GetCurrentProcess(), &duplicate, SYNCHRONIZE,
                    FALSE, 0);
  }
  return duplicate;
}

// The caller holds the state lock.
void CloseLastThread() noexcept {
  if (hostState.lastThread != nullptr) CloseHandle(std::exchange(hostState.lastThread, nullptr));
}

bool ClaimIfIdle() noexcept {
  const StateLocked locked;
  if (hostState.phase != Phase::Idle) return false;
  CloseLastThread();
  hostState.phase = Phase::Starting;
  hostState.startingThreadId = GetCurrentThreadId();
  hostState.window = {};
  hostState.isRunning = false;
  hostState.isClosing = false;
  return true;
}

HANDLE DuplicateEndingThread() noexcept {
  const StateLocked locked;
  return hostState.phase == Phase::Epilogue ? Duplicate(hostState.engineThread) : nullptr;
}

HANDLE DuplicateThreadToWaitFor() noexcept {
  const StateLocked locked;
  const DWORD caller = GetCurrentThreadId();
  const bool isOwn = caller == hostState.engineThreadId || caller == hostState.workerThreadId ||
                     caller == hostState.startingThreadId;
  if (isOwn) return nullptr;
  return Duplicate(hostState.phase == Phase::Idle ? hostState.lastThread : hostState.engineThread);
}

void CloseLastThreadIfEnded() noexcept {
  const StateLocked locked;
  const bool hasEnded = WaitForSingleObject(hostState.lastThread, 0) == WAIT_OBJECT_0;
  if (hasEnded) CloseLastThread();
}

}  // namespace

bool ClaimStart() noexcept {
  if (HANDLE ending = DuplicateEndingThread(); ending != nullptr) {
    WaitAnsweringSentMessages(ending, kEpilogueLimitMs);
    CloseHandle(ending);
  }
  return ClaimIfIdle();
}

void AbandonStart() noexcept {
  const StateLocked locked;
  hostState.startingThreadId = 0;
  hostState.phase = Phase::Idle;
}

void EnterEngineThread(HANDLE thread, DWORD id) noexcept {
  const StateLocked locked;
  hostState.engineThread = thread;
  hostState.engineThreadId = id;
}

void CompleteStart() noexcept {
  const StateLocked locked;
  hostState.startingThreadId = 0;
  hostState.phase = Phase::Alive;
}

void WaitForEngineThread() noexcept {
  HANDLE thread = DuplicateThreadToWaitFor();
  if (thread == nullptr) return;
  WaitAnsweringSentMessages(thread, INFINITE);
  CloseHandle(thread);
  CloseLastThreadIfEnded();
}

void EnterEpilogue() noexcept {
  const StateLocked locked;
  hostState.phase = Phase::Epilogue;
}

void LeaveEngineThread() noexcept {
  const StateLocked locked;
  hostState.lastThread = std::exchange(hostState.engineThread, nullptr);
  hostState.phase = Phase::Idle;
}

}  // namespace korvel
