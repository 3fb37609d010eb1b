// Actions that run out of memory. Each of their allocations fails once. The action stops with its
// message, and leaves nothing half written or leaked.
#include <set>

#include "actions/actions.h"
#include "actions/behaviours.h"
#include "stage.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

class OutOfMemoryActionsTest : public Stage {
 protected:
  // Repeats `work` after `prepare`, failing its first allocation, then its second, until it makes
  // no further one. `check` runs after each failure. Returns the distinct texts printed.
  template <class Prepare, class Work, class Check>
  static std::set<std::string> FailEachAllocation(const Prepare& prepare, const Work& work,
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

TEST_F(OutOfMemoryActionsTest, a_text_content_that_cannot_be_copied_is_reported) {
  CompiledActions actions(Action::GetTextContent, 1, ParametersOf(ReferenceValue(2)));
  const Texts texts = FailEachAllocation(
      [] {
        Start("{:Text 1 :OrigBoxSize 9 9 :OrigContent \"a content that takes a block\"}"
              "{:OStringVar 2 :OrigValue \"before\"}");
      },
      [&actions] { return actions.Run(); },
      [](Status status, const std::string& text) {
        if (text == "Can't allocate memory for TextContentVar\n") {
          EXPECT_EQ(status, Status::Failure);
        }
        EXPECT_NE(Octets(2), "a content that takes a block");
      });
  EXPECT_TRUE(texts.contains("Can't allocate memory for TextContentVar\n"));
}

TEST_F(OutOfMemoryActionsTest, an_anchor_label_that_cannot_be_copied_is_reported) {
  CompiledActions actions(Action::GetLastAnchorFired, 1, ParametersOf(ReferenceValue(2)));
  const Texts texts = FailEachAllocation(
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
  EXPECT_TRUE(texts.contains("Can't allocate memory for LastAnchorFiredVar\n"));
}

TEST_F(OutOfMemoryActionsTest, a_first_character_without_memory_fails) {
  const Texts texts = FailEachAllocation(
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
  EXPECT_EQ(texts, Texts{"Can't allocate memory for TextData\n"});
}

TEST_F(OutOfMemoryActionsTest, a_later_character_without_memory_keeps_the_text) {
  const Texts texts = FailEachAllocation(
      [] { Start("{:EntryField 1 :OrigBoxSize 9 9 :OrigContent \"text that takes a block\"}"); },
      [] { return EnterCharacter(Object<EntryField>(1), 'x'); },
      [](Status status, const std::string&) {
        EXPECT_EQ(status, Status::Failure);
        EXPECT_EQ(Object<EntryField>(1).TextData.View(), "text that takes a block");
        EXPECT_EQ(Object<EntryField>(1).EntryPoint, 0);
      });
  EXPECT_EQ(texts, Texts{"Can't allocate memory for NewStr\n"});
}

TEST_F(OutOfMemoryActionsTest, a_polygon_without_memory_for_its_points_is_not_drawn) {
  CompiledActions actions(Action::DrawPolygon, 1,
                          ParametersOf(IntegerValue(1), IntegerValue(2), IntegerValue(3),
                                       IntegerValue(4), IntegerValue(5), IntegerValue(6)));
  const Texts texts = FailEachAllocation(
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
