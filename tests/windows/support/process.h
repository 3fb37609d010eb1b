// Inspects the test's own process and desktop: threads, and the engine's window.
#pragma once

#include <windows.h>

namespace korvel::test {

[[nodiscard]] int CountThreads();

// The engine's window in this process; null if there is none. Other test programs may have windows
// of the same class at the same time.
[[nodiscard]] HWND FindEngineWindow();

// The colour of a pixel in the window's client area.
[[nodiscard]] COLORREF ShownPixel(HWND window, int x, int y);

}  // namespace korvel::test
