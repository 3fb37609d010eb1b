// The engine window: its class, its messages, its timers, and its end together with the worker.
// Engine thread.
#pragma once

#include <windows.h>

namespace korvel {

// Posted to the engine window with both parameters 0: start again from the start-up search.
inline constexpr UINT kRestartAfterQuit = 0x8001;  // the application has quit
inline constexpr UINT kRestartAfterTune = 0x8003;  // the running application is to be closed first

// Posted when the platform refuses the worker a timer of the engine thread's window: the engine
// thread sets it itself. Timer id and period in milliseconds.
inline constexpr UINT kSetWindowTimer = 0x8010;

[[nodiscard]] bool RegisterEngineWindowClass();
void UnregisterEngineWindowClass();

// Makes the window, hidden, and keeps its handle as the engine window.
[[nodiscard]] bool CreateEngineWindow();

void ShowEngineWindow();

// Has the worker end if there is one, waits for it, and destroys the window if it is still there.
void EndWorkerAndWindow();

}  // namespace korvel
