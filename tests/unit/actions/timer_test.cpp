// Timers of scenes and applications, from SetTimer to the event when they expire.
#include "stage.h"

namespace korvel::test {
namespace {

class TimerTest : public Stage {
 protected:
  // Starts a scene that logs the expiry of timer 5 in variable 1 of the application.
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

TEST_F(TimerTest, the_time_of_entry_into_the_scene_is_subtracted_from_an_absolute_time) {
  TheHost().milliseconds = 400;
  StartTimers();
  EXPECT_EQ(RunInScene(":SetTimer(0 5 1000 :AbsoluteTime TRUE)"), Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 600}}));
}

TEST_F(TimerTest, an_absolute_time_before_the_entry_into_the_scene_does_not_fire_soon) {
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

TEST_F(TimerTest, a_scene_timer_replaces_the_applications_timer_of_the_same_number) {
  StartTimers();
  EXPECT_EQ(Run(":SetTimer(0 5 1000)"), Status::Done);
  EXPECT_EQ(RunInScene(":SetTimer(0 5 2000)"), Status::Done);
  EXPECT_EQ(TheHost().timers, (Timers{{5, 2000}}));
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(Fired(), "fired ");
}

}  // namespace
}  // namespace korvel::test
