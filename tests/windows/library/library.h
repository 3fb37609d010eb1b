// The library as a host program loads it: at run time, with its four functions found by name.
#pragma once

#include "korvel.h"

namespace korvel::test {

struct Library {
  decltype(&RunMHEG5Window) run = nullptr;
  decltype(&ExitMHEG5) exit = nullptr;
  decltype(&MHEG5ReStart) reStart = nullptr;
  decltype(&MHEG5WaitForClose) waitForClose = nullptr;
};

// The functions of a loaded library. A function that cannot be found is null, and ends the test
// that uses it.
Library FindFunctions(HMODULE module);

// Loads korvel.dll from the current directory, once for the process.
const Library& TheLibrary();

}  // namespace korvel::test
