// Sliders: stepping, values, portions, and the keys of an interaction.
#include "stage.h"

namespace korvel::test {
namespace {

class SliderTest : public Stage {
 protected:
  void StartSlider(const std::string& attributes, const std::string& orientation = "left") {
    Start("{:Slider 1 :Orientation " + orientation + " :OrigBoxSize 9 9 " + attributes +
          "} {:IntegerVar 2 :OrigValue -77}" + Watch(1, "InteractionCompleted", "done"));
  }
  static std::int32_t Value() { return Object<Slider>(1).SliderValue; }
};

TEST_F(SliderTest, only_values_on_a_step_within_the_range_are_accepted) {
  StartSlider(":MinValue 0 :MaxValue 10 :StepSize 3 :InitialValue 0");
  EXPECT_EQ(Run(":SetSliderValue(1 4) :SetSliderValue(1 12) :SetSliderValue(1 -3)"), Status::Done);
  EXPECT_EQ(Value(), 0);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Run(":SetSliderValue(1 6) :GetSliderValue(1 2)"), Status::Done);
  EXPECT_EQ(Integer(2), 6);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(SliderTest, steps_past_the_ends_are_ignored) {
  StartSlider(":MinValue 0 :MaxValue 10 :StepSize 3 :InitialValue 3");
  EXPECT_EQ(Run(":Step(1 3) :Step(1 -2)"), Status::Done);
  EXPECT_EQ(Value(), 3);
  EXPECT_EQ(Run(":Step(1 2) :Step(1 -3)"), Status::Done);
  EXPECT_EQ(Value(), 0);
  EXPECT_EQ(TakeLog(), "done done");
}

TEST_F(SliderTest, huge_steps_do_not_wrap) {
  StartSlider(":MinValue -2147483648 :MaxValue 2147483647 :StepSize 2147483647 :InitialValue 5");
  EXPECT_EQ(Run(":Step(1 2147483647) :Step(1 -2147483648)"), Status::Done);
  EXPECT_EQ(Value(), 5);
}

TEST_F(SliderTest, a_negative_portion_does_not_let_the_value_overflow) {
  StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 0 :InitialPortion -2147483647"
              " :SliderStyle proportional");
  EXPECT_EQ(Run(":SetSliderValue(1 2147483647) :Step(1 1)"), Status::Done);
  EXPECT_EQ(Value(), 2147483647);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(SliderTest, a_slider_with_step_size_0_refuses_every_value) {
  StartSlider(":MinValue 0 :MaxValue 10 :StepSize 0 :InitialValue 0");
  EXPECT_EQ(Run(":SetSliderValue(1 5) :SetSliderValue(1 0)"), Status::Done);
  EXPECT_EQ(Value(), 0);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(SliderTest, a_step_size_of_minus_1_accepts_the_whole_range) {
  StartSlider(":MinValue -2147483648 :MaxValue 2147483647 :StepSize -1 :InitialValue 0");
  EXPECT_EQ(Run(":SetSliderValue(1 2147483647)"), Status::Done);
  EXPECT_EQ(Value(), 2147483647);
  EXPECT_EQ(Run(":SetSliderValue(1 -2147483648)"), Status::Done);
  EXPECT_EQ(Value(), -2147483647 - 1);
}

TEST_F(SliderTest, only_a_proportional_slider_has_a_portion) {
  StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 2 :InitialPortion 4");
  EXPECT_EQ(Object<Slider>(1).Portion, 4);
  EXPECT_EQ(Run(":Step(1 1) :SetPortion(1 3) :GetPortion(1 2)"), Status::Done);
  EXPECT_EQ(Object<Slider>(1).Portion, 0);
  EXPECT_EQ(Integer(2), -77);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(SliderTest, value_plus_portion_must_not_exceed_the_maximum) {
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

TEST_F(SliderTest, a_slider_is_redrawn_before_it_raises_its_event) {
  StartSlider(":MinValue 0 :MaxValue 10 :InitialValue 0");
  std::string order;
  ThePresentation().onRedraw = [&] {
    order +=
        std::to_string(Value()) + (Octets(900).empty() ? " before the event" : " after the event");
    return Status::Done;
  };
  EXPECT_EQ(Run(":Step(1 1)"), Status::Done);
  EXPECT_EQ(order, "1 before the event");
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(SliderTest, arrows_along_the_bar_step_a_slider) {
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

}  // namespace
}  // namespace korvel::test
