// The rule for impossible events, compared with the engine: which events objects of each class
// raise.
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

#include "mheg/check/check.h"
#include "mheg/report_words.h"
#include "objects/class_tables.h"
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

using namespace korvel;

// "IsRunning from Rectangle".
using SourcesOfEvents = std::set<std::string>;

std::string LinesOf(const SourcesOfEvents& sources) { return Joined(sources, "\n"); }

constexpr int kEventCount = 31;
constexpr int kHighestClass = 32;

std::vector<ItemType> AllClasses() {
  std::vector<ItemType> classes = {ItemType::Application, ItemType::Scene};
  const auto add = [&]<class Record>() { classes.push_back(Description<Record>::heading.type); };
  ForEachClass(ItemClasses{}, add);
  ForEachClass(ComponentClasses{}, add);
  return classes;
}

int NumberOf(ItemType type) { return static_cast<int>(type); }

// The object of that class in a scene. Its number is that of its class.
std::string ReferenceTo(ItemType type) {
  if (type == ItemType::Application) return "(\"~/a\" 0)";
  return type == ItemType::Scene ? "0" : std::to_string(NumberOf(type));
}

std::string With(std::string text, char mark, const std::string& replacement) {
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark)) {
    text.replace(at, 1, replacement);
  }
  return text;
}

// One object of each class, with its number. "@" is replaced by an attribute.
constexpr char kObjects[] = R"(
  {:Link 3 @ :EventSource 0 :EventType IsRunning :LinkEffect ()} {:ResidentPrg 4 @ :Name "DBG"}
  {:BooleanVar 5 @ :OrigValue FALSE} {:IntegerVar 6 @ :OrigValue 9} {:OStringVar 7 @ :OrigValue ""}
  {:ObjectRefVar 8 @ :OrigValue :ObjectRef 9} {:ContentRefVar 9 @ :OrigValue :ContentRef ""}
  {:TokenGroup 10 @ :TokenGroupItems ((23) (26) (27)) :MovementTable ((2 3 1))}
  {:ListGroup 11 @ :TokenGroupItems ((95) (96)) :MovementTable ((2 1)) :Positions ((0 0))}
  {:Bitmap 12 @ :OrigBoxSize 9 9} {:Rectangle 13 @ :OrigBoxSize 9 9}
  {:DynamicLineArt 14 @ :OrigBoxSize 9 9} {:Text 15 @ :OrigContent "t" :OrigBoxSize 9 9}
  {:Stream 16 @ :Multiplex ({:Audio 17 @ :ComponentTag 1}
    {:Video 18 @ :ComponentTag 2 :OrigBoxSize 9 9}
    {:RTGraphics 25 @ :ComponentTag 3 :OrigBoxSize 9 9})}
  {:Slider 19 @ :Orientation left :OrigBoxSize 9 9 :MinValue 0 :MaxValue 9 :InitialValue 0
    :InitialPortion 0 :SliderStyle normal}
  {:EntryField 20 @ :OrigBoxSize 9 9 :MaxLength 1}
  {:HyperText 21 @ :OrigContent '=1BA=02goanchor=1Ba' :OrigBoxSize 9 9}
  {:PushButton 23 @ :OrigBoxSize 9 9 :OrigLabel "p"}
  {:LineArt 24 @ :OrigContent "" :OrigBoxSize 9 9}
  {:HotSpot 26 @ :OrigBoxSize 9 9} {:SwitchButton 27 @ :OrigBoxSize 9 9 :ButtonStyle checkbox}
  {:Palette 28 @} {:RemotePrg 29 @ :Name "r"} {:InterchgPrg 30 @ :Name "i"} {:Font 31 @}
  {:CursorShape 32 @} {:BooleanVar 94 :OrigValue FALSE}
  {:Rectangle 95 :OrigBoxSize 9 9} {:Rectangle 96 :OrigBoxSize 9 9}
)";

// The actions that may cause events, on any object: those of another class are skipped. "$" is
// replaced by the object.
constexpr char kActions[] = R"(
  :Preload($) :Run($) :Activate($) :SetHighlightStatus($ TRUE) :SetHighlightStatus($ FALSE)
  :SetInteractionStatus($ TRUE) :Move($ 1) :MoveTo($ 3) :SetFirstItem($ 2) :SelectItem($ 1)
  :DeselectItem($ 1) :Toggle($) :Select($) :Deselect($) :Step($ 1) :SetSliderValue($ 2)
  :SetCounterTrigger($ 1 0) :SetCounterPosition($ 0) :SetCursorPosition($ 1 1) :Call($ 94)
  :Fork($ 94) :TestVariable($ 1 :GBoolean TRUE) :TestVariable($ 1 :GInteger 5)
  :TestVariable($ 1 :GOctetString "x") :TestVariable($ 1 :GObjectRef 5)
  :TestVariable($ 1 :GContentRef :ContentRef "x") :SetData($ "x") :SetTimer($ 1 100)
  :Stop($) :Deactivate($) :Unload($)
)";

// A scene that runs these actions on every object for the red key, has interactions of objects with
// the green and the yellow key, and leaves for the blue one.
std::string SceneText(const std::string& name, const std::string& attribute,
                      const std::string& leave) {
  std::string actions;
  for (const ItemType type : AllClasses()) actions += With(kActions, '$', ReferenceTo(type));
  const auto onKey = [](int key, const std::string& effect) {
    return "{:Link " + std::to_string(key) + " :EventSource 0 :EventType UserInput :EventData " +
           std::to_string(key) + " :LinkEffect (" + effect + ")}\n";
  };
  return "{:Scene (\"~/" + name + "\" 0) :Items (" + With(kObjects, '@', attribute) +
         onKey(100, actions) +
         onKey(101, ":SetData(21 '=1BA=02goanchor=1Ba') :Run(20) :SetInteractionStatus(20 TRUE)") +
         onKey(102, ":Run(21) :SetInteractionStatus(21 TRUE)") + onKey(103, leave) +
         ") :InputEventReg 4 :SceneCS 720 576}";
}

class ImpossibleEvents : public Tool {
 protected:
  [[nodiscard]] SourcesOfEvents RaisedByEngine() const {
    Write("a.mheg",
          "{:Application (\"~/a\" 0) :Items ({:Link 1 :EventSource 0 :EventType IsRunning "
          ":LinkEffect (:TransitionTo((\"~/s\" 0)))})}");
    Write("s.mheg", SceneText("s", "", ":TransitionTo((\"~/t\" 0))"));
    Write("t.mheg", SceneText("t", ":InitiallyActive FALSE", ":Launch((\"~/b\" 0))"));
    Write("b.mheg", "{:Application (\"~/b\" 0)}");
    const std::string keys = "red wait:1s green 5 cancel yellow ok cancel blue";
    const ToolOutcome run = Call("run . --trace=json --keys '" + keys + " " + keys + "'");
    EXPECT_EQ(run.status, 0) << run.output;

    const std::regex event("\"what\":\"event\",\"type\":\"(\\w+)\"");
    const std::regex source("\"group\":\"([^\"]*)\",\"number\":(\\d+)");
    SourcesOfEvents raised;
    std::istringstream trace(run.output);
    std::smatch found;
    for (std::string line; std::getline(trace, line);) {
      if (!std::regex_search(line, found, event)) continue;
      const std::string from = found.str(1) + " from ";
      if (!std::regex_search(line, found, source)) {  // links of any source wait for it
        for (const ItemType type : AllClasses()) raised.insert(from + ClassName(type));
        continue;
      }
      const int number = std::stoi(found.str(2));
      const bool isOfScene = found.str(1) == "~/s" || found.str(1) == "~/t";
      const ItemType group = isOfScene ? ItemType::Scene : ItemType::Application;
      if (number == 0) raised.insert(from + ClassName(group));
      if (isOfScene && number > 0 && number <= kHighestClass) {
        raised.insert(from + ClassName(static_cast<ItemType>(number)));
      }
    }
    return raised;
  }

  // Checks a scene for each event, with a link for each class.
  [[nodiscard]] SourcesOfEvents PossibleForCheck() const {
    constexpr int kFirstLink = 1000;
    SourcesOfEvents possible;
    Write("a.mheg", "{:Application (\"~/a\" 0)}");
    for (int event = 1; event <= kEventCount; ++event) {
      const std::string name = EventName(static_cast<EventType>(event));
      std::string links;
      for (const ItemType type : AllClasses()) {
        links += "{:Link " + std::to_string(kFirstLink + NumberOf(type)) + " :EventSource " +
                 ReferenceTo(type) + " :EventType " + name + " :LinkEffect ()}\n";
        possible.insert(name + " from " + ClassName(type));
      }
      Write(name + ".mheg", "{:Scene 0 :Items (" + With(kObjects, '@', "") + links + ")}");
    }
    for (const Finding& finding : Check({folder_}, 2)) {
      EXPECT_NE(finding.rule, Rule::InvalidGroup) << finding.message.text;
      if (finding.rule != Rule::ImpossibleEvent) continue;
      const auto type = static_cast<ItemType>(finding.object.value_or(0) - kFirstLink);
      const std::string event = fs::path(finding.message.file).stem();
      EXPECT_EQ(possible.erase(event + " from " + ClassName(type)), 1U) << finding.message.text;
    }
    return possible;
  }

  // The reports about impossible events.
  [[nodiscard]] std::string Reported() const {
    std::string texts;
    for (const Finding& finding : Check({folder_}, 1)) {
      if (finding.rule == Rule::ImpossibleEvent) texts += finding.message.text + "\n";
    }
    return texts;
  }
};

TEST_F(ImpossibleEvents, are_exactly_those_that_objects_of_a_class_never_raise) {
  const SourcesOfEvents raised = RaisedByEngine();
  EXPECT_EQ(LinesOf(PossibleForCheck()), LinesOf(raised));
}

TEST_F(ImpossibleEvents, include_those_that_no_object_raises) {
  Write("s.mheg", "{:Scene 0 :Items ("
                  "{:Link 1 :EventSource 9 :EventType IsSelected :LinkEffect ()}"
                  "{:Link 2 :EventSource 9 :EventType IsRunning :LinkEffect ()})}");
  EXPECT_EQ(Reported(), "never fires: nothing raises IsSelected\n");
}

// A link of the engine event for any source, and of one with that number for a scene and an
// application.
TEST_F(ImpossibleEvents, include_errors_of_references_from_scenes_but_not_keys) {
  const auto link = [](int number, const char* source, const char* data) {
    return "{:Link " + std::to_string(number) + " :EventSource " + source +
           " :EventType EngineEvent " + data + " :LinkEffect ()}";
  };
  const char* const application = "(\"~/a\" 0)";
  Write("a.mheg", "{:Application (\"~/a\" 0) :Items (" + link(1, "0", ":EventData 3") + ")}");
  Write("s.mheg", "{:Scene (\"~/s\" 0) :Items (" + link(1, "0", "") +
                      link(2, application, ":EventData 2") + link(3, "0", ":EventData 2") +
                      link(4, application, ":EventData 3") + link(5, "0", ":EventData 3") +
                      link(6, "0", ":EventData 4") + link(7, "0", ":EventData 16") +
                      link(8, "0", ":EventData 103") + ")}");
  EXPECT_EQ(Reported(), "never fires: Scene raises no EngineEvent 2\n"
                        "never fires: Scene raises no EngineEvent 3\n");
}

TEST_F(ImpossibleEvents, do_not_include_those_that_actions_send) {
  const std::string items = "{:Rectangle 1 :OrigBoxSize 9 9} {:IntegerVar 2 :OrigValue 21}"
                            "{:Link 3 :EventSource 1 :EventType IsSelected :LinkEffect ()}";
  const auto writeScene = [&](const std::string& actions) {
    Write("s.mheg", "{:Scene (\"~/s\" 0) :OnStartUp (" + actions + ") :Items (" + items + ")}");
  };
  const auto writeApplication = [&](const std::string& actions) {
    Write("a.mheg",
          "{:Application (\"~/a\" 0) :OnStartUp (" + actions + ") :Items (" + items + ")}");
  };
  const std::string impossible = "never fires: nothing raises IsSelected\n";
  writeApplication("");
  writeScene("");
  EXPECT_EQ(Reported(), impossible + impossible);
  // A scene sends events of itself and of the application.
  for (const char* event : {"IsSelected", ":IndirectRef 2"}) {
    for (const char* source : {"1", "(\"~/a\" 1)", ":IndirectRef 2"}) {
      writeScene(":SendEvent(0 " + std::string(source) + " " + event + ")");
      EXPECT_EQ(Reported(), "") << source << " " << event;
    }
  }
  // An application sends events to any scene; another scene does not send any to this one.
  writeScene("");
  writeApplication(":SendEvent((\"~/s\" 0) (\"~/s\" 1) IsSelected)");
  EXPECT_EQ(Reported(), "");
  writeApplication("");
  Write("t.mheg", "{:Scene (\"~/t\" 0) :OnStartUp (:SendEvent(0 (\"~/a\" 1) IsSelected))}");
  EXPECT_EQ(Reported(), impossible);
}

}  // namespace
}  // namespace mheg
