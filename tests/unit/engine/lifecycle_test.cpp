// How applications replace each other, return and end, and how the engine closes down and restarts.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

using Paths = std::vector<std::string>;

class Lifecycle : public EngineTest {
 protected:
  static bool IsAvailable() { return CurrentApplication()->AvailabilityStatus; }
};

// ---- Launch ----

TEST_F(Lifecycle, launch_replaces_the_application_and_its_scene) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", Note("D"), kShared));
  ServeScene("menu", LinkOnKey(1, 100, Note("x")));
  Serve("b", ApplicationText("~/b", LinkOnKey(1, 100, Note("b", "~/b")) +
                                        LinkOn(2, "0", "IsRunning", Note("R", "~/b"))));
  StartWithScene("~/menu");
  const Busy busy;  // keeps the ended application readable
  const auto& oldNotes = Find<OctetStringVariable>(kNotes);
  EXPECT_EQ(Do([] { return Launch("~/b"); }), Status::Done);
  EXPECT_EQ(oldNotes.Value.View(), "D");
  EXPECT_TRUE(IsGone(oldNotes));
  EXPECT_EQ(CurrentScene(), nullptr);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/b");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes("~/b"), "Rb");
}

TEST_F(Lifecycle, a_refused_launch_action_ends_its_list) {
  ServeApplication(LinkOnKey(1, 100, LaunchAction("~/missing") + Note("x")) +
                   LinkOnKey(2, 100, Note("x")) +
                   LinkOn(3, "0", "EngineEvent :EventData 2", Note("2")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Replaced);
  EXPECT_EQ(Notes(), "2");
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
}

TEST_F(Lifecycle, launching_a_missing_application_raises_an_engine_event_and_changes_nothing) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", Note("2"), kShared));
  ServeScene("menu", LinkOnKey(1, 100, Note("m")));
  StartWithScene("~/menu");
  EXPECT_EQ(Do([] { return Launch("~/missing"); }), Status::Refused);
  EXPECT_EQ(TheHost().pausedMs, 500U);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "2m");
}

TEST_F(Lifecycle, launching_an_invalid_file_fails_and_changes_nothing) {
  ServeApplication("");
  ServeScene("menu", LinkOnKey(1, 100, Note("m")));
  ServeBroken("broken");
  StartWithScene("~/menu");
  EXPECT_EQ(Do([] { return Launch("~/broken"); }), Status::Failure);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "m");
  EXPECT_EQ(Printed(), "");
}

TEST_F(Lifecycle, launching_a_scene_is_refused) {
  ServeApplication("");
  ServeScene("menu", LinkOnKey(1, 100, Note("m")));
  StartWithScene("~/menu");
  EXPECT_EQ(Do([] { return Launch("~/menu"); }), Status::Refused);
  EXPECT_EQ(Printed(), "Launch error\n");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "m");
}

TEST_F(Lifecycle, an_application_can_launch_itself) {
  ServeApplication(LinkOnKey(1, 100, Note("1")) + LinkOnKey(2, 101, LaunchAction("~/a")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "1");
  EXPECT_EQ(Press(101), Status::Replaced);
  EXPECT_EQ(Notes(), "");
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "1");
}

// ---- Spawn and Quit ----

TEST_F(Lifecycle, spawn_replaces_the_application_and_quit_returns_to_it) {
  ServeApplication(LinkOnKey(1, 100, SpawnAction("~/b") + SpawnAction("~/never")) +
                       LinkOnKey(2, 16, SpawnAction("~/never")),
                   ":OnStartUp (:LockScreen(0))");
  Serve("b", ApplicationText("~/b", LinkOnKey(1, 100, QuitAction() + SpawnAction("~/never"))));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Replaced);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/b");
  EXPECT_EQ(Press(100), Status::Replaced);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "b", "a"}));
  EXPECT_EQ(CurrentApplication()->LockCount, 0) << "its OnStartUp does not run again";
  EXPECT_FALSE(IsAvailable());
  EXPECT_FALSE(CurrentApplication()->Items.At(0)->Record()->AvailabilityStatus);
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(TheHost().fetched.size(), 3U) << "its links do not respond";
}

TEST_F(Lifecycle, a_sixth_nested_spawn_is_refused_without_side_effects) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  for (int depth = 1; depth <= 5; ++depth) {
    EXPECT_EQ(Do([] { return Spawn("~/a"); }), Status::Done) << depth;
  }
  const std::size_t fetches = TheHost().fetched.size();
  const Application* fifth = CurrentApplication();
  EXPECT_EQ(Do([] { return Spawn("~/a"); }), Status::Refused);
  EXPECT_EQ(TheHost().fetched.size(), fetches);
  EXPECT_EQ(CurrentApplication(), fifth);
  for (int depth = 5; depth >= 1; --depth) {
    EXPECT_EQ(Do([] { return Quit(); }), Status::Done) << depth;
  }
  EXPECT_TRUE(TheHost().restarts.empty());
  EXPECT_EQ(Do([] { return Quit(); }), Status::Failure) << "only five names were pushed";
  EXPECT_EQ(TheHost().restarts.size(), 1U);
}

TEST_F(Lifecycle, a_refused_spawn_does_not_end_its_list) {
  ServeApplication(LinkOnKey(1, 100, SpawnAction("~/missing") + Note("y")) +
                   LinkOn(2, "0", "EngineEvent :EventData 2", Note("2")));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "2y");
  EXPECT_EQ(TheHost().pausedMs, 500U);
}

TEST_F(Lifecycle, a_spawn_that_fails_leaves_the_application_on_the_stack) {
  ServeApplication("");
  ServeScene("menu", "");
  ServeBroken("broken");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Spawn("~/missing"); }), Status::Refused);
  EXPECT_EQ(Do([] { return Spawn("~/broken"); }), Status::Failure);
  EXPECT_EQ(Printed(), "");
  EXPECT_EQ(Do([] { return Spawn("~/menu"); }), Status::Refused);
  EXPECT_EQ(Printed(), "Spawn error\n");
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  for (int pushed = 3; pushed >= 1; --pushed) {
    EXPECT_EQ(Do([] { return Quit(); }), Status::Done) << pushed;
    EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  }
  EXPECT_TRUE(TheHost().restarts.empty());
  EXPECT_EQ(Do([] { return Quit(); }), Status::Failure);
}

TEST_F(Lifecycle, spawns_that_fail_fill_the_application_stack) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  for (int count = 1; count <= 5; ++count) {
    EXPECT_EQ(Do([] { return Spawn("~/missing"); }), Status::Refused);
  }
  const std::size_t fetches = TheHost().fetched.size();
  EXPECT_EQ(Do([] { return Spawn("~/missing"); }), Status::Refused);
  EXPECT_EQ(TheHost().fetched.size(), fetches);
}

TEST_F(Lifecycle, spawn_ends_the_running_scene) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", Note("D"), kShared));
  ServeScene("menu", LinkOnKey(1, 100, SpawnAction("~/b") + Note("x")));
  Serve("b", ApplicationText("~/b", LinkOnKey(1, 100, Note("b", "~/b"))));
  StartWithScene("~/menu");
  const Busy busy;  // keeps the ended application readable
  const auto& oldNotes = Find<OctetStringVariable>(kNotes);
  EXPECT_EQ(Press(100), Status::Replaced);
  EXPECT_EQ(oldNotes.Value.View(), "D");
  EXPECT_EQ(CurrentScene(), nullptr);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes("~/b"), "b");
}

TEST_F(Lifecycle, quit_without_a_parent_requests_a_restart) {
  ServeApplication(LinkOnKey(1, 100, ":LockScreen(0) " + QuitAction() + SpawnAction("~/never")));
  ServeScene("menu", "");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Failure);
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(CurrentScene(), nullptr);
  ASSERT_EQ(TheHost().restarts.size(), 1U);
  EXPECT_EQ(TheHost().restarts[0], RestartReason::QuitWithoutParent);
  EXPECT_EQ(ThePresentation().clears, 1);
  EXPECT_FALSE(TheHost().mayRun);
  EXPECT_EQ(TheHost().fetched, Paths{"a"});

  // The worker then starts the engine again.
  TheHost().mayRun = true;
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "a"}));
  EXPECT_EQ(Press(100), Status::Failure);
}

TEST_F(Lifecycle, quit_without_a_parent_empties_the_persistent_store) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  OctetString data;
  ASSERT_TRUE(data.Assign("kept"));
  ASSERT_EQ(AppendPersistent("file", std::move(data)), Status::Done);
  EXPECT_EQ(Do([] { return Quit(); }), Status::Failure);
  OctetString taken;
  EXPECT_FALSE(TakePersistent("file", taken));
}

TEST_F(Lifecycle, quit_with_a_parent_keeps_the_persistent_store) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  OctetString data;
  ASSERT_TRUE(data.Assign("kept"));
  ASSERT_EQ(AppendPersistent("file", std::move(data)), Status::Done);
  EXPECT_EQ(Do([] { return Spawn("~/a"); }), Status::Done);
  EXPECT_EQ(Do([] { return Quit(); }), Status::Done);
  OctetString taken;
  EXPECT_TRUE(TakePersistent("file", taken));
  EXPECT_EQ(taken.View(), "kept");
}

TEST_F(Lifecycle, quit_to_a_missing_parent_leaves_no_application) {
  ServeApplication("");
  Serve("b", ApplicationText("~/b", LinkOn(1, "0", "EngineEvent", SpawnAction("~/never"))));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Spawn("~/b"); }), Status::Done);
  TheHost().files.erase("a");
  EXPECT_EQ(Do([] { return Quit(); }), Status::Refused);
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(TheHost().pausedMs, 500U);
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "b", "a"})) << "its links have been removed";
  EXPECT_TRUE(TheHost().restarts.empty());
}

TEST_F(Lifecycle, quit_to_an_invalid_parent_fails) {
  ServeApplication("");
  Serve("b", ApplicationText("~/b", ""));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Spawn("~/b"); }), Status::Done);
  ServeBroken("a");
  EXPECT_EQ(Do([] { return Quit(); }), Status::Failure);
  EXPECT_EQ(CurrentApplication(), nullptr);
}

TEST_F(Lifecycle, quit_to_a_parent_that_became_a_scene_is_refused) {
  ServeApplication("");
  Serve("b", ApplicationText("~/b", ""));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Spawn("~/b"); }), Status::Done);
  Serve("a", SceneText("~/a", ""));
  EXPECT_EQ(Do([] { return Quit(); }), Status::Refused);
  EXPECT_EQ(Printed(), "Spawn error\n");
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(CurrentScene(), nullptr);
}

// ---- Close-down and restart ----

TEST_F(Lifecycle, close_down_ends_the_scene_and_the_application) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", Note("D"), kShared));
  ServeScene("menu", "");
  StartWithScene("~/menu");
  const Busy busy;  // keeps the ended application readable
  const auto& notes = Find<OctetStringVariable>(kNotes);
  Do([] { CloseDown(); });
  EXPECT_EQ(notes.Value.View(), "D");
  EXPECT_EQ(CurrentScene(), nullptr);
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_TRUE(TheHost().restarts.empty());
}

TEST_F(Lifecycle, close_down_ends_groups_even_if_their_links_fail) {
  ServeBroken("broken");
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", TransitionAction("~/broken"), kShared));
  ServeScene("menu", "");
  StartWithScene("~/menu");
  Do([] { CloseDown(); });
  EXPECT_EQ(CurrentScene(), nullptr);
  EXPECT_EQ(CurrentApplication(), nullptr);
}

TEST_F(Lifecycle, close_down_ends_a_scene_that_a_link_starts_meanwhile) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", TransitionAction("~/next"), kShared));
  ServeScene("menu", "");
  ServeScene("next", "");
  StartWithScene("~/menu");
  Do([] { CloseDown(); });
  EXPECT_EQ(CurrentScene(), nullptr);
  EXPECT_EQ(CurrentApplication(), nullptr);
}

TEST_F(Lifecycle, close_down_without_an_application_does_nothing) {
  Do([] { CloseDown(); });
  EXPECT_EQ(CurrentApplication(), nullptr);
}

TEST_F(Lifecycle, a_start_ends_the_running_groups_without_events) {
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", SpawnAction("~/never"), kShared) +
                   RectangleText(2) + LinkOnKey(3, 100, ":SetTimer(0 8 100)", kShared));
  ServeScene("menu", "", ":OnStartUp (:SetTimer(0 7 100))");
  StartWithScene("~/menu");
  EXPECT_EQ(Press(100), Status::Done);
  ASSERT_EQ(TheHost().timers.size(), 2U);
  TheHost().fetched.clear();
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(TheHost().fetched, Paths{"a"}) << "no event was raised";
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_EQ(CurrentScene(), nullptr);
  EXPECT_EQ(CurrentApplication()->DisplayStack.Size(), 1U);
  EXPECT_EQ(Printed(), "");
}

TEST_F(Lifecycle, a_failed_start_still_ends_the_running_groups) {
  ServeApplication(LinkOnKey(1, 16, SpawnAction("~/never")));
  ServeScene("menu", "");
  StartWithScene("~/menu");
  TheHost().files.clear();
  EXPECT_EQ(Start(), Status::Refused);
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(CurrentScene(), nullptr);
  TheHost().fetched.clear();
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_TRUE(TheHost().fetched.empty());
}

TEST_F(Lifecycle, a_start_clears_the_application_stack) {
  ServeApplication("");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Spawn("~/a"); }), Status::Done);
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Quit(); }), Status::Failure);
  EXPECT_EQ(TheHost().restarts.size(), 1U);
}

TEST_F(Lifecycle, a_start_clears_the_current_directory) {
  Serve("dir/a", ApplicationText("~/a", ""));
  ASSERT_EQ(Start("dir"), Status::Done);
  ServeApplication("");
  ServeScene("menu", "");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_EQ(TheHost().fetched.back(), "menu");
}

TEST_F(Lifecycle, the_engine_starts_after_operations_without_an_application) {
  ServeApplication(LinkOnKey(1, 100, Note("1")));
  ServeScene("menu", "");
  Serve("b", ApplicationText("~/b", ""));
  for (const char* name : {"~/missing", "~/menu", "~/b"}) {
    Do([&] {
      static_cast<void>(TransitionTo(name));
      CloseDown();
      static_cast<void>(Launch(name));
      CloseDown();
      static_cast<void>(Spawn(name));
      CloseDown();
      static_cast<void>(Quit());
    });
  }
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "1");
}

TEST_F(Lifecycle, a_closed_engine_can_start_again) {
  ServeApplication(LinkOnKey(1, 100, Note("1")));
  for (int round = 0; round < 3; ++round) {
    ASSERT_EQ(Start(), Status::Done);
    EXPECT_EQ(Press(100), Status::Done);
    EXPECT_EQ(Notes(), "1");
    EndEngine();
  }
}

}  // namespace
}  // namespace korvel::test
