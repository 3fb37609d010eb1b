// Observes the engine's two threads from outside: which messages the window's thread has received,
// which timers run, and when the worker is idle.
#pragma once

#include <windows.h>

#include <vector>

#include "player/recording.h"
#include "player/stillness.h"

namespace player {

// Starts to watch the engine. Call it before each start of the engine, because a running worker may
// already have loaded the address of a function to be replaced. Returns false if the library does
// not import all the functions to be replaced.
[[nodiscard]] bool WatchEngine();

// Starts to watch the thread of the engine's window. Returns false if the system call fails.
[[nodiscard]] bool WatchWindow(HWND engineWindow);

// Posts a mark to the window; it arrives after all messages posted before. Returns its number,
// which is unique.
[[nodiscard]] unsigned PostMark(HWND engineWindow);

// The current state, for Stillness.
[[nodiscard]] EngineState StateOfEngine(HWND engineWindow);

// Whether a timer of the engine runs.
[[nodiscard]] bool HasTimer();

// The keys that the window has received since the last call, with their times by GetTickCount64.
[[nodiscard]] std::vector<KeyPress> TakeKeys();

// Whether the user has pressed F5 since the last call.
[[nodiscard]] bool TakeReloadRequest();

}  // namespace player
