// The timers of scenes and applications, from the action that sets one to the event of its expiry.
#include "stage.h"

namespace korvel::test {
namespace {

class TimerTest : public Stage {
 protected:
  // A scene that logs the expiry of timer 5 in the application's variable 1.
  void StartTimers() {
    StartWithScene("{:OStringVar 1 :Shared TRUE :OrigValue \"\"}" + Watch(0, "TimerFired", "app"),
                   "{:Link 2 :EventSource 0 :EventType TimerFired :EventData 5"
                   " :LinkEffect (:Append((\"~/a\" 1) \"fired \"))}");
  }
  static Status RunInScene(const std::string& actions) { return Run(actions, Scope::SceneFirst); }
  static std::string Fired() {
    return std::string(
        FindObject(Scope::ApplicationFirst, "~/a", 1).As<OctetStringVariable>().Value.View());
  }
  using Timers = std::map<std::uint32_t, std::uint32_t>;
};

TEST_F(TimerTest, a_timer_set_twice_fires_once_after_the_second_value) {
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000) :SetTimer(0 5 2000)"), Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 2000}}));
  EXPECT_EQ(TheHost().killedTimers, std::vector<std::uint32_t>{5});
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(Expire(5), Status::Refused);
  EXPECT_EQ(Fired(), "fired ");
}

TEST_F(TimerTest, cancelling_an_unknown_timer_succeeds) {
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 77)"), Status::Done);
  EXPECT_TRUE(TheHost().timers.empty());
}

TEST_F(TimerTest, a_timer_without_a_value_is_cancelled) {
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000) :SetTimer(0 5)"), Status::Done);
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000) :SetTimer(0 5 -1)"), Status::Done);
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_EQ(Expire(5), Status::Refused);
}

TEST_F(TimerTest, an_absent_absolute_flag_is_stored_as_relative) {
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000)"), Status::Done);
  ASSERT_EQ(CurrentScene()->Timers.Size(), 1U);
  EXPECT_FALSE(CurrentScene()->Timers.At(0)->isAbsolute);
}

TEST_F(TimerTest, a_transition_kills_the_timers_of_the_scene) {
  AddScene("t", "");
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000)"), Status::Done);
  EXPECT_EQ(Run(R"(:TransitionTo(("~/t" 0)))"), Status::Replaced);
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_EQ(Expire(5), Status::Refused);
}

TEST_F(TimerTest, an_absolute_time_counts_from_the_start_of_the_process) {
  TheHost().milliseconds = 400;
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000 :AbsoluteTime TRUE)"), Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 600}}));
}

TEST_F(TimerTest, an_absolute_time_that_has_passed_does_not_come_soon) {
  TheHost().milliseconds = 5000;
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000 :AbsoluteTime TRUE)"), Status::Done);
  ASSERT_EQ(TheHost().timers.size(), 1U);
  EXPECT_GE(TheHost().timers[5], 0x7FFFFFFFU);
}

TEST_F(TimerTest, a_timer_set_again_keeps_its_first_flag) {
  TheHost().milliseconds = 400;
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000 :AbsoluteTime TRUE) :SetTimer(0 5 1000 :AbsoluteTime "
                       "FALSE)"),
            Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 600}}));
}

TEST_F(TimerTest, a_timer_of_the_application_never_fires) {
  StartTimers();
  EXPECT_EQ(Run(":SetTimer(0 5 1000)"), Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 1000}}));
  EXPECT_EQ(Expire(5), Status::Refused);
  EXPECT_EQ(Fired(), "");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(TimerTest, a_timer_of_the_scene_takes_the_place_of_the_applications) {
  StartTimers();
  EXPECT_EQ(Run(":SetTimer(0 5 1000)"), Status::Done);
  EXPECT_EQ(RunInScene(":SetTimer(0 5 2000)"), Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 2000}}));
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(Fired(), "fired ");
}

}  // namespace
}  // namespace korvel::test
