// Actions that run out of memory: each allocation that they make fails once. The action is given
// up with its message, nothing is half written, and nothing is lost.
#include <set>

#include "actions/actions.h"
#include "actions/behaviours.h"
#include "stage.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

class OutOfMemoryActionsTest : public Stage {
 protected:
  // Does the work again and again, its first allocation failing, then its second ... up to the one
  // that it does not make. `check` sees what each failure has left. What was printed, each text
  // once.
  template <class Prepare, class Work, class Check>
  static std::set<std::string> Starve(const Prepare& prepare, const Work& work,
                                      const Check& check) {
    std::set<std::string> printed;
    for (std::size_t n = 1;; ++n) {
      EXPECT_LT(n, 1000U);
      prepare();
      testing::internal::CaptureStdout();
      FailAllocation(n);
      const Status status = work();
      const bool hasFailed = HasFailedAllocation();
      FailAllocation(0);
      const std::string text = testing::internal::GetCapturedStdout();
      if (!hasFailed || n == 1000) return printed;
      printed.insert(text);
      check(status, text);
    }
  }
};

using Texts = std::set<std::string>;

// The actions of a list, compiled beforehand so that only carrying them out can fail.
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

TEST_F(OutOfMemoryActionsTest, a_text_content_that_cannot_be_copied_is_told) {
  CompiledActions actions(Action::GetTextContent, 1, ParametersOf(ReferenceValue(2)));
  const Texts texts = Starve(
      [] {
        Start("{:Text 1 :OrigBoxSize 9 9 :OrigContent \"content\"}"
              "{:OStringVar 2 :OrigValue \"before\"}");
      },
      [&actions] { return actions.Run(); },
      [](Status status, const std::string& text) {
        if (text == "Can't allocate memory for TextContentVar\n") {
          EXPECT_EQ(status, Status::Failure);
        }
        EXPECT_NE(Octets(2), "content");
      });
  EXPECT_TRUE(texts.contains("Can't allocate memory for TextContentVar\n"));
}

TEST_F(OutOfMemoryActionsTest, a_label_of_an_anchor_that_cannot_be_copied_is_told) {
  CompiledActions actions(Action::GetLastAnchorFired, 1, ParametersOf(ReferenceValue(2)));
  const Texts texts = Starve(
      [] {
        Start("{:HyperText 1 :OrigBoxSize 9 9 :OrigContent \"\"}"
              "{:OStringVar 2 :OrigValue \"before\"}");
        ASSERT_TRUE(Object<HyperText>(1).LastAnchorFired.Assign("label"));
      },
      [&actions] { return actions.Run(); },
      [](Status status, const std::string& text) {
        if (text == "Can't allocate memory for LastAnchorFiredVar\n") {
          EXPECT_EQ(status, Status::Failure);
        }
        EXPECT_NE(Octets(2), "label");
      });
  EXPECT_TRUE(texts.contains("Can't allocate memory for LastAnchorFiredVar\n"));
}

TEST_F(OutOfMemoryActionsTest, a_first_character_that_finds_no_room_stops_the_input) {
  const Texts texts = Starve([] { Start("{:EntryField 1 :OrigBoxSize 9 9 :OrigContent \"\"}"); },
                             [] { return EnterCharacter(Object<EntryField>(1), 'x'); },
                             [](Status status, const std::string&) {
                               EXPECT_EQ(status, Status::Failure);
                               EXPECT_EQ(Object<EntryField>(1).TextData.View(), "");
                               EXPECT_EQ(Object<EntryField>(1).EntryPoint, 0);
                             });
  EXPECT_EQ(texts, Texts{"Can't allocate memory for TextData\n"});
}

TEST_F(OutOfMemoryActionsTest, a_further_character_that_finds_no_room_leaves_the_text) {
  const Texts texts = Starve([] { Start("{:EntryField 1 :OrigBoxSize 9 9 :OrigContent \"ab\"}"); },
                             [] { return EnterCharacter(Object<EntryField>(1), 'x'); },
                             [](Status status, const std::string&) {
                               EXPECT_EQ(status, Status::Failure);
                               EXPECT_EQ(Object<EntryField>(1).TextData.View(), "ab");
                               EXPECT_EQ(Object<EntryField>(1).EntryPoint, 0);
                             });
  EXPECT_EQ(texts, Texts{"Can't allocate memory for NewStr\n"});
}

TEST_F(OutOfMemoryActionsTest, a_polygon_whose_points_find_no_room_is_not_painted) {
  CompiledActions actions(Action::DrawPolygon, 1,
                          ParametersOf(IntegerValue(1), IntegerValue(2), IntegerValue(3),
                                       IntegerValue(4), IntegerValue(5), IntegerValue(6)));
  const Texts texts = Starve(
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
  EXPECT_TRUE(texts.contains("Can't allocate memory for Points\n"));
}

}  // namespace
}  // namespace korvel::test
