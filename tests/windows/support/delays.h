// Delays a module's threads at their locks, posts and waits, so that tests also run into orders of
// events that are otherwise rare.
#pragma once

#include <windows.h>

#include <cstdint>
#include <deque>

#include "windows/support/imports.h"

namespace korvel::test {

// While the object exists, the module pauses for up to 3 ms before and after about a quarter of its
// calls of the system's functions for threads, locks, messages and windows. The seed determines
// the sequence of the pauses. One object per process at a time.
class Delays {
 public:
  Delays(HMODULE module, std::uint32_t seed);

  // False if the module does not import one of the functions.
  [[nodiscard]] bool AreInPlace() const;
  // The number of pauses so far.
  [[nodiscard]] static int Count();

 private:
  std::deque<ReplacedImport> imports_;
};

}  // namespace korvel::test
