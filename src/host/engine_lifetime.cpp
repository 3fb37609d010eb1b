// The phases of an engine's life and the handle of its thread. Whoever waits for the thread waits
// on a duplicate: the thread closes its own handle, and a closed number may come back as another
// object's.
#include "host/engine_lifetime.h"

#include <utility>

#include "host/host_state.h"
#include "host/sent_message_wait.h"

namespace korvel {
namespace {

// How long a start waits for an engine that has reported its close; what is left of that engine's
// thread then is a few calls.
constexpr DWORD kEpilogueLimitMs = 5000;

// Null when no engine thread exists. The caller holds the state lock and closes the handle.
HANDLE DuplicateEngineThread() noexcept {
  HANDLE duplicate = nullptr;
  if (hostState.engineThread != nullptr) {
    DuplicateHandle(GetCurrentProcess(), hostState.engineThread, GetCurrentProcess(), &duplicate,
                    SYNCHRONIZE, FALSE, 0);
  }
  return duplicate;
}

bool ClaimIfIdle() noexcept {
  const StateLocked locked;
  if (hostState.phase != Phase::Idle) return false;
  hostState.phase = Phase::Starting;
  hostState.startingThreadId = GetCurrentThreadId();
  hostState.window = {};
  hostState.isRunning = false;
  hostState.isClosing = false;
  return true;
}

HANDLE DuplicateEndingThread() noexcept {
  const StateLocked locked;
  return hostState.phase == Phase::Epilogue ? DuplicateEngineThread() : nullptr;
}

HANDLE DuplicateThreadToWaitFor() noexcept {
  const StateLocked locked;
  const DWORD caller = GetCurrentThreadId();
  const bool isOwn = caller == hostState.engineThreadId || caller == hostState.workerThreadId ||
                     caller == hostState.startingThreadId;
  return isOwn ? nullptr : DuplicateEngineThread();
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
}

void EnterEpilogue() noexcept {
  const StateLocked locked;
  hostState.phase = Phase::Epilogue;
}

void LeaveEngineThread() noexcept {
  const StateLocked locked;
  CloseHandle(std::exchange(hostState.engineThread, nullptr));
  hostState.phase = Phase::Idle;
}

}  // namespace korvel
