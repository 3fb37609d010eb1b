// What the engine window makes of its messages.
#pragma once

#include <windows.h>

namespace korvel {

// Engine thread: keys, timer expiries and restarts go to the worker's queue, a close ends the
// worker and then the window, a paint shows the last finished picture.
LRESULT CALLBACK EngineWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace korvel
