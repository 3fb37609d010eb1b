// Groups that end in an event from outside, while they start, or while another group ends: every
// way to end a group, by links of either group. The sanitizer reports any access to the ended
// group.
#include "ending.h"

namespace korvel::test {
namespace {

// ---- Ended by links of either group ----

using HeldCase = std::tuple<End, HeldBy>;

class EndedByEither : public EndingTest, public testing::WithParamInterface<HeldCase> {
 protected:
  // Starts the application "~/main" and serves its scene "~/menu". One of them holds the links on
  // the event.
  void ServeMain(std::string_view source, std::string_view event, std::string_view sceneItems = "",
                 std::string_view sceneAttributes = "") {
    const std::string links = EndingLinks(source, event, TheEnd());
    const bool isInScene = std::get<1>(GetParam()) == HeldBy::Scene;
    ServeOthers();
    Serve("main", ApplicationText("~/main", isInScene ? "" : links));
    ServeScene("menu", (isInScene ? links : "") + std::string(sceneItems), sceneAttributes);
    StartMain(TheEnd());
  }
  static End TheEnd() { return std::get<0>(GetParam()); }
};

TEST_P(EndedByEither, in_a_key) {
  ServeMain("0", "UserInput :EventData 100");
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Press(100));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, in_the_engine_event_of_a_key) {
  ServeMain("0", "EngineEvent :EventData 103", LinkOnKey(3, 103, Never()));
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Press(103));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, in_a_timer_expiry) {
  ServeMain("(\"~/menu\" 0)", "TimerFired :EventData 5", "",
            ":OnStartUp (:SetTimer(0 5 100) :SetTimer(0 6 100))");
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Expire(5));
  EXPECT_TRUE(TheHost().timers.count(6) == 0) << "the other timer ended with the scene";
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, in_an_event_from_outside_of_another_type) {
  ServeMain("50", "CounterTrigger :EventData 3");
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Do([] { return RaiseOutsideEvent(50, EventType::CounterTrigger, 3); }));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, while_a_scene_becomes_available) {
  ServeMain("(\"~/menu\" 0)", "IsAvailable", RectangleText(8), ":OnStartUp (" + Never() + ")");
  static_cast<void>(GoTo("~/menu"));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, while_a_scenes_content_becomes_available) {
  ServeMain("(\"~/menu\" 0)", "ContentAvailable", RectangleText(8), ":OnStartUp (" + Never() + ")");
  static_cast<void>(GoTo("~/menu"));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, once_a_scene_runs) {
  ServeMain("(\"~/menu\" 0)", "IsRunning", RectangleText(8));
  static_cast<void>(GoTo("~/menu"));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, while_an_item_of_a_scene_starts) {
  ServeMain("(\"~/menu\" 8)", "IsRunning",
            RectangleText(8) + RectangleText(9) + LinkOn(1, "9", "IsRunning", Never()),
            ":OnStartUp (" + Never() + ")");
  static_cast<void>(GoTo("~/menu"));
  ExpectThatTheNextGroupRuns(TheEnd());
}

TEST_P(EndedByEither, in_the_redraw_of_a_starting_item) {
  ServeMain("(\"~/main\" 0)", "EngineEvent :EventData 3",
            RectangleText(8) + RectangleText(9) + LinkOn(1, "8", "IsRunning", Never()),
            ":OnStartUp (" + Never() + ")");
  RaiseInEachRedraw();
  static_cast<void>(GoTo("~/menu"));
  ExpectThatTheNextGroupRuns(TheEnd());
}

INSTANTIATE_TEST_SUITE_P(End, EndedByEither,
                         testing::Combine(testing::ValuesIn(kEnds), testing::ValuesIn(kHolders)),
                         [](const testing::TestParamInfo<HeldCase>& tested) {
                           return EndingName(std::get<0>(tested.param), std::get<1>(tested.param));
                         });

// ---- Ended by the application ----

class EndedByApplication : public EndingTest, public testing::WithParamInterface<End> {
 protected:
  // Starts "~/main" with links that end it on the event, and checks that the next group runs.
  void ExpectAnEndIn(std::string_view source, std::string_view event) {
    ServeOthers();
    Serve("main", ApplicationText("~/main", RectangleText(8) + RectangleText(9) +
                                                EndingLinks(source, event, GetParam())));
    ASSERT_EQ(Start(), Status::Done);
    static_cast<void>(EnterMain(GetParam()));
    ExpectThatTheNextGroupRuns(GetParam());
  }
};

TEST_P(EndedByApplication, while_it_becomes_available) { ExpectAnEndIn("0", "IsAvailable"); }

TEST_P(EndedByApplication, while_its_content_becomes_available) {
  ExpectAnEndIn("0", "ContentAvailable");
}

TEST_P(EndedByApplication, once_it_runs) { ExpectAnEndIn("0", "IsRunning"); }

TEST_P(EndedByApplication, while_an_item_of_it_starts) { ExpectAnEndIn("8", "IsRunning"); }

TEST_P(EndedByApplication, in_its_first_on_start_up) {
  ServeOthers();
  Serve("main", ApplicationText("~/main", RectangleText(8) + LinkOn(1, "0", "IsRunning", Never()),
                                ":OnStartUp (" + EndAction(GetParam()) + Never() + ")"));
  ASSERT_EQ(Start(), Status::Done);
  static_cast<void>(EnterMain(GetParam()));
  ExpectThatTheNextGroupRuns(GetParam());
}

TEST_P(EndedByApplication, in_its_second_on_start_up) {
  ServeOthers();
  Serve("main", ApplicationText("~/main",
                                "{:BooleanVar 7 :OrigValue TRUE}" +
                                    EndingLinks("7", "TestEvent", GetParam()),
                                ":OnStartUp (:TestVariable(7 1 :GBoolean TRUE))"));
  ASSERT_EQ(Start(), Status::Done);
  static_cast<void>(EnterMain(GetParam()));
  ExpectThatTheNextGroupRuns(GetParam());
}

TEST_P(EndedByApplication, in_the_on_start_up_of_its_scene) {
  ServeOthers();
  Serve("main",
        ApplicationText("~/main", LinkOn(1, "(\"~/menu\" 0)", "IsRunning", Never(), kShared)));
  ServeScene("menu", RectangleText(8), ":OnStartUp (" + EndAction(GetParam()) + Never() + ")");
  StartMain(GetParam());
  static_cast<void>(GoTo("~/menu"));
  ExpectThatTheNextGroupRuns(GetParam());
}

TEST_P(EndedByApplication, in_the_is_deleted_event_of_its_scene) {
  ServeOthers();
  Serve("main", ApplicationText("~/main", EndingLinks("(\"~/menu\" 0)", "IsDeleted", GetParam())));
  ServeScene("menu", LinkOnKey(1, 100, TransitionAction("~/next") + Never()) +
                         LinkOnKey(2, 100, Never()) + RectangleText(8));
  ServeScene("next", RectangleText(8), ":OnStartUp (" + Never() + ")");
  StartMain(GetParam());
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Press(100));
  ExpectThatTheNextGroupRuns(GetParam());
}

TEST_P(EndedByApplication, in_the_is_deleted_event_of_its_scene_during_a_launch) {
  ServeOthers();
  Serve("main", ApplicationText("~/main", EndingLinks("(\"~/menu\" 0)", "IsDeleted", GetParam())));
  Serve("never started", ApplicationText("~/c", "", ":OnStartUp (" + Never() + ")"));
  ServeScene("menu", RectangleText(8));
  StartMain(GetParam());
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Do([] { return Launch("~/never started"); }));
  ExpectThatTheNextGroupRuns(GetParam());
}

TEST_P(EndedByApplication, in_the_is_deleted_event_of_its_scene_during_close_down) {
  ServeOthers();
  Serve("main", ApplicationText("~/main", EndingLinks("(\"~/menu\" 0)", "IsDeleted", GetParam())));
  ServeScene("menu", RectangleText(8));
  StartMain(GetParam());
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  Do([] { CloseDown(); });
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(CurrentScene(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(End, EndedByApplication, testing::ValuesIn(kEnds),
                         [](const testing::TestParamInfo<End>& tested) {
                           return EndingName(tested.param, HeldBy::Application);
                         });

}  // namespace
}  // namespace korvel::test
