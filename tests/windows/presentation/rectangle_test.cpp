// Tests the rectangle and its border, exact to the pixel.
#include "windows/presentation/stage.h"

#include "presentation/presentation.h"
#include "windows/presentation/processor_time.h"

namespace korvel::test {

class RectangleTest : public Stage {
 protected:
  RectangleTest() {
    rectangle.RefLineColour = Absolute(kRedBytes);
    rectangle.RefFillColour = Absolute(kGreenBytes);
    Show(ItemType::Rectangle, rectangle);
  }
  Rectangle rectangle;
};

TEST_F(RectangleTest, the_border_is_inside_the_box) {
  for (const int width : {1, 2, 3, 4, 7, 10}) {
    Place(rectangle, 100, 200, 60, 40);
    rectangle.LineWidth = width;
    const Pixels picture = Paint();
    EXPECT_EQ(picture.Extent(kWholeScene), (Area{100, 200, 160, 240})) << width;
    EXPECT_EQ(picture.Count(kWholeScene, kGreen), (60 - 2 * width) * (40 - 2 * width)) << width;
    EXPECT_TRUE(picture.IsAll({100 + width, 200 + width, 160 - width, 240 - width}, kGreen))
        << width;
    EXPECT_EQ(picture.Count(kWholeScene, kRed), 60 * 40 - (60 - 2 * width) * (40 - 2 * width))
        << width;
  }
}

TEST_F(RectangleTest, a_line_of_4_in_a_box_of_10_leaves_2_by_2_to_fill) {
  Place(rectangle, 100, 100, 10, 10);
  rectangle.LineWidth = 4;
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Count(kWholeScene, kGreen), 4);
  EXPECT_TRUE(picture.IsAll({104, 104, 106, 106}, kGreen));
  EXPECT_EQ(picture.Count(kWholeScene, kRed), 96);
}

TEST_F(RectangleTest, without_a_fill_the_objects_below_are_visible) {
  Rectangle below;
  Place(below, 50, 50, 200, 200);
  Fill(below, kBlueBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::Rectangle, rectangle);
  Place(rectangle, 100, 100, 60, 40);
  rectangle.LineWidth = 5;
  rectangle.RefFillColour = ColourValue::NotSet();
  const Pixels picture = Paint();
  EXPECT_TRUE(picture.IsAll({105, 105, 155, 135}, kBlue));
  EXPECT_EQ(picture.Count(kWholeScene, kRed), 60 * 40 - 50 * 30);
}

TEST_F(RectangleTest, lines_are_black_where_no_colour_is_set) {
  Rectangle below;
  Place(below, 50, 50, 200, 200);
  Fill(below, kBlueBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::Rectangle, rectangle);
  Place(rectangle, 100, 100, 60, 40);
  rectangle.LineWidth = 5;
  rectangle.RefLineColour = ColourValue::NotSet();
  const Pixels picture = Paint();
  EXPECT_TRUE(picture.IsAll({100, 100, 160, 105}, kBlack));
  EXPECT_TRUE(picture.IsAll({105, 105, 155, 135}, kGreen));
}

TEST_F(RectangleTest, dashes_and_dots_leave_gaps_and_other_styles_do_not) {
  Place(rectangle, 100, 100, 200, 100);
  rectangle.LineWidth = 2;
  rectangle.RefFillColour = ColourValue::NotSet();
  const int whole = 200 * 100 - 196 * 96;
  for (const int style : {1, 0, 4, 9, -1}) {
    rectangle.LineStyle = LineStyle{style};
    EXPECT_EQ(Paint().Count(kWholeScene, kRed), whole) << style;
  }
  rectangle.LineStyle = LineStyle{2};
  const int dashed = Paint().Count(kWholeScene, kRed);
  rectangle.LineStyle = LineStyle{3};
  const int dotted = Paint().Count(kWholeScene, kRed);
  EXPECT_GT(dashed, whole / 2) << "a dash is three times as long as a gap";
  EXPECT_LT(dashed, whole);
  EXPECT_GT(dotted, whole / 4);
  EXPECT_LT(dotted, dashed) << "a dot is as long as a gap";
}

TEST_F(RectangleTest, the_part_outside_the_scene_is_cut_off) {
  Place(rectangle, -20, 550, 100, 100);
  rectangle.LineWidth = 3;
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{0, 550, 80, 576}));
  EXPECT_TRUE(picture.IsAll({0, 553, 77, 576}, kGreen));
}

TEST_F(RectangleTest, boxes_without_area_draw_nothing) {
  for (const korvel::BoxSize size : {korvel::BoxSize{0, 10}, {10, 0}, {-10, 20}, {20, -10}}) {
    Place(rectangle, 100, 100, size.Width, size.Height);
    EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack)) << size.Width << " x " << size.Height;
  }
}

TEST_F(RectangleTest, a_line_without_width_is_not_drawn) {
  Place(rectangle, 100, 100, 60, 40);
  for (const int width : {0, -1}) {
    rectangle.LineWidth = width;
    const Pixels picture = Paint();
    EXPECT_EQ(picture.Count(kWholeScene, kGreen), 60 * 40) << width;
    EXPECT_EQ(picture.Count(kWholeScene, kRed), 0) << width;
  }
}

TEST_F(RectangleTest, a_box_no_larger_than_its_border_is_all_border) {
  Place(rectangle, 100, 100, 6, 20);
  rectangle.LineWidth = 8;
  const Pixels picture = Paint();
  EXPECT_TRUE(picture.IsAll({100, 100, 106, 120}, kRed));
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{100, 100, 106, 120}));
}

TEST_F(RectangleTest, the_largest_numbers_neither_overflow_nor_take_long) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  const std::uint64_t start = ProcessorMs();
  for (const int style : {1, 2, 3}) {
    rectangle.LineStyle = LineStyle{style};
    for (const int width : {-kLargest - 1, -1, 1, kLargest}) {
      rectangle.LineWidth = width;
      Place(rectangle, -kLargest - 1, -100, kLargest, kLargest);
      static_cast<void>(Paint());
      Place(rectangle, kLargest, kLargest, kLargest, kLargest);
      static_cast<void>(Paint());
      Place(rectangle, -1000, 100, kLargest, 20);
      static_cast<void>(Paint());
    }
  }
  EXPECT_LT(ProcessorMs() - start, 18 * 1000U) << "more than half a second per painting";
  rectangle.LineStyle = LineStyle{1};
  rectangle.LineWidth = 2;
  EXPECT_TRUE(Paint().IsAll({0, 102, 720, 118}, kGreen));
}

TEST_F(RectangleTest, objects_below_show_through_a_transparent_colour) {
  Place(rectangle, 100, 100, 50, 50);
  rectangle.RefLineColour = Absolute(std::string_view("\xFF\xFF\xFF\x80", 4));
  rectangle.RefFillColour = Absolute(std::string_view("\xFF\xFF\xFF\x80", 4));
  const std::uint32_t grey = Paint().At(120, 120);
  EXPECT_NEAR(grey & 0xFF, 0x7F, 2);
  EXPECT_EQ(grey >> 16, grey & 0xFF);
}

}  // namespace korvel::test
