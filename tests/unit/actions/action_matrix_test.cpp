// Checks which classes each action accepts. action_matrix.txt is the reviewed reference: the action
// table must match it, and every action must take effect on every object of an accepted class and
// on no other.
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "actions/actions.h"
#include "group_values.h"
#include "stage.h"

namespace korvel::test {
namespace {

constexpr char kReviewedCopy[] = KORVEL_TESTS_FOLDER "/unit/actions/action_matrix.txt";

// The classes in the order of their numbers; there is no class 22.
const std::vector<std::pair<unsigned, const char*>> kClasses = {
    {1, "Application"},
    {2, "Scene"},
    {3, "Link"},
    {4, "ResidentProgram"},
    {5, "BooleanVariable"},
    {6, "IntegerVariable"},
    {7, "OctetStringVariable"},
    {8, "ObjectRefVariable"},
    {9, "ContentRefVariable"},
    {10, "TokenGroup"},
    {11, "ListGroup"},
    {12, "Bitmap"},
    {13, "Rectangle"},
    {14, "DynamicLineArt"},
    {15, "Text"},
    {16, "Stream"},
    {17, "Audio"},
    {18, "Video"},
    {19, "Slider"},
    {20, "EntryField"},
    {21, "HyperText"},
    {23, "PushButton"},
    {24, "LineArt"},
    {25, "RTGraphics"},
    {26, "HotSpot"},
    {27, "SwitchButton"},
    {28, "Palette"},
    {29, "RemoteProgram"},
    {30, "InterchangedProgram"},
    {31, "Font"},
    {32, "CursorShape"},
};

std::string ReviewedCopy() {
  std::ifstream file(kReviewedCopy);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// The names of the classes that the reviewed copy lists for each action.
std::map<std::string, std::set<std::string>> ReviewedMatrix() {
  std::map<std::string, std::set<std::string>> matrix;
  std::istringstream lines(ReviewedCopy());
  for (std::string line; std::getline(lines, line);) {
    const std::size_t colon = line.find(':');
    std::istringstream classes(line.substr(colon + 1));
    std::set<std::string>& accepted = matrix[line.substr(0, colon)];
    for (std::string name; classes >> name;) accepted.insert(name);
  }
  return matrix;
}

TEST(ActionMatrix, the_table_of_actions_agrees_with_the_reviewed_copy) {
  std::string printed;
  for (unsigned number = 1; number <= kActionCount; ++number) {
    const ActionRow& row = *FindAction(static_cast<std::uint8_t>(number));
    std::string classes;
    for (const auto& [code, name] : kClasses) {
      if (Contains(row.accepts, static_cast<ItemType>(code))) classes += " " + std::string(name);
    }
    printed += row.name + std::string(":") + (classes.empty() ? " -" : classes) + "\n";
  }
  EXPECT_EQ(printed, ReviewedCopy());
}

// One call of an action: `setup` runs first, then `text`. "$" is replaced by the target, an object
// whose number is that of its class.
struct Trial {
  Action action;
  std::string text;
  std::string setup;
};

const std::vector<Trial> kTrials = {
    {Action::Activate, ":Activate($)", ":Deactivate($)"},
    {Action::Add, ":Add($ 1)", ""},
    {Action::AddItem, ":AddItem($ 1 97)", ""},
    {Action::Append, ":Append($ \"x\")", ""},
    {Action::BringToFront, ":BringToFront($)", ":SendToBack($)"},
    {Action::Call, ":Call($ 203)", ""},
    {Action::CallActionSlot, ":CallActionSlot($ 1)", ""},
    {Action::Clear, ":Clear($)", ""},
    {Action::Clone, ":Clone($ 205)", ""},
    {Action::CloseConnection, ":CloseConnection($ 1)", ""},
    {Action::Deactivate, ":Deactivate($)", ":Activate($)"},
    {Action::DelItem, ":DelItem($ 96)", ""},
    {Action::Deselect, ":Deselect($)", ":Select($)"},
    {Action::DeselectItem, ":DeselectItem($ 1)", ":SelectItem($ 1)"},
    {Action::Divide, ":Divide($ 2)", ""},
    {Action::DrawArc, ":DrawArc($ 1 2 3 4 5 6)", ""},
    {Action::DrawLine, ":DrawLine($ 1 2 3 4)", ""},
    {Action::DrawOval, ":DrawOval($ 1 2 3 4)", ""},
    {Action::DrawPolygon, ":DrawPolygon($ ((1 2) (3 4)))", ""},
    {Action::DrawPolyline, ":DrawPolyline($ ((1 2) (3 4)))", ""},
    {Action::DrawRectangle, ":DrawRectangle($ 1 2 3 4)", ""},
    {Action::DrawSector, ":DrawSector($ 1 2 3 4 5 6)", ""},
    {Action::Fork, ":Fork($ 203)", ""},
    {Action::GetAvailabilityStatus, ":GetAvailabilityStatus($ 203)", ""},
    {Action::GetBoxSize, ":GetBoxSize($ 201 202)", ""},
    {Action::GetCellItem, ":GetCellItem($ 1 205)", ""},
    {Action::GetCursorPosition, ":GetCursorPosition($ 201 202)", ""},
    {Action::GetEngineSupport, ":GetEngineSupport($ \"ASt\" 203)", ""},
    {Action::GetEntryPoint, ":GetEntryPoint($ 201)", ""},
    {Action::GetFillColour, ":GetFillColour($ 201)", ""},
    {Action::GetFirstItem, ":GetFirstItem($ 201)", ""},
    {Action::GetHighlightStatus, ":GetHighlightStatus($ 206)", ""},
    {Action::GetInteractionStatus, ":GetInteractionStatus($ 206)", ""},
    {Action::GetItemStatus, ":GetItemStatus($ 1 206)", ""},
    {Action::GetLabel, ":GetLabel($ 204)", ""},
    {Action::GetLastAnchorFired, ":GetLastAnchorFired($ 204)", ""},
    {Action::GetLineColour, ":GetLineColour($ 201)", ""},
    {Action::GetLineStyle, ":GetLineStyle($ 201)", ""},
    {Action::GetLineWidth, ":GetLineWidth($ 201)", ""},
    {Action::GetListItem, ":GetListItem($ 1 205)", ""},
    {Action::GetListSize, ":GetListSize($ 201)", ""},
    {Action::GetOverwriteMode, ":GetOverwriteMode($ 206)", ""},
    {Action::GetPortion, ":GetPortion($ 201)", ""},
    {Action::GetPosition, ":GetPosition($ 201 202)", ""},
    {Action::GetRunningStatus, ":GetRunningStatus($ 203) :GetRunningStatus($ 206)", ""},
    {Action::GetSelectionStatus, ":GetSelectionStatus($ 206)", ""},
    {Action::GetSliderValue, ":GetSliderValue($ 201)", ""},
    {Action::GetTextContent, ":GetTextContent($ 204)", ""},
    {Action::GetTextData, ":GetTextData($ 204)", ""},
    {Action::GetTokenPosition, ":GetTokenPosition($ 201)", ""},
    {Action::GetVolume, ":GetVolume($ 201)", ""},
    {Action::LockScreen, ":LockScreen($)", ""},
    {Action::Modulo, ":Modulo($ 2)", ""},
    {Action::Move, ":Move($ 1)", ""},
    {Action::MoveTo, ":MoveTo($ 2)", ""},
    {Action::Multiply, ":Multiply($ 2)", ""},
    {Action::OpenConnection, ":OpenConnection($ 203 \"p\" \"a\" 1)", ""},
    {Action::Preload, ":Preload($)", ""},
    {Action::PutBefore, ":PutBefore($ 99)", ":SendToBack($)"},
    {Action::PutBehind, ":PutBehind($ 98)", ":BringToFront($)"},
    {Action::ReadPersistent, ":ReadPersistent($ 203 (201) \"n\")", ""},
    {Action::Run, ":Run($)", ":Stop($)"},
    {Action::ScaleBitmap, ":ScaleBitmap($ 5 6)", ""},
    {Action::ScaleVideo, ":ScaleVideo($ 5 6)", ""},
    {Action::ScrollItems, ":ScrollItems($ 1)", ""},
    {Action::Select, ":Select($)", ""},
    {Action::SelectItem, ":SelectItem($ 1)", ""},
    {Action::SendEvent, ":SendEvent($ (\"~/a\" 6) TestEvent :GBoolean TRUE)", ""},
    {Action::SendToBack, ":SendToBack($)", ":BringToFront($)"},
    {Action::SetBoxSize, ":SetBoxSize($ 5 6)", ""},
    {Action::SetCachePriority, ":SetCachePriority($ 5)", ""},
    {Action::SetCounterTrigger, ":SetCounterTrigger($ 5 6)", ""},
    {Action::SetCursorPosition, ":SetCursorPosition($ 5 6)", ""},
    {Action::SetCursorShape, ":SetCursorShape($ 32)", ""},
    {Action::SetData, ":SetData($ \"new\")", ""},
    {Action::SetEntryPoint, ":SetEntryPoint($ 5)", ""},
    {Action::SetFillColour, ":SetFillColour($ :NewColourIndex 5)", ""},
    {Action::SetFirstItem, ":SetFirstItem($ 2)", ""},
    {Action::SetFontRef, ":SetFontRef($ \"f\")", ""},
    {Action::SetHighlightStatus, ":SetHighlightStatus($ TRUE)", ""},
    {Action::SetInteractionStatus, ":SetInteractionStatus($ TRUE)", ""},
    {Action::SetLabel, ":SetLabel($ \"l\")", ""},
    {Action::SetLineColour, ":SetLineColour($ :NewColourIndex 5)", ""},
    {Action::SetLineStyle, ":SetLineStyle($ 3)", ""},
    {Action::SetLineWidth, ":SetLineWidth($ 5)", ""},
    {Action::SetOverwriteMode, ":SetOverwriteMode($ TRUE)", ""},
    {Action::SetPaletteRef, ":SetPaletteRef($ 28)", ""},
    {Action::SetPortion, ":SetPortion($ 2)", ""},
    {Action::SetPosition, ":SetPosition($ 5 6)", ""},
    {Action::SetSliderValue, ":SetSliderValue($ 3)", ""},
    {Action::SetTimer, ":SetTimer($ 5 1000)", ""},
    {Action::SetTransparency, ":SetTransparency($ 50)", ""},
    {Action::SetVariable,
     ":SetVariable($ :GBoolean TRUE) :SetVariable($ :GInteger 5) :SetVariable($ :GOctetString "
     "\"x\")"
     ":SetVariable($ :GObjectRef 5) :SetVariable($ :GContentRef :ContentRef \"x\")",
     ""},
    {Action::SetVolume, ":SetVolume($ 5)", ""},
    {Action::Step, ":Step($ 1)", ""},
    {Action::Stop, ":Stop($)", ""},
    {Action::StorePersistent, ":StorePersistent($ 203 (201) \"n\")", ""},
    {Action::Subtract, ":Subtract($ 1)", ""},
    {Action::TestVariable,
     ":TestVariable($ 1 :GBoolean TRUE) :TestVariable($ 1 :GInteger 5)"
     ":TestVariable($ 1 :GOctetString \"x\") :TestVariable($ 1 :GObjectRef 5)"
     ":TestVariable($ 1 :GContentRef :ContentRef \"x\")",
     ""},
    {Action::Toggle, ":Toggle($)", ""},
    {Action::ToggleItem, ":ToggleItem($ 1)", ""},
    {Action::Unload, ":Unload($)", ""},
    {Action::UnlockScreen, ":UnlockScreen($)", ":LockScreen($)"},
};

// Streams accept these actions, evaluate their parameters and ignore them.
const std::vector<Trial> kIgnoredTrials = {
    {Action::SetCounterEndPosition, ":SetCounterEndPosition($ 5)", ""},
    {Action::SetCounterPosition, ":SetCounterPosition($ 5)", ""},
    {Action::SetSpeed, ":SetSpeed($ 5 6)", ""},
};

// These replace the running groups. run_actions_test.cpp tests them.
const std::set<Action> kReplacements = {Action::Launch, Action::Quit, Action::Spawn,
                                        Action::TransitionTo};

// Actions from this number on have no keyword. One test covers them all.
constexpr unsigned kFirstExtension = 111;

TEST(ActionMatrix, every_action_has_a_trial) {
  std::set<Action> tried = kReplacements;
  for (const Trial& trial : kTrials) tried.insert(trial.action);
  for (const Trial& trial : kIgnoredTrials) tried.insert(trial.action);
  for (unsigned number = 1; number < kFirstExtension; ++number) {
    EXPECT_EQ(tried.count(static_cast<Action>(number)), 1U)
        << FindAction(static_cast<std::uint8_t>(number))->name;
  }
}

constexpr char kObjects[] = R"(
  {:Link 3 :EventSource 0 :EventType IsRunning :LinkEffect ()}
  {:ResidentPrg 4 :Name "DBG"}
  {:BooleanVar 5 :OrigValue FALSE} {:IntegerVar 6 :OrigValue 9} {:OStringVar 7 :OrigValue "o"}
  {:ObjectRefVar 8 :OrigValue :ObjectRef ("~/none" 77)}
  {:ContentRefVar 9 :OrigValue :ContentRef ""}
  {:Rectangle 98 :OrigBoxSize 9 9}
  {:TokenGroup 10 :TokenGroupItems ((94 :ActionSlots ((:Add(201 1)))) (93)) :MovementTable ((2 1))}
  {:ListGroup 11 :TokenGroupItems ((96 :ActionSlots ((:Add(201 1)))) (95)) :MovementTable ((2 1))
    :Positions ((0 0))}
  {:Bitmap 12 :OrigContent :ContentRef ("~/p") :OrigBoxSize 9 9} {:Rectangle 13 :OrigBoxSize 9 9}
  {:DynamicLineArt 14 :OrigBoxSize 9 9} {:Text 15 :OrigContent "t" :OrigBoxSize 9 9}
  {:Stream 16 :Multiplex ({:Audio 17 :ComponentTag 1} {:Video 18 :ComponentTag 2 :OrigBoxSize 9 9}
    {:RTGraphics 25 :ComponentTag 3 :OrigBoxSize 9 9})}
  {:Slider 19 :Orientation left :OrigBoxSize 9 9 :MinValue 0 :MaxValue 9 :InitialValue 0
    :InitialPortion 0 :SliderStyle proportional}
  {:EntryField 20 :OrigContent "e" :OrigBoxSize 9 9}
  {:HyperText 21 :OrigContent "h" :OrigBoxSize 9 9}
  {:PushButton 23 :OrigBoxSize 9 9 :OrigLabel "p"} {:LineArt 24 :OrigContent "l" :OrigBoxSize 9 9}
  {:HotSpot 26 :OrigBoxSize 9 9} {:SwitchButton 27 :OrigBoxSize 9 9 :ButtonStyle checkbox}
  {:Palette 28} {:RemotePrg 29 :Name "r"} {:InterchgPrg 30 :Name "i"} {:Font 31} {:CursorShape 32}
  {:Rectangle 93 :OrigBoxSize 9 9} {:Rectangle 94 :OrigBoxSize 9 9} {:Rectangle 95 :OrigBoxSize 9 9}
  {:Rectangle 96 :OrigBoxSize 9 9} {:Rectangle 97 :OrigBoxSize 9 9}
  {:IntegerVar 201 :OrigValue -77} {:IntegerVar 202 :OrigValue -77}
  {:BooleanVar 203 :OrigValue FALSE}
  {:OStringVar 204 :OrigValue "answer"} {:ObjectRefVar 205 :OrigValue :ObjectRef ("~/none" 77)}
  {:BooleanVar 206 :OrigValue TRUE} {:Rectangle 99 :OrigBoxSize 9 9}
)";

class ActionMatrixTest : public Stage {
 protected:
  void StartObjects() {
    CloseDown();
    ResetEngine();
    TheHost() = {};
    ThePresentation() = {};
    BeginWork();
    std::string links;
    for (int number = 5; number <= 9; ++number) links += Watch(number, "TestEvent", "test");
    Start(kObjects + links);
    AddScene("s", "");
    static_cast<void>(Run(R"(:TransitionTo(("~/s" 0)))"));
    // The transition has stopped the application's unshared objects.
    for (const Item& item : CurrentApplication()->Items) {
      const bool isTokenGroup = item.Type() == ItemType::TokenGroup;
      if (item.Type() == ItemType::ListGroup || isTokenGroup || item.Type() == ItemType::Link) {
        item.Record()->RunningStatus = true;
      } else {
        static_cast<void>(RunIngredient(item.Type(), *item.Record()));
      }
    }
    ThePresentation() = {};
    TakeLog();
  }

  static std::string WithTarget(std::string text, unsigned code) {
    const std::string target = code == 1   ? R"(("~/a" 0))"
                               : code == 2 ? R"(("~/s" 0))"
                                           : std::to_string(code);
    for (std::size_t at = text.find('$'); at != std::string::npos; at = text.find('$')) {
      text.replace(at, 1, target);
    }
    return text;
  }

  // The lines that the action changes in `RunningGroupValues`. Empty if it changes nothing.
  std::string Changes(const std::string& setup, const std::string& text, bool isAvailable) {
    StartObjects();
    if (!isAvailable) {
      for (const Item& item : CurrentApplication()->Items) {
        item.Record()->AvailabilityStatus = false;
        if (item.Type() != ItemType::Stream) continue;
        for (const Item& component : item.As<Stream>().Multiplex) {
          component.Record()->AvailabilityStatus = false;
        }
      }
    }
    if (!setup.empty()) {
      EXPECT_EQ(Run(setup), Status::Done);
    }
    const std::string before = RunningGroupValues();
    EXPECT_EQ(Run(text), Status::Done);
    return Difference(before, RunningGroupValues());
  }
};

// BringToFront removes the entry from the display stack and adds it again, so the order stays.
TEST_F(ActionMatrixTest, bringing_the_front_object_to_the_front_changes_nothing) {
  EXPECT_EQ(Changes(":BringToFront(13)", ":BringToFront(13)", true), "");
}

// The actions that also act on unprepared objects.
const std::set<std::string> kActOnUnprepared = {
    "Activate",   "AddItem",           "Deactivate", "DelItem",       "Move",
    "MoveTo",     "Preload",           "Run",        "ScrollItems",   "Select",
    "SelectItem", "SetCounterTrigger", "SetData",    "SetEntryPoint", "SetFirstItem",
    "SetFontRef", "SetOverwriteMode",  "SetVolume",  "Stop",          "ToggleItem"};

TEST_F(ActionMatrixTest, only_the_listed_actions_change_unprepared_objects) {
  const auto matrix = ReviewedMatrix();
  std::set<std::string> acting;
  for (const Trial& trial : kTrials) {
    const std::string name = FindAction(static_cast<std::uint8_t>(trial.action))->name;
    for (const auto& [code, className] : kClasses) {
      if (code <= 2 || code > 27 || matrix.at(name).count(className) == 0) continue;
      const std::string changes = Changes("", WithTarget(trial.text, code), false);
      if (!changes.empty()) acting.insert(name);
    }
  }
  EXPECT_EQ(acting, kActOnUnprepared);
}

TEST_F(ActionMatrixTest,
       a_stopped_token_group_or_list_group_accepts_only_run_set_data_and_queries) {
  std::set<std::string> acting;
  for (const Trial& trial : kTrials) {
    for (const unsigned code : {10U, 11U}) {
      if (Changes(WithTarget(":Stop($)", code), WithTarget(trial.text, code), true).empty())
        continue;
      acting.insert(FindAction(static_cast<std::uint8_t>(trial.action))->name);
    }
  }
  EXPECT_EQ(acting,
            (std::set<std::string>{"GetAvailabilityStatus", "GetRunningStatus", "Run", "SetData"}));
}

TEST_F(ActionMatrixTest, actions_act_on_accepted_classes_and_on_no_others) {
  const auto matrix = ReviewedMatrix();
  for (const Trial& trial : kTrials) {
    const std::string name = FindAction(static_cast<std::uint8_t>(trial.action))->name;
    const std::set<std::string>& accepted = matrix.at(name);
    for (const auto& [code, className] : kClasses) {
      const bool isFindable = code <= 27;
      const std::string changes =
          Changes(WithTarget(trial.setup, code), WithTarget(trial.text, code),
                  trial.action != Action::Preload);
      EXPECT_EQ(!changes.empty(), isFindable && accepted.count(className) > 0)
          << name << " on " << className << " changes:" << changes;
    }
  }
}

TEST_F(ActionMatrixTest, counter_position_and_speed_actions_change_nothing_on_any_class) {
  for (const Trial& trial : kIgnoredTrials) {
    for (const auto& [code, className] : kClasses) {
      EXPECT_EQ(Changes("", WithTarget(trial.text, code), true), "")
          << trial.text << " on " << className;
    }
  }
}

TEST_F(ActionMatrixTest, extensions_act_on_accepted_classes_and_on_no_others) {
  const auto matrix = ReviewedMatrix();
  const auto parametersOf = [](Action action) {
    switch (action) {
    case Action::SetCellPosition:
      return ParametersOf(IntegerValue(1), IntegerValue(5), IntegerValue(6));
    case Action::SetBitmapDecodeOffset:
    case Action::SetVideoDecodeOffset: return ParametersOf(IntegerValue(5), IntegerValue(6));
    case Action::GetBitmapDecodeOffset:
    case Action::GetVideoDecodeOffset:
      return ParametersOf(ReferenceValue(201), ReferenceValue(202));
    case Action::SetFontAttributes: return ParametersOf(OctetsValue("a"));
    default: return ParametersOf(IntegerValue(5));
    }
  };
  for (unsigned number = kFirstExtension; number <= kActionCount; ++number) {
    const auto action = static_cast<Action>(number);
    const std::string name = FindAction(static_cast<std::uint8_t>(number))->name;
    for (const auto& [code, className] : kClasses) {
      if (code <= 2) continue;  // a number alone never refers to a group
      StartObjects();
      const std::string before = RunningGroupValues();
      EXPECT_EQ(RunOne(action, static_cast<int>(code), parametersOf(action)), Status::Done);
      const std::string changes = Difference(before, RunningGroupValues());
      EXPECT_EQ(!changes.empty(), code <= 27 && matrix.at(name).count(className) > 0)
          << name << " on " << className << " changes:" << changes;
    }
  }
}

}  // namespace
}  // namespace korvel::test
