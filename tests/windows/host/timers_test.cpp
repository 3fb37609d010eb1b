// Tests the engine window's one-shot timers, which the worker sets and kills.
#include <gmock/gmock.h>

#include "platform/clocks.h"
#include "windows/host/host_threads.h"

namespace korvel::test {
namespace {

using testing::ElementsAre;

constexpr WPARAM kEnter = 13;
constexpr std::int32_t kEnterRaised = 15;
constexpr std::uint32_t kTimer = 7;
constexpr std::uint32_t kLaterTimer = 8;

// RunOnWorker runs a function on the worker while it handles a key.
class WindowTimers : public HostThreads {
 protected:
  void RunOnWorker(std::function<void()> setUp) {
    substitutes.onRaise = [setUp = std::move(setUp)](std::int32_t value) {
      if (value == kEnterRaised) setUp();
    };
    PostKeys({kEnter});
    FinishPosted();
  }
  static void Expire(std::uint32_t id) { SendMessageA(FindEngineWindow(), WM_TIMER, id, 0); }
};

TEST_F(WindowTimers, fire_once) {
  Start();
  RunOnWorker([] {
    SetWindowTimer(kTimer, 20);
    SetWindowTimer(kLaterTimer, 200);
  });
  WaitForLine("Raise 0 8 8");
  EXPECT_THAT(Raised(), ElementsAre("6 15", "8 7", "8 8"));
}

TEST_F(WindowTimers, with_id_zero_fire) {
  Start();
  RunOnWorker([] { SetWindowTimer(0, 20); });
  WaitForLine("Raise 0 8 0");
}

TEST_F(WindowTimers, set_again_fire_once_at_the_second_time) {
  Start();
  RunOnWorker([] {
    SetWindowTimer(kTimer, 20);
    SetWindowTimer(kTimer, 300);
    SetWindowTimer(kLaterTimer, 100);
  });
  WaitForLine("Raise 0 8 7");
  EXPECT_THAT(Raised(), ElementsAre("6 15", "8 8", "8 7"));
}

TEST_F(WindowTimers, killed_do_not_fire) {
  Start();
  RunOnWorker([] {
    SetWindowTimer(kTimer, 20);
    KillWindowTimer(kTimer);
    SetWindowTimer(kLaterTimer, 100);
  });
  WaitForLine("Raise 0 8 8");
  EXPECT_THAT(Raised(), ElementsAre("6 15", "8 8"));
}

TEST_F(WindowTimers, killed_remove_their_queued_expiries) {
  Start();
  RunOnWorker([] {
    Expire(kTimer);
    Expire(kLaterTimer);
    Expire(kTimer);
    KillWindowTimer(kTimer);
  });
  FinishPosted();
  EXPECT_THAT(Raised(), ElementsAre("6 15", "8 8"));
}

TEST_F(WindowTimers, set_again_remove_expiries_queued_before) {
  Start();
  RunOnWorker([] {
    Expire(kTimer);
    SetWindowTimer(kTimer, 60'000);
    Expire(kLaterTimer);
  });
  EXPECT_THAT(Raised(), ElementsAre("6 15", "8 8"));
}

TEST_F(WindowTimers, with_a_period_beyond_the_maximum_do_not_fire) {
  Start();
  RunOnWorker([] {
    SetWindowTimer(kTimer, 0xFFFFFF00);
    SetWindowTimer(kLaterTimer, 100);
  });
  WaitForLine("Raise 0 8 8");
  EXPECT_THAT(Raised(), ElementsAre("6 15", "8 8"));
}

}  // namespace
}  // namespace korvel::test
