// The engine thread: it owns the engine window and its message loop, and makes the worker, which
// does everything else. Also when it may start, and how others wait for its end.
#pragma once

#include <windows.h>

namespace korvel {

// A host's thread: claims the start for the caller. False when an engine lives or is closing.
// When the host has been told of the close already but the engine thread has not quite ended,
// waits for that first: hosts restart from the handler of the closed message.
[[nodiscard]] bool ClaimStart();

// The claiming thread: gives the start up again, with nothing kept.
void AbandonStart();

// The claiming thread: the host is stored, the engine lives.
void CompleteStart();

// A host's thread: waits without limit for the engine thread to end, its last calls included: what
// hosts do next is to unload the library, or to end the process. Returns at once when none lives,
// on the engine's own threads, and on the thread that is just starting the engine: their wait would
// be for themselves.
void WaitForEngineThread();

// The thread that starts the engine: makes the engine thread, which waits at the start gate.
// False, with nothing kept, when that cannot be done.
[[nodiscard]] bool CreateEngineThread();

// The same thread, when the host object and window are stored: lets the engine thread begin.
void OpenStartGate();

// Waits until the object is signalled or the limit (INFINITE: none) has passed. Messages that
// other threads send to the caller's windows are answered meanwhile, so that a sender and a waiter
// never wait for each other; posted messages stay in the queue. Any thread.
void WaitAnsweringSentMessages(HANDLE object, DWORD limitMs);

}  // namespace korvel
