// Polling a folder for changes with HasChanged. The tests of `mheg build --watch` cover Wait.
#include "mheg/watch.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// Asks until the answer is yes, for at most ten seconds.
bool HasChangedSoon(Watch& watch) {
  const auto end = Clock::now() + std::chrono::seconds(10);
  while (Clock::now() < end) {
    if (watch.HasChanged()) return true;
    std::this_thread::sleep_for(milliseconds(1));
  }
  return false;
}

TEST(Watch, has_changed_once_a_change_is_50_ms_old) {
  const ScratchFolder folder;
  Watch watch(folder.Path());
  EXPECT_FALSE(watch.HasChanged());
  const auto before = Clock::now();
  (void)folder.Write("s.mheg", "one");
  EXPECT_TRUE(HasChangedSoon(watch));
  EXPECT_GE(Clock::now() - before, milliseconds(50));
  EXPECT_FALSE(watch.HasFailed());
}

TEST(Watch, answers_without_waiting_while_files_change) {
  const ScratchFolder folder;
  Watch watch(folder.Path());
  // Each call sees a write less than 50 ms old, so it returns false.
  for (int i = 0; i < 200; ++i) {
    (void)folder.Write("s.mheg", std::to_string(i));
    EXPECT_FALSE(watch.HasChanged());
  }
  EXPECT_TRUE(HasChangedSoon(watch));
}

TEST(Watch, has_failed_if_there_is_no_such_folder) {
  const ScratchFolder folder;
  Watch watch(folder.Path() / "nowhere");
  EXPECT_TRUE(watch.HasFailed());
  EXPECT_FALSE(watch.HasChanged());
}

}  // namespace
}  // namespace mheg
