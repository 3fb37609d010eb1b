// Observes the engine's two threads from the same process, without the engine's help: which
// messages the window's thread has received, and when the worker has nothing to do.
#pragma once

#include <windows.h>

#include "player/stillness.h"

namespace player {

// Starts to watch the worker. Only before the engine starts: a running worker may hold the address
// of the replaced function. False if the library does not sleep as the watch expects.
[[nodiscard]] bool WatchWorker();

// Starts to watch the thread of the engine's window. False if the system refuses.
[[nodiscard]] bool WatchWindow(HWND engineWindow);

// Posts a mark to the window, after everything posted before. Returns its number, which is new.
[[nodiscard]] unsigned PostMark(HWND engineWindow);

[[nodiscard]] EngineSight SightOfEngine(HWND engineWindow);

}  // namespace player
