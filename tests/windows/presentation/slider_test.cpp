// Tests sliders: the bar in every orientation and style, exact to the pixel, and the three numbers
// above it.
#include "windows/presentation/stage.h"

namespace korvel::test {

class SliderTest : public Stage {
 protected:
  SliderTest() {
    Place(slider, 100, 100, 101, 101);
    slider.MinValue = 0;
    slider.MaxValue = 10;
    slider.SliderValue = 3;
    slider.SliderRefColour = Absolute(kRedBytes);
    Show(ItemType::Slider, slider);
  }
  // The area of the pixels drawn in the slider's box, without the numbers above it.
  [[nodiscard]] Area Bar() {
    const Area box{slider.Position.X, slider.Position.Y, slider.Position.X + slider.BoxSize.Width,
                   slider.Position.Y + slider.BoxSize.Height};
    return Paint().Extent(box);
  }
  [[nodiscard]] Area BarIn(std::int32_t orientation) {
    slider.Orientation = Orientation{orientation};
    return Bar();
  }

  Slider slider;
};

TEST_F(SliderTest, the_bar_begins_at_the_side_that_the_orientation_names) {
  EXPECT_EQ(BarIn(1), (Area{100, 100, 130, 201}));
  EXPECT_EQ(BarIn(2), (Area{171, 100, 201, 201}));
  EXPECT_EQ(BarIn(3), (Area{100, 100, 201, 130}));
  EXPECT_EQ(BarIn(4), (Area{100, 171, 201, 201}));
}

TEST_F(SliderTest, half_the_range_from_the_bottom_ends_at_151) {
  slider.SliderValue = 5;
  EXPECT_EQ(BarIn(4).top, 151);
}

TEST_F(SliderTest, the_bar_is_an_outline_of_one_pixel_without_a_fill) {
  slider.Orientation = Orientation{4};
  const Pixels picture = Paint();
  EXPECT_TRUE(picture.IsAll({100, 171, 201, 172}, kRed));
  EXPECT_TRUE(picture.IsAll({101, 172, 200, 200}, kBlack));
}

TEST_F(SliderTest, positions_between_pixels_are_truncated) {
  Place(slider, 100, 100, 100, 100);
  slider.MaxValue = 7;  // 99 / 7 = 14.14 pixels per step
  slider.SliderValue = 1;
  EXPECT_EQ(BarIn(4).top, 185);     // 200 - 14.14 = 185.86
  EXPECT_EQ(BarIn(3).bottom, 114);  // 100 + 14.14 = 114.14
}

TEST_F(SliderTest, the_bar_never_reaches_the_last_pixel) {
  slider.SliderValue = 1000;
  EXPECT_EQ(BarIn(1), (Area{100, 100, 200, 201}));
  EXPECT_EQ(BarIn(2), (Area{101, 100, 201, 201}));
  EXPECT_EQ(BarIn(3), (Area{100, 100, 201, 200}));
  EXPECT_EQ(BarIn(4), (Area{100, 101, 201, 201}));
}

TEST_F(SliderTest, a_value_of_0_or_less_has_no_bar) {
  for (const int value : {0, -1, -2147483647 - 1}) {
    slider.SliderValue = value;
    for (const int orientation : {1, 2, 3, 4}) {
      EXPECT_EQ(BarIn(orientation), Area{}) << value << " in " << orientation;
    }
  }
}

TEST_F(SliderTest, without_a_range_the_bar_is_the_shortest) {
  slider.MinValue = 10;
  for (const int value : {0, 10, -10}) {
    slider.SliderValue = value;
    EXPECT_EQ(BarIn(1), (Area{100, 100, 101, 201})) << value;
    EXPECT_EQ(BarIn(2), (Area{200, 100, 201, 201})) << value;
    EXPECT_EQ(BarIn(3), (Area{100, 100, 201, 101})) << value;
    EXPECT_EQ(BarIn(4), (Area{100, 200, 201, 201})) << value;
  }
}

TEST_F(SliderTest, a_thermometer_has_a_filled_marker_of_3_pixels_at_the_end) {
  slider.SliderStyle = SliderStyle{2};
  slider.Orientation = Orientation{4};
  Pixels picture = Paint();
  EXPECT_TRUE(picture.IsAll({100, 171, 201, 174}, kRed));
  EXPECT_TRUE(picture.IsAll({101, 174, 200, 200}, kBlack));
  slider.Orientation = Orientation{1};
  picture = Paint();
  EXPECT_TRUE(picture.IsAll({127, 100, 130, 201}, kRed));
  EXPECT_TRUE(picture.IsAll({101, 101, 127, 200}, kBlack));
}

TEST_F(SliderTest, the_marker_stays_inside_the_box) {
  slider.SliderStyle = SliderStyle{2};
  slider.SliderValue = 0;
  EXPECT_EQ(BarIn(1), (Area{100, 100, 103, 201}));
  EXPECT_EQ(BarIn(4), (Area{100, 198, 201, 201}));
}

TEST_F(SliderTest, a_proportional_bar_begins_at_the_value_and_spans_the_portion) {
  slider.SliderStyle = SliderStyle{3};
  slider.Portion = 4;
  EXPECT_EQ(BarIn(1), (Area{130, 100, 170, 201}));
  EXPECT_EQ(BarIn(2), (Area{131, 100, 171, 201}));
  EXPECT_EQ(BarIn(3), (Area{100, 130, 201, 170}));
  EXPECT_EQ(BarIn(4), (Area{100, 131, 201, 171}));
}

TEST_F(SliderTest, an_ordinary_bar_is_drawn_after_extreme_numbers) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  constexpr std::int32_t kSmallest = -kLargest - 1;
  for (const std::int32_t extreme : {kLargest, kSmallest}) {
    for (const int orientation : {1, 2, 3, 4}) {
      for (const int style : {1, 2, 3}) {
        slider.Orientation = Orientation{orientation};
        slider.SliderStyle = SliderStyle{style};
        slider.MinValue = kSmallest;
        slider.MaxValue = kLargest;
        slider.SliderValue = extreme;
        slider.Portion = extreme;
        Place(slider, extreme, extreme, kLargest, kLargest);
        static_cast<void>(Paint());
        Place(slider, 0, 0, extreme, extreme);
        static_cast<void>(Paint());
      }
    }
  }
  slider.SliderStyle = SliderStyle::Normal;
  slider.MinValue = 0;
  slider.MaxValue = 10;
  slider.SliderValue = 3;
  Place(slider, 100, 100, 101, 101);
  EXPECT_EQ(BarIn(1), (Area{100, 100, 130, 201}));
}

TEST_F(SliderTest, the_numbers_are_above_the_box) {
  Place(slider, 200, 300, 100, 50);
  slider.MinValue = 1;
  slider.MaxValue = 9;
  slider.SliderValue = 5;
  const Pixels picture = Paint();
  // 30 x 15 each; the first two share some pixels.
  EXPECT_NE(picture.Extent({185, 285, 200, 300}), Area{}) << "the minimum";
  EXPECT_NE(picture.Extent({200, 285, 230, 300}), Area{}) << "the value";
  EXPECT_NE(picture.Extent({315, 285, 345, 300}), Area{}) << "the maximum";
  EXPECT_TRUE(picture.IsAll({230, 285, 315, 300}, kBlack));
  EXPECT_TRUE(picture.IsAll({0, 0, 720, 285}, kBlack));
}

TEST_F(SliderTest, is_white_where_no_colour_is_set) {
  slider.SliderRefColour = {};
  slider.Orientation = Orientation{4};
  EXPECT_TRUE(Paint().IsAll({100, 171, 201, 172}, kWhite));
}

}  // namespace korvel::test
