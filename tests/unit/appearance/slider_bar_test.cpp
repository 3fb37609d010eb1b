// The boxes of a slider's bar.
#include "appearance/slider_bar.h"

#include <gtest/gtest.h>

namespace korvel::test {

namespace {

enum : std::int32_t { kLeft = 1, kRight = 2, kUp = 3, kDown = 4 };
enum : std::int32_t { kNormal = 1, kThermometer = 2, kProportional = 3 };

// A box of 101 x 51 at 10, 20; values from 0 to 100.
Slider SliderAt(std::int32_t value, std::int32_t orientation, std::int32_t style = kNormal) {
  Slider slider;
  slider.Position = {10, 20};
  slider.BoxSize = {101, 51};
  slider.MaxValue = 100;
  slider.SliderValue = value;
  slider.Orientation = Orientation{orientation};
  slider.SliderStyle = SliderStyle{style};
  return slider;
}

void ExpectBox(const Box& box, std::int32_t left, std::int32_t top, std::int32_t right,
               std::int32_t bottom) {
  EXPECT_EQ(box.left, left);
  EXPECT_EQ(box.top, top);
  EXPECT_EQ(box.right, right);
  EXPECT_EQ(box.bottom, bottom);
}

}  // namespace

TEST(SliderBarTest, the_bar_runs_from_the_named_side_to_the_value) {
  ExpectBox(SliderBarOf(SliderAt(50, kLeft)).bar, 10, 20, 60, 71);
  ExpectBox(SliderBarOf(SliderAt(50, kRight)).bar, 61, 20, 111, 71);
  ExpectBox(SliderBarOf(SliderAt(50, kUp)).bar, 10, 20, 111, 45);
  ExpectBox(SliderBarOf(SliderAt(50, kDown)).bar, 10, 46, 111, 71);
}

TEST(SliderBarTest, the_bar_from_the_bottom_ends_at_least_a_pixel_below_the_top) {
  ExpectBox(SliderBarOf(SliderAt(1000, kDown)).bar, 10, 21, 111, 71);
}

TEST(SliderBarTest, equal_limits_give_a_bar_of_one_pixel) {
  Slider slider = SliderAt(0, kLeft);
  slider.MaxValue = 0;
  ExpectBox(SliderBarOf(slider).bar, 10, 20, 11, 71);
}

TEST(SliderBarTest, a_thermometer_has_a_marker_of_three_pixels_at_the_end_of_its_bar) {
  EXPECT_TRUE(SliderBarOf(SliderAt(50, kLeft)).marker.IsEmpty());
  ExpectBox(SliderBarOf(SliderAt(50, kLeft, kThermometer)).marker, 57, 20, 60, 71);
  ExpectBox(SliderBarOf(SliderAt(50, kRight, kThermometer)).marker, 61, 20, 64, 71);
}

TEST(SliderBarTest, the_marker_of_a_bar_without_length_is_in_the_box) {
  ExpectBox(SliderBarOf(SliderAt(0, kLeft, kThermometer)).marker, 10, 20, 13, 71);
  ExpectBox(SliderBarOf(SliderAt(0, kRight, kThermometer)).marker, 108, 20, 111, 71);
}

TEST(SliderBarTest, a_proportional_slider_shows_its_portion_starting_at_its_value) {
  Slider slider = SliderAt(20, kLeft, kProportional);
  slider.Portion = 30;
  ExpectBox(SliderBarOf(slider).bar, 30, 20, 60, 71);
}

}  // namespace korvel::test
