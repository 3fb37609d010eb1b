// The threads of the engine. The engine thread owns the engine window and its message loop, and
// creates the worker thread, which starts the engine and does all MHEG-5 work, one piece at a time.
#pragma once

#include <windows.h>

namespace korvel {

// ---- Waiting (engine_thread.cpp) ----

// Any thread: waits until the object is signalled or the limit (INFINITE: none) has passed.
// Messages that other threads send to the caller's windows are answered meanwhile, so that a sender
// and a waiter never wait for each other; posted messages stay in the queue.
void WaitAnsweringSentMessages(HANDLE object, DWORD limitMs);

// ---- The engine window (window.cpp); engine thread only ----

// Posted to the engine window with both parameters 0: restart from the start-up search.
inline constexpr UINT kRestartAfterQuit = 0x8001;  // the application has quit
inline constexpr UINT kRestartAfterTune = 0x8003;  // the running application is closed first

// Posted if the platform does not let the worker set a timer of the engine thread's window: the
// engine thread then sets it. The parameters are the timer id and the period in milliseconds.
inline constexpr UINT kSetWindowTimer = 0x8010;

[[nodiscard]] bool RegisterEngineWindowClass();
void UnregisterEngineWindowClass();

// Creates the window, hidden, and stores its handle as the engine window.
[[nodiscard]] bool CreateEngineWindow();

void ShowEngineWindow();

// Ends the worker if there is one, and destroys the window if it still exists.
void EndWorkerAndWindow();

// ---- The worker thread (worker_thread.cpp) ----

// Engine thread: creates the worker, which starts immediately. False if that fails.
[[nodiscard]] bool CreateWorker();

// Engine thread: asks the worker to end and waits for it. Does nothing if there is none.
void EndWorker();

}  // namespace korvel
