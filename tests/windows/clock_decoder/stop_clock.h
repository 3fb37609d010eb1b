// The system's clock as one module of the process sees it.
#pragma once

#include <windows.h>

namespace korvel::test {

// Stops the clock of a loaded module for good, a millisecond after what it last told, so that
// everything happens within one millisecond. Other modules of the process keep the real one.
void StopClock(HMODULE module);

}  // namespace korvel::test
