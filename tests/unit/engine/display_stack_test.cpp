// The order in which visibles are drawn: the list itself, the stacking actions, and who enters and
// leaves it.
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

TEST_F(DisplayStack, an_empty_stack_has_nothing_to_give) {
  StackedVisible entry;
  EXPECT_EQ(RemoveTop(App(), entry), Status::Refused);
  EXPECT_FALSE(StackContains(App(), ItemType::None, Box(1)));
  EXPECT_EQ(RemoveFromStack(App(), kRectangle, Box(1)), Status::Refused);
  ClearStack(App());
  EXPECT_EQ(Order(), "");
}

TEST_F(DisplayStack, appended_visibles_stand_on_top) {
  Append(2);
  Append(1);
  Append(3);
  EXPECT_EQ(Order(), "213");
  EXPECT_EQ(App().DisplayStack.At(0)->kind, kRectangle);
}

TEST_F(DisplayStack, position_one_is_the_bottom_and_others_follow_the_one_before) {
  EXPECT_EQ(InsertAtPosition(App(), 1, kRectangle, Box(1)), Status::Done);
  EXPECT_EQ(Order(), "1");
  EXPECT_EQ(InsertAtPosition(App(), 1, kRectangle, Box(2)), Status::Done);
  EXPECT_EQ(Order(), "21");
  EXPECT_EQ(InsertAtPosition(App(), 2, kRectangle, Box(3)), Status::Done);
  EXPECT_EQ(Order(), "231");
  EXPECT_EQ(InsertAtPosition(App(), 4, kRectangle, Box(4)), Status::Done);
  EXPECT_EQ(Order(), "2314");
}

TEST_F(DisplayStack, a_position_gives_its_class_and_visible) {
  Append(1);
  EXPECT_EQ(AppendOnTop(App(), ItemType::Text, Box(2)), Status::Done);
  StackedVisible entry;
  EXPECT_EQ(EntryAtPosition(App(), 1, entry), Status::Done);
  EXPECT_EQ(entry.visible, &Box(1));
  EXPECT_EQ(entry.kind, kRectangle);
  EXPECT_EQ(EntryAtPosition(App(), 2, entry), Status::Done);
  EXPECT_EQ(entry.visible, &Box(2));
  EXPECT_EQ(entry.kind, ItemType::Text);
}

TEST_F(DisplayStack, positions_that_do_not_exist_are_harmless) {
  Append(1);
  StackedVisible entry;
  for (const std::int32_t position : {INT32_MIN, -1, 0, 2, INT32_MAX}) {
    EXPECT_EQ(EntryAtPosition(App(), position, entry), Status::Refused) << position;
  }
  EXPECT_EQ(entry.visible, nullptr);
}

TEST_F(DisplayStack, removing_the_top_gives_it_back) {
  Append(1);
  Append(2);
  StackedVisible entry;
  EXPECT_EQ(RemoveTop(App(), entry), Status::Done);
  EXPECT_EQ(entry.visible, &Box(2));
  EXPECT_EQ(entry.kind, kRectangle);
  EXPECT_EQ(Order(), "1");
  EXPECT_EQ(RemoveTop(App(), entry), Status::Done);
  EXPECT_EQ(RemoveTop(App(), entry), Status::Refused);
}

TEST_F(DisplayStack, removing_asks_for_class_and_visible) {
  Append(1);
  EXPECT_EQ(AppendOnTop(App(), ItemType::Text, Box(1)), Status::Done);
  Append(1);
  EXPECT_EQ(RemoveFromStack(App(), ItemType::Bitmap, Box(1)), Status::Refused);
  EXPECT_EQ(RemoveFromStack(App(), kRectangle, Box(2)), Status::Refused);
  EXPECT_EQ(App().DisplayStack.Size(), 3U);
  EXPECT_EQ(RemoveFromStack(App(), ItemType::Text, Box(1)), Status::Done);
  EXPECT_EQ(App().DisplayStack.Size(), 2U);
  EXPECT_EQ(RemoveFromStack(App(), ItemType::Text, Box(1)), Status::Refused);
}

TEST_F(DisplayStack, removing_takes_the_first_match_out) {
  Append(1);
  Append(2);
  Append(1);
  EXPECT_EQ(RemoveFromStack(App(), kRectangle, Box(1)), Status::Done);
  EXPECT_EQ(Order(), "21");
}

TEST_F(DisplayStack, a_visible_is_found_under_its_class_or_under_any) {
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

TEST_F(DisplayStack, insertions_below_and_above_stand_next_to_their_reference) {
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

TEST_F(DisplayStack, clearing_leaves_the_visibles_and_takes_new_entries) {
  StackThree();
  ClearStack(App());
  EXPECT_EQ(Order(), "");
  EXPECT_TRUE(Box(1).AvailabilityStatus);
  Append(2);
  EXPECT_EQ(Order(), "2");
}

TEST_F(DisplayStack, without_memory_the_list_stays_and_it_is_said) {
  StackThree();
  const auto failing = [&](auto&& insert) {
    return Do([&] {
      FailAllocation(1);
      const Status result = insert();
      FailAllocation(0);
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

TEST_F(DisplayStack, bring_to_front_puts_on_top) {
  StackThree();
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Done);
  EXPECT_EQ(Order(), "231");
}

TEST_F(DisplayStack, bring_to_front_of_the_top_changes_nothing) {
  StackThree();
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(3)); }), Status::Done);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, send_to_back_puts_at_the_bottom) {
  StackThree();
  EXPECT_EQ(Do([] { return SendToBack(kRectangle, Box(3)); }), Status::Done);
  EXPECT_EQ(Order(), "312");
}

TEST_F(DisplayStack, put_before_stands_right_above_its_reference) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(3), Box(1)); }), Status::Done);
  EXPECT_EQ(Order(), "132");
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(2)); }), Status::Done);
  EXPECT_EQ(Order(), "321");
}

TEST_F(DisplayStack, put_behind_stands_right_below_its_reference) {
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

TEST_F(DisplayStack, what_is_not_available_is_not_restacked) {
  StackThree();
  Box(1).AvailabilityStatus = false;
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Refused);
  EXPECT_EQ(Do([] { return SendToBack(kRectangle, Box(1)); }), Status::Refused);
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(3)); }), Status::Refused);
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(3)); }), Status::Refused);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, what_is_not_in_the_stack_under_its_class_is_not_restacked) {
  StackThree();
  Box(4).AvailabilityStatus = true;
  for (const auto& [kind, number] :
       {std::pair{kRectangle, 4}, std::pair{ItemType::Text, 1}, std::pair{ItemType::Bitmap, 3}}) {
    EXPECT_EQ(Do([&] { return BringToFront(kind, Box(number)); }), Status::Refused);
    EXPECT_EQ(Do([&] { return SendToBack(kind, Box(number)); }), Status::Refused);
    EXPECT_EQ(Do([&] { return PutBefore(kind, Box(number), Box(2)); }), Status::Refused);
    EXPECT_EQ(Do([&] { return PutBehind(kind, Box(number), Box(2)); }), Status::Refused);
  }
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, nothing_is_put_next_to_what_is_not_in_the_stack) {
  StackThree();
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(1), Box(4)); }), Status::Refused);
  EXPECT_EQ(Do([] { return PutBehind(kRectangle, Box(1), Box(4)); }), Status::Refused);
  EXPECT_EQ(Order(), "123");
}

TEST_F(DisplayStack, a_reference_of_any_class_will_do) {
  StackThree();
  Box(4).AvailabilityStatus = true;
  EXPECT_EQ(InsertAtBottom(App(), ItemType::Text, Box(4)), Status::Done);
  EXPECT_EQ(Do([] { return PutBefore(kRectangle, Box(3), Box(4)); }), Status::Done);
  EXPECT_EQ(Order(), "4312");
}

TEST_F(DisplayStack, restacking_a_running_visible_draws_again) {
  StackThree();
  ThePresentation().redraws = 0;
  EXPECT_EQ(Do([] { return BringToFront(kRectangle, Box(1)); }), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, 0) << "it does not run";
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

// ---- Who is in the stack ----

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
  EXPECT_EQ(Order(), "12") << "it keeps its place though it is not drawn";
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Order(), "21");
  EXPECT_EQ(Press(101), Status::Done);
  EXPECT_EQ(Order(), "2");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
}

TEST_F(DisplayStack, visibles_of_a_scene_leave_with_the_scene) {
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
