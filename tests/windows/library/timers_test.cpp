// Tests content's timers end to end: from the action that sets a timer, through the platform's
// timers, the window and its queue, to the picture that the expiry changes. To check that a timer
// has not fired, a test waits until another timer, which is due later, has fired.
#include "windows/library/engine_fixture.h"
#include "windows/support/delays.h"
#include "windows/support/seeded_random.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

constexpr WPARAM kEnter = 13;
constexpr int kOK = 15;

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

std::string Link(int number, const std::string& event, const std::string& actions) {
  return "{:Link " + std::to_string(number) + " :EventSource 0 :EventType " + event +
         " :LinkEffect (" + actions + ")} ";
}

std::string OnKey(int number, const std::string& actions) {
  return Link(number, "UserInput :EventData " + std::to_string(kOK), actions);
}

// In each scene, every expiry of timer 1 makes a red bar 10 pixels longer, and every expiry of
// timer 2 a blue one. Each expiry also brings a square of its colour to the front.
std::string Bars() {
  const auto bar = [](const std::string& number, const std::string& colour, int y) {
    return "{:IntegerVar 2" + number + " :OrigValue 0} {:Rectangle 1" + number +
           " :OrigBoxSize 0 20 :OrigPosition 0 " + std::to_string(y) +
           " :OrigLineWidth 0 :OrigRefFillColour '" + colour + "'} {:Rectangle 4" + number +
           " :InitiallyActive FALSE :OrigBoxSize 20 20 :OrigPosition 600 0 :OrigLineWidth 0"
           " :OrigRefFillColour '" +
           colour + "'} " +
           Link(30 + std::stoi(number), "TimerFired :EventData " + number,
                ":Add(2" + number + " 10) :SetBoxSize(1" + number + " :IndirectRef 2" + number +
                    " 20) :Run(4" + number + ") :BringToFront(4" + number + ")");
  };
  return bar("1", "=FF=00=00=00", 0) + bar("2", "=00=00=FF=00", 40);
}

std::int64_t ProcessAgeMs() {
  const auto ticks = [](const FILETIME& time) {
    return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32U |
                                     time.dwLowDateTime);
  };
  FILETIME start{};
  FILETIME unused{};
  FILETIME now{};
  GetProcessTimes(GetCurrentProcess(), &start, &unused, &unused, &unused);
  GetSystemTimeAsFileTime(&now);
  return (ticks(now) - ticks(start)) / 10'000;
}

class LibraryTimers : public Engine {
 protected:
  // Starts a scene with the bars, in which the OK key runs `actions`.
  void StartWithKey(const std::string& actions, const std::string& more = "") {
    ServeScene(Bars() + OnKey(50, actions) + more + Ready());
    Start();
    WaitForColour(710, 10, kRed);
  }
  // A red square, which shows that the scene runs and can receive keys.
  static std::string Ready() {
    return "{:Rectangle 60 :OrigBoxSize 20 20 :OrigPosition 700 0 :OrigLineWidth 0"
           " :OrigRefFillColour '=FF=00=00=00'} ";
  }
  // Waits until a timer has fired at least `count` times.
  void WaitForExpiries(int timer, int count) const {
    WaitForColour(10 * count - 5, timer == 1 ? 10 : 50, timer == 1 ? kRed : kBlue);
  }
  void ExpectExpiries(int timer, int count) const {
    const int y = timer == 1 ? 10 : 50;
    if (count > 0) {
      EXPECT_EQ(Shown(10 * count - 5, y), timer == 1 ? kRed : kBlue);
    }
    EXPECT_EQ(Shown(10 * count + 5, y), kBlack) << "timer " << timer << " fired too often";
  }
  // The colour of the timer that fired last.
  [[nodiscard]] COLORREF Last() const { return Shown(610, 10); }
};

TEST_F(LibraryTimers, fire_once) {
  StartWithKey(":SetTimer(0 1 30) :SetTimer(0 2 400)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 1);
  EXPECT_EQ(Last(), kBlue);
}

TEST_F(LibraryTimers, repeat_when_their_own_expiry_sets_them_again) {
  StartWithKey(":SetTimer(0 1 30)", Link(51, "TimerFired :EventData 1", ":SetTimer(0 1 30)"));
  PressKey(kEnter);
  WaitForExpiries(1, 5);
}

TEST_F(LibraryTimers, do_not_fire_earlier_than_they_are_due) {
  StartWithKey(":SetTimer(0 1 600)");
  const auto before = std::chrono::steady_clock::now();
  PressKey(kEnter);
  WaitForExpiries(1, 1);
  EXPECT_GE(std::chrono::steady_clock::now() - before, 580ms) << "allows for one clock tick";
}

TEST_F(LibraryTimers, cancelled_do_not_fire) {
  StartWithKey(":SetTimer(0 1 60) :SetTimer(0 2 300) :SetTimer(0 1)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
}

TEST_F(LibraryTimers, set_again_before_they_are_due_fire_once_at_the_second_time) {
  StartWithKey(":SetTimer(0 1 60) :SetTimer(0 2 250) :SetTimer(0 1 700)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
  WaitForExpiries(1, 1);
  ExpectExpiries(1, 1);
  EXPECT_EQ(Last(), kRed);
}

// Looking for a missing group keeps the worker busy for half a second, in which the expiry of timer
// 1 is queued. Then the second link for the key cancels the timer.
TEST_F(LibraryTimers, cancelled_while_their_expiry_is_queued_do_not_fire) {
  StartWithKey(":SetTimer(0 1 100) :TransitionTo((\"~/missing\" 0))",
               OnKey(51, ":SetTimer(0 1) :SetTimer(0 2 100)"));
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
}

TEST_F(LibraryTimers, end_with_their_scene) {
  StartWithKey(":SetTimer(0 1 200) :TransitionTo((\"~/next\" 0))");
  ServeScene("next", Bars() + Link(50, "IsRunning", ":SetTimer(0 2 500)"));
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
}

TEST_F(LibraryTimers, of_the_next_scene_do_not_fire_when_those_of_the_last_scene_were_due) {
  StartWithKey(":SetTimer(0 1 50) :TransitionTo((\"~/next\" 0))");
  ServeScene("next", Bars() + Link(50, "IsRunning", ":SetTimer(0 1 700) :SetTimer(0 2 300)"));
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
  WaitForExpiries(1, 1);
  ExpectExpiries(1, 1);
}

TEST_F(LibraryTimers, of_the_application_never_fire) {
  StartWithKey(":SetTimer((\"~/a\" 0) 1 50) :SetTimer(0 2 300)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
}

// Both groups share the platform's timer numbers, so the application's timer never fires.
TEST_F(LibraryTimers, of_the_scene_replace_those_of_the_application) {
  StartWithKey(":SetTimer((\"~/a\" 0) 1 50) :SetTimer(0 1 500) :SetTimer(0 2 200)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
  WaitForExpiries(1, 1);
  EXPECT_EQ(Last(), kRed);
}

TEST_F(LibraryTimers, for_a_time_before_the_start_of_the_scene_do_not_fire) {
  StartWithKey(":SetTimer(0 1 0 :AbsoluteTime TRUE) :SetTimer(0 2 300)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
}

// An absolute time counts from the start of the process. The scene starts later, so the timer waits
// only for the rest of the time.
TEST_F(LibraryTimers, for_a_time_after_the_start_of_the_scene_fire_at_that_time) {
  const std::string later = std::to_string(ProcessAgeMs() + 4000);
  StartWithKey(":SetTimer(0 1 " + later + " :AbsoluteTime TRUE) :SetTimer(0 2 200)");
  PressKey(kEnter);
  WaitForExpiries(2, 1);
  ExpectExpiries(1, 0);
  WaitForExpiries(1, 1);
  EXPECT_EQ(Last(), kRed);
}

// The key OK sets timer 1 many times, to about the time between two keys, so that some expiries are
// on their way when it is set again. The key Red sets it to ten minutes and clears its bar.
TEST_F(LibraryTimers, set_again_while_their_expiry_is_on_its_way_do_not_fire) {
  constexpr int kRounds = 15;
  const std::uint32_t seed = Seed(9);
  SCOPED_TRACE("seed " + std::to_string(seed));
  SeededRandom random(seed);
  StartWithKey(":SetTimer(0 1 10)",
               Link(51, "UserInput :EventData 100",
                    ":SetTimer(0 1 600000) :SetVariable(21 :GInteger 0) :SetBoxSize(11 0 20)"
                    " :SetTimer(0 2 30)"));
  const Delays delays(GetModuleHandleA("korvel.dll"), seed);
  ASSERT_TRUE(delays.AreInPlace());
  for (int round = 1; round <= kRounds && !HasFailure(); ++round) {
    for (int keys = random.Between(1, 3); keys > 0; --keys) {
      PressKey(kEnter);
      Sleep(static_cast<DWORD>(random.Between(5, 20)));
    }
    PressKey('R');
    WaitForExpiries(2, round);
    ExpectExpiries(1, 0);
  }
  Close();
}

}  // namespace
}  // namespace korvel::test
