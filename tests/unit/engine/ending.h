// Fixture for tests of groups that end while their actions run: the ways to end them, the content
// that runs next, and the check that no further action of the ended group has run.
#pragma once

#include <algorithm>
#include <array>

#include "support/engine_fixture.h"

namespace korvel::test {

// How a link ends the running group, and the group that holds this link.
enum class End { TransitionTo, Launch, Spawn, QuitToParent, QuitToRestart };
enum class HeldBy { Scene, Application };

inline constexpr std::array kEnds = {End::TransitionTo, End::Launch, End::Spawn, End::QuitToParent,
                                     End::QuitToRestart};
inline constexpr std::array kHolders = {HeldBy::Scene, HeldBy::Application};

inline std::string EndingName(End end, HeldBy holder) {
  constexpr std::array names = {"TransitionTo", "Launch", "Spawn", "QuitToParent", "QuitToRestart"};
  return std::string(names[static_cast<std::size_t>(end)]) +
         (holder == HeldBy::Scene ? "_by_the_scene" : "_by_the_application");
}

// An action that must not run, placed after one that ends the group. It would fetch "never".
inline std::string Never() { return SpawnAction("~/never"); }

class EndingTest : public EngineTest {
 protected:
  // The action for `end`. TransitionTo ends only the scene, the others the application as well.
  static std::string EndAction(End end) {
    switch (end) {
    case End::TransitionTo: return TransitionAction("~/other");
    case End::Launch: return LaunchAction("~/b");
    case End::Spawn: return SpawnAction("~/b");
    case End::QuitToParent:
    case End::QuitToRestart: return QuitAction();
    }
    return "";
  }

  // Two links on the event. The first one ends the group, so neither its next action nor the second
  // link may run.
  static std::string EndingLinks(std::string_view source, std::string_view event, End end) {
    return LinkOn(21, source, event, EndAction(end) + Never(), kShared) +
           LinkOn(22, source, event, Never(), kShared);
  }

  // Serves the groups that run after the ended one.
  void ServeOthers() {
    ServeApplication("");
    Serve("b", ApplicationText("~/b", LinkOnKey(1, 16, Note("k", "~/b")),
                               ":OnStartUp (" + Note("s", "~/b") + ")"));
    ServeScene("other",
               "{:OStringVar 98 :OrigValue \"\"}" +
                   LinkOnKey(1, 16, ":Append((\"~/other\" 98) \"k\")"),
               ":OnStartUp (:Append((\"~/other\" 98) \"s\"))");
  }
  // Starts "~/a" and then launches "~/main", or spawns it if `end` needs a parent to quit to.
  void StartMain(End end) {
    ASSERT_EQ(Start(), Status::Done);
    ASSERT_EQ(EnterMain(end), Status::Done);
  }
  Status EnterMain(End end) {
    return Do([&] { return end == End::QuitToParent ? Spawn("~/main") : Launch("~/main"); });
  }

  // Makes each later redraw raise the engine event that reports a content reference error.
  static void RaiseInEachRedraw() {
    ThePresentation().onRedraw = [] {
      static bool isRaising = false;
      if (isRaising || CurrentApplication() == nullptr) return Status::Done;
      isRaising = true;
      const Status result =
          RaiseEvent(*CurrentApplication(), EventType::EngineEvent, EventData::Integer(3));
      isRaising = false;
      return result == Status::Failure ? Status::Failure : Status::Done;
    };
  }

  void ExpectThatTheNextGroupRuns(End end) {
    ThePresentation().onRedraw = nullptr;
    EXPECT_EQ(std::count(TheHost().fetched.begin(), TheHost().fetched.end(), "never"), 0)
        << "an action of an ended group has run";
    switch (end) {
    case End::TransitionTo:
      ASSERT_EQ(NameOf(CurrentScene()), "~/other");
      EXPECT_EQ(Press(16), Status::Done);
      EXPECT_EQ(Find<OctetStringVariable>(98, "~/other").Value.View(), "sk");
      break;
    case End::Launch:
    case End::Spawn:
      ASSERT_EQ(NameOf(CurrentApplication()), "~/b");
      EXPECT_EQ(CurrentScene(), nullptr);
      EXPECT_EQ(Press(16), Status::Done);
      EXPECT_EQ(Notes("~/b"), "sk");
      break;
    case End::QuitToParent:
      ASSERT_EQ(NameOf(CurrentApplication()), "~/a");
      EXPECT_EQ(CurrentScene(), nullptr);
      EXPECT_EQ(Press(16), Status::Done);
      break;
    case End::QuitToRestart:
      EXPECT_EQ(CurrentApplication(), nullptr);
      EXPECT_EQ(CurrentScene(), nullptr);
      ASSERT_EQ(TheHost().restarts.size(), 1U);
      TheHost().mayRun = true;
      EXPECT_EQ(Start(), Status::Done);
      EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
      break;
    }
  }
};

}  // namespace korvel::test
