// Token groups: running members, moving the token, action slots, and the events of each.
#include "stage.h"

namespace korvel::test {
namespace {

class TokenGroupTest : public Stage {
 protected:
  // Runs token group 10 with the visibles 1 to 3 and logs its events.
  void StartTokens(const std::string& attributes = "") {
    Start(
        StoppedRectangles(3) +
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
};

TEST_F(TokenGroupTest, a_token_group_runs_its_members_before_itself) {
  Start(StoppedRectangles(2) +
        "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((1) (2))}" +
        Watch(1, "IsRunning", "one") + Watch(2, "IsRunning", "two") +
        Watch(10, "TokenMovedTo", "token", "1") + Watch(10, "IsRunning", "group"));
  EXPECT_EQ(Run(":Run(10) :Run(10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "one two token group");
  EXPECT_EQ(Stack(), "1 2");
}

TEST_F(TokenGroupTest, a_link_of_a_member_that_runs_the_group_runs_it_once) {
  Start(StoppedRectangles(1) +
        "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((1))}"
        "{:Link 11 :EventSource 1 :EventType IsRunning"
        " :LinkEffect (:Run(10))}" +
        Watch(10, "TokenMovedTo", "token", "1") + Watch(10, "IsRunning", "group"));
  EXPECT_EQ(Run(":Run(10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "token group");
  EXPECT_TRUE(IsRunning(10));
}

TEST_F(TokenGroupTest, a_member_that_is_no_visible_is_reported_and_skipped) {
  Start(StoppedRectangles(1) +
        "{:IntegerVar 3 :OrigValue 0}"
        "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((3) (77) (1))}");
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":Run(10)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "TokenGroup Activation Error\nTokenGroup Activation Error\n");
  EXPECT_TRUE(IsRunning(10));
  EXPECT_EQ(Stack(), "1");
}

// The reference of an object may name another group.
TEST_F(TokenGroupTest, members_of_an_applications_group_are_its_objects_rather_than_the_scenes) {
  StartWithScene("{:Rectangle (\"~/s\" 1) :InitiallyActive FALSE :OrigBoxSize 1 1}"
                 "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems (((\"~/s\" 1)))}",
                 "{:Rectangle 1 :InitiallyActive FALSE :OrigBoxSize 1 1}"
                 "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((1))}");
  const auto isRunning = [](Scope scope) {
    return FindObject(scope, "~/s", 1).As<Rectangle>().RunningStatus;
  };
  EXPECT_EQ(Run(":Run((\"~/a\" 10))"), Status::Done);
  EXPECT_TRUE(isRunning(Scope::ApplicationFirst));
  EXPECT_FALSE(isRunning(Scope::SceneFirst));
  EXPECT_EQ(Run(":Stop((\"~/a\" 10)) :Run((\"~/s\" 10))"), Status::Done);
  EXPECT_FALSE(isRunning(Scope::ApplicationFirst));
  EXPECT_TRUE(isRunning(Scope::SceneFirst));
}

TEST_F(TokenGroupTest, stopping_a_token_group_stops_its_members) {
  StartTokens();
  EXPECT_EQ(Run(":Stop(10)"), Status::Done);
  EXPECT_EQ(TakeLog(), "from1 stopped");
  EXPECT_EQ(Stack(), "");
}

TEST_F(TokenGroupTest, a_group_without_members_holds_no_token) {
  Start("{:TokenGroup 10 :TokenGroupItems ()} {:IntegerVar 1 :OrigValue 9}");
  EXPECT_EQ(Run(":GetTokenPosition(10 1)"), Status::Done);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(TokenGroupTest, moving_to_the_same_position_raises_nothing) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 1) :MoveTo(10 3) :GetTokenPosition(10 20)"), Status::Done);
  EXPECT_EQ(TakeLog(), "from1 to3");
  EXPECT_EQ(Integer(20), 3);
}

TEST_F(TokenGroupTest, the_token_may_be_moved_to_any_position) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 -7) :GetTokenPosition(10 20) :MoveTo(10 1000)"
                ":GetTokenPosition(10 21)"),
            Status::Done);
  EXPECT_EQ(Integer(20), -7);
  EXPECT_EQ(Integer(21), 1000);
}

TEST_F(TokenGroupTest, a_movement_moves_the_token_from_each_position_to_its_target) {
  StartTokens();
  EXPECT_EQ(Run(":Move(10 1) :Move(10 1) :Move(10 1) :Move(10 3)"), Status::Done);
  EXPECT_EQ(TakeLog(), "from1 to2 from2 to3 from3 to1");
}

TEST_F(TokenGroupTest, a_missing_movement_is_reported_and_the_list_continues) {
  StartTokens();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":Move(10 4) :Move(10 0) :Move(10 -1) :Add(20 1)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "MovementIdentifier Error\nMovementIdentifier Error\nMovementIdentifier Error\n");
  EXPECT_EQ(Integer(20), 1);
}

TEST_F(TokenGroupTest, a_movement_that_is_too_short_ends_the_list) {
  StartTokens();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":MoveTo(10 2) :Move(10 2) :Add(20 1)"), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Element Error\n");
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(TokenGroupTest, move_without_a_token_does_nothing) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 0) :Move(10 1) :GetTokenPosition(10 20)"), Status::Done);
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(TokenGroupTest, a_link_that_quits_keeps_the_token_where_it_is) {
  AddFile("b", R"({:Application ("~/b" 0)})");
  Start(StoppedRectangles(2) +
        "{:TokenGroup 10 :TokenGroupItems ((1) (2))} {:Link 20 :EventSource 10"
        " :EventType TokenMovedFrom :LinkEffect (:Quit(0))}" +
        Watch(10, "TokenMovedTo", "to"));
  const Busy busy;  // keeps the ended application readable
  const TokenGroup& group = Object<TokenGroup>(10);
  EXPECT_EQ(Run(":MoveTo(10 2)"), Status::Failure);
  EXPECT_EQ(group.TokenPosition, 1);
}

TEST_F(TokenGroupTest, action_slots_belong_to_the_item_with_the_token) {
  StartTokens();
  EXPECT_EQ(Run(":CallActionSlot(10 1)"), Status::Done);
  EXPECT_EQ(Integer(20), 1);
  EXPECT_EQ(Run(":CallActionSlot(10 0) :CallActionSlot(10 -5)"), Status::Done);
  EXPECT_EQ(Integer(20), 3) << "indices below 1 mean 1";
  EXPECT_EQ(Run(":CallActionSlot(10 2) :CallActionSlot(10 4) :CallActionSlot(10 3)"), Status::Done);
  EXPECT_EQ(Integer(20), 103) << "an empty or missing slot does nothing";
  EXPECT_EQ(Run(":MoveTo(10 3) :CallActionSlot(10 1)"), Status::Done);
  EXPECT_EQ(Integer(20), 103);
}

TEST_F(TokenGroupTest, without_a_token_the_no_token_slots_are_called) {
  StartTokens();
  EXPECT_EQ(Run(":MoveTo(10 0) :CallActionSlot(10 2) :MoveTo(10 -3) :CallActionSlot(10 1)"),
            Status::Done);
  EXPECT_EQ(Integer(20), 55);
}

TEST_F(TokenGroupTest, calling_a_slot_with_the_token_past_the_members_ends_the_list) {
  StartTokens();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":MoveTo(10 4) :CallActionSlot(10 1) :Add(20 1)"), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "TokenGroupItem Error\n");
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(TokenGroupTest, a_slot_that_changes_the_scene_ends_the_calling_list) {
  AddScene("t", "");
  StartWithScene("{:IntegerVar 20 :OrigValue 0}",
                 StoppedRectangles(1) + R"({:TokenGroup 10 :TokenGroupItems
                     ((1 :ActionSlots ((:TransitionTo(("~/t" 0))))))})");
  EXPECT_EQ(Run(":CallActionSlot(10 1) :Add((\"~/a\" 20) 1)", Scope::SceneFirst), Status::Replaced);
  EXPECT_EQ(Integer(20), 0);
}

TEST_F(TokenGroupTest, a_group_that_does_not_run_does_nothing) {
  StartTokens();
  EXPECT_EQ(Run(":SetVariable(20 :GInteger 9) :Stop(10)"), Status::Done);
  TakeLog();
  EXPECT_EQ(Run(":MoveTo(10 2) :Move(10 1) :CallActionSlot(10 1) :GetTokenPosition(10 20)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Integer(20), 9);
}

// A link triggered by the stop runs the group again. The group keeps its members running and raises
// no IsStopped.
TEST_F(TokenGroupTest, a_token_group_restarted_while_it_stops_keeps_its_members) {
  for (const char* event : {"10 :EventType TokenMovedFrom", "1 :EventType IsStopped"}) {
    Start(StoppedRectangles(2) + "{:TokenGroup 10 :TokenGroupItems ((1) (2))}" +
          "{:Link 20 :EventSource " + event + " :LinkEffect (:Run(10))}" +
          Watch(10, "IsStopped", "stopped"));
    EXPECT_EQ(Run(":Stop(10)"), Status::Done);
    EXPECT_TRUE(IsRunning(10)) << event;
    EXPECT_TRUE(IsRunning(1)) << event;
    EXPECT_TRUE(IsRunning(2)) << event;
    EXPECT_EQ(TakeLog(), "") << event;
  }
}

}  // namespace
}  // namespace korvel::test
