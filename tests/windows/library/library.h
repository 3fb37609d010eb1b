// Loads the library as a host program does: at run time, with its four functions looked up by name.
#pragma once

#include "korvel.h"

namespace korvel::test {

struct Library {
  decltype(&RunMHEG5Window) run = nullptr;
  decltype(&ExitMHEG5) exit = nullptr;
  decltype(&MHEG5ReStart) reStart = nullptr;
  decltype(&MHEG5WaitForClose) waitForClose = nullptr;
};

// The functions of a loaded library. A missing function is null, so calling it crashes the test.
Library FindFunctions(HMODULE module);

// Loads korvel.dll from the current directory, once per process.
const Library& TheLibrary();

}  // namespace korvel::test
