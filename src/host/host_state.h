// The process-wide state that the exported functions, the engine thread and the worker share. The
// queues have their own state. Also declares the setter of the trace stream.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <cstdio>

#include "korvel.h"

namespace korvel {

// The life of an engine, from one RunMHEG5Window until the next one is accepted.
enum class Phase : std::uint8_t {
  Idle,      // no engine; a start is accepted
  Starting,  // RunMHEG5Window is running; the engine thread waits for `startGate`
  Alive,     // until the host is notified of the close
  Epilogue,  // the host is being notified; a start waits for the engine thread to end
};

// The state of the window that only the engine thread uses.
struct WindowState {
  HANDLE worker = nullptr;  // owned; null if there is none
  bool isWaitingForWorker = false;
  bool isCtrlDown = false;
  bool isAltDown = false;
};

// A thread whose handle is closed. The system reuses the numbers of ended threads, so its creation
// time is needed too.
struct ThreadIdentity {
  DWORD id = 0;
  std::uint64_t creationTime = 0;
};

struct HostState {
  // Guards the next four members and the end of `engineWindow`, so that a close request reaches
  // the engine it is meant for. It is never held while a function of the host object runs, while a
  // thread waits, or while the window is painted.
  SRWLOCK lock = SRWLOCK_INIT;
  Phase phase = Phase::Idle;
  HANDLE engineThread = nullptr;  // owned; closed by the engine thread itself as its last step
  ThreadIdentity lastThread;      // the previous engine thread, which may not have exited yet
  DWORD startingThreadId = 0;     // the caller of RunMHEG5Window while that is running

  HMODULE library = nullptr;   // this library; the engine thread holds a reference to it
  HANDLE startGate = nullptr;  // an event that the engine thread waits for before it does anything

  std::atomic<DWORD> engineThreadId = 0;
  std::atomic<DWORD> workerThreadId = 0;
  std::atomic<HWND> engineWindow = nullptr;  // reset to null before the window is destroyed
  std::atomic<HWND> hostWindow = nullptr;
  std::atomic<MHEG5Host*> hostObject = nullptr;  // one reference, from start to the worker's end

  WindowState window;  // engine thread only

  std::atomic<bool> isRunning = false;  // the engine running flag
  // A close was requested. Only a new start clears this, so that a worker that is still starting
  // cannot undo a close by setting the running flag.
  std::atomic<bool> isClosing = false;
};

// Constant-initialised and without a destructor: when the process ends, its other threads have been
// terminated at arbitrary points, and this record must not be touched.
extern HostState hostState;

// A scoped lock of HostState::lock.
class [[nodiscard]] StateLocked {
 public:
  StateLocked() { AcquireSRWLockExclusive(&hostState.lock); }
  ~StateLocked() { ReleaseSRWLockExclusive(&hostState.lock); }
  StateLocked(const StateLocked&) = delete;
  StateLocked& operator=(const StateLocked&) = delete;
};

// Sets the running flag; it has no effect if a close was requested.
void AllowRunning();

// Clears the running flag: a waiting file fetch fails, and keys and timer expiries are dropped.
void StopRunning();

// Clears the running flag and records the close: AllowRunning has no effect until the next start.
void StopForClose();

// Sets the stream that the trace is written to; null turns the trace off. To be called only while
// no engine runs. The caller owns the stream and keeps it open until it is replaced. Nothing in the
// engine calls it: it is for a developer who debugs the two threads.
void SetTraceStream(std::FILE* stream);

}  // namespace korvel
