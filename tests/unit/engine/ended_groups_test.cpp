// Calls that are still running after their group has ended, and the release of ended groups.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class EndedGroups : public EngineTest {};

TEST_F(EndedGroups, stay_readable_until_the_next_piece_of_work) {
  ServeApplication("");
  ServeScene("menu", RectangleText(8));
  ServeScene("next", "");
  StartWithScene("~/menu");
  const Scene* menu = CurrentScene();
  const Rectangle& box = Find<Rectangle>(8, "~/menu");
  EXPECT_FALSE(IsGone(*menu));
  EXPECT_FALSE(IsGone(box));
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_TRUE(IsGone(*menu));
  EXPECT_TRUE(IsGone(box));
  EXPECT_FALSE(menu->AvailabilityStatus);
  EXPECT_FALSE(menu->RunningStatus);
}

TEST_F(EndedGroups, are_released_by_the_next_piece_of_work) {
  ServeApplication("");
  ServeScene("menu", "");
  ServeScene("next", "");
  StartWithScene("~/menu");
  BeginWork();
  const std::size_t blocks = LiveBlocks();
  for (int round = 0; round < 10; ++round) {
    ASSERT_EQ(GoTo("~/next"), Status::Done);
    ASSERT_EQ(GoTo("~/menu"), Status::Done);
  }
  BeginWork();
  EXPECT_EQ(LiveBlocks(), blocks);
}

TEST_F(EndedGroups, are_kept_while_a_busy_object_exists) {
  ServeApplication("");
  ServeScene("menu", "");
  ServeScene("next", "");
  StartWithScene("~/menu");
  const Scene* menu = CurrentScene();
  {
    const Busy busy;
    ASSERT_EQ(GoTo("~/next"), Status::Done);
    BeginWork();
    EXPECT_TRUE(IsGone(*menu)) << "a released scene would be a sanitizer error";
  }
}

TEST_F(EndedGroups, that_never_became_available_are_released) {
  ServeApplication(RectangleText(8), ":OnStartUp (" + TransitionAction("~/menu") + ")");
  ServeScene("menu", RectangleText(9) + LinkOnKey(1, 100, LaunchAction("~/b")));
  Serve("b", ApplicationText("~/b", ""));
  EXPECT_EQ(Start(), Status::Replaced);
  EXPECT_EQ(Press(100), Status::Replaced);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/b");
  EXPECT_TRUE(CurrentApplication()->DisplayStack.IsEmpty());
}

TEST_F(EndedGroups, leave_no_links_even_if_named_after_another_group) {
  ServeApplication("");
  ServeScene("menu", "{:Link (\"~/next\" 1) :EventSource (\"~/next\" 0) :EventType IsRunning "
                     ":LinkEffect (" +
                         Note("x") + ")}" +
                         "{:Link (\"~/next\" 2) :EventSource 0 :EventType UserInput :LinkEffect (" +
                         Note("x") + ")}");
  ServeScene("next", "");
  StartWithScene("~/menu");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  BeginWork();
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Raise("~/next", 0, EventType::IsRunning), Status::Done);
  EXPECT_EQ(Notes(), "");
}

TEST_F(EndedGroups, of_an_application_leave_no_links_even_if_named_after_another_group) {
  ServeApplication("{:Link (\"~/b\" 1) :EventSource 0 :EventType UserInput :LinkEffect (" +
                   LaunchAction("~/never") + ")}");
  Serve("b", ApplicationText("~/b", ""));
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(Do([] { return Launch("~/b"); }), Status::Done);
  BeginWork();
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(TheHost().fetched.back(), "b");
}

TEST_F(EndedGroups, are_noticed_even_if_the_generations_have_wrapped) {
  ServeApplication("");
  ServeScene("menu", RectangleText(8) +
                         LinkOnKey(1, 100, ":BringToFront(8) " + SpawnAction("~/never")) +
                         LinkOnKey(2, 100, SpawnAction("~/never")));
  ServeScene("one", "");
  ServeScene("two", "");
  StartWithScene("~/menu");
  ThePresentation().onRedraw = [] {
    for (int count = 0; count < 256; ++count) {
      ++CurrentGenerations().scene;
      EXPECT_EQ(TransitionTo(count % 2 == 0 ? "~/one" : "~/two"), Status::Done);
    }
    return Status::Done;
  };
  static_cast<void>(Press(100));
  EXPECT_EQ(NameOf(CurrentScene()), "~/two");
  EXPECT_EQ(TheHost().fetched.back(), "two");
}

TEST_F(EndedGroups, are_skipped_by_a_list_group_of_the_application_with_one_of_their_visibles) {
  ServeApplication("{:ListGroup 10 :InitiallyActive FALSE :Shared TRUE :TokenGroupItems "
                   "((11) ((\"~/menu\" 8))) :Positions ((0 0) (0 50))}" +
                   RectangleText(11, kInactive) + LinkOnKey(1, 100, ":Run(10)", kShared) +
                   LinkOnKey(2, 101, ":ScrollItems(10 1) :Move(10 1) :Stop(10)", kShared));
  ServeScene("menu", RectangleText(8));
  ServeScene("next", LinkOnKey(1, 16, Note("n")));
  StartWithScene("~/menu");
  static_cast<void>(Press(100));
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  BeginWork();
  static_cast<void>(Press(101));
  for (const StackedVisible& entry : CurrentApplication()->DisplayStack) {
    EXPECT_FALSE(IsGone(*entry.visible));
  }
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(Notes(), "n");
}

TEST_F(EndedGroups, may_own_the_name_passed_to_the_call_that_ends_them) {
  ServeApplication("");
  ServeScene("menu", "");
  ServeScene("next", "");
  StartWithScene("~/menu");
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(Do([] { return TransitionTo(CurrentScene()->Reference.GroupIdentifier.View()); }),
            Status::Refused);
  EXPECT_EQ(Do([] {
              return RaiseEvent(CurrentScene()->Reference.GroupIdentifier.View(), 0,
                                EventType::IsRunning, {});
            }),
            Status::Done);
  EXPECT_EQ(Do([] { return Launch(CurrentApplication()->Reference.GroupIdentifier.View()); }),
            Status::Done);
  EXPECT_EQ(Do([] { return Spawn(CurrentApplication()->Reference.GroupIdentifier.View()); }),
            Status::Done);
}

TEST_F(EndedGroups, whose_end_fails_stay_current_and_the_new_group_is_released) {
  ServeBroken("broken");
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", TransitionAction("~/broken"), kShared));
  ServeScene("menu", RectangleText(8));
  ServeScene("next", RectangleText(8));
  Serve("b", ApplicationText("~/b", RectangleText(8)));
  StartWithScene("~/menu");
  EXPECT_EQ(GoTo("~/next"), Status::Failure);
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
}

TEST_F(EndedGroups, whose_end_fails_in_a_launch_stay_current) {
  ServeBroken("broken");
  ServeApplication(LinkOn(1, "(\"~/menu\" 0)", "IsDeleted", TransitionAction("~/broken"), kShared));
  ServeScene("menu", RectangleText(8));
  Serve("b", ApplicationText("~/b", RectangleText(8)));
  StartWithScene("~/menu");
  EXPECT_EQ(Do([] { return Launch("~/b"); }), Status::Failure);
  EXPECT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(NameOf(CurrentScene()), "~/menu");
}

}  // namespace
}  // namespace korvel::test
