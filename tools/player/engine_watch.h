// Observes the engine's two threads from outside: which messages the window's thread has received,
// and when the worker is idle.
#pragma once

#include <windows.h>

#include "player/stillness.h"

namespace player {

// Starts to watch the worker. Call it before the engine starts, because a running worker may
// already have loaded the replaced function's address. Returns false if the library does not import
// Sleep.
[[nodiscard]] bool WatchWorker();

// Starts to watch the thread of the engine's window. Returns false if the system call fails.
[[nodiscard]] bool WatchWindow(HWND engineWindow);

// Posts a mark to the window; it arrives after all messages posted before. Returns its number,
// which is unique.
[[nodiscard]] unsigned PostMark(HWND engineWindow);

[[nodiscard]] EngineSight SightOfEngine(HWND engineWindow);

}  // namespace player
