// Actions that run out of memory: each of their allocations fails once. The action stops with its
// message, writes no partial value and leaks nothing.
#include <algorithm>
#include <set>

#include "actions/actions.h"
#include "actions/behaviours.h"
#include "stage.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

class OutOfMemoryActionsTest : public Stage {
 protected:
  // Repeats `prepare` and then `operation`, whose first allocation fails, then its second, until
  // none is left to fail. `check` runs after each failure. Returns the distinct outputs.
  template <class Prepare, class Operation, class Check>
  static std::set<std::string> FailEachAllocation(const Prepare& prepare,
                                                  const Operation& operation, const Check& check) {
    std::set<std::string> printed;
    for (std::size_t n = 1;; ++n) {
      EXPECT_LT(n, 1000U);
      prepare();
      testing::internal::CaptureStdout();
      FailAllocation(n);
      const Status status = operation();
      const bool hasFailed = HasFailedAllocation();
      FailAllocation(0);
      const std::string text = testing::internal::GetCapturedStdout();
      if (!hasFailed || n == 1000) return printed;
      printed.insert(text);
      check(status, text);
    }
  }
};

using Outputs = std::set<std::string>;

// A list of one action, built beforehand so that only running it can fail.
class CompiledActions {
 public:
  CompiledActions(Action action, int target, List<GenericValue> parameters) {
    ElementaryAction one;
    one.ActionType = static_cast<std::uint8_t>(action);
    one.Target.Kind = ValueKind::ObjectReference;
    one.Target.Reference.Number = target;
    one.Parameters = std::move(parameters);
    EXPECT_NE(list_.Append(std::move(one)), nullptr);
  }
  Status Run() {
    return RunActions(Scope::ApplicationFirst, {&list_, CurrentApplication()}, "~/a");
  }

 private:
  ActionList list_;
};

TEST_F(OutOfMemoryActionsTest, a_text_that_cannot_be_copied_is_reported) {
  const std::string report = "Can't allocate memory for TextContentVar\n";
  for (const Action action : {Action::GetTextContent, Action::GetTextData}) {
    CompiledActions actions(action, 1, ParametersOf(ReferenceValue(2)));
    const Outputs outputs = FailEachAllocation(
        [] {
          Start("{:Text 1 :OrigBoxSize 9 9 :OrigContent \"a content that takes a block\"}"
                "{:OStringVar 2 :OrigValue \"before\"}");
        },
        [&actions] { return actions.Run(); },
        [&report](Status status, const std::string& text) {
          if (text.ends_with(report)) {
            EXPECT_EQ(status, Status::Failure);
          }
          EXPECT_NE(Octets(2), "a content that takes a block");
        });
    EXPECT_TRUE(std::ranges::any_of(
        outputs, [&report](const std::string& text) { return text.ends_with(report); }));
  }
}

TEST_F(OutOfMemoryActionsTest, an_anchor_label_that_cannot_be_copied_is_reported) {
  CompiledActions actions(Action::GetLastAnchorFired, 1, ParametersOf(ReferenceValue(2)));
  const Outputs outputs = FailEachAllocation(
      [] {
        Start("{:HyperText 1 :OrigBoxSize 9 9 :OrigContent \"\"}"
              "{:OStringVar 2 :OrigValue \"before\"}");
        ASSERT_TRUE(Object<HyperText>(1).LastAnchorFired.Assign("a label that takes a block"));
      },
      [&actions] { return actions.Run(); },
      [](Status status, const std::string& text) {
        if (text == "Can't allocate memory for LastAnchorFiredVar\n") {
          EXPECT_EQ(status, Status::Failure);
        }
        EXPECT_NE(Octets(2), "a label that takes a block");
      });
  EXPECT_TRUE(outputs.contains("Can't allocate memory for LastAnchorFiredVar\n"));
}

TEST_F(OutOfMemoryActionsTest, entering_the_first_character_without_memory_fails) {
  const Outputs outputs = FailEachAllocation(
      [] {
        Start("{:EntryField 1 :OrigBoxSize 9 9 :OrigContent \"\" :MaxLength 30}");
        Object<EntryField>(1).OverwriteMode = true;
        Object<EntryField>(1).EntryPoint = 20;  // a gap that takes a block
      },
      [] { return EnterCharacter(Object<EntryField>(1), 'x'); },
      [](Status status, const std::string&) {
        EXPECT_EQ(status, Status::Failure);
        EXPECT_EQ(Object<EntryField>(1).TextData.View(), "");
        EXPECT_EQ(Object<EntryField>(1).EntryPoint, 20);
      });
  EXPECT_EQ(outputs, Outputs{"Can't allocate memory for TextData\n"});
}

TEST_F(OutOfMemoryActionsTest, entering_another_character_without_memory_keeps_the_text) {
  const Outputs outputs = FailEachAllocation(
      [] { Start("{:EntryField 1 :OrigBoxSize 9 9 :OrigContent \"text that takes a block\"}"); },
      [] { return EnterCharacter(Object<EntryField>(1), 'x'); },
      [](Status status, const std::string&) {
        EXPECT_EQ(status, Status::Failure);
        EXPECT_EQ(Object<EntryField>(1).TextData.View(), "text that takes a block");
        EXPECT_EQ(Object<EntryField>(1).EntryPoint, 0);
      });
  EXPECT_EQ(outputs, Outputs{"Can't allocate memory for NewStr\n"});
}

TEST_F(OutOfMemoryActionsTest, new_text_that_cannot_be_copied_is_reported_and_not_shown) {
  const std::string report = "Can't allocate memory for TextData\n";
  GenericValue content;
  content.Kind = ValueKind::OctetString;
  ASSERT_TRUE(content.Octets.Assign("a new text that takes a block"));
  CompiledActions actions(Action::SetData, 1, ParametersOf(std::move(content)));
  const Outputs outputs =
      FailEachAllocation([] { Start("{:Text 1 :OrigBoxSize 9 9 :OrigContent \"old\"}"); },
                         [&] { return actions.Run(); },
                         [&report](Status, const std::string& text) {
                           if (text == report) {
                             EXPECT_EQ(Object<Text>(1).TextData.View(), "old");
                           }
                         });
  EXPECT_TRUE(outputs.contains(report));
}

TEST_F(OutOfMemoryActionsTest, a_polygon_without_memory_for_its_points_is_not_drawn) {
  CompiledActions actions(Action::DrawPolygon, 1,
                          ParametersOf(IntegerValue(1), IntegerValue(2), IntegerValue(3),
                                       IntegerValue(4), IntegerValue(5), IntegerValue(6)));
  const Outputs outputs = FailEachAllocation(
      [] {
        Start("{:DynamicLineArt 1 :OrigBoxSize 90 90 :BBBox FALSE}");
        ThePresentation().drawings.clear();
      },
      [&actions] { return actions.Run(); },
      [](Status status, const std::string& text) {
        if (text == "Can't allocate memory for Points\n") {
          EXPECT_EQ(status, Status::Done);
        }
        EXPECT_TRUE(ThePresentation().drawings.empty());
      });
  EXPECT_TRUE(outputs.contains("Can't allocate memory for Points\n"));
}

TEST_F(OutOfMemoryActionsTest, a_path_that_cannot_be_copied_with_its_zero_byte_becomes_empty) {
  GenericValue path;
  path.Kind = ValueKind::IndirectReference;
  path.Reference.Number = 2;
  CompiledActions actions(Action::SetVariable, 1, ParametersOf(std::move(path)));
  const Outputs outputs = FailEachAllocation(
      [] {
        Start("{:ContentRefVar 1 :OrigValue :ContentRef \"before\"}"
              "{:ContentRefVar 2 :OrigValue :ContentRef \"a path that takes a block\"}");
      },
      [&actions] { return actions.Run(); },
      [](Status, const std::string& text) {
        const OctetString& value = Object<ContentRefVariable>(1).Value.Path;
        if (text == "Can't allocate memory for CharVal\n") {
          EXPECT_EQ(value.TextView(), "");
        } else {
          EXPECT_EQ(value.View(), "before");
        }
      });
  EXPECT_TRUE(outputs.contains("Can't allocate memory for CharVal\n"));
}

// Each action copies or collects something.
TEST_F(OutOfMemoryActionsTest, after_any_failed_allocation_the_next_key_is_handled) {
  const std::string items = R"(
    {:Palette 28 :OrigContent "abcd"} {:BooleanVar 5 :OrigValue FALSE}
    {:IntegerVar 6 :OrigValue 9} {:OStringVar 7 :OrigValue "o"}
    {:ObjectRefVar 8 :OrigValue :ObjectRef ("~/none" 77)}
    {:ContentRefVar 9 :OrigValue :ContentRef "c"} {:ResidentPrg 4 :Name "DBG"}
    {:ListGroup 11 :TokenGroupItems ((13) (14 :ActionSlots ((:Add(6 1))))) :MovementTable ((2 1))
      :MultipleSelection TRUE :Positions ((0 0) (9 9) (1 1))}
    {:Rectangle 13 :OrigBoxSize 9 9} {:Rectangle 14 :OrigBoxSize 9 9}
    {:Rectangle 15 :OrigBoxSize 9 9}
    {:Text 16 :InitiallyActive FALSE :OrigContent "t" :OrigBoxSize 9 9 :OrigFont "f"
      :OrigPaletteRef 28 :FontAttributes "plain.24.24.0"}
    {:PushButton 17 :InitiallyActive FALSE :OrigBoxSize 9 9 :OrigLabel "p" :OrigPaletteRef 28}
    {:LineArt 18 :InitiallyActive FALSE :OrigContent "l" :OrigBoxSize 9 9 :OrigPaletteRef 28
      :OrigRefLineColour '=01=02=03'}
    {:HyperText 19 :InitiallyActive FALSE :OrigContent "h" :OrigBoxSize 9 9 :OrigPaletteRef 28}
    {:TokenGroup 20 :InitiallyActive FALSE :TokenGroupItems ((13) (15)) :MovementTable ((2 1))}
    {:Stream 21 :InitiallyActive FALSE :Multiplex ({:Audio 22 :ComponentTag 1})})";
  for (const char* actions :
       {":Run(16) :SetFontRef(16 \"g\") :SetData(16 \"new\")",
        ":Run(17) :SetLabel(17 \"label\") :GetLabel(17 7)",
        ":Run(18) :SetLineColour(18 "
        ":NewAbsoluteColour '=04=05=06') :GetLineColour(18 7)",
        ":Run(19)", ":Run(20) :MoveTo(20 2)", ":Run(21) :SetCounterTrigger(21 5 6)",
        ":AddItem(11 1 15) :DelItem(11 13)",
        ":SelectItem(11 1) :SelectItem(11 2) :DeselectItem(11 1) :GetListItem(11 1 8)",
        ":SetPaletteRef(13 28)", ":Preload(16)", ":Fork(4 5 :GOctetString \"x\")",
        ":StorePersistent((\"~/a\" 0) 5 (6 7 8 9) \"n\") :ReadPersistent((\"~/a\" 0) 5 (6 7 8 9) "
        "\"n\")",
        ":SetVariable(7 :GOctetString \"v\") :Append(7 :IndirectRef 7)",
        ":SetVariable(8 :GObjectRef (\"~/x\" 6)) :SetVariable(8 :GObjectRef :IndirectRef 8)",
        ":SetVariable(9 :GContentRef :ContentRef \"d\") :TestVariable(9 1 :GContentRef "
        ":IndirectRef 9)",
        ":SetTimer((\"~/a\" 0) 5 1000)",
        ":SendEvent((\"~/a\" 0) (\"~/a\" 6) TestEvent :GBoolean "
        "TRUE)"}) {
    FailEachAllocation(
        [&] {
          EndEngine();
          AddFile("a", ApplicationText("~/a", items + LinkOnKey(200, 100, actions) +
                                                  LinkOnKey(201, 101, Note("x"))));
          BeginWork();
          EXPECT_EQ(StartEngine(""), Status::Done);
          BeginWork();
        },
        [] { return RaiseOutsideEvent(0, EventType::UserInput, 100); },
        [&](Status, const std::string& text) {
          EXPECT_NE(Press(101), Status::Failure) << actions << " printed " << text;
          EXPECT_EQ(Notes(), "x") << actions;
        });
  }
}

}  // namespace
}  // namespace korvel::test
