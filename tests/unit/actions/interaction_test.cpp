// Highlighting and interaction, and which object receives keys during an interaction.
#include "stage.h"

namespace korvel::test {
namespace {

using InteractionTest = Stage;

constexpr char kTwoFields[] = "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}"
                              "{:EntryField 2 :OrigContent \"\" :OrigBoxSize 9 9}"
                              "{:BooleanVar 3 :OrigValue FALSE} {:BooleanVar 4 :OrigValue TRUE}";
TEST_F(InteractionTest, only_a_change_of_the_highlight_raises_an_event) {
  Start(std::string(kTwoFields) + Watch(1, "HighlightOn", "on") + Watch(1, "HighlightOff", "off"));
  EXPECT_EQ(Run(":SetHighlightStatus(1 FALSE) :SetHighlightStatus(1 TRUE)"
                ":SetHighlightStatus(1 TRUE) :GetHighlightStatus(1 3)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "on");
  EXPECT_TRUE(Boolean(3));
  EXPECT_EQ(Run(":SetHighlightStatus(1 FALSE) :SetHighlightStatus(1 FALSE)"), Status::Done);
  EXPECT_EQ(TakeLog(), "off");
}

TEST_F(InteractionTest, only_one_interaction_is_in_progress_at_a_time) {
  Start(kTwoFields);
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE) :SetInteractionStatus(2 TRUE)"
                ":SetInteractionStatus(1 FALSE) :GetInteractionStatus(1 3)"
                ":GetInteractionStatus(2 4)"),
            Status::Done);
  EXPECT_TRUE(Boolean(3));
  EXPECT_FALSE(Boolean(4));
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(Run(":SetInteractionStatus(2 TRUE) :GetInteractionStatus(2 4)"), Status::Done);
  EXPECT_TRUE(Boolean(4));
}

TEST_F(InteractionTest, an_interaction_needs_a_running_object) {
  Start(std::string(kTwoFields) + Watch(1, "InteractionCompleted", "done"));
  EXPECT_EQ(Run(":Stop(1) :SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
  EXPECT_EQ(Run(":Run(1) :SetInteractionStatus(1 TRUE) :Stop(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
}

TEST_F(InteractionTest, stopping_an_object_ends_its_interaction_even_if_the_redraw_fails) {
  Start(std::string(kTwoFields) + Watch(1, "InteractionCompleted", "done"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  ThePresentation().onRedraw = [] { return Status::Failure; };
  EXPECT_EQ(Run(":Stop(1)"), Status::Failure);
  ThePresentation().onRedraw = nullptr;
  EXPECT_EQ(TakeLog(), "") << "no event follows a failure";
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
  EXPECT_EQ(Run(":SetInteractionStatus(2 TRUE)"), Status::Done);
  EXPECT_TRUE(Object<EntryField>(2).InteractionStatus);
}

TEST_F(InteractionTest, a_key_that_the_interaction_uses_raises_no_user_input) {
  StartWithScene("{:OStringVar 1 :Shared TRUE :OrigValue \"\"}",
                 "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}"
                 "{:Link 2 :EventSource 0 :EventType UserInput"
                 " :LinkEffect (:Append((\"~/a\" 1) \"key \"))}"
                 "{:Link 3 :EventSource 0 :EventType EngineEvent"
                 " :LinkEffect (:Append((\"~/a\" 1) \"engine \"))}");
  const auto events = [] {
    return std::string(
        FindObject(Scope::ApplicationFirst, "~/a", 1).As<OctetStringVariable>().Value.View());
  };
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(Press(7), Status::Done);
  EXPECT_EQ(events(), "");
  EXPECT_EQ(Press(1), Status::Done);
  EXPECT_EQ(events(), "key ") << "the field does not use Up";
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(events(), "key engine ") << "Cancel raises its engine event first";
}

TEST_F(InteractionTest, an_interaction_ends_with_its_scene) {
  AddScene("t", "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}");
  StartWithScene("", "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(Run(R"(:TransitionTo(("~/t" 0)))"), Status::Replaced);
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_TRUE(FindObject(Scope::SceneFirst, "~/t", 1).As<EntryField>().InteractionStatus);
}

}  // namespace
}  // namespace korvel::test
