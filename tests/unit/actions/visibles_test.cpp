// Moving, sizing, stacking and fading visibles; sliders; highlight and interaction.
#include "stage.h"

namespace korvel::test {
namespace {

class VisiblesTest : public Stage {
 protected:
  static Status Press(std::int32_t key) { return RaiseOutsideEvent(0, EventType::UserInput, key); }
  void StartSlider(const std::string& attributes, const std::string& orientation = "left") {
    Start("{:Slider 1 :Orientation " + orientation + " :OrigBoxSize 9 9 " + attributes +
          "} {:IntegerVar 2 :OrigValue -77}" + Watch(1, "InteractionCompleted", "done"));
  }
  static std::int32_t Value() { return Object<Slider>(1).SliderValue; }
};

constexpr char kThree[] =
    "{:Rectangle 1 :OrigBoxSize 9 9} {:Rectangle 2 :OrigBoxSize 9 9} {:Rectangle 3 :OrigBoxSize 9 "
    "9}"
    "{:Rectangle 4 :InitiallyActive FALSE :OrigBoxSize 9 9} {:IntegerVar 5 :OrigValue 0}"
    "{:IntegerVar 6 :OrigValue 0} {:OStringVar 7 :OrigValue \"\"}";

TEST_F(VisiblesTest, visibles_change_their_places_in_the_stack) {
  Start(kThree);
  EXPECT_EQ(Stack(), "1 2 3");
  EXPECT_EQ(Run(":BringToFront(1)"), Status::Done);
  EXPECT_EQ(Stack(), "2 3 1");
  EXPECT_EQ(Run(":SendToBack(3)"), Status::Done);
  EXPECT_EQ(Stack(), "3 2 1");
  EXPECT_EQ(Run(":PutBefore(3 2)"), Status::Done);
  EXPECT_EQ(Stack(), "2 3 1");
  EXPECT_EQ(Run(":PutBehind(1 3)"), Status::Done);
  EXPECT_EQ(Stack(), "2 1 3");
}

TEST_F(VisiblesTest, what_is_not_in_the_stack_is_not_stacked) {
  Start(kThree);
  EXPECT_EQ(Run(":PutBefore(1 4) :PutBehind(1 4) :PutBefore(1 5) :PutBefore(1 0) :PutBefore(1 77)"
                ":BringToFront(4) :SendToBack(4) :PutBefore(4 1)"),
            Status::Done);
  EXPECT_EQ(Stack(), "1 2 3");
}

TEST_F(VisiblesTest, a_visible_put_before_itself_stays_and_put_behind_itself_ends_on_top) {
  Start(kThree);
  EXPECT_EQ(Run(":PutBefore(1 1)"), Status::Done);
  EXPECT_EQ(Stack(), "1 2 3");
  EXPECT_EQ(Run(":PutBehind(1 1)"), Status::Done);
  EXPECT_EQ(Stack(), "2 3 1");
}

TEST_F(VisiblesTest, positions_may_be_negative_and_boxes_not) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPosition(1 -5 7) :SetBoxSize(1 30 40) :SetBoxSize(1 -1 50)"
                ":SetBoxSize(1 50 -1) :GetPosition(1 5 6)"),
            Status::Done);
  EXPECT_EQ(Integer(5), -5);
  EXPECT_EQ(Integer(6), 7);
  EXPECT_EQ(Run(":GetBoxSize(1 5 6)"), Status::Done);
  EXPECT_EQ(Integer(5), 30);
  EXPECT_EQ(Integer(6), 40);
}

TEST_F(VisiblesTest, two_answers_are_written_together_or_not_at_all) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPosition(1 3 4) :GetPosition(1 5 7) :GetPosition(1 7 6)"), Status::Done);
  EXPECT_EQ(Integer(5), 0);
  EXPECT_EQ(Integer(6), 0);
}

TEST_F(VisiblesTest, position_and_box_are_read_also_while_a_visible_is_not_available) {
  Start("{:Rectangle 1 :InitiallyActive FALSE :OrigBoxSize 9 9} {:IntegerVar 2 :OrigValue 77}"
        "{:IntegerVar 3 :OrigValue 77}");
  Object<Rectangle>(1).Position = {3, -4};
  Object<Rectangle>(1).BoxSize = {50, 60};
  EXPECT_EQ(Run(":GetPosition(1 2 3)"), Status::Done);
  EXPECT_EQ(Integer(2), 3);
  EXPECT_EQ(Integer(3), -4);
  EXPECT_EQ(Run(":GetBoxSize(1 2 3)"), Status::Done);
  EXPECT_EQ(Integer(2), 50);
  EXPECT_EQ(Integer(3), 60);
  EXPECT_FALSE(Object<Rectangle>(1).AvailabilityStatus) << "asking does not prepare";
}

TEST_F(VisiblesTest, nothing_changes_while_a_visible_is_not_available) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPosition(4 1 1) :SetBoxSize(4 1 1) :SetPaletteRef(4 9)"), Status::Done);
  EXPECT_EQ(Object<Rectangle>(4).Position.X, 0);
  EXPECT_EQ(Object<Rectangle>(4).BoxSize.Width, 0);
  EXPECT_FALSE(Object<Rectangle>(4).PaletteRef.IsPresent);
}

TEST_F(VisiblesTest, only_what_runs_is_drawn_again) {
  Start(kThree);
  int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetPosition(1 1 1) :SetBoxSize(1 1 1) :BringToFront(1)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 3);
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetPosition(1 1 1) :SetBoxSize(1 1 1)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before);
}

TEST_F(VisiblesTest, a_bitmap_is_drawn_again_when_scaled_even_when_stopped) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9}");
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":ScaleBitmap(1 1 1) :SetTransparency(1 5)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 1);
}

TEST_F(VisiblesTest, a_negative_scale_makes_a_video_unscaled_and_is_refused_for_a_bitmap) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9}"
        "{:Stream 2 :Multiplex ({:Video 3 :ComponentTag 1 :OrigBoxSize 9 9})}");
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":ScaleVideo(3 30 40) :ScaleVideo(3 -1 40)"), Status::Done);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Width, -1);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Height, 40);
  EXPECT_EQ(Run(":ScaleVideo(3 -7 -8)"), Status::Done);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Width, -7);
  EXPECT_EQ(Object<Video>(3).ScaledSize.Height, -8);
  EXPECT_EQ(ThePresentation().redraws, before + 3);
  EXPECT_EQ(Run(":ScaleBitmap(1 30 40) :ScaleBitmap(1 -1 50) :ScaleBitmap(1 50 -1)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Width, 30);
  EXPECT_EQ(Object<Bitmap>(1).ScaledSize.Height, 40);
}

TEST_F(VisiblesTest, transparency_lies_between_0_and_100) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9 :OrigTransparency 20}");
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 20);
  EXPECT_EQ(Run(":SetTransparency(1 101) :SetTransparency(1 -1)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 20);
  EXPECT_EQ(Run(":SetTransparency(1 100)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 100);
  EXPECT_EQ(Run(":SetTransparency(1 0)"), Status::Done);
  EXPECT_EQ(Object<Bitmap>(1).Transparency, 0);
}

TEST_F(VisiblesTest, a_palette_is_kept) {
  Start(kThree);
  EXPECT_EQ(Run(":SetPaletteRef(1 9)"), Status::Done);
  EXPECT_TRUE(Object<Rectangle>(1).PaletteRef.IsPresent);
  EXPECT_EQ(Object<Rectangle>(1).PaletteRef.Reference.Number, 9);
}

TEST_F(VisiblesTest, slider_values_stand_on_steps) {
  StartSlider(":MinValue 0 :MaxValue 10 :StepSize 3 :InitialValue 0");
  EXPECT_EQ(Run(":SetSliderValue(1 4) :SetSliderValue(1 12) :SetSliderValue(1 -3)"), Status::Done);
  EXPECT_EQ(Value(), 0);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Run(":SetSliderValue(1 6) :GetSliderValue(1 2)"), Status::Done);
  EXPECT_EQ(Integer(2), 6);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(VisiblesTest, slider_stops_at_its_ends) {
  StartSlider(":MinValue 0 :MaxValue 10 :StepSize 3 :InitialValue 3");
  EXPECT_EQ(Run(":Step(1 3) :Step(1 -2)"), Status::Done);
  EXPECT_EQ(Value(), 3);
  EXPECT_EQ(Run(":Step(1 2) :Step(1 -3)"), Status::Done);
  EXPECT_EQ(Value(), 0);
  EXPECT_EQ(TakeLog(), "done done");
}

TEST_F(VisiblesTest, huge_steps_do_not_wrap) {
  StartSlider(":MinValue -2147483648 :MaxValue 2147483647 :StepSize 2147483647 :InitialValue 5");
  EXPECT_EQ(Run(":Step(1 2147483647) :Step(1 -2147483648)"), Status::Done);
  EXPECT_EQ(Value(), 5);
}

TEST_F(VisiblesTest, a_step_of_0_sets_no_value) {
  StartSlider(":MinValue 0 :MaxValue 10 :StepSize 0 :InitialValue 0");
  EXPECT_EQ(Run(":SetSliderValue(1 5) :SetSliderValue(1 0)"), Status::Done);
  EXPECT_EQ(Value(), 0);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(VisiblesTest, a_step_of_minus_1_over_the_whole_range_does_not_fault) {
  StartSlider(":MinValue -2147483648 :MaxValue 2147483647 :StepSize -1 :InitialValue 0");
  EXPECT_EQ(Run(":SetSliderValue(1 2147483647)"), Status::Done);
  EXPECT_EQ(Value(), 2147483647);
  EXPECT_EQ(Run(":SetSliderValue(1 -2147483648)"), Status::Done);
  EXPECT_EQ(Value(), -2147483647 - 1);
}

TEST_F(VisiblesTest, only_a_proportional_slider_has_a_portion) {
  StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 2 :InitialPortion 4");
  EXPECT_EQ(Object<Slider>(1).Portion, 4);
  EXPECT_EQ(Run(":Step(1 1) :SetPortion(1 3) :GetPortion(1 2)"), Status::Done);
  EXPECT_EQ(Object<Slider>(1).Portion, 0);
  EXPECT_EQ(Integer(2), -77);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(VisiblesTest, value_and_portion_fit_below_the_maximum) {
  StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 2 :InitialPortion 4 :SliderStyle "
              "proportional");
  EXPECT_EQ(Run(":SetSliderValue(1 7) :Step(1 5)"), Status::Done);
  EXPECT_EQ(Value(), 2);
  EXPECT_EQ(Run(":SetSliderValue(1 6) :SetPortion(1 5)"), Status::Done);
  EXPECT_EQ(Value(), 6);
  EXPECT_EQ(Object<Slider>(1).Portion, 4);
  EXPECT_EQ(Run(":SetPortion(1 -9) :GetPortion(1 2)"), Status::Done);
  EXPECT_EQ(Integer(2), -9);
}

TEST_F(VisiblesTest, a_slider_is_drawn_before_it_tells) {
  StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 0");
  std::string order;
  ThePresentation().onRedraw = [&] {
    order += std::to_string(Value()) + (Octets(900).empty() ? " untold" : " told");
    return Status::Done;
  };
  EXPECT_EQ(Run(":Step(1 1)"), Status::Done);
  EXPECT_EQ(order, "1 untold");
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(VisiblesTest, arrows_along_the_bar_step_a_slider) {
  struct Case {
    const char* orientation;
    std::int32_t grow;
    std::int32_t shrink;
  };
  for (const Case& one :
       {Case{"left", 4, 3}, Case{"right", 3, 4}, Case{"up", 2, 1}, Case{"down", 1, 2}}) {
    StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 5", one.orientation);
    EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
    EXPECT_EQ(Press(one.grow), Status::Done);
    EXPECT_EQ(Press(one.grow), Status::Done);
    EXPECT_EQ(Press(one.shrink), Status::Done);
    EXPECT_EQ(Value(), 6) << one.orientation;
    EXPECT_EQ(Press(15), Status::Done);
    EXPECT_FALSE(Object<Slider>(1).InteractionStatus);
  }
}

constexpr char kTwoFields[] = "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}"
                              "{:EntryField 2 :OrigContent \"\" :OrigBoxSize 9 9}"
                              "{:BooleanVar 3 :OrigValue FALSE} {:BooleanVar 4 :OrigValue TRUE}";

TEST_F(VisiblesTest, the_highlight_is_told_when_it_changes) {
  Start(std::string(kTwoFields) + Watch(1, "HighlightOn", "on") + Watch(1, "HighlightOff", "off"));
  EXPECT_EQ(Run(":SetHighlightStatus(1 FALSE) :SetHighlightStatus(1 TRUE)"
                ":SetHighlightStatus(1 TRUE) :GetHighlightStatus(1 3)"),
            Status::Done);
  EXPECT_EQ(TakeLog(), "on");
  EXPECT_TRUE(Boolean(3));
  EXPECT_EQ(Run(":SetHighlightStatus(1 FALSE) :SetHighlightStatus(1 FALSE)"), Status::Done);
  EXPECT_EQ(TakeLog(), "off");
}

TEST_F(VisiblesTest, one_interaction_is_in_progress_at_a_time) {
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

TEST_F(VisiblesTest, an_interaction_needs_a_running_object) {
  Start(std::string(kTwoFields) + Watch(1, "InteractionCompleted", "done"));
  EXPECT_EQ(Run(":Stop(1) :SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
  EXPECT_EQ(Run(":Run(1) :SetInteractionStatus(1 TRUE) :Stop(1)"), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
}

TEST_F(VisiblesTest, a_key_that_the_interaction_uses_raises_no_user_input) {
  StartWithScene("{:OStringVar 1 :Shared TRUE :OrigValue \"\"}",
                 "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}"
                 "{:Link 2 :EventSource 0 :EventType UserInput"
                 " :LinkEffect (:Append((\"~/a\" 1) \"key \"))}"
                 "{:Link 3 :EventSource 0 :EventType EngineEvent"
                 " :LinkEffect (:Append((\"~/a\" 1) \"engine \"))}");
  const auto keys = [] {
    return std::string(
        FindObject(Scope::ApplicationFirst, "~/a", 1).As<OctetStringVariable>().Value.View());
  };
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(Press(7), Status::Done);
  EXPECT_EQ(keys(), "");
  EXPECT_EQ(Press(1), Status::Done);
  EXPECT_EQ(keys(), "key ") << "the field does not use Up";
  EXPECT_EQ(Press(16), Status::Done);
  EXPECT_EQ(keys(), "key engine ") << "Cancel gives its engine event first";
}

TEST_F(VisiblesTest, an_interaction_ends_with_its_scene) {
  AddScene("t", "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}");
  StartWithScene("", "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(Run(R"(:TransitionTo(("~/t" 0)))"), Status::Replaced);
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_TRUE(FindObject(Scope::SceneFirst, "~/t", 1).As<EntryField>().InteractionStatus);
}

}  // namespace
}  // namespace korvel::test
