// The order in which visibles are drawn: the list, the stacking actions, and which visibles enter
// and leave it.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class DisplayStack : public EngineTest {
 protected:
  // An application with the rectangles 1 to 5, none of them in the stack.
  void SetUp() override {
    EngineTest::SetUp();
    std::string items;
    for (std::int32_t number = 1; number <= 5; ++number) items += RectangleText(number, kInactive);
    ServeApplication(items + LinkOnKey(11, 100, ":Run(1)", kShared) +
                     LinkOnKey(12, 101, ":Stop(1)", kShared));
    ASSERT_EQ(Start(), Status::Done);
  }

  static Application& App() { return *CurrentApplication(); }
  static Rectangle& Box(std::int32_t number) { return Find<Rectangle>(number); }
  static void Append(std::int32_t number) {
    EXPECT_EQ(AppendOnTop(App(), ItemType::Rectangle, Box(number)), Status::Done);
  }
  // The object numbers in the stack, bottom-most first.
  static std::string Order() {
    std::string order;
    for (const StackedVisible& entry : App().DisplayStack) {
      order += std::to_string(entry.visible->Reference.Number);
    }
    return order;
  }
  // Makes the rectangles 1 to 3 available and puts them on the stack in that order.
  void StackThree() {
    for (std::int32_t number = 1; number <= 3; ++number) {
      Box(number).AvailabilityStatus = true;
      Append(number);
    }
  }
};

constexpr ItemType kRectangle = ItemType::Rectangle;

// ---- The list ----

TEST_F(DisplayStack, operations_on_an_empty_stack_are_refused) {
  StackedVisible entry;
  EXPECT_FALSE(RemoveTop(App(), entry));
  EXPECT_FALSE(StackContains(App(), ItemType::None, Box(1)));
  EXPECT_FALSE(RemoveFromStack(App(), kRectangle, Box(1)));
  ClearStack(App());
  EXPECT_EQ(Order(), "");
}

TEST_F(DisplayStack, visibles_are_appended_on_top) {
  Append(2);
  Append(1);
  Append(3);
  EXPECT_EQ(Order(), "213");
  EXPECT_EQ(App().DisplayStack.At(0)->kind, kRectangle);
}

TEST_F(DisplayStack, position_1_is_the_bottom) {
  EXPECT_EQ(InsertAtPosition(App(), 1, kRectangle, Box(1)), Status::Done);
  EXPECT_EQ(Order(), "1");
  EXPECT_EQ(InsertAtPosition(App(), 1, kRectangle, Box(2)), Status::Done);
  EXPECT_EQ(Order(), "21");
  EXPECT_EQ(InsertAtPosition(App(), 2, kRectangle, Box(3)), Status::Done);
  EXPECT_EQ(Order(), "231");
  EXPECT_EQ(InsertAtPosition(App(), 4, kRectangle, Box(4)), Status::Done);
  EXPECT_EQ(Order(), "2314");
}

TEST_F(DisplayStack, the_entry_at_a_position_is_returned) {
  Append(1);
  EXPECT_EQ(AppendOnTop(App(), ItemType::Text, Box(2)), Status::Done);
  StackedVisible entry;
  EXPECT_TRUE(EntryAtPosition(App(), 1, entry));
  EXPECT_EQ(entry.visible, &Box(1));
  EXPECT_EQ(entry.kind, kRectangle);
  EXPECT_TRUE(EntryAtPosition(App(), 2, entry));
  EXPECT_EQ(entry.visible, &Box(2));
  EXPECT_EQ(entry.kind, ItemType::Text);
}

TEST_F(DisplayStack, positions_that_do_not_exist_are_refused) {
  Append(1);
  StackedVisible entry;
  for (const std::int32_t position : {INT32_MIN, -1, 0, 2, INT32_MAX}) {
    EXPECT_FALSE(EntryAtPosition(App(), position, entry)) << position;
  }
  EXPECT_EQ(entry.visible, nullptr);
}

TEST_F(DisplayStack, removing_the_top_returns_it) {
  Append(1);
  Append(2);
  StackedVisible entry;
  EXPECT_TRUE(RemoveTop(App(), entry));
  EXPECT_EQ(entry.visible, &Box(2));
  EXPECT_EQ(entry.kind, kRectangle);
  EXPECT_EQ(Order(), "1");
  EXPECT_TRUE(RemoveTop(App(), entry));
  EXPECT_FALSE(RemoveTop(App(), entry));
}

TEST_F(DisplayStack, removing_matches_both_class_and_visible) {
  Append(1);
  EXPECT_EQ(AppendOnTop(App(), ItemType::Text, Box(1)), Status::Done);
  Append(1);
  EXPECT_FALSE(RemoveFromStack(App(), ItemType::Bitmap, Box(1)));
  EXPECT_FALSE(RemoveFromStack(App(), kRectangle, Box(2)));
  EXPECT_EQ(App().DisplayStack.Size(), 3U);
  EXPECT_TRUE(RemoveFromStack(App(), ItemType::Text, Box(1)));
  EXPECT_EQ(App().DisplayStack.Size(), 2U);
  EXPECT_FALSE(RemoveFromStack(App(), ItemType::Text, Box(1)));
}

TEST_F(DisplayStack, only_the_first_match_is_removed) {
  Append(1);
  Append(2);
  Append(1);
  EXPECT_TRUE(RemoveFromStack(App(), kRectangle, Box(1)));
  EXPECT_EQ(Order(), "21");
}

TEST_F(DisplayStack, a_visible_is_found_with_its_class_or_without_a_class) {
  EXPECT_EQ(AppendOnTop(App(), ItemType::Text, Box(1)), Status::Done);
  EXPECT_TRUE(StackContains(App(), ItemType::None, Box(1)));
  EXPECT_TRUE(StackContains(App(), ItemType::Text, Box(1)));
  EXPECT_FALSE(StackContains(App(), kRectangle, Box(1)));
  EXPECT_FALSE(StackContains(App(), ItemType::None, Box(2)));
}

TEST_F(DisplayStack, an_insertion_at_the_bottom_comes_first) {
  Append(1);
  EXPECT_EQ(InsertAtBottom(App(), kRectangle, Box(2)), Status::Done);
  EXPECT_EQ(InsertAtBottom(App(), kRectangle, Box(3)), Status::Done);
  EXPECT_EQ(Order(), "321");
}

TEST_F(DisplayStack, insertions_below_and_above_are_next_to_their_reference) {
  Append(1);
  Append(2);
  EXPECT_EQ(InsertBelow(App(), kRectangle, Box(3), Box(2)), Status::Done);
  EXPECT_EQ(Order(), "132");
  EXPECT_EQ(InsertAbove(App(), kRectangle, Box(4), Box(1)), Status::Done);
  EXPECT_EQ(Order(), "1432");
  EXPECT_EQ(InsertBelow(App(), kRectangle, Box(5), Box(1)), Status::Done);
  EXPECT_EQ(Order(), "51432");
}

TEST_F(DisplayStack, an_insertion_above_the_top_is_the_new_top) {
  Append(1);
  EXPECT_EQ(InsertAbove(App(), kRectangle, Box(2), Box(1)), Status::Done);
  EXPECT_EQ(Order(), "12");
  Append(3);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, an_insertion_below_a_missing_reference_goes_on_top) {
  Append(1);
  Append(2);
  EXPECT_EQ(InsertBelow(App(), kRectangle, Box(3), Box(5)), Status::Done);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, an_insertion_above_a_missing_reference_changes_nothing) {
  Append(1);
  EXPECT_EQ(InsertAbove(App(), kRectangle, Box(3), Box(5)), Status::Refused);
  EXPECT_EQ(Order(), "1");
}

TEST_F(DisplayStack, a_cleared_stack_keeps_the_visibles_and_accepts_new_entries) {
  StackThree();
  ClearStack(App());
  EXPECT_EQ(Order(), "");
  EXPECT_TRUE(Box(1).AvailabilityStatus);
  Append(2);
  EXPECT_EQ(Order(), "2");
}

TEST_F(DisplayStack, without_memory_the_stack_is_unchanged_and_a_message_is_printed) {
  StackThree();
  // Not every insertion allocates. Inserts until one fails, then removes the inserted entries.
  const auto failing = [&](auto&& insert) {
    return Do([&] {
      FailAllocation(1);
      Status result = Status::Done;
      while (result == Status::Done) result = insert();
      FailAllocation(0);
      while (RemoveFromStack(App(), kRectangle, Box(4))) continue;
      return result;
    });
  };
  EXPECT_EQ(failing([] { return AppendOnTop(App(), kRectangle, Box(4)); }), Status::Failure);
  EXPECT_EQ(Printed(), "Can't allocate memory for DisplayStack\n");
  EXPECT_EQ(failing([] { return InsertAtPosition(App(), 2, kRectangle, Box(4)); }),
            Status::Failure);
  EXPECT_EQ(Printed(), "Can't allocate memory for DisplayStack\n");
  EXPECT_EQ(failing([] { return InsertAtBottom(App(), kRectangle, Box(4)); }), Status::Failure);
  EXPECT_EQ(Printed(), "Can't allocate memory for DisplayStack item\n");
  EXPECT_EQ(failing([] { return InsertBelow(App(), kRectangle, Box(4), Box(2)); }),
            Status::Failure);
  EXPECT_EQ(Printed(), "Can't allocate memory for DisplayStack item\n");
  EXPECT_EQ(failing([] { return InsertAbove(App(), kRectangle, Box(4), Box(2)); }),
            Status::Failure);
  EXPECT_EQ(Printed(), "Can't allocate memory for DisplayStack item\n");
  EXPECT_EQ(Order(), "123");
  Append(5);
  EXPECT_EQ(Order(), "1235");
}

// ---- The stacking actions ----

TEST_F(DisplayStack, bring_to_front_moves_to_the_top) {
  StackThree();
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Done);
  EXPECT_EQ(Order(), "231");
}

TEST_F(DisplayStack, bring_to_front_of_the_top_changes_nothing) {
  StackThree();
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(3)); }), Status::Done);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, send_to_back_moves_to_the_bottom) {
  StackThree();
  EXPECT_EQ(Do([] { return SendToBack(kRectangle, Box(3)); }), Status::Done);
  EXPECT_EQ(Order(), "312");
}

TEST_F(DisplayStack, put_before_moves_directly_above_the_reference) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(3), Box(1)); }), Status::Done);
  EXPECT_EQ(Order(), "132");
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(2)); }), Status::Done);
  EXPECT_EQ(Order(), "321");
}

TEST_F(DisplayStack, put_behind_moves_directly_below_the_reference) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(3), Box(1)); }), Status::Done);
  EXPECT_EQ(Order(), "312");
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(3), Box(2)); }), Status::Done);
  EXPECT_EQ(Order(), "132");
}

TEST_F(DisplayStack, put_behind_itself_ends_on_top) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(1)); }), Status::Done);
  EXPECT_EQ(Order(), "231");
}

TEST_F(DisplayStack, put_before_itself_is_refused_and_changes_nothing) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(1)); }), Status::Refused);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, unavailable_visibles_are_not_restacked) {
  StackThree();
  Box(1).AvailabilityStatus = false;
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Refused);
  EXPECT_EQ(Do([] { return SendToBack(kRectangle, Box(1)); }), Status::Refused);
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(3)); }), Status::Refused);
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(3)); }), Status::Refused);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, only_visibles_in_the_stack_with_their_class_are_restacked) {
  StackThree();
  Box(4).AvailabilityStatus = true;
  for (const auto& visible :
       {std::pair{kRectangle, 4}, std::pair{ItemType::Text, 1}, std::pair{ItemType::Bitmap, 3}}) {
    const auto kind = visible.first;
    const auto number = visible.second;
    EXPECT_EQ(Do([&] { return BringToFront(kind, Box(number)); }), Status::Refused);
    EXPECT_EQ(Do([&] { return SendToBack(kind, Box(number)); }), Status::Refused);
    EXPECT_EQ(Do([&] { return PutBefore(kind, Box(number), Box(2)); }), Status::Refused);
    EXPECT_EQ(Do([&] { return PutBehind(kind, Box(number), Box(2)); }), Status::Refused);
  }
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, nothing_is_put_next_to_a_visible_outside_the_stack) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(4)); }), Status::Refused);
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(4)); }), Status::Refused);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, the_reference_may_be_of_any_class) {
  StackThree();
  Box(4).AvailabilityStatus = true;
  EXPECT_EQ(InsertAtBottom(App(), ItemType::Text, Box(4)), Status::Done);
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(3), Box(4)); }), Status::Done);
  EXPECT_EQ(Order(), "4312");
}

TEST_F(DisplayStack, restacking_redraws_only_for_running_visibles) {
  StackThree();
  ThePresentation().redraws = 0;
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, 0) << "the visible is not running";
  Box(1).RunningStatus = true;
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, 1);
  EXPECT_EQ(Do([] { return SendToBack(kRectangle, Box(1)); }), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, 2);
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(2)); }), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, 3);
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(2)); }), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, 4);
}

TEST_F(DisplayStack, a_failed_redraw_fails_the_restacking) {
  StackThree();
  Box(1).RunningStatus = true;
  ThePresentation().onRedraw = [] { return Status::Failure; };
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Failure);
  EXPECT_EQ(Do([] { return SendToBack(kRectangle, Box(1)); }), Status::Failure);
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(2)); }), Status::Failure);
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(2)); }), Status::Failure);
}

// ---- Entering and leaving the stack ----

TEST_F(DisplayStack, a_visible_enters_on_top_when_it_runs_and_leaves_when_it_stops) {
  Append(2);
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Order(), "21");
  EXPECT_EQ(Press(101), Status::Done);
  EXPECT_EQ(Order(), "2");
}

TEST_F(DisplayStack, a_visible_that_runs_again_after_a_silent_stop_is_in_the_stack_once) {
  ServeScene("menu", "");
  ServeScene("next", "");
  EXPECT_EQ(Press(100), Status::Done);
  Append(2);
  EXPECT_EQ(Order(), "12");
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  EXPECT_FALSE(Box(1).RunningStatus);
  EXPECT_EQ(Order(), "12") << "a stopped visible keeps its position";
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Order(), "21");
  EXPECT_EQ(Press(101), Status::Done);
  EXPECT_EQ(Order(), "2");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
}

TEST_F(DisplayStack, visibles_of_a_scene_leave_the_stack_with_it) {
  ServeScene("menu", RectangleText(7) + RectangleText(8));
  ServeScene("next", RectangleText(9));
  Append(1);
  ASSERT_EQ(GoTo("~/menu"), Status::Done);
  Append(2);
  EXPECT_EQ(Order(), "1782");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(Order(), "129");
}

TEST_F(DisplayStack, stacking_without_an_application_is_refused) {
  const Busy busy;  // keeps the ended application readable
  StackThree();
  Rectangle& box = Box(1);
  Rectangle& reference = Box(2);
  Do([] { CloseDown(); });
  EXPECT_EQ(BringToFront(kRectangle, box), Status::Refused);
  EXPECT_EQ(SendToBack(kRectangle, box), Status::Refused);
  EXPECT_EQ(PutBefore(kRectangle, box, reference), Status::Refused);
  EXPECT_EQ(PutBehind(kRectangle, box, reference), Status::Refused);
}

}  // namespace
}  // namespace korvel::test
