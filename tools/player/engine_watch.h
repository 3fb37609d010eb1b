// What a host in the same process can see of the engine's two threads without the engine's help:
// which messages the window's thread has taken, and when the worker has nothing to do.
#pragma once

#include <windows.h>

#include "player/stillness.h"

namespace player {

// Begins to watch the worker. Only before the engine starts: a running worker may keep the address
// of the function that is replaced. False when the library does not sleep as the watch expects.
[[nodiscard]] bool WatchWorker();

// Begins to watch the thread of the engine's window. False when the system refuses.
[[nodiscard]] bool WatchWindow(HWND engineWindow);

// Posts a mark to the window, after all that was posted before. Returns its number, which is new.
[[nodiscard]] unsigned PostMark(HWND engineWindow);

[[nodiscard]] EngineSight SightOfEngine(HWND engineWindow);

}  // namespace player
