// Timers of groups: the platform timers that they start, and the events that their expiry raises.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

using PlatformTimers = std::map<std::uint32_t, std::uint32_t>;

class Timers : public EngineTest {
 protected:
  // Enters the scene "~/menu" at 1000 ms. It notes each expiry of its timers 5 and 6.
  void SetUp() override {
    EngineTest::SetUp();
    ServeApplication(LinkOn(1, "0", "TimerFired", Note("a"), kShared));
    ServeScene("menu", LinkOn(1, "0", "TimerFired :EventData 5", Note("5")) +
                           LinkOn(2, "0", "TimerFired :EventData 6", Note("6")) + moreItems_);
    ServeScene("next", LinkOn(1, "0", "TimerFired :EventData 5", Note("n")));
    ASSERT_EQ(Start(), Status::Done);
    TheHost().milliseconds = 1000;
    ASSERT_EQ(GoTo("~/menu"), Status::Done);
    TheHost().milliseconds = 1500;
    TakeNotes();
  }

  Status Set(Group* group, std::int32_t id, std::int32_t value, bool isAbsolute = false) {
    return Do([&] { return SetTimer(*group, id, value, isAbsolute); });
  }
  Status SetInScene(std::int32_t id, std::int32_t value, bool isAbsolute = false) {
    return Set(CurrentScene(), id, value, isAbsolute);
  }

  std::string moreItems_;
};

class TimerActions : public Timers {
 protected:
  TimerActions() {
    moreItems_ = LinkOnKey(11, 100, ":SetTimer(0 5 700)") +
                 LinkOnKey(12, 101, ":SetTimer(0 5 4000 :AbsoluteTime TRUE)") +
                 LinkOnKey(13, 102, ":SetTimer(0 5)") +
                 LinkOnKey(14, 103, ":SetTimer((\"~/a\" 0) 8 900)") +
                 LinkOnKey(15, 104, ":SetTimer(0 5 300 :AbsoluteTime FALSE)");
  }
};

TEST_F(Timers, a_relative_timer_starts_the_platform_timer_with_its_id) {
  EXPECT_EQ(SetInScene(5, 700, false), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 700}}));
  ASSERT_EQ(CurrentScene()->Timers.Size(), 1U);
  EXPECT_EQ(CurrentScene()->Timers.At(0)->id, 5);
  EXPECT_EQ(CurrentScene()->Timers.At(0)->value, 700);
}

TEST_F(TimerActions, a_timer_without_an_absolute_flag_is_relative) {
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 700}}));
  EXPECT_FALSE(CurrentScene()->Timers.At(0)->isAbsolute);
}

TEST_F(Timers, the_time_of_entry_into_the_scene_is_subtracted_from_an_absolute_time) {
  EXPECT_EQ(SetInScene(5, 4000, true), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 3000}}));
  EXPECT_TRUE(CurrentScene()->Timers.At(0)->isAbsolute);
}

TEST_F(Timers, an_absolute_time_before_the_scene_does_not_expire_soon) {
  EXPECT_EQ(SetInScene(5, 999, true), Status::Done);
  ASSERT_EQ(TheHost().timers.count(5), 1U);
  EXPECT_GE(TheHost().timers[5], 0x7FFFFFFFU);
}

TEST_F(Timers, each_scene_has_its_own_time_of_entry) {
  TheHost().milliseconds = 2500;
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(SetInScene(5, 4000, true), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 1500}}));
}

TEST_F(Timers, before_the_first_scene_nothing_is_subtracted_from_an_absolute_time) {
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Set(CurrentApplication(), 5, 4000, true), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 4000}}));
}

TEST_F(Timers, a_value_of_zero_sets_a_timer) {
  EXPECT_EQ(SetInScene(5, 0), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 0}}));
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(TakeNotes(), "5");
}

TEST_F(Timers, an_expiry_raises_one_event_of_the_scene_with_the_timers_id) {
  EXPECT_EQ(SetInScene(5, 700), Status::Done);
  EXPECT_EQ(SetInScene(6, 700), Status::Done);
  EXPECT_EQ(Expire(6), Status::Done);
  EXPECT_EQ(TakeNotes(), "6");
  EXPECT_EQ(Expire(6), Status::Refused);
  EXPECT_EQ(TakeNotes(), "");
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(TakeNotes(), "5");
  EXPECT_TRUE(CurrentScene()->Timers.IsEmpty());
}

TEST_F(Timers, setting_a_timer_again_restarts_it_with_the_second_value) {
  EXPECT_EQ(SetInScene(5, 700), Status::Done);
  EXPECT_EQ(SetInScene(6, 800), Status::Done);
  TheHost().killedTimers.clear();
  EXPECT_EQ(SetInScene(5, 900), Status::Done);
  EXPECT_EQ(TheHost().killedTimers, std::vector<std::uint32_t>{5});
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 900}, {6, 800}}));
  EXPECT_EQ(CurrentScene()->Timers.Size(), 2U);
  EXPECT_EQ(CurrentScene()->Timers.At(0)->value, 900);
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(Expire(5), Status::Refused);
  EXPECT_EQ(TakeNotes(), "5");
}

TEST_F(Timers, setting_a_timer_again_keeps_its_first_absolute_flag) {
  EXPECT_EQ(SetInScene(5, 4000, true), Status::Done);
  EXPECT_EQ(SetInScene(5, 6000, false), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 5000}})) << "still absolute";
  EXPECT_EQ(SetInScene(6, 4000, false), Status::Done);
  EXPECT_EQ(SetInScene(6, 6000, true), Status::Done);
  EXPECT_EQ(TheHost().timers[6], 6000U);
}

TEST_F(Timers, a_cancelled_timer_is_stopped_and_raises_no_event) {
  EXPECT_EQ(SetInScene(5, 700), Status::Done);
  EXPECT_EQ(SetInScene(6, 700), Status::Done);
  EXPECT_EQ(SetInScene(5, kNoTimerValue), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{6, 700}}));
  EXPECT_EQ(CurrentScene()->Timers.Size(), 1U);
  EXPECT_EQ(Expire(5), Status::Refused);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Timers, cancelling_a_timer_that_was_never_set_does_nothing) {
  EXPECT_EQ(SetInScene(6, 700), Status::Done);
  TheHost().killedTimers.clear();
  EXPECT_EQ(SetInScene(5, kNoTimerValue), Status::Done);
  EXPECT_TRUE(TheHost().killedTimers.empty());
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{6, 700}}));
  EXPECT_EQ(CurrentScene()->Timers.Size(), 1U);
}

TEST_F(Timers, a_cancelled_timer_may_be_set_with_another_absolute_flag) {
  EXPECT_EQ(SetInScene(5, 4000, true), Status::Done);
  EXPECT_EQ(SetInScene(5, kNoTimerValue), Status::Done);
  EXPECT_EQ(SetInScene(5, 4000, false), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 4000}}));
}

TEST_F(Timers, a_timer_of_the_application_starts_but_raises_no_event) {
  EXPECT_EQ(Set(CurrentApplication(), 8, 700), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{8, 700}}));
  EXPECT_EQ(CurrentApplication()->Timers.Size(), 1U);
  EXPECT_EQ(Expire(8), Status::Refused);
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Timers, application_and_scene_share_the_platform_timers) {
  EXPECT_EQ(Set(CurrentApplication(), 5, 700), Status::Done);
  EXPECT_EQ(SetInScene(5, 900), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 900}}));
  EXPECT_EQ(CurrentApplication()->Timers.Size(), 1U);
  EXPECT_EQ(CurrentScene()->Timers.Size(), 1U);
  EXPECT_EQ(Expire(5), Status::Done);
  EXPECT_EQ(TakeNotes(), "5");
}

TEST_F(Timers, pending_timers_of_a_scene_end_with_it) {
  EXPECT_EQ(SetInScene(5, 700), Status::Done);
  EXPECT_EQ(SetInScene(6, 700), Status::Done);
  EXPECT_EQ(Set(CurrentApplication(), 8, 700), Status::Done);
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{8, 700}}));
  EXPECT_EQ(Expire(5), Status::Refused) << "an expiry already in the queue";
  EXPECT_EQ(TakeNotes(), "");
}

TEST_F(Timers, pending_timers_of_an_application_end_with_it) {
  EXPECT_EQ(SetInScene(5, 700), Status::Done);
  EXPECT_EQ(Set(CurrentApplication(), 8, 700), Status::Done);
  EXPECT_EQ(Do([] { return Launch("~/a"); }), Status::Done);
  EXPECT_TRUE(TheHost().timers.empty());
}

TEST_F(Timers, close_down_stops_every_timer) {
  EXPECT_EQ(SetInScene(5, 700), Status::Done);
  EXPECT_EQ(Set(CurrentApplication(), 8, 700), Status::Done);
  Do([] { CloseDown(); });
  EXPECT_TRUE(TheHost().timers.empty());
}

TEST_F(Timers, without_memory_no_timer_starts_and_a_message_is_printed) {
  ASSERT_TRUE(CurrentScene()->Reference.GroupIdentifier.Assign("~/a name that takes a block"));
  for (const std::size_t failing : {1U, 2U}) {  // the name of the owner, then the record
    const Status result = Do([&] {
      FailAllocation(failing);
      const Status status = SetTimer(*CurrentScene(), 5, 700, false);
      FailAllocation(0);
      return status;
    });
    EXPECT_EQ(result, Status::Failure);
    EXPECT_EQ(Printed(), "Can't allocate memory for new event\n");
    EXPECT_TRUE(TheHost().timers.empty());
    EXPECT_TRUE(CurrentScene()->Timers.IsEmpty());
  }
}

TEST_F(TimerActions, a_set_timer_action_without_a_value_cancels_the_timer) {
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 700}}));
  EXPECT_EQ(Press(102), Status::Done);
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_EQ(Expire(5), Status::Refused);
}

TEST_F(TimerActions, a_set_timer_action_accepts_an_absolute_flag) {
  EXPECT_EQ(Press(101), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 3000}}));
  EXPECT_EQ(Press(102), Status::Done);
  EXPECT_EQ(Press(104), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 300}}));
}

TEST_F(TimerActions, a_set_timer_action_can_set_a_timer_of_the_application) {
  EXPECT_EQ(Press(103), Status::Done);
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{8, 900}}));
  EXPECT_EQ(CurrentApplication()->Timers.Size(), 1U);
  EXPECT_TRUE(CurrentScene()->Timers.IsEmpty());
}

}  // namespace
}  // namespace korvel::test
