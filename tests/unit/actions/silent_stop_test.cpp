// Objects that stop without an event, because a scene starts or a list removes them from the
// screen. Their highlight and interaction end too, also without an event.
#include <ostream>

#include "stage.h"

namespace korvel::test {
namespace {

struct Way {
  const char* name;
  const char* actions;
};

std::ostream& operator<<(std::ostream& out, const Way& way) { return out << way.name; }

// Field 1 is an unshared object of the application and the first item of list 50.
constexpr Way kWays[] = {
    {"transition", R"(:TransitionTo(("~/s" 0)))"},
    {"scrolling", ":ScrollItems(50 1)"},
    {"another_first_item", ":SetFirstItem(50 2)"},
    {"deletion", ":DelItem(50 1)"},
    {"stop_of_the_list", ":Stop(50)"},
};

class SilentStop : public Stage, public testing::WithParamInterface<Way> {
 protected:
  void SetUp() override {
    Stage::SetUp();
    AddScene("s", "");
    Start("{:EntryField 1 :InitiallyActive FALSE :OrigContent \"\" :OrigBoxSize 9 9}"
          "{:Rectangle 2 :InitiallyActive FALSE :OrigBoxSize 9 9}"
          "{:EntryField 3 :Shared TRUE :OrigContent \"\" :OrigBoxSize 9 9}"
          "{:ListGroup 50 :Shared TRUE :TokenGroupItems ((1) (2)) :Positions ((0 0))}" +
          Watch(1, "InteractionCompleted", "completed") + Watch(1, "HighlightOff", "off") +
          Watch(1, "HighlightOn", "on") + Watch(1, "IsStopped", "stopped"));
    EXPECT_EQ(Run(":SetHighlightStatus(1 TRUE) :SetInteractionStatus(1 TRUE)"), Status::Done);
    EXPECT_EQ(TakeLog(), "on");
    EXPECT_TRUE(Object<EntryField>(1).InteractionStatus);
  }
  void StopField() {
    static_cast<void>(Run(GetParam().actions));
    ASSERT_FALSE(IsRunning(1));
  }
};

TEST_P(SilentStop, ends_highlight_and_interaction_without_an_event) {
  StopField();
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
  EXPECT_FALSE(Object<EntryField>(1).HighlightStatus);
  EXPECT_EQ(TakeLog(), "");
}

TEST_P(SilentStop, allows_another_object_to_interact) {
  StopField();
  EXPECT_EQ(Run(":SetInteractionStatus(3 TRUE)"), Status::Done);
  EXPECT_TRUE(Object<EntryField>(3).InteractionStatus);
  constexpr std::int32_t kDigit0 = 5;
  EXPECT_EQ(RaiseOutsideEvent(0, EventType::UserInput, kDigit0), Status::Done);
  EXPECT_EQ(Object<EntryField>(3).TextData.View(), "0");
}

TEST_P(SilentStop, allows_the_object_to_be_highlighted_again) {
  StopField();
  EXPECT_EQ(Run(":SetHighlightStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(TakeLog(), "on");
}

INSTANTIATE_TEST_SUITE_P(By, SilentStop, testing::ValuesIn(kWays),
                         [](const testing::TestParamInfo<Way>& tested) {
                           return tested.param.name;
                         });

class SilentStopOfAnother : public Stage {};

TEST_F(SilentStopOfAnother, does_not_end_the_interaction_in_progress) {
  Start("{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}"
        "{:EntryField 2 :InitiallyActive FALSE :OrigContent \"\" :OrigBoxSize 9 9}"
        "{:ListGroup 50 :TokenGroupItems ((2)) :Positions ((0 0))}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE) :Stop(50)"), Status::Done);
  EXPECT_TRUE(Object<EntryField>(1).InteractionStatus);
  EXPECT_EQ(Run(":Run(50) :SetInteractionStatus(2 TRUE)"), Status::Done);
  EXPECT_FALSE(Object<EntryField>(2).InteractionStatus);
}

TEST_F(SilentStopOfAnother, keeps_the_highlight_of_an_object_that_does_not_run) {
  AddScene("s", "");
  Start("{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}");
  EXPECT_EQ(Run(":Stop(1) :SetHighlightStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Run(R"(:TransitionTo(("~/s" 0)))"), Status::Replaced);
  EXPECT_TRUE(Object<EntryField>(1).HighlightStatus);
}

}  // namespace
}  // namespace korvel::test
