// For every event that an action raises: a link on the event starts another scene, launches or
// spawns another application, or quits. The action must not access the ended group afterwards, and
// the new group must run as after a normal start.
#include <ostream>

#include "stage.h"

namespace korvel::test {
namespace {

struct RaisedEvent {
  const char* event;
  int source;
  const char* actions;  // raise the event
};

std::ostream& operator<<(std::ostream& out, const RaisedEvent& raised) {
  return out << raised.event << " after " << raised.actions;
}

constexpr RaisedEvent kEvents[] = {
    {"IsAvailable", 20, ":Preload(20)"},
    {"ContentAvailable", 20, ":Preload(20)"},
    {"IsRunning", 20, ":Run(20)"},
    {"IsRunning", 31, ":Run(30)"},
    {"IsRunning", 30, ":Run(30)"},
    {"IsRunning", 20, ":Run(40)"},
    {"IsStopped", 1, ":Stop(1)"},
    {"IsStopped", 1, ":Stop(10)"},
    {"IsStopped", 10, ":Stop(10)"},
    {"AnchorFired", 6, ":SetInteractionStatus(6 TRUE)"},
    {"AsynchStopped", 8, ":Fork(8 9)"},
    {"InteractionCompleted", 5, ":Step(5 1)"},
    {"InteractionCompleted", 5, ":SetSliderValue(5 1)"},
    {"InteractionCompleted", 5, ":SetPortion(5 1)"},
    {"InteractionCompleted", 4, ":SetInteractionStatus(4 TRUE) :Stop(4)"},
    {"InteractionCompleted", 4, ":SetInteractionStatus(4 TRUE)"},
    {"TokenMovedFrom", 10, ":MoveTo(10 2)"},
    {"TokenMovedFrom", 10, ":Move(10 1)"},
    {"TokenMovedFrom", 10, ":Stop(10)"},
    {"TokenMovedFrom", 11, ":Stop(11)"},
    {"TokenMovedTo", 10, ":MoveTo(10 2)"},
    {"TokenMovedTo", 40, ":Run(40)"},
    {"TokenMovedTo", 41, ":Run(41)"},
    {"HighlightOn", 4, ":SetHighlightStatus(4 TRUE)"},
    {"HighlightOff", 4, ":SetHighlightStatus(4 TRUE) :SetHighlightStatus(4 FALSE)"},
    {"TestEvent", 7, ":TestVariable(7 1 :GInteger 1)"},
    {"FirstItemPresented", 11, ":SetFirstItem(11 2)"},
    {"LastItemPresented", 11, ":ScrollItems(11 1) :AddItem(11 3 22)"},
    {"LastItemPresented", 11, ":SetFirstItem(11 2)"},
    {"LastItemPresented", 11, ":DelItem(11 3)"},
    {"HeadItems", 11, ":SetFirstItem(11 2)"},
    {"TailItems", 11, ":SetFirstItem(11 2)"},
    {"ItemSelected", 11, ":SelectItem(11 1)"},
    {"ItemDeselected", 11, ":SelectItem(11 1) :SelectItem(11 2)"},
    {"ItemDeselected", 11, ":SelectItem(11 1) :DeselectItem(11 1)"},
    {"EntryFieldFull", 3, ":Run(3) :SetInteractionStatus(3 TRUE)"},
    {"EngineEvent", 0, ":Run(21)"},
    {"EngineEvent", 0, ":SetData(2 :NewRefContent (:ContentRef \"~/none\"))"},
    {"EngineEvent", 0, ":Run(42)"},
    {"UserInput", 0, ":SendEvent((\"~/s\" 0) 0 UserInput :GInteger 1)"},
};

constexpr char kItems[] =
    "{:Rectangle 1 :OrigBoxSize 9 9} {:Text 2 :OrigContent \"t\" :OrigBoxSize 9 9}"
    "{:EntryField 3 :OrigContent \"\" :OrigBoxSize 9 9 :MaxLength 1}"
    "{:EntryField 4 :OrigContent \"\" :OrigBoxSize 9 9}"
    "{:Slider 5 :Orientation left :OrigBoxSize 9 9 :MinValue 0 :MaxValue 9 :InitialValue 0"
    " :InitialPortion 0 :SliderStyle proportional}"
    "{:HyperText 6 :OrigContent '=1BA=03oneone=1Ba' :OrigBoxSize 9 9}"
    "{:IntegerVar 7 :OrigValue 0} {:ResidentPrg 8 :Name \"DBG\"} {:BooleanVar 9 :OrigValue FALSE}"
    "{:TokenGroup 10 :TokenGroupItems ((1) (2)) :MovementTable ((2 1))}"
    "{:ListGroup 11 :TokenGroupItems ((2) (3)) :Positions ((0 0))}"
    "{:Text 20 :InitiallyActive FALSE :OrigContent \"t\" :OrigBoxSize 9 9}"
    "{:Text 21 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/none\") :OrigBoxSize 9 9}"
    "{:Rectangle 22 :OrigBoxSize 9 9}"
    "{:Stream 30 :InitiallyActive FALSE :Multiplex ({:Audio 31 :ComponentTag 1}"
    "{:Audio 32 :ComponentTag 2})}"
    "{:TokenGroup 40 :InitiallyActive FALSE :TokenGroupItems ((20) (22))}"
    "{:ListGroup 41 :InitiallyActive FALSE :TokenGroupItems ((22)) :Positions ((0 0))}"
    "{:ListGroup 42 :InitiallyActive FALSE :TokenGroupItems ((21) (22)) :Positions ((0 0)(1 1))}";

// How the link ends the running groups, and which groups must run afterwards; null means none.
struct Ending {
  const char* name;
  const char* effect;
  const char* application;
  const char* scene;
};

std::ostream& operator<<(std::ostream& out, const Ending& ending) { return out << ending.name; }

constexpr Ending kEndings[] = {
    {"transition", R"(:TransitionTo(("~/t" 0)))", "~/a", "~/t"},
    {"launch", R"(:Launch(("~/b" 0)))", "~/b", nullptr},
    {"spawn", R"(:Spawn(("~/b" 0)))", "~/b", nullptr},
    {"quit", ":Quit(0)", nullptr, nullptr},
};

enum class Home { Application, Scene };

class ReplacedGroupsTest
    : public Stage,
      public testing::WithParamInterface<std::tuple<RaisedEvent, Ending, Home>> {
 protected:
  // Presses the keys that an interaction in progress waits for.
  static void PressKeys() {
    for (const std::int32_t key : {5, 5, 15, 15}) {
      BeginWork();
      static_cast<void>(RaiseOutsideEvent(0, EventType::UserInput, key));
    }
  }
};

TEST_P(ReplacedGroupsTest, the_new_group_runs_as_after_a_normal_start) {
  const auto& [raised, ending, home] = GetParam();
  const std::string started =
      "{:IntegerVar 70 :OrigValue 0} {:Link 71 :EventSource 0 :EventType"
      " IsRunning :LinkEffect (:Add(70 1))} {:Rectangle 72 :OrigBoxSize 9 9}";
  AddFile("b", "{:Application (\"~/b\" 0) :Items (" + started + ")}");
  AddScene("t", started);
  std::string source = std::to_string(raised.source);
  if (raised.event == std::string("EngineEvent")) source = "(\"~/a\" 0)";
  const std::string link = "{:Link 50 :InitiallyActive FALSE :EventSource " + source +
                           " :EventType " + raised.event + " :LinkEffect (" + ending.effect + ")}";
  const bool isInScene = home == Home::Scene;
  StartWithScene(isInScene ? "" : kItems + link, isInScene ? kItems + link : "");
  if (HasFatalFailure()) return;
  if (!isInScene) {
    // The application's unshared objects were stopped by the transition to its scene.
    EXPECT_EQ(Run(":Run(1) :Run(2) :Run(3) :Run(4) :Run(5) :Run(6)"), Status::Done);
    for (const int number : {10, 11}) Object<Ingredient>(number).RunningStatus = true;
  }
  const Scope scope = isInScene ? Scope::SceneFirst : Scope::ApplicationFirst;
  EXPECT_EQ(Run(":Activate(50)", scope), Status::Done);
  static_cast<void>(Run(raised.actions, scope));
  if (std::string(raised.actions).find("Interaction") != std::string::npos) PressKeys();

  const auto nameOf = [](const Group* group) {
    return group == nullptr ? "none" : std::string(group->Reference.GroupIdentifier.View());
  };
  EXPECT_EQ(nameOf(CurrentApplication()),
            ending.application == nullptr ? "none" : ending.application);
  EXPECT_EQ(nameOf(CurrentScene()), ending.scene == nullptr ? "none" : ending.scene);
  if (ending.application == nullptr) return;
  const FoundObject counter = FindObject(
      Scope::SceneFirst, ending.scene == nullptr ? ending.application : ending.scene, 70);
  ASSERT_EQ(counter.type, ItemType::IntegerVariable);
  EXPECT_EQ(counter.As<IntegerVariable>().Value, 1);
  for (const StackedVisible& entry : CurrentApplication()->DisplayStack) {
    EXPECT_FALSE(IsGone(*entry.visible)) << entry.visible->Reference.Number;
  }
}

INSTANTIATE_TEST_SUITE_P(EveryEvent, ReplacedGroupsTest,
                         testing::Combine(testing::ValuesIn(kEvents), testing::ValuesIn(kEndings),
                                          testing::Values(Home::Application, Home::Scene)));

}  // namespace
}  // namespace korvel::test
