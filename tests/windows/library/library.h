// The library as a host program sees it: loaded at run time, its four functions found by name.
#pragma once

#include "korvel.h"

namespace korvel::test {

struct Library {
  decltype(&RunMHEG5Window) Run = nullptr;
  decltype(&ExitMHEG5) Exit = nullptr;
  decltype(&MHEG5ReStart) ReStart = nullptr;
  decltype(&MHEG5WaitForClose) WaitForClose = nullptr;
};

// The functions of a loaded library. A function that cannot be found is null, and the test that
// uses it ends.
Library FindFunctions(HMODULE module);

// Loads korvel.dll from the current directory once and for all.
const Library& TheLibrary();

}  // namespace korvel::test
