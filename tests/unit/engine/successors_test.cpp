// A link on the IsDeleted event of a scene starts another scene or application. The timers, links,
// visibles and interaction of the ending scene are removed; those of its successor stay, even if
// both use the same names and numbers.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

using PlatformTimers = std::map<std::uint32_t, std::uint32_t>;

enum class SuccessorKind { Scene, Application };

class Successor : public EngineTest, public testing::WithParamInterface<SuccessorKind> {
 protected:
  // Starts the scene "~/menu". When it ends, a link runs `effect` and then starts its successor,
  // which has the same name.
  void StartScene(std::string_view items, std::string_view successorItems,
                  std::string_view effect = "") {
    const bool isScene = GetParam() == SuccessorKind::Scene;
    const std::string startAction = isScene ? TransitionAction("~/other") : LaunchAction("~/other");
    ServeApplication(
        LinkOn(1, Name("~/menu", 0), "IsDeleted", std::string(effect) + startAction, kShared));
    ServeScene("menu", items, ":OnStartUp (:SetTimer(0 5 100) :SetTimer(0 6 100))");
    Serve("other", GroupText(isScene ? "Scene" : "Application", "~/menu", successorItems,
                             ":OnStartUp (:SetTimer(0 5 700))"));
    ServeScene("next", "");
    StartWithScene("~/menu");
  }
  void EndScene() {
    EXPECT_EQ(GoTo("~/next"), Status::Replaced);
    const Group* group = CurrentScene();
    if (GetParam() == SuccessorKind::Application) group = CurrentApplication();
    ASSERT_EQ(NameOf(group), "~/menu");
    BeginWork();
  }
};

constexpr std::string_view kField = "{:EntryField 8 :OrigContent \"\" :OrigBoxSize 9 9}";

TEST_P(Successor, keeps_its_timers_of_the_same_numbers) {
  StartScene("", "");
  EndScene();
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 700}}));
}

TEST_P(Successor, keeps_its_links_when_it_has_the_same_name) {
  StartScene("", LinkOnKey(1, 100, Note("k", "~/menu")));
  EndScene();
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes("~/menu"), "k");
}

TEST_P(Successor, keeps_its_interaction_when_its_object_has_the_same_name) {
  StartScene(kField,
             std::string(kField) + LinkOn(1, "8", "IsRunning", ":SetInteractionStatus(8 TRUE)"));
  EndScene();
  constexpr std::int32_t kDigit0 = 5;
  EXPECT_EQ(Press(kDigit0), Status::Done);
  EXPECT_EQ(Find<EntryField>(8, "~/menu").TextData.View(), "0");
}

TEST_P(Successor, is_not_drawn_together_with_the_ending_scene) {
  StartScene(RectangleText(8) + RectangleText(9), RectangleText(8));
  std::size_t mostDrawn = 0;
  ThePresentation().onRedraw = [&mostDrawn] {
    mostDrawn = std::max(mostDrawn, CurrentApplication()->DisplayStack.Size());
    return Status::Done;
  };
  EndScene();
  EXPECT_EQ(mostDrawn, 1U);
}

TEST_P(Successor, inherits_no_visibles_or_timers_that_the_link_adds_to_the_ending_scene) {
  StartScene(RectangleText(8, kInactive), "",
             ":Run((\"~/menu\" 8)) :SetTimer((\"~/menu\" 0) 7 100) ");
  EndScene();
  EXPECT_TRUE(CurrentApplication()->DisplayStack.IsEmpty());
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 700}}));
}

INSTANTIATE_TEST_SUITE_P(OfAScene, Successor,
                         testing::Values(SuccessorKind::Scene, SuccessorKind::Application),
                         [](const testing::TestParamInfo<SuccessorKind>& tested) {
                           return tested.param == SuccessorKind::Scene ? "Scene" : "Application";
                         });

class EndOfScene : public EngineTest {};

TEST_F(EndOfScene, does_not_end_the_interaction_of_an_application_of_the_same_name) {
  ServeApplication("{:EntryField 8 :Shared TRUE :OrigContent \"\" :OrigBoxSize 9 9}" +
                   LinkOnKey(1, 100, ":SetInteractionStatus(8 TRUE)", kShared));
  Serve("menu", SceneText("~/a", ""));
  ServeScene("next", "");
  StartWithScene("~/menu");
  EXPECT_EQ(Press(100), Status::Done);
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  constexpr std::int32_t kDigit0 = 5;
  EXPECT_EQ(Press(kDigit0), Status::Done);
  EXPECT_EQ(Find<EntryField>(8).TextData.View(), "0");
}

TEST_F(EndOfScene, that_fails_keeps_its_timers_and_visibles) {
  ServeBroken("broken");
  ServeApplication(
      LinkOn(1, Name("~/menu", 0), "IsDeleted", TransitionAction("~/broken"), kShared));
  ServeScene("menu", RectangleText(8), ":OnStartUp (:SetTimer(0 5 100))");
  ServeScene("next", "");
  StartWithScene("~/menu");
  EXPECT_EQ(GoTo("~/next"), Status::Failure);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
  EXPECT_EQ(TheHost().timers, (PlatformTimers{{5, 100}}));
  EXPECT_EQ(CurrentApplication()->DisplayStack.Size(), 1U);
}

}  // namespace
}  // namespace korvel::test
