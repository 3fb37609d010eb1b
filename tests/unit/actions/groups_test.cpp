// Token groups and list groups: running members, moving the token, layout, scrolling, selection,
// and the events of each.
#include <set>

#include "stage.h"

namespace korvel::test {
namespace {

class GroupsTest : public Stage {
 protected:
  // A running token group 10 over the visibles 1 to 3, with its events logged.
  void StartTokens(const std::string& attributes = "") {
    Start(
        Visibles(3) +
        "{:TokenGroup 10 :InitiallyActive FALSE :MovementTable ((2 3 1) (3) (1 1 1))"
        " :TokenGroupItems ((1 :ActionSlots ((:Add(20 1)) NULL (:Add(20 100))))"
        " (2 :ActionSlots ((:Add(20 2)))) (3)) :NoTokenActionSlots ((:Add(20 5)) (:Add(20 50))) " +
        attributes + "} {:IntegerVar 20 :OrigValue 0} {:IntegerVar 21 :OrigValue 0}" +
        WatchInteger(10, "TokenMovedFrom", "from", 0, 3) +
        WatchInteger(10, "TokenMovedTo", "to", 0, 3) + Watch(10, "IsRunning", "running") +
        Watch(10, "IsStopped", "stopped"));
    EXPECT_EQ(Run(":Run(10)"), Status::Done);
    EXPECT_EQ(TakeLog(), "to1 running");
  }

  // A running list group 10 of `items` items over `cells` cells, item n at y 10 n.
  void StartList(int items, int cells, const std::string& attributes = "", int extra = 0) {
    std::string members;
    for (int number = 1; number <= items; ++number) members += "(" + std::to_string(number) + ")";
    std::string positions;
    for (int cell = 1; cell <= cells; ++cell) {
      positions += "(0 " + std::to_string(10 * cell) + ")";
    }
    Start(Visibles(items + extra) + "{:ListGroup 50 :InitiallyActive FALSE :TokenGroupItems (" +
          members + ") :Positions (" + positions + ") " + attributes +
          "} {:IntegerVar 60 :OrigValue -1} {:BooleanVar 61 :OrigValue FALSE}"
          "{:ObjectRefVar 62 :OrigValue :ObjectRef (\"~/x\" 99)}" +
          WatchBoolean(50, "FirstItemPresented", "first") +
          WatchBoolean(50, "LastItemPresented", "last") +
          WatchInteger(50, "HeadItems", "head", 0, 6) +
          WatchInteger(50, "TailItems", "tail", 0, 6) +
          WatchInteger(50, "ItemSelected", "select", 1, 6) +
          WatchInteger(50, "ItemDeselected", "deselect", 1, 6));
    EXPECT_EQ(Run(":Run(50)"), Status::Done);
    EXPECT_EQ(TakeLog(), "");
  }

  // What stands in the cells: cell and item, by the positions that the running items were given.
  static std::string Cells() {
    std::set<std::string> shown;
    for (const StackedVisible& entry : CurrentApplication()->DisplayStack) {
      const auto& visible = *static_cast<const Visible*>(entry.Visible);
      EXPECT_TRUE(visible.RunningStatus);
      shown.insert(std::to_string(visible.Position.Y / 10) + ":" +
                   std::to_string(visible.Reference.Number));
    }
    std::string text;
    for (const std::string& one : shown) text += (text.empty() ? "" : " ") + one;
    return text;
  }

  static std::string Visibles(int count) {
    std::string items;
    for (int number = 1; number <= count; ++number) {
      items += "{:Rectangle " + std::to_string(number) +
               " :InitiallyActive FALSE"
               " :OrigBoxSize 9 9} ";
    }
    return items;
  }

  static std::string Selected() {
    std::string selected;
    int place = 0;
    for (const ListItem& item : Object<ListGroup>(50).ItemList) {
      ++place;
      if (item.IsSelected) selected += std::to_string(place);
    }
    return selected;
  }
};

TEST_F(GroupsTest, a_token_group_runs_its_members_before_itself) {
  Start(Visibles(2) + "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((1) (2))}" +
        Watch(1, "IsRunning", "one") + Watch(2, "IsRunning", "two") +
        Watch(10, "TokenMovedTo", "token", "1") + Watch(10, "IsRunning", "group"));
  EXPECT_EQ(Run(":Run(10) :Run(10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "one two token group");
  EXPECT_EQ(Stack(), "1 2");
}

TEST_F(GroupsTest, a_member_that_is_no_visible_is_told_and_passed_over) {
  Start(Visibles(1) + "{:IntegerVar 3 :OrigValue 0}"
                      "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((3) (77) (1))}");
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":Run(10)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "TokenGroup Activation Error\nTokenGroup Activation Error\n");
  EXPECT_TRUE(IsRunning(10));
  EXPECT_EQ(Stack(), "1");
}

TEST_F(GroupsTest, stopping_a_token_group_stops_its_members) {
  StartTokens();
  EXPECT_EQ(Run(":Stop(10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "from1 stopped");
  EXPECT_EQ(Stack(), "");
}

TEST_F(GroupsTest, a_group_without_members_holds_no_token) {
  Start("{:TokenGroup 10 :TokenGroupItems ()} {:IntegerVar 1 :OrigValue 9}");
  EXPECT_EQ(Run(":GetTokenPosition(10 1)"), Status::Done);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(GroupsTest, moving_to_the_same_position_raises_nothing) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 1) :MoveTo(10 3) :GetTokenPosition(10 20)"), Status::Done);
  EXPECT_EQ(TakeLog(), "from1 to3");
  EXPECT_EQ(Integer(20), 3);
}

TEST_F(GroupsTest, any_position_may_be_moved_to) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 -7) :GetTokenPosition(10 20) :MoveTo(10 1000)"
                ":GetTokenPosition(10 21)"),
            Status::Done);
  EXPECT_EQ(Integer(20), -7);
  EXPECT_EQ(Integer(21), 1000);
}

TEST_F(GroupsTest, a_movement_leads_from_each_position_to_its_target) {
  StartTokens();
  EXPECT_EQ(Run(":Move(10 1) :Move(10 1) :Move(10 1) :Move(10 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "from1 to2 from2 to3 from3 to1");
}

TEST_F(GroupsTest, a_missing_movement_is_told_and_the_list_goes_on) {
  StartTokens();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":Move(10 4) :Move(10 0) :Move(10 -1) :Add(20 1)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "MovementIdentifier Error\nMovementIdentifier Error\nMovementIdentifier Error\n");
  EXPECT_EQ(Integer(20), 1);
}

TEST_F(GroupsTest, a_movement_that_is_too_short_ends_the_list) {
  StartTokens();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":MoveTo(10 2) :Move(10 2) :Add(20 1)"), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Element Error\n");
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(GroupsTest, without_a_token_there_is_no_movement) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 0) :Move(10 1) :GetTokenPosition(10 20)"), Status::Done);
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(GroupsTest, a_link_that_quits_keeps_the_token_where_it_is) {
  AddFile("b", R"({:Application ("~/b" 0)})");
  Start(Visibles(2) +
        "{:TokenGroup 10 :TokenGroupItems ((1) (2))} {:Link 20 :EventSource 10"
        " :EventType TokenMovedFrom :LinkEffect (:Quit(0))}" +
        Watch(10, "TokenMovedTo", "to"));
  const Busy busy;  // keeps the ended application readable
  const TokenGroup& group = Object<TokenGroup>(10);
  EXPECT_EQ(Run(":MoveTo(10 2)"), Status::Failure);
  EXPECT_EQ(group.TokenPosition, 1);
}

TEST_F(GroupsTest, action_slots_go_with_the_token) {
  StartTokens();
  EXPECT_EQ(Run(":CallActionSlot(10 1)"), Status::Done);
  EXPECT_EQ(Integer(20), 1);
  EXPECT_EQ(Run(":CallActionSlot(10 0) :CallActionSlot(10 -5)"), Status::Done);
  EXPECT_EQ(Integer(20), 3) << "indices below 1 count as 1";
  EXPECT_EQ(Run(":CallActionSlot(10 2) :CallActionSlot(10 4) :CallActionSlot(10 3)"), Status::Done);
  EXPECT_EQ(Integer(20), 103) << "an empty or missing slot does nothing";
  EXPECT_EQ(Run(":MoveTo(10 3) :CallActionSlot(10 1)"), Status::Done);
  EXPECT_EQ(Integer(20), 103);
}

TEST_F(GroupsTest, without_a_token_the_no_token_slots_are_called) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 0) :CallActionSlot(10 2) :MoveTo(10 -3) :CallActionSlot(10 1)"),
            Status::Done);
  EXPECT_EQ(Integer(20), 55);
}

TEST_F(GroupsTest, a_token_past_the_members_ends_the_list_that_calls_a_slot) {
  StartTokens();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":MoveTo(10 4) :CallActionSlot(10 1) :Add(20 1)"), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "TokenGroupItem Error\n");
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(GroupsTest, a_slot_that_changes_the_scene_ends_the_calling_list) {
  AddScene("t", "");
  StartWithScene("{:IntegerVar 20 :OrigValue 0}", Visibles(1) + R"({:TokenGroup 10 :TokenGroupItems
                     ((1 :ActionSlots ((:TransitionTo(("~/t" 0))))))})");
  EXPECT_EQ(Run(":CallActionSlot(10 1) :Add((\"~/a\" 20) 1)", Scope::SceneFirst), Status::Replaced);
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(GroupsTest, a_group_that_does_not_run_does_nothing) {
  StartTokens();
  EXPECT_EQ(Run(":SetVariable(20 :GInteger 9) :Stop(10)"), Status::Done);
  TakeLog();
  EXPECT_EQ(Run(":MoveTo(10 2) :Move(10 1) :CallActionSlot(10 1) :GetTokenPosition(10 20)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Integer(20), 9);
}

TEST_F(GroupsTest, items_are_placed_into_the_cells_in_order) {
  StartList(5, 3);
  EXPECT_EQ(Cells(), "1:1 2:2 3:3");
  EXPECT_FALSE(IsRunning(4));
}

TEST_F(GroupsTest, fewer_items_than_cells_leave_cells_empty) {
  StartList(2, 4);
  EXPECT_EQ(Cells(), "1:1 2:2");
}

TEST_F(GroupsTest, the_layout_asks_for_one_redraw) {
  StartList(5, 3);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":ScrollItems(50 1)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 1);
}

TEST_F(GroupsTest, the_layout_holds_back_the_redraws_of_stacking_actions) {
  for (const char* action :
       {":BringToFront(7)", ":SendToBack(7)", ":PutBefore(7 8)", ":PutBehind(7 8)"}) {
    Start("{:Rectangle 7 :OrigBoxSize 9 9} {:Rectangle 8 :OrigBoxSize 9 9}"
          "{:Text 1 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/none\") :OrigBoxSize 9 9}"
          "{:ListGroup 50 :InitiallyActive FALSE :TokenGroupItems ((1)) :Positions ((0 0))}"
          "{:Link 20 :EventSource 0 :EventType EngineEvent :LinkEffect (" +
          std::string(action) + " :Append(900 \"told \"))}");
    const int before = ThePresentation().redraws;
    EXPECT_EQ(Run(":Run(50)"), Status::Done);
    EXPECT_EQ(TakeLog(), "told");
    EXPECT_EQ(ThePresentation().redraws, before + 1) << action;
    EXPECT_EQ(Run(action), Status::Done);
    EXPECT_EQ(ThePresentation().redraws, before + 2) << action << " after the layout";
  }
}

TEST_F(GroupsTest, stopping_a_list_group_takes_its_items_off_the_screen) {
  StartList(3, 3);
  EXPECT_EQ(Run(":Stop(50)"), Status::Done);
  EXPECT_EQ(Stack(), "");
  EXPECT_FALSE(IsRunning(1));
}

TEST_F(GroupsTest, scrolling_moves_the_first_item_and_raises_nothing) {
  StartList(5, 3);
  EXPECT_EQ(Run(":ScrollItems(50 2) :GetFirstItem(50 60)"), Status::Done);
  EXPECT_EQ(Cells(), "1:3 2:4 3:5");
  EXPECT_EQ(Integer(60), 3);
  EXPECT_EQ(Run(":ScrollItems(50 2)"), Status::Done);
  EXPECT_EQ(Cells(), "1:5");
  EXPECT_EQ(Run(":ScrollItems(50 2)"), Status::Done);
  EXPECT_EQ(Cells(), "");
  EXPECT_EQ(Run(":SetFirstItem(50 -4)"), Status::Done);
  TakeLog();
  EXPECT_EQ(Cells(), "1:1 2:2 3:3") << "no items come before the first";
}

TEST_F(GroupsTest, scrolling_beyond_all_numbers_wraps) {
  StartList(5, 3, ":WrapAround TRUE");
  EXPECT_EQ(Run(":SetFirstItem(50 2147483647) :ScrollItems(50 2147483647) :GetFirstItem(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), -2);
}

TEST_F(GroupsTest, setting_the_first_item_tells_what_changed) {
  StartList(5, 3);
  EXPECT_EQ(Run(":SetFirstItem(50 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "first- last+ head2 tail2");
  EXPECT_EQ(Run(":SetFirstItem(50 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Run(":SetFirstItem(50 0)"), Status::Done);
  EXPECT_EQ(TakeLog(), "first+ last- head0 tail5");
  EXPECT_EQ(Run(":SetFirstItem(50 6)"), Status::Done);
  EXPECT_EQ(TakeLog(), "first- head5 tail0");
}

TEST_F(GroupsTest, a_list_that_wraps_around_continues_with_its_first_item) {
  StartList(5, 3, ":WrapAround TRUE");
  EXPECT_EQ(Run(":ScrollItems(50 3)"), Status::Done);
  EXPECT_EQ(Cells(), "1:4 2:5 3:1");
  EXPECT_EQ(Run(":SetFirstItem(50 10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "head4 tail0") << "10 of 5 items is the fifth";
}

TEST_F(GroupsTest, more_cells_than_items_place_each_item_once) {
  StartList(3, 5, ":WrapAround TRUE");
  EXPECT_EQ(Run(":SetFirstItem(50 2)"), Status::Done);
  EXPECT_EQ(Object<Rectangle>(2).Position.Y, 10);
  EXPECT_EQ(Object<Rectangle>(3).Position.Y, 20);
  EXPECT_EQ(Object<Rectangle>(1).Position.Y, 30);
}

TEST_F(GroupsTest, a_negative_first_item_of_a_list_that_wraps_starts_at_the_first) {
  StartList(5, 3, ":WrapAround TRUE");
  EXPECT_EQ(Run(":SetFirstItem(50 -2)"), Status::Done);
  EXPECT_EQ(Cells(), "1:1 2:2 3:3");
  EXPECT_EQ(TakeLog(), "tail5") << "the counts go by the number as it is";
}

TEST_F(GroupsTest, adding_and_deleting_tell_what_changed) {
  StartList(3, 3, "", 1);
  EXPECT_EQ(Run(":AddItem(50 1 4)"), Status::Done);
  EXPECT_EQ(Cells(), "1:4 2:1 3:2");
  EXPECT_EQ(TakeLog(), "last- tail3");
  EXPECT_EQ(Run(":DelItem(50 4)"), Status::Done);
  EXPECT_EQ(Cells(), "1:1 2:2 3:3");
  EXPECT_EQ(TakeLog(), "last+ tail2");
  EXPECT_FALSE(IsRunning(4));
}

TEST_F(GroupsTest, items_are_added_within_the_list_or_right_behind_it) {
  StartList(2, 5, "", 3);
  EXPECT_EQ(Run(":AddItem(50 0 3) :AddItem(50 4 3) :AddItem(50 -1 3) :GetListSize(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), 2);
  EXPECT_EQ(Run(":AddItem(50 3 3) :GetListSize(50 60) :GetListItem(50 3 62)"), Status::Done);
  EXPECT_EQ(Integer(60), 3);
  EXPECT_EQ(Object<ObjectRefVariable>(62).Value.Number, 3);
}

TEST_F(GroupsTest, only_a_visible_that_is_not_in_the_list_is_added) {
  StartList(2, 5, "", 1);
  EXPECT_EQ(Run(":AddItem(50 1 1) :AddItem(50 1 60) :AddItem(50 1 77) :AddItem(50 1 0)"
                ":AddItem(50 1 50) :GetListSize(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), 2);
}

TEST_F(GroupsTest, deleting_what_is_not_in_the_list_does_nothing) {
  StartList(2, 5, "", 1);
  EXPECT_EQ(Run(":DelItem(50 3) :DelItem(50 77) :GetListSize(50 60)"), Status::Done);
  EXPECT_EQ(Integer(60), 2);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(GroupsTest, a_list_may_run_empty_even_when_it_wraps_around) {
  StartList(1, 2, ":WrapAround TRUE");
  EXPECT_EQ(Run(":DelItem(50 1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "first- last-");
  EXPECT_EQ(Run(":ScrollItems(50 1) :SetFirstItem(50 7) :SelectItem(50 1) :ToggleItem(50 0)"
                ":DeselectItem(50 -1) :GetItemStatus(50 1 61) :GetListItem(50 1 62)"
                ":GetCellItem(50 1 62) :GetListSize(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), 0);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(GroupsTest, an_index_wraps_with_the_list) {
  StartList(5, 3, ":WrapAround TRUE :MultipleSelection TRUE");
  EXPECT_EQ(Run(":SelectItem(50 7) :SelectItem(50 0) :SelectItem(50 -1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "select2 select5 select1");
}

TEST_F(GroupsTest, an_index_outside_a_list_that_does_not_wrap_means_none) {
  StartList(5, 3);
  EXPECT_EQ(Run(":SelectItem(50 7) :SelectItem(50 0) :SelectItem(50 -1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Selected(), "");
}

TEST_F(GroupsTest, single_selection_deselects_the_others_first) {
  StartList(5, 3);
  Object<ListGroup>(50).ItemList.At(0)->IsSelected = true;
  Object<ListGroup>(50).ItemList.At(3)->IsSelected = true;
  EXPECT_EQ(Run(":SelectItem(50 3) :SelectItem(50 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "deselect1 deselect4 select3");
  EXPECT_EQ(Selected(), "3");
}

TEST_F(GroupsTest, toggling_and_deselecting_change_one_item) {
  StartList(5, 3, ":MultipleSelection TRUE");
  EXPECT_EQ(Run(":ToggleItem(50 1) :ToggleItem(50 2) :ToggleItem(50 1) :DeselectItem(50 2)"
                ":DeselectItem(50 2) :SelectItem(50 4) :GetItemStatus(50 4 61)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "select1 select2 deselect1 deselect2 select4");
  EXPECT_TRUE(Boolean(61));
}

TEST_F(GroupsTest, select_and_deselect_mean_the_item_that_holds_the_token) {
  StartList(3, 3);
  EXPECT_EQ(Run(":MoveTo(50 2) :Select(50) :MoveTo(50 9) :Select(50) :MoveTo(50 2) :Deselect(50)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "select2 deselect2");
}

TEST_F(GroupsTest, an_item_that_is_deleted_while_others_are_deselected_is_not_told) {
  StartList(3, 3);
  EXPECT_EQ(Run(":SelectItem(50 1)"), Status::Done);
  TakeLog();
  Start(Visibles(3) +
        "{:ListGroup 50 :TokenGroupItems ((1) (2) (3)) :Positions ((0 0))}"
        "{:Link 20 :EventSource 50 :EventType ItemDeselected"
        " :LinkEffect (:DelItem(50 3) :DelItem(50 1))}" +
        WatchInteger(50, "ItemSelected", "select", 1, 3));
  EXPECT_EQ(Run(":SelectItem(50 1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "select1");
  EXPECT_EQ(Run(":SelectItem(50 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Object<ListGroup>(50).ItemList.Size(), 1U);
}

TEST_F(GroupsTest, a_cell_tells_the_item_that_stands_in_it) {
  StartList(5, 3);
  const ObjectReference& answer = Object<ObjectRefVariable>(62).Value;
  EXPECT_EQ(Run(":SetFirstItem(50 2) :GetCellItem(50 2 62)"), Status::Done);
  EXPECT_EQ(answer.Number, 3);
  EXPECT_EQ(answer.GroupIdentifier.View(), "~/a");
  EXPECT_EQ(Run(":GetCellItem(50 100 62)"), Status::Done);
  EXPECT_EQ(answer.Number, 4) << "past the last cell counts as the last";
  EXPECT_EQ(Run(":GetCellItem(50 -5 62)"), Status::Done);
  EXPECT_EQ(answer.Number, 2);
  EXPECT_EQ(Run(":SetFirstItem(50 5) :GetCellItem(50 2 62)"), Status::Done);
  EXPECT_EQ(answer.Number, 0) << "an empty cell clears the reference";
  EXPECT_TRUE(answer.GroupIdentifier.View().empty());
}

TEST_F(GroupsTest, without_cells_only_the_reference_is_cleared) {
  StartList(3, 0);
  EXPECT_EQ(Stack(), "");
  EXPECT_EQ(Run(":GetCellItem(50 1 62)"), Status::Done);
  EXPECT_EQ(Object<ObjectRefVariable>(62).Value.Number, 0);
}

TEST_F(GroupsTest, a_cell_is_moved_with_the_item_in_it) {
  StartList(3, 2);
  const auto move = [](std::int32_t cell, std::int32_t x, std::int32_t y) {
    return RunOne(Action::SetCellPosition, 50,
                  ParametersOf(IntegerValue(cell), IntegerValue(x), IntegerValue(y)));
  };
  EXPECT_EQ(move(0, 5, 70), Status::Done);
  EXPECT_EQ(Object<Rectangle>(1).Position.X, 5);
  EXPECT_EQ(Object<Rectangle>(1).Position.Y, 70);
  EXPECT_EQ(move(9, 6, 80), Status::Done);
  EXPECT_EQ(Object<Rectangle>(2).Position.Y, 80);
}

// A link of the group's stop runs it again: it goes on with its members, and its stop is not told.
TEST_F(GroupsTest, a_token_group_that_is_run_again_as_it_stops_keeps_its_members) {
  for (const char* event : {"10 :EventType TokenMovedFrom", "1 :EventType IsStopped"}) {
    Start(Visibles(2) + "{:TokenGroup 10 :TokenGroupItems ((1) (2))}" + "{:Link 20 :EventSource " +
          event + " :LinkEffect (:Run(10))}" + Watch(10, "IsStopped", "stopped"));
    EXPECT_EQ(Run(":Stop(10)"), Status::Done);
    EXPECT_TRUE(IsRunning(10)) << event;
    EXPECT_TRUE(IsRunning(1)) << event;
    EXPECT_TRUE(IsRunning(2)) << event;
    EXPECT_EQ(TakeLog(), "") << event;
  }
}

TEST_F(GroupsTest, a_list_group_that_is_run_again_as_it_stops_keeps_its_items) {
  Start(Visibles(2) +
        "{:ListGroup 50 :TokenGroupItems ((1) (2)) :Positions ((0 10) (0 20))}"
        "{:Link 20 :EventSource 50 :EventType TokenMovedFrom :LinkEffect (:Run(50))}" +
        Watch(50, "IsStopped", "stopped"));
  EXPECT_EQ(Run(":Stop(50)"), Status::Done);
  EXPECT_TRUE(IsRunning(50));
  EXPECT_EQ(Cells(), "1:1 2:2");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(GroupsTest, items_of_an_ended_scene_are_passed_over) {
  AddScene("t", "");
  StartWithScene("{:ListGroup 50 :Shared TRUE :TokenGroupItems () :Positions ((0 0) (0 9))}",
                 Visibles(1));
  EXPECT_EQ(Run(R"(:AddItem(50 1 ("~/s" 1)))"), Status::Done);
  EXPECT_EQ(Stack(), "1");
  EXPECT_EQ(Run(R"(:TransitionTo(("~/t" 0)))"), Status::Replaced);
  BeginWork();
  EXPECT_EQ(Run(":ScrollItems(50 1) :SetFirstItem(50 1) :Stop(50) :Run(50)"), Status::Done);
  EXPECT_EQ(Stack(), "");
}

TEST_F(GroupsTest, a_list_with_a_file_that_cannot_be_fetched_survives_a_link_that_empties_it) {
  Start("{:Text 1 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/none\") :OrigBoxSize 9 9}"
        "{:Text 2 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/none\") :OrigBoxSize 9 9}"
        "{:ListGroup 50 :InitiallyActive FALSE :TokenGroupItems ((1) (2)) :Positions ((0 0)(0 9))}"
        "{:Link 20 :EventSource 0 :EventType EngineEvent"
        " :LinkEffect (:DelItem(50 2) :DelItem(50 1))}");
  EXPECT_EQ(Run(":Run(50)"), Status::Done);
  EXPECT_TRUE(Object<ListGroup>(50).ItemList.IsEmpty());
}

}  // namespace
}  // namespace korvel::test
