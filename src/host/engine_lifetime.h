// When an engine may start, and how others wait for its end. The rules about the phases of an
// engine's life and about its thread's handle stand here together; the threads' own work does not.
#pragma once

#include <windows.h>

namespace korvel {

// A host's thread: claims the start for the caller. False when an engine lives or is closing.
// When the host has been told of the close already but the engine thread has not quite ended,
// waits for that first: hosts restart from the handler of the closed message.
[[nodiscard]] bool ClaimStart() noexcept;

// The claiming thread: gives the start up again, with nothing kept.
void AbandonStart() noexcept;

// The claiming thread: the engine thread has been made. Takes the handle.
void EnterEngineThread(HANDLE thread, DWORD id) noexcept;

// The claiming thread: the host is stored, the engine lives.
void CompleteStart() noexcept;

// A host's thread: waits without limit for the engine thread to end, its last calls included: what
// hosts do next is to unload the library, or to end the process. Returns at once when none lives,
// on the engine's own threads, and on the thread that is just starting the engine: their wait would
// be for themselves.
void WaitForEngineThread() noexcept;

// Engine thread: the host is about to hear of the close.
void EnterEpilogue() noexcept;

// Engine thread, last: accepts a new start. The thread's handle stays for those who wait for it, up
// to the next start.
void LeaveEngineThread() noexcept;

}  // namespace korvel
