// The process-wide record of the platform folder: what the exports, the engine thread and the
// worker know of each other. The queues and the trace keep what only they touch.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>

#include "korvel.h"

namespace korvel {

// The life of an engine, from one RunMHEG5Window to the moment that the next one is accepted.
enum class Phase : std::uint8_t {
  Idle,      // no engine; a start is accepted
  Starting,  // RunMHEG5Window is at work; the engine thread waits at the gate
  Alive,     // until the host hears of the close
  Epilogue,  // the host hears of the close; a start waits for the engine thread to end
};

// What the engine thread alone knows of its window.
struct WindowState {
  HANDLE worker = nullptr;  // owned; null while there is none
  bool isWaitingForWorker = false;
  bool isCtrlDown = false;
  bool isAltDown = false;
};

// A thread whose handle is closed. The system uses the numbers of ended threads again, so the time
// of its creation is needed to find it.
struct ThreadIdentity {
  DWORD id = 0;
  std::uint64_t creationTime = 0;
};

struct HostState {
  // Guards the four members below it and the window's end, so that a close request meets
  // the engine it is meant for. Never held across a call of the host, a wait or a drawing.
  SRWLOCK lock = SRWLOCK_INIT;
  Phase phase = Phase::Idle;
  HANDLE engineThread = nullptr;  // owned; closed by the engine thread itself as its last act
  ThreadIdentity lastThread;      // the one that has closed its handle; it may still be ending
  DWORD startingThreadId = 0;     // the caller of RunMHEG5Window while that is at work

  HMODULE library = nullptr;   // this library; the engine thread holds a reference to it
  HANDLE startGate = nullptr;  // an event that the engine thread waits for before it does anything

  std::atomic<DWORD> engineThreadId = 0;
  std::atomic<DWORD> workerThreadId = 0;
  std::atomic<HWND> engineWindow = nullptr;  // null again before the window is destroyed
  std::atomic<HWND> hostWindow = nullptr;
  std::atomic<MHEG5Host*> hostObject = nullptr;  // one reference, from start to the worker's end

  WindowState window;  // engine thread only

  std::atomic<bool> isRunning = false;  // the engine running flag
  // A close has been asked for. Nothing but a new start takes it back, so that a worker that is
  // still starting cannot undo a close by setting the running flag.
  std::atomic<bool> isClosing = false;
};

// Constant-initialised and without a destructor: when the process ends, its other threads have
// been stopped anywhere, and nothing of it may be touched any more.
extern HostState hostState;

// Held in the scope that reads or changes what HostState::lock guards.
class [[nodiscard]] StateLocked {
 public:
  StateLocked() { AcquireSRWLockExclusive(&hostState.lock); }
  ~StateLocked() { ReleaseSRWLockExclusive(&hostState.lock); }
  StateLocked(const StateLocked&) = delete;
  StateLocked& operator=(const StateLocked&) = delete;
};

// Sets the running flag; a close that has been asked for still wins.
void AllowRunning();

// Clears the running flag: a waiting file fetch gives up, keys and timer expiries are dropped.
void StopRunning();

// Clears the running flag for good: until the engine has ended nothing runs again.
void StopForClose();

}  // namespace korvel
