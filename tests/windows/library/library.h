// The library as a host program loads it: at run time, with its four functions found by name.
#pragma once

#include "korvel.h"

namespace korvel::test {

struct Library {
  decltype(&RunMHEG5Window) Run = nullptr;
  decltype(&ExitMHEG5) Exit = nullptr;
  decltype(&MHEG5ReStart) ReStart = nullptr;
  decltype(&MHEG5WaitForClose) WaitForClose = nullptr;
};

// The functions of a loaded library. A function that cannot be found is null, and ends the test
// that uses it.
Library FindFunctions(HMODULE module);

// Loads korvel.dll from the current directory, once for the process.
const Library& TheLibrary();

}  // namespace korvel::test
