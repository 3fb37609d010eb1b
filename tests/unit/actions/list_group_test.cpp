// List groups: layout, scrolling, selection, and the events of each.
#include <set>

#include "stage.h"

namespace korvel::test {
namespace {

class ListGroupTest : public Stage {
 protected:
  // Runs list group 50 with `items` items and `cells` cells. Cell n is at y = 10 n. Creates `extra`
  // more rectangles that are not in the list.
  void StartList(int items, int cells, const std::string& attributes = "", int extra = 0) {
    std::string members;
    for (int number = 1; number <= items; ++number) members += "(" + std::to_string(number) + ")";
    std::string positions;
    for (int cell = 1; cell <= cells; ++cell) {
      positions += "(0 " + std::to_string(10 * cell) + ")";
    }
    Start(StoppedRectangles(items + extra) +
          "{:ListGroup 50 :InitiallyActive FALSE :TokenGroupItems (" + members + ") :Positions (" +
          positions + ") " + attributes +
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

  // The running items as "cell:item". The cell is derived from the position.
  static std::string Cells() {
    std::set<std::string> shown;
    for (const StackedVisible& entry : CurrentApplication()->DisplayStack) {
      const auto& visible = *static_cast<const Visible*>(entry.visible);
      EXPECT_TRUE(visible.RunningStatus);
      shown.insert(std::to_string(visible.Position.Y / 10) + ":" +
                   std::to_string(visible.Reference.Number));
    }
    std::string text;
    for (const std::string& one : shown) text += (text.empty() ? "" : " ") + one;
    return text;
  }

  static std::string Selected() {
    std::string selected;
    int index = 0;
    for (const ListItem& item : Object<ListGroup>(50).ItemList) {
      ++index;
      if (item.IsSelected) selected += std::to_string(index);
    }
    return selected;
  }
};

TEST_F(ListGroupTest, items_are_placed_into_the_cells_in_order) {
  StartList(5, 3);
  EXPECT_EQ(Cells(), "1:1 2:2 3:3");
  EXPECT_FALSE(IsRunning(4));
}

TEST_F(ListGroupTest, fewer_items_than_cells_leave_cells_empty) {
  StartList(2, 4);
  EXPECT_EQ(Cells(), "1:1 2:2");
}

TEST_F(ListGroupTest, the_layout_requests_one_redraw) {
  StartList(5, 3);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":ScrollItems(50 1)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 1);
}

TEST_F(ListGroupTest, stacking_actions_during_the_layout_do_not_redraw) {
  for (const char* action :
       {":BringToFront(7)", ":SendToBack(7)", ":PutBefore(7 8)", ":PutBehind(7 8)"}) {
    Start("{:Rectangle 7 :OrigBoxSize 9 9} {:Rectangle 8 :OrigBoxSize 9 9}"
          "{:Text 1 :InitiallyActive FALSE :OrigContent :ContentRef (\"~/none\") :OrigBoxSize 9 9}"
          "{:ListGroup 50 :InitiallyActive FALSE :TokenGroupItems ((1)) :Positions ((0 0))}"
          "{:Link 20 :EventSource 0 :EventType EngineEvent :LinkEffect (" +
          std::string(action) + " :Append(900 \"ran \"))}");
    const int before = ThePresentation().redraws;
    EXPECT_EQ(Run(":Run(50)"), Status::Done);
    EXPECT_EQ(TakeLog(), "ran");
    EXPECT_EQ(ThePresentation().redraws, before + 1) << action;
    EXPECT_EQ(Run(action), Status::Done);
    EXPECT_EQ(ThePresentation().redraws, before + 2) << action << " after the layout";
  }
}

TEST_F(ListGroupTest, stopping_a_list_group_stops_its_items) {
  StartList(3, 3);
  EXPECT_EQ(Run(":Stop(50)"), Status::Done);
  EXPECT_EQ(Stack(), "");
  EXPECT_FALSE(IsRunning(1));
}

TEST_F(ListGroupTest, scrolling_moves_the_first_item_and_raises_nothing) {
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
  EXPECT_EQ(Cells(), "1:1 2:2 3:3") << "a first item below 1 shows the list from item 1";
}

TEST_F(ListGroupTest, scrolling_past_the_largest_integer_wraps) {
  StartList(5, 3, ":WrapAround TRUE");
  EXPECT_EQ(Run(":SetFirstItem(50 2147483647) :ScrollItems(50 2147483647) :GetFirstItem(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), -2);
}

TEST_F(ListGroupTest, setting_the_first_item_raises_an_event_for_each_change) {
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

TEST_F(ListGroupTest, a_list_that_wraps_around_continues_with_its_first_item) {
  StartList(5, 3, ":WrapAround TRUE");
  EXPECT_EQ(Run(":ScrollItems(50 3)"), Status::Done);
  EXPECT_EQ(Cells(), "1:4 2:5 3:1");
  EXPECT_EQ(Run(":SetFirstItem(50 10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "head4 tail0") << "item 10 of a list of 5 is the fifth";
}

TEST_F(ListGroupTest, more_cells_than_items_place_each_item_once) {
  StartList(3, 5, ":WrapAround TRUE");
  EXPECT_EQ(Run(":SetFirstItem(50 2)"), Status::Done);
  EXPECT_EQ(Object<Rectangle>(2).Position.Y, 10);
  EXPECT_EQ(Object<Rectangle>(3).Position.Y, 20);
  EXPECT_EQ(Object<Rectangle>(1).Position.Y, 30);
}

TEST_F(ListGroupTest, a_negative_first_item_of_a_wrapping_list_shows_it_from_item_1) {
  StartList(5, 3, ":WrapAround TRUE");
  EXPECT_EQ(Run(":SetFirstItem(50 -2)"), Status::Done);
  EXPECT_EQ(Cells(), "1:1 2:2 3:3");
  EXPECT_EQ(TakeLog(), "tail5") << "the counts use the negative number itself";
}

TEST_F(ListGroupTest, adding_and_deleting_raise_an_event_for_each_change) {
  StartList(3, 3, "", 1);
  EXPECT_EQ(Run(":AddItem(50 1 4)"), Status::Done);
  EXPECT_EQ(Cells(), "1:4 2:1 3:2");
  EXPECT_EQ(TakeLog(), "last- tail3");
  EXPECT_EQ(Run(":DelItem(50 4)"), Status::Done);
  EXPECT_EQ(Cells(), "1:1 2:2 3:3");
  EXPECT_EQ(TakeLog(), "last+ tail2");
  EXPECT_FALSE(IsRunning(4));
}

TEST_F(ListGroupTest, items_are_added_within_the_list_or_directly_after_it) {
  StartList(2, 5, "", 3);
  EXPECT_EQ(Run(":AddItem(50 0 3) :AddItem(50 4 3) :AddItem(50 -1 3) :GetListSize(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), 2);
  EXPECT_EQ(Run(":AddItem(50 3 3) :GetListSize(50 60) :GetListItem(50 3 62)"), Status::Done);
  EXPECT_EQ(Integer(60), 3);
  EXPECT_EQ(Object<ObjectRefVariable>(62).Value.Number, 3);
}

TEST_F(ListGroupTest, only_a_visible_that_is_not_yet_in_the_list_is_added) {
  StartList(2, 5, "", 1);
  EXPECT_EQ(Run(":AddItem(50 1 1) :AddItem(50 1 60) :AddItem(50 1 77) :AddItem(50 1 0)"
                ":AddItem(50 1 50) :GetListSize(50 60)"),
            Status::Done);
  EXPECT_EQ(Integer(60), 2);
}

TEST_F(ListGroupTest, deleting_an_object_that_is_not_in_the_list_does_nothing) {
  StartList(2, 5, "", 1);
  EXPECT_EQ(Run(":DelItem(50 3) :DelItem(50 77) :GetListSize(50 60)"), Status::Done);
  EXPECT_EQ(Integer(60), 2);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ListGroupTest, a_wrapping_list_may_become_empty) {
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

TEST_F(ListGroupTest, an_index_wraps_with_the_list) {
  StartList(5, 3, ":WrapAround TRUE :MultipleSelection TRUE");
  EXPECT_EQ(Run(":SelectItem(50 7) :SelectItem(50 0) :SelectItem(50 -1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "select2 select5 select1");
}

TEST_F(ListGroupTest, an_index_outside_a_list_that_does_not_wrap_selects_nothing) {
  StartList(5, 3);
  EXPECT_EQ(Run(":SelectItem(50 7) :SelectItem(50 0) :SelectItem(50 -1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Selected(), "");
}

TEST_F(ListGroupTest, single_selection_deselects_the_others_first) {
  StartList(5, 3);
  Object<ListGroup>(50).ItemList.At(0)->IsSelected = true;
  Object<ListGroup>(50).ItemList.At(3)->IsSelected = true;
  EXPECT_EQ(Run(":SelectItem(50 3) :SelectItem(50 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "deselect1 deselect4 select3");
  EXPECT_EQ(Selected(), "3");
}

TEST_F(ListGroupTest, toggling_and_deselecting_change_one_item) {
  StartList(5, 3, ":MultipleSelection TRUE");
  EXPECT_EQ(Run(":ToggleItem(50 1) :ToggleItem(50 2) :ToggleItem(50 1) :DeselectItem(50 2)"
                ":DeselectItem(50 2) :SelectItem(50 4) :GetItemStatus(50 4 61)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "select1 select2 deselect1 deselect2 select4");
  EXPECT_TRUE(Boolean(61));
}

TEST_F(ListGroupTest, select_and_deselect_apply_to_the_item_with_the_token) {
  StartList(3, 3);
  EXPECT_EQ(Run(":MoveTo(50 2) :Select(50) :MoveTo(50 9) :Select(50) :MoveTo(50 2) :Deselect(50)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "select2 deselect2");
}

TEST_F(ListGroupTest, an_item_deleted_while_another_is_deselected_is_not_selected) {
  Start(StoppedRectangles(3) +
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

TEST_F(ListGroupTest, get_cell_item_returns_the_item_in_the_cell) {
  StartList(5, 3);
  const ObjectReference& item = Object<ObjectRefVariable>(62).Value;
  EXPECT_EQ(Run(":SetFirstItem(50 2) :GetCellItem(50 2 62)"), Status::Done);
  EXPECT_EQ(item.Number, 3);
  EXPECT_EQ(item.GroupIdentifier.View(), "~/a");
  EXPECT_EQ(Run(":GetCellItem(50 100 62)"), Status::Done);
  EXPECT_EQ(item.Number, 4) << "a cell past the last means the last";
  EXPECT_EQ(Run(":GetCellItem(50 -5 62)"), Status::Done);
  EXPECT_EQ(item.Number, 2);
  EXPECT_EQ(Run(":SetFirstItem(50 5) :GetCellItem(50 2 62)"), Status::Done);
  EXPECT_EQ(item.Number, 0) << "an empty cell clears the reference";
  EXPECT_TRUE(item.GroupIdentifier.View().empty());
}

TEST_F(ListGroupTest, get_cell_item_without_cells_clears_the_reference) {
  StartList(3, 0);
  EXPECT_EQ(Stack(), "");
  EXPECT_EQ(Run(":GetCellItem(50 1 62)"), Status::Done);
  EXPECT_EQ(Object<ObjectRefVariable>(62).Value.Number, 0);
}

TEST_F(ListGroupTest, moving_a_cell_moves_the_item_in_it) {
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

TEST_F(ListGroupTest, a_list_group_restarted_while_it_stops_keeps_its_items) {
  Start(StoppedRectangles(2) +
        "{:ListGroup 50 :TokenGroupItems ((1) (2)) :Positions ((0 10) (0 20))}"
        "{:Link 20 :EventSource 50 :EventType TokenMovedFrom :LinkEffect (:Run(50))}" +
        Watch(50, "IsStopped", "stopped"));
  EXPECT_EQ(Run(":Stop(50)"), Status::Done);
  EXPECT_TRUE(IsRunning(50));
  EXPECT_EQ(Cells(), "1:1 2:2");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(ListGroupTest, items_of_an_ended_scene_are_skipped) {
  AddScene("t", "");
  StartWithScene("{:ListGroup 50 :Shared TRUE :TokenGroupItems () :Positions ((0 0) (0 9))}",
                 StoppedRectangles(1));
  EXPECT_EQ(Run(R"(:AddItem(50 1 ("~/s" 1)))"), Status::Done);
  EXPECT_EQ(Stack(), "1");
  EXPECT_EQ(Run(R"(:TransitionTo(("~/t" 0)))"), Status::Replaced);
  BeginWork();
  EXPECT_EQ(Run(":ScrollItems(50 1) :SetFirstItem(50 1) :Stop(50) :Run(50)"), Status::Done);
  EXPECT_EQ(Stack(), "");
}

TEST_F(ListGroupTest, a_link_on_a_missing_file_may_empty_the_list_during_its_layout) {
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
