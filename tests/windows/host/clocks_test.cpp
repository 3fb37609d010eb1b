// Tests the clock for elapsed time while the wall clock jumps or ticks coarsely.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "platform/clocks.h"
#include "windows/support/imports.h"

namespace korvel::test {
namespace {

constexpr std::uint64_t kFileTimesPerMs = 10'000;

// The substitute's result: the system's time, shifted by `shiftMs` and rounded down to whole ticks.
struct WallClock {
  std::uint64_t shiftMs = 0;
  std::uint64_t tickMs = 1;
};
WallClock wallClock;

void WINAPI ReadWallClock(FILETIME* time) {
  GetSystemTimePreciseAsFileTime(time);
  std::uint64_t now = (std::uint64_t{time->dwHighDateTime} << 32U) + time->dwLowDateTime;
  now += wallClock.shiftMs * kFileTimesPerMs;
  now -= now % (wallClock.tickMs * kFileTimesPerMs);
  *time = {static_cast<DWORD>(now), static_cast<DWORD>(now >> 32U)};
}

class ElapsedTime : public testing::Test {
 protected:
  ElapsedTime() { wallClock = {}; }
  void SetUp() override { ASSERT_TRUE(hook.IsInPlace()); }

 private:
  ReplacedImport hook{GetModuleHandleA(nullptr), "GetSystemTimeAsFileTime", ReadWallClock};
};

TEST_F(ElapsedTime, does_not_jump_when_the_wall_clock_is_set) {
  constexpr std::uint32_t kMinuteMs = 60'000;
  const std::uint32_t before = MillisecondsSinceProcessStart();
  wallClock.shiftMs = 60 * kMinuteMs;
  EXPECT_LT(MillisecondsSinceProcessStart() - before, kMinuteMs);
}

// The wall clock of Windows advances 64 times a second.
TEST_F(ElapsedTime, has_millisecond_resolution_when_the_wall_clock_is_coarser) {
  wallClock.tickMs = 15;
  std::uint32_t last = MillisecondsSinceProcessStart();
  std::uint32_t smallestStep = UINT32_MAX;
  for (const std::uint32_t start = last; last - start < 200;) {
    const std::uint32_t now = MillisecondsSinceProcessStart();
    if (now != last) smallestStep = std::min(smallestStep, now - last);
    last = now;
  }
  EXPECT_EQ(smallestStep, 1U);
}

TEST_F(ElapsedTime, counts_from_the_start_of_the_process) {
  FILETIME start;
  FILETIME now;
  FILETIME unused;
  GetProcessTimes(GetCurrentProcess(), &start, &unused, &unused, &unused);
  const std::uint32_t elapsed = MillisecondsSinceProcessStart();
  GetSystemTimePreciseAsFileTime(&now);
  const std::uint64_t ticks = (std::uint64_t{now.dwHighDateTime} << 32U) + now.dwLowDateTime -
                              (std::uint64_t{start.dwHighDateTime} << 32U) - start.dwLowDateTime;
  EXPECT_NEAR(elapsed, static_cast<std::uint32_t>(ticks / kFileTimesPerMs), 100)
      << "the wall clock's tick, and a pause";
}

}  // namespace
}  // namespace korvel::test
