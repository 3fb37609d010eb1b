// How a scene replaces another: what it starts, stops and ends, and what happens if it cannot be
// loaded.
#include "actions/actions.h"
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class Transition : public EngineTest {};

// ---- TransitionTo ----

TEST_F(Transition, a_scene_starts_with_its_items_then_itself) {
  ServeApplication("");
  ServeScene("menu",
             LinkOn(1, "0", "IsAvailable", Note("A")) +
                 LinkOn(2, "0", "ContentAvailable", Note("C")) +
                 LinkOn(3, "0", "IsRunning", Note("R")) + RectangleText(5) + RectangleText(4) +
                 LinkOn(14, "4", "IsRunning", Note("4")) + LinkOn(15, "5", "IsRunning", Note("5")),
             ":OnStartUp (" + Note("S") + ")");
  StartWithScene("~/menu");
  EXPECT_EQ(Notes(), "54ACSR");
  EXPECT_TRUE(CurrentScene()->AvailabilityStatus);
  EXPECT_TRUE(CurrentScene()->RunningStatus);
}

TEST_F(Transition, a_transition_action_starts_the_scene_and_ends_its_list) {
  ServeApplication(LinkOnKey(1, 100, TransitionAction("~/menu") + Note("x"), kShared));
  ServeScene("menu", LinkOnKey(1, 101, TransitionAction("~/next") + Note("x")));
  ServeScene("next", LinkOnKey(1, 101, Note("n")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Replaced) << "from a list of the application";
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_EQ(Press(101), Status::Done) << "from a list of the scene: the transition's own result";
  EXPECT_EQ(NameOf(CurrentScene()), "~/next");
  EXPECT_EQ(Press(101), Status::Done);
  EXPECT_EQ(Notes(), "n");
}

TEST_F(Transition, a_transition_to_the_running_scene_does_nothing) {
  ServeApplication("");
  ServeScene("menu", "", ":OnStartUp (" + Note("S") + ")");
  StartWithScene("~/menu");
  const std::size_t fetches = TheHost().fetched.size();
  EXPECT_EQ(GoTo("~/menu"), Status::Refused);
  EXPECT_EQ(TheHost().fetched.size(), fetches);
  EXPECT_EQ(Notes(), "S");
}

TEST_F(Transition, the_running_scenes_name_without_the_tilde_is_another_name) {
  ServeApplication("");
  ServeScene("menu", "", ":OnStartUp (" + Note("S") + ")");
  StartWithScene("~/menu");
  EXPECT_EQ(GoTo("/menu"), Status::Done);
  EXPECT_EQ(Notes(), "SS");
}

TEST_F(Transition, a_transition_without_a_name_does_nothing) {
  ServeApplication("");
  ServeScene("menu", "");
  StartWithScene("~/menu");
  const std::size_t fetches = TheHost().fetched.size();
  EXPECT_EQ(GoTo(""), Status::Refused);
  EXPECT_EQ(TheHost().fetched.size(), fetches);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
}

TEST_F(Transition, a_missing_scene_raises_an_engine_event_and_changes_nothing) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", Note("2"), kShared) +
                   LinkOn(2, "1", "EngineEvent :EventData 2", Note("x"), kShared) +
                   RectangleText(3));
  ServeScene("menu", LinkOnKey(1, 15, Note("m")));
  StartWithScene("~/menu");
  ASSERT_EQ(Do([] { return RunIngredient(ItemType::Rectangle, Find<Rectangle>(3)); }),
            Status::Done);
  EXPECT_EQ(GoTo("~/missing"), Status::Refused);
  EXPECT_EQ(TheHost().pausedMs, 500U);
  EXPECT_EQ(TakeNotes(), "2");
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_TRUE(Find<Rectangle>(3).RunningStatus) << "nothing of the application was stopped";
  EXPECT_EQ(Press(15), Status::Done);
  EXPECT_EQ(TakeNotes(), "m");
  EXPECT_EQ(Printed(), "");
}

TEST_F(Transition, a_failed_engine_event_fails_the_transition) {
  ServeBroken("broken");
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", TransitionAction("~/broken")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(GoTo("~/missing"), Status::Failure);
}

TEST_F(Transition, a_transition_stays_refused_if_its_engine_event_starts_a_scene) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", TransitionAction("~/menu")));
  ServeScene("menu", "");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(GoTo("~/missing"), Status::Refused);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
}

TEST_F(Transition, an_invalid_scene_file_fails_and_changes_nothing) {
  ServeApplication(RectangleText(3));
  ServeScene("menu", "");
  ServeBroken("broken");
  StartWithScene("~/menu");
  ASSERT_EQ(Do([] { return RunIngredient(ItemType::Rectangle, Find<Rectangle>(3)); }),
            Status::Done);
  EXPECT_EQ(GoTo("~/broken"), Status::Failure);
  EXPECT_EQ(Printed(), "Parse error\n");
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_TRUE(Find<Rectangle>(3).RunningStatus);
}

TEST_F(Transition, a_scene_cut_short_anywhere_fails_and_changes_nothing) {
  ServeApplication("");
  ServeScene("menu", "");
  StartWithScene("~/menu");
  const std::string whole =
      CompileText(SceneText("~/next", RectangleText(1) + LinkOnKey(2, 100, Note("x"))));
  ASSERT_FALSE(whole.empty());
  for (std::size_t length = 0; length < whole.size(); ++length) {
    TheHost().files["next"] = whole.substr(0, length);
    EXPECT_EQ(GoTo("~/next"), Status::Failure) << length;
    EXPECT_EQ(Printed(), "Parse error\n") << length;
    EXPECT_EQ(NameOf(CurrentScene()), "~/menu") << length;
  }
  TheHost().files["next"] = whole;
  EXPECT_EQ(GoTo("~/next"), Status::Done);
}

TEST_F(Transition, a_transition_to_an_application_is_refused) {
  ServeApplication("");
  Serve("b", ApplicationText("~/b", ""));
  ServeScene("menu", "");
  StartWithScene("~/menu");
  EXPECT_EQ(GoTo("~/b"), Status::Refused);
  EXPECT_EQ(Printed(), "TransitionTo error\n");
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
}

TEST_F(Transition, a_transition_stops_unshared_application_items_without_events) {
  ServeApplication(RectangleText(1) + RectangleText(2, kShared) + "{:Palette 3}" +
                   "{:IntegerVar 4 :OrigValue 8}" + LinkOnKey(5, 100, Note("5")) +
                   LinkOnKey(6, 100, Note("6"), kShared) +
                   LinkOn(7, "1", "IsStopped", Note("x"), kShared));
  ServeScene("menu", "");
  ASSERT_EQ(Start(), Status::Done);
  Item* paletteItem = CurrentApplication()->Items.At(3);
  ASSERT_EQ(paletteItem->Type(), ItemType::Palette);
  paletteItem->Record()->RunningStatus = true;
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_FALSE(Find<Rectangle>(1).RunningStatus);
  EXPECT_TRUE(Find<Rectangle>(1).AvailabilityStatus);
  EXPECT_TRUE(Find<Rectangle>(2).RunningStatus);
  EXPECT_TRUE(paletteItem->Record()->RunningStatus) << "classes 28 to 32 are not stopped";
  EXPECT_FALSE(Find<IntegerVariable>(4).RunningStatus);
  EXPECT_EQ(IntegerOf(4), 8);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "6");
}

TEST_F(Transition, the_end_of_a_scene_raises_is_deleted_for_links_of_the_application) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", Note("D"), kShared));
  ServeScene("menu", LinkOn(1, "0", "IsDeleted", Note("x")));
  ServeScene("next", "", ":OnStartUp (" + Note("n") + ")");
  StartWithScene("~/menu");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(Notes(), "Dn") << "the scene's own links have been removed";
}

TEST_F(Transition, an_item_that_starts_another_scene_ends_the_first_scenes_start) {
  ServeApplication("");
  ServeScene("menu",
             RectangleText(4) + RectangleText(5) +
                 LinkOn(1, "4", "IsRunning", Note("4") + TransitionAction("~/next") + Note("x")) +
                 LinkOn(2, "5", "IsRunning", Note("x")) + LinkOn(3, "0", "IsAvailable", Note("x")),
             ":OnStartUp (" + Note("x") + ")");
  ServeScene("next", "", ":OnStartUp (" + Note("n") + ")");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_EQ(Notes(), "4n");
  EXPECT_EQ(NameOf(CurrentScene()), "~/next");
}

TEST_F(Transition, a_scene_whose_on_start_up_starts_another_raises_no_is_running) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsRunning", Note("x"), kShared) +
                   LinkOn(2, "(\"~/next\" 0)", "IsRunning", Note("R"), kShared));
  ServeScene("menu", "", ":OnStartUp (" + Note("m") + TransitionAction("~/next") + Note("x") + ")");
  ServeScene("next", "");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_EQ(Notes(), "mR");
  EXPECT_EQ(NameOf(CurrentScene()), "~/next");
}

TEST_F(Transition, a_transition_in_is_deleted_replaces_the_pending_one) {
  ServeApplication(
      LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", Note("D") + TransitionAction("~/other"), kShared));
  ServeScene("menu", "");
  ServeScene("next", "", ":OnStartUp (" + Note("n") + ")");
  ServeScene("other", "", ":OnStartUp (" + Note("o") + ")");
  StartWithScene("~/menu");
  EXPECT_EQ(GoTo("~/next"), Status::Replaced);
  EXPECT_EQ(Notes(), "Do") << "IsDeleted is raised once";
  EXPECT_EQ(NameOf(CurrentScene()), "~/other");
}

TEST_F(Transition, a_failure_in_is_deleted_keeps_the_scene_without_its_links) {
  ServeBroken("broken");
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", TransitionAction("~/broken"), kShared));
  ServeScene("menu", LinkOnKey(1, 100, Note("x")));
  ServeScene("next", "");
  StartWithScene("~/menu");
  EXPECT_EQ(GoTo("~/next"), Status::Failure);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "");
}

TEST_F(Transition, only_transition_and_launch_actions_start_a_new_generation) {
  ServeApplication(LinkOnKey(1, 100, TransitionAction("~/menu"), kShared) +
                   LinkOnKey(2, 101, TransitionAction("~/missing"), kShared) +
                   LinkOnKey(3, 102, SpawnAction("~/b"), kShared));
  ServeScene("menu", "");
  Serve("b", ApplicationText("~/b", LinkOnKey(1, 100, LaunchAction("~/missing")) +
                                        LinkOnKey(2, 101, QuitAction())));
  ASSERT_EQ(Start(), Status::Done);
  Generations expected = CurrentGenerations();
  EXPECT_EQ(Press(100), Status::Replaced);
  ++expected.scene;
  EXPECT_TRUE(CurrentGenerations() == expected);
  EXPECT_EQ(Press(101), Status::Replaced) << "a refused transition counts too";
  ++expected.scene;
  EXPECT_TRUE(CurrentGenerations() == expected);
  EXPECT_EQ(Press(102), Status::Replaced);
  EXPECT_TRUE(CurrentGenerations() == expected) << "Spawn does not count";
  EXPECT_EQ(Press(100), Status::Replaced);
  ++expected.application;
  EXPECT_TRUE(CurrentGenerations() == expected);
  EXPECT_EQ(Press(101), Status::Replaced);
  EXPECT_TRUE(CurrentGenerations() == expected) << "Quit does not count";
}

}  // namespace
}  // namespace korvel::test
