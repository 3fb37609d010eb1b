// Groups that end in an event raised by one of their own actions: every such event, every way to
// end a group, and links of either group. The sanitizer reports any access to the ended group.
#include "ending.h"

namespace korvel::test {
namespace {

// A way to raise an event. The application is "~/main" and its scene is "~/menu". Pressing key 100
// runs `actions` from a link of the scene.
struct Occasion {
  const char* name;
  const char* source;
  const char* event;
  std::string actions;
  std::string applicationItems = "";  // besides the links
  std::string sceneItems = "";
  // Raise an engine event in each redraw, as for a picture that cannot be drawn.
  bool raisesInRedraw = false;
};

// An action on an object of the scene.
std::string SceneAction(std::string_view action, std::int32_t number) {
  return ":" + std::string(action) + "(" + Name("~/menu", number) + ") ";
}

const std::array kOccasions = {
    Occasion{"a_test", "(\"~/menu\" 7)", "TestEvent",
             ":TestVariable((\"~/menu\" 7) 1 :GBoolean TRUE)", "",
             "{:BooleanVar 7 :OrigValue TRUE}"},
    Occasion{"an_item_that_runs", "(\"~/menu\" 8)", "IsRunning", SceneAction("Run", 8), "",
             RectangleText(8, kInactive)},
    Occasion{"an_item_that_stops", "(\"~/menu\" 8)", "IsStopped", SceneAction("Stop", 8), "",
             RectangleText(8)},
    Occasion{"an_item_of_the_application_that_runs", "(\"~/main\" 8)", "IsRunning",
             ":Run((\"~/main\" 8))", RectangleText(8, kInactive)},
    Occasion{"a_text_that_becomes_available", "(\"~/menu\" 8)", "IsAvailable",
             SceneAction("Preload", 8), "",
             "{:Text 8 :InitiallyActive FALSE :OrigContent \"x\" :OrigBoxSize 9 9}"},
    Occasion{"a_content_that_becomes_available", "(\"~/menu\" 8)", "ContentAvailable",
             SceneAction("Preload", 8), "",
             "{:Text 8 :InitiallyActive FALSE :OrigContent \"x\" :OrigBoxSize 9 9}"},
    Occasion{"a_missing_scene", "(\"~/main\" 0)", "EngineEvent :EventData 2",
             TransitionAction("~/missing")},
    Occasion{"a_missing_application_to_launch", "(\"~/main\" 0)", "EngineEvent :EventData 2",
             LaunchAction("~/missing")},
    Occasion{"a_missing_text", "(\"~/main\" 0)", "EngineEvent :EventData 3", SceneAction("Run", 8),
             "",
             "{:Text 8 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/missing\") "
             ":OrigBoxSize 9 9}"},
    Occasion{"a_redraw_of_an_item_that_runs", "(\"~/main\" 0)", "EngineEvent :EventData 3",
             SceneAction("Run", 8), "", RectangleText(8, kInactive), true},
    Occasion{"a_redraw_of_an_item_that_stops", "(\"~/main\" 0)", "EngineEvent :EventData 3",
             SceneAction("Stop", 8), "", RectangleText(8), true},
    Occasion{"a_redraw_of_an_item_brought_to_front", "(\"~/main\" 0)", "EngineEvent :EventData 3",
             SceneAction("BringToFront", 8), "", RectangleText(8), true},
    Occasion{"a_redraw_of_an_unlocked_screen", "(\"~/main\" 0)", "EngineEvent :EventData 3",
             ":LockScreen((\"~/main\" 0)) :UnlockScreen((\"~/main\" 0))", "", "", true},
    Occasion{"an_event_of_the_input_table", "(\"~/menu\" 5)", "StreamEvent",
             ":SendEvent((\"~/menu\" 0) (\"~/menu\" 5) StreamEvent)"},
};

using Case = std::tuple<std::size_t, End, HeldBy>;

class EndedInside : public EndingTest, public testing::WithParamInterface<Case> {};

TEST_P(EndedInside, leaves_the_next_group_running) {
  const auto& [index, end, holder] = GetParam();
  const Occasion& occasion = kOccasions[index];
  const std::string links = EndingLinks(occasion.source, occasion.event, end);
  ServeOthers();
  Serve("main", ApplicationText("~/main", occasion.applicationItems +
                                              (holder == HeldBy::Application ? links : "")));
  ServeScene("menu", occasion.sceneItems + (holder == HeldBy::Scene ? links : "") +
                         LinkOnKey(1, 100, occasion.actions + Never()) +
                         LinkOnKey(2, 100, Never()));
  StartMain(end);
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  if (occasion.raisesInRedraw) RaiseInEachRedraw();
  static_cast<void>(Press(100));
  ExpectThatTheNextGroupRuns(end);
}

// A spawn that fails has already pushed the spawning application's own name, so Quit returns to it.
class EndedInSpawn : public EndingTest,
                     public testing::WithParamInterface<std::tuple<End, HeldBy>> {};

TEST_P(EndedInSpawn, returns_to_the_spawning_application_when_it_quits) {
  const auto& [end, holder] = GetParam();
  const std::string links = EndingLinks("(\"~/main\" 0)", "EngineEvent :EventData 2", end);
  ServeOthers();
  Serve("main", ApplicationText("~/main", holder == HeldBy::Application ? links : ""));
  ServeScene("menu", (holder == HeldBy::Scene ? links : "") +
                         LinkOnKey(1, 100, SpawnAction("~/missing") + Never()) +
                         LinkOnKey(2, 100, Never()));
  StartMain(end);
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  static_cast<void>(Press(100));
  if (end == End::QuitToParent || end == End::QuitToRestart) {
    EXPECT_EQ(NameOf(CurrentApplication()), "~/main");
    EXPECT_EQ(CurrentScene(), nullptr);
    EXPECT_FALSE(CurrentApplication()->RunningStatus);
  } else {
    ExpectThatTheNextGroupRuns(end);
  }
}

INSTANTIATE_TEST_SUITE_P(End, EndedInSpawn,
                         testing::Combine(testing::ValuesIn(kEnds), testing::ValuesIn(kHolders)),
                         [](const testing::TestParamInfo<std::tuple<End, HeldBy>>& tested) {
                           return EndingName(std::get<0>(tested.param), std::get<1>(tested.param));
                         });

std::string CaseName(const testing::TestParamInfo<Case>& info) {
  const auto& [index, end, holder] = info.param;
  return std::string(kOccasions[index].name) + "_" + EndingName(end, holder);
}
INSTANTIATE_TEST_SUITE_P(Event, EndedInside,
                         testing::Combine(testing::Range<std::size_t>(0, kOccasions.size()),
                                          testing::ValuesIn(kEnds), testing::ValuesIn(kHolders)),
                         CaseName);

}  // namespace
}  // namespace korvel::test
