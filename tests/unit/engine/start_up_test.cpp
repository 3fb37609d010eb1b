// How the start-up application is found, and the order in which an application starts.
#include "objects/limits.h"
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

using Paths = std::vector<std::string>;

class StartUp : public EngineTest {
 protected:
  static bool IsAvailable() { return CurrentApplication()->AvailabilityStatus; }
};

// ---- The start-up search ----

TEST_F(StartUp, the_engine_starts_from_the_file_a) {
  ServeApplication("");
  Serve("startup", ApplicationText("~/startup", ""));
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(TheHost().fetched, Paths{"a"});
  EXPECT_EQ(TheHost().pausedMs, 0U);
  EXPECT_EQ(CurrentScene(), nullptr);
}

TEST_F(StartUp, the_engine_starts_from_the_file_startup_if_there_is_no_a) {
  Serve("startup", ApplicationText("~/startup", ""));
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/startup");
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "startup"}));
  EXPECT_EQ(TheHost().pausedMs, 0U);
}

TEST_F(StartUp, the_search_stops_after_two_passes_with_a_pause_after_each) {
  EXPECT_EQ(Start(), Status::Refused);
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "startup", "a", "startup"}));
  EXPECT_EQ(TheHost().pausedMs, 1000U);
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(Printed(), "");
}

TEST_F(StartUp, a_search_from_a_path_tries_the_path_then_its_directory_then_the_root) {
  EXPECT_EQ(Start("dir"), Status::Refused);
  const Paths pass = {"dir", "dir/a", "dir/startup", "a", "startup"};
  Paths twoPasses = pass;
  twoPasses.insert(twoPasses.end(), pass.begin(), pass.end());
  EXPECT_EQ(TheHost().fetched, twoPasses);
  EXPECT_EQ(TheHost().pausedMs, 1000U);
}

TEST_F(StartUp, a_path_that_is_a_file_is_the_application) {
  Serve("dir/boot", ApplicationText("~/boot", ""));
  EXPECT_EQ(Start("dir/boot"), Status::Done);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/boot");
  EXPECT_EQ(TheHost().fetched, Paths{"dir/boot"});
}

TEST_F(StartUp, the_path_becomes_the_current_directory_if_the_application_is_below_it) {
  Serve("dir/startup", ApplicationText("~/startup", ""));
  Serve("dir/menu", SceneText("~/menu", ""));
  EXPECT_EQ(Start("dir/"), Status::Done);
  EXPECT_EQ(TheHost().fetched, (Paths{"dir/", "dir/a", "dir/startup"})) << "no second slash";
  EXPECT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_EQ(TheHost().fetched.back(), "dir/menu");
}

TEST_F(StartUp, the_current_directory_is_empty_if_the_application_is_at_the_root) {
  ServeApplication("");
  ServeScene("menu", "");
  EXPECT_EQ(Start("dir"), Status::Done);
  EXPECT_EQ(TheHost().fetched, (Paths{"dir", "dir/a", "dir/startup", "a"}));
  EXPECT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_EQ(TheHost().fetched.back(), "menu");
}

// ---- The engine start ----

TEST_F(StartUp, an_invalid_start_file_is_refused) {
  ServeBroken("a");
  Serve("startup", ApplicationText("~/startup", ""));
  EXPECT_EQ(Start(), Status::Refused);
  EXPECT_EQ(Printed(), "Parser failed\n");
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(TheHost().fetched, Paths{"a"}) << "the search is not repeated";
}

TEST_F(StartUp, a_start_file_that_is_a_scene_is_refused) {
  Serve("a", SceneText("~/a", ""));
  EXPECT_EQ(Start(), Status::Refused);
  EXPECT_EQ(Printed(), "startup error\n");
  EXPECT_EQ(CurrentApplication(), nullptr);
  EXPECT_EQ(CurrentScene(), nullptr);
}

TEST_F(StartUp, a_group_whose_name_is_too_long_is_refused) {
  const std::string longest = "~/" + std::string(kLongestGroupName - 2, 'a');
  Serve("a", ApplicationText(longest, ""));
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(NameOf(CurrentApplication()), longest);
  Serve("a", ApplicationText(longest + "a", ""));
  EXPECT_EQ(Start(), Status::Refused);
  EXPECT_EQ(Printed(), "Parser failed\n");
}

TEST_F(StartUp, a_start_file_cut_short_anywhere_is_refused) {
  const std::string whole = CompileText(ApplicationText(
      "~/a", RectangleText(1) + LinkOnKey(2, 100, Note("x")), ":OnStartUp (:LockScreen(0))"));
  ASSERT_FALSE(whole.empty());
  for (std::size_t length = 0; length < whole.size(); ++length) {
    TheHost().files["a"] = whole.substr(0, length);
    EXPECT_EQ(Start(), Status::Refused) << length;
    EXPECT_EQ(Printed(), "Parser failed\n") << length;
    EXPECT_EQ(CurrentApplication(), nullptr) << length;
  }
  TheHost().files["a"] = whole;
  EXPECT_EQ(Start(), Status::Done);
}

TEST_F(StartUp, a_started_application_is_available_and_running) {
  ServeApplication("");
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_TRUE(CurrentApplication()->AvailabilityStatus);
  EXPECT_TRUE(CurrentApplication()->RunningStatus);
  EXPECT_EQ(Printed(), "");
}

TEST_F(StartUp, the_random_generator_is_seeded_with_the_time) {
  ServeApplication("");
  const auto valuesAt = [&](std::uint32_t seconds) {
    TheHost().seconds = seconds;
    EXPECT_EQ(Start(), Status::Done);
    std::vector<std::uint32_t> values;
    for (int count = 0; count < 20; ++count) values.push_back(NextRandom());
    return values;
  };
  const auto first = valuesAt(1'700'000'000);
  EXPECT_EQ(valuesAt(1'700'000'000), first);
  EXPECT_NE(valuesAt(1'700'000'001), first);
  for (const std::uint32_t value : first) EXPECT_LT(value, 1U << 31);
}

// ---- The application start ----

TEST_F(StartUp, on_start_up_of_an_application_runs_twice) {
  ServeApplication("", ":OnStartUp (:LockScreen(0))");
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(CurrentApplication()->LockCount, 2);
}

TEST_F(StartUp, the_applications_links_respond_only_in_the_second_on_start_up) {
  // Each run requests a missing file, which raises an engine event.
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", Note("E")),
                   ":OnStartUp (" + SpawnAction("~/missing") + ")");
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(Notes(), "E");
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "missing", "missing"}));
}

TEST_F(StartUp, an_application_becomes_available_then_starts_up_then_runs) {
  ServeApplication(LinkOn(1, "0", "IsAvailable", Note("A")) +
                       LinkOn(2, "0", "ContentAvailable", Note("C")) +
                       LinkOn(3, "0", "IsRunning", Note("R")) + RectangleText(4) +
                       LinkOn(5, "4", "IsRunning", Note("i")),
                   ":OnStartUp (" + Note("S") + ")");
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(Notes(), "iACSR") << "the first OnStartUp ran before the variable was available";
}

TEST_F(StartUp, initially_active_items_start_in_item_order) {
  ServeApplication(
      RectangleText(3) + RectangleText(1) + RectangleText(4, kInactive) + RectangleText(2) +
      LinkOn(11, "1", "IsRunning", Note("1")) + LinkOn(12, "2", "IsRunning", Note("2")) +
      LinkOn(13, "3", "IsRunning", Note("3")) + LinkOn(14, "4", "IsRunning", Note("4")));
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(Notes(), "312");
  EXPECT_TRUE(Find<Rectangle>(1).AvailabilityStatus);
  EXPECT_TRUE(Find<Rectangle>(1).RunningStatus);
  EXPECT_FALSE(Find<Rectangle>(4).AvailabilityStatus);
  EXPECT_FALSE(Find<Rectangle>(4).RunningStatus);
}

TEST_F(StartUp, initial_activation_of_items_raises_is_running_only) {
  ServeApplication(RectangleText(4) + LinkOn(1, "4", "IsAvailable", Note("A")) +
                   LinkOn(2, "4", "ContentAvailable", Note("C")) +
                   LinkOn(3, "4", "IsRunning", Note("R")));
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(Notes(), "R");
}

TEST_F(StartUp, a_failed_on_start_up_ends_the_start_but_the_engine_counts_as_started) {
  ServeBroken("broken");
  ServeApplication(LinkOnKey(1, 100, Note("x")) + RectangleText(2),
                   ":OnStartUp (" + TransitionAction("~/broken") + ")");
  EXPECT_EQ(Start(), Status::Failure);
  EXPECT_EQ(Printed(), "Parse error\n");
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_FALSE(IsAvailable());
  EXPECT_FALSE(Find<Rectangle>(2).AvailabilityStatus);
}

TEST_F(StartUp, an_on_start_up_that_starts_a_scene_ends_the_application_start) {
  ServeApplication(LinkOnKey(1, 100, LaunchAction("~/never")) + RectangleText(2),
                   ":OnStartUp (" + TransitionAction("~/menu") + ")");
  ServeScene("menu", LinkOnKey(1, 100, Note("s", "~/menu")));
  EXPECT_EQ(Start(), Status::Replaced);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_FALSE(IsAvailable()) << "the application was never prepared";
  EXPECT_FALSE(Find<Rectangle>(2).AvailabilityStatus);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes("~/menu"), "s");
  EXPECT_EQ(TheHost().fetched, (Paths{"a", "menu"})) << "the application's links never respond";
}

TEST_F(StartUp, a_second_on_start_up_that_starts_a_scene_does_not_stop_the_application) {
  // In the first run the link does not respond to the TestEvent yet.
  ServeApplication("{:BooleanVar 7 :OrigValue TRUE}" +
                       LinkOn(1, "7", "TestEvent :EventData TRUE",
                              Note("T") + TransitionAction("~/menu"), kShared) +
                       LinkOn(2, "0", "IsRunning", Note("R"), kShared),
                   ":OnStartUp (:TestVariable(7 1 :GBoolean TRUE) " + Note("x") + ")");
  ServeScene("menu", "");
  const Status result = Start();
  EXPECT_NE(result, Status::Refused);
  EXPECT_NE(result, Status::Failure);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_EQ(Notes(), "TR");
  EXPECT_TRUE(CurrentApplication()->RunningStatus);
}

TEST_F(StartUp, an_item_that_starts_a_scene_does_not_stop_the_application_start) {
  ServeApplication(RectangleText(4) + LinkOn(1, "4", "IsRunning", TransitionAction("~/menu")) +
                       RectangleText(5) + LinkOn(2, "5", "IsRunning", Note("5"), kShared) +
                       LinkOn(3, "0", "IsAvailable", Note("A"), kShared) +
                       LinkOn(4, "0", "IsRunning", Note("R"), kShared),
                   ":OnStartUp (:LockScreen(0))");
  ServeScene("menu", "", ":OnStartUp (" + Note("s") + ")");
  EXPECT_EQ(Start(), Status::Done);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_EQ(Notes(), "s5AR");
  EXPECT_EQ(CurrentApplication()->LockCount, 2) << "OnStartUp ran a second time";
}

TEST_F(StartUp, on_close_down_on_spawn_close_down_and_on_restart_never_run) {
  ServeApplication("", ":OnCloseDown (" + Note("C") + ") :OnSpawnCloseDown (" + Note("S") +
                           ") :OnRestart (" + Note("R") + ")");
  ServeScene("menu", "", ":OnCloseDown (" + Note("c") + ")");
  ServeScene("next", "");
  Serve("b", ApplicationText("~/b", ""));
  StartWithScene("~/menu");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(Notes(), "");
  const Busy busy;  // keeps the ended application readable
  const auto& notes = Find<OctetStringVariable>(kNotes);
  EXPECT_EQ(Do([] { return Spawn("~/b"); }), Status::Done);
  EXPECT_EQ(notes.Value.View(), "");
  EXPECT_EQ(Do([] { return Quit(); }), Status::Done);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_TRUE(CurrentApplication()->Items.At(0)->As<OctetStringVariable>().Value.IsEmpty());
}

}  // namespace
}  // namespace korvel::test
