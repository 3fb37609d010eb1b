// Limits on content: nesting, the number of actions, and both while a close is pending.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

constexpr int kNestingLimit = 100;
constexpr int kActionLimit = 1'000'000;
constexpr int kActionsWhileClosing = 10'000;

class Limits : public EngineTest {
 protected:
  static int TakeActions(int most) {
    int taken = 0;
    while (taken < most && TakeAction()) ++taken;
    return taken;
  }
  // The number of further levels that are allowed.
  static int Descend() {
    const NestingLevel level;
    return level.IsAllowed() ? 1 + Descend() : 0;
  }
  // Performs the action when all levels are used up.
  template <class Action> static Status BeyondAllLevels(Action&& act) {
    const NestingLevel level;
    return level.IsAllowed() ? BeyondAllLevels(act) : act();
  }
};

constexpr std::string_view kTooDeep = "Event nesting too deep\n";
constexpr std::string_view kTooMany = "Too many actions\n";

// Tests a variable that is true, which raises a TestEvent.
std::string TestTrue(int variable) {
  return ":TestVariable(" + std::to_string(variable) + " 1 :GBoolean TRUE) ";
}
std::string TrueVariable(int number) {
  return "{:BooleanVar " + std::to_string(number) + " :OrigValue TRUE} ";
}

// ---- Nesting ----

TEST_F(Limits, a_hundred_levels_of_nesting_are_allowed) {
  EXPECT_EQ(Do([] { return Descend(); }), kNestingLimit);
  EXPECT_EQ(Printed(), kTooDeep);
  EXPECT_EQ(Do([] { return Descend(); }), kNestingLimit) << "levels are released";
}

TEST_F(Limits, a_change_of_scene_or_application_that_is_nested_too_deeply_fails) {
  ServeApplication("");
  ServeScene("one", RectangleText(1));
  ASSERT_EQ(Start(), Status::Done);
  TheHost().fetched.clear();
  for (const auto act : {+[] { return TransitionTo("~/one"); }, +[] { return Launch("~/a"); },
                         +[] { return Spawn("~/a"); }, +[] { return Quit(); }}) {
    EXPECT_EQ(Do([act] { return BeyondAllLevels(act); }), Status::Failure);
    EXPECT_EQ(Printed(), kTooDeep);
    EXPECT_TRUE(TheHost().fetched.empty());
    EXPECT_TRUE(CurrentApplication()->RunningStatus);
  }
}

TEST_F(Limits, an_event_that_raises_itself_fails_with_one_message) {
  ServeApplication("{:IntegerVar 7 :OrigValue 0}" + TrueVariable(8) +
                   LinkOnKey(1, 100, TestTrue(8) + Note("x")) +
                   LinkOn(2, "8", "TestEvent", ":Add(7 1) " + TestTrue(8) + Note("x")) +
                   LinkOn(3, "8", "TestEvent", Note("x")) + LinkOnKey(4, 16, Note("k")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Failure);
  EXPECT_EQ(Printed(), kTooDeep);
  EXPECT_EQ(IntegerOf(7), kNestingLimit - 1) << "the key's own link takes one level";
  EXPECT_EQ(Notes(), "") << "failure ended every level";
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(Notes(), "k");
}

TEST_F(Limits, excessive_nesting_is_reported_once_per_piece_of_work) {
  ServeApplication(TrueVariable(8) + LinkOnKey(1, 100, TestTrue(8)) +
                   LinkOn(2, "8", "TestEvent", TestTrue(8)));
  ASSERT_EQ(Start(), Status::Done);
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(Press(100), Status::Failure);
    EXPECT_EQ(Printed(), kTooDeep);
  }
}

TEST_F(Limits, scenes_that_start_each_other_fail) {
  ServeApplication(LinkOnKey(1, 100, TransitionAction("~/one"), kShared));
  ServeScene("one", RectangleText(1), ":OnStartUp (" + TransitionAction("~/two") + ")");
  ServeScene("two", RectangleText(1), ":OnStartUp (" + TransitionAction("~/one") + ")");
  ServeScene("calm", LinkOnKey(1, 15, Note("c")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Failure);
  EXPECT_EQ(Printed(), kTooDeep);
  EXPECT_LE(TheHost().fetched.size(), 101U);
  ASSERT_EQ(GoTo("~/calm"), Status::Done);
  EXPECT_EQ(Press(15), Status::Done);
  EXPECT_EQ(Notes(), "c");
}

TEST_F(Limits, applications_that_launch_each_other_fail) {
  Serve("a", ApplicationText("~/a", "", ":OnStartUp (" + LaunchAction("~/b") + ")"));
  Serve("b", ApplicationText("~/b", "", ":OnStartUp (" + LaunchAction("~/a") + ")"));
  EXPECT_EQ(Start(), Status::Failure);
  EXPECT_EQ(Printed(), kTooDeep);
  EXPECT_LE(TheHost().fetched.size(), 101U);
}

TEST_F(Limits, a_link_that_requests_a_missing_file_again_and_again_fails) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", TransitionAction("~/missing")));
  ASSERT_EQ(Start(), Status::Done);
  TheHost().fetched.clear();
  EXPECT_EQ(GoTo("~/missing"), Status::Failure);
  EXPECT_EQ(Printed(), kTooDeep);
  EXPECT_LE(TheHost().fetched.size(), 100U);
}

// ---- The number of actions ----

TEST_F(Limits, one_piece_of_work_may_run_a_million_actions) {
  EXPECT_EQ(Do([] { return TakeActions(2 * kActionLimit); }), kActionLimit);
  EXPECT_EQ(Printed(), kTooMany);
  EXPECT_FALSE(Continue([] { return TakeAction(); }));
  EXPECT_EQ(Printed(), "") << "reported once";
}

TEST_F(Limits, each_piece_of_work_has_its_own_count) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Do([] { return TakeActions(kActionLimit); }), kActionLimit);
    EXPECT_EQ(Printed(), "");
  }
}

TEST_F(Limits, a_pending_close_allows_ten_thousand_actions) {
  const int taken = Do([] {
    TakeActions(10);
    TheHost().isClosing = true;
    return TakeActions(2 * kActionLimit);
  });
  EXPECT_EQ(taken, kActionsWhileClosing);
  EXPECT_EQ(Printed(), kTooMany);
}

TEST_F(Limits, a_pending_close_allows_less_than_a_second) {
  const bool isAllowed = Do([] {
    TheHost().isClosing = true;
    TakeActions(10);
    TheHost().milliseconds += 1000;
    return TakeAction();
  });
  EXPECT_FALSE(isAllowed);
}

TEST_F(Limits, a_pending_close_has_one_count_for_all_remaining_work) {
  constexpr int kFirst = 6'000;
  EXPECT_EQ(Do([] {
              TheHost().isClosing = true;
              return TakeActions(kFirst);
            }),
            kFirst);
  EXPECT_EQ(Do([] { return TakeActions(2 * kActionLimit); }), kActionsWhileClosing - kFirst);
}

TEST_F(Limits, a_pending_close_counts_the_time_of_all_remaining_work) {
  constexpr std::uint32_t kPartMs = 300;
  const auto takeOneAction = [] {
    TheHost().isClosing = true;
    const bool isAllowed = TakeAction();
    TheHost().milliseconds += kPartMs;
    return isAllowed;
  };
  EXPECT_TRUE(Do(takeOneAction));
  EXPECT_TRUE(Do(takeOneAction));
  EXPECT_FALSE(Do(takeOneAction));
}

TEST_F(Limits, a_close_takes_less_than_a_second_including_the_wait_for_a_file) {
  constexpr std::uint32_t kLongestWaitMs = 500;
  constexpr std::uint32_t kStepMs = 10;
  std::uint32_t takenMs = kLongestWaitMs;
  for (int round = 0; round < 3; ++round) {
    Do([&] {
      TheHost().isClosing = true;
      while (TakeAction()) {
        TheHost().milliseconds += kStepMs;
        takenMs += kStepMs;
      }
      return 0;
    });
  }
  EXPECT_LT(takenMs, 1000U);
}

TEST_F(Limits, a_reset_engine_counts_from_zero) {
  Do([] {
    TheHost().isClosing = true;
    return TakeActions(2 * kActionLimit);
  });
  ResetEngine();
  TheHost().isClosing = false;
  EXPECT_EQ(Do([] { return TakeActions(kActionLimit); }), kActionLimit);
}

TEST_F(Limits, links_that_multiply_fail_with_one_message) {
  // Nine generations of five links each would run two million times without the limit.
  constexpr int kGenerations = 9;
  std::string items = "{:IntegerVar 7 :OrigValue 0}" + TrueVariable(11);
  for (int generation = 1; generation <= kGenerations; ++generation) {
    items += TrueVariable(11 + generation);
    for (int link = 0; link < 5; ++link) {
      items += LinkOn(100 * generation + link, std::to_string(10 + generation), "TestEvent",
                      ":Add(7 1) " + TestTrue(11 + generation));
    }
  }
  ServeApplication(items + LinkOnKey(1, 100, TestTrue(11) + Note("x")) +
                   LinkOnKey(2, 100, Note("x")) + LinkOnKey(3, 16, Note("k")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Failure);
  EXPECT_EQ(Printed(), kTooMany);
  EXPECT_NEAR(IntegerOf(7), kActionLimit / 2, 2 * kGenerations) << "every second action is an Add";
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(Notes(), "k");
}

TEST_F(Limits, a_missing_file_causes_no_pause_while_a_close_is_pending) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  TheHost().isClosing = true;
  EXPECT_EQ(GoTo("~/missing"), Status::Refused);
  EXPECT_EQ(Start(), Status::Refused);
  EXPECT_EQ(TheHost().pausedMs, 0U);
}

}  // namespace
}  // namespace korvel::test
