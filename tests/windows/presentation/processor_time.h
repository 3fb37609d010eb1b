// Measures this thread's processor time, which does not depend on the load of the machine.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace korvel::test {

inline std::uint64_t ProcessorMs() {
  FILETIME created{};
  FILETIME ended{};
  FILETIME inKernel{};
  FILETIME inProgram{};
  EXPECT_NE(GetThreadTimes(GetCurrentThread(), &created, &ended, &inKernel, &inProgram), FALSE);
  const auto milliseconds = [](const FILETIME& time) {
    return ((std::uint64_t{time.dwHighDateTime} << 32) + time.dwLowDateTime) / 10'000;
  };
  return milliseconds(inKernel) + milliseconds(inProgram);
}

}  // namespace korvel::test
