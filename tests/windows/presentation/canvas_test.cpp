// Tests dynamic line art: each drawing operation on its canvas, and how a redraw shows the canvas.
#include "presentation/line_art.h"

#include "platform/canvases.h"
#include "presentation/presentation.h"
#include "windows/presentation/processor_time.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

namespace {

constexpr DrawnColour kOpaqueRed = 0xFF000000;
constexpr DrawnColour kOpaqueGreen = 0x00FF0000;

}  // namespace

class CanvasTest : public Stage {
 protected:
  CanvasTest() {
    Place(lineArt, 100, 100, 200, 100);
    lineArt.BorderedBoundingBox = false;
    lineArt.Canvas = NewCanvas(200, 100);
    Show(ItemType::DynamicLineArt, lineArt);
  }
  ~CanvasTest() override { DestroyCanvas(lineArt.Canvas); }
  CanvasTest(const CanvasTest&) = delete;
  CanvasTest& operator=(const CanvasTest&) = delete;

  [[nodiscard]] Area Ink() { return Paint().Extent(kWholeScene); }
  void Clear() { ClearCanvas(kTransparentColour, lineArt.Canvas); }

  DynamicLineArt lineArt;
  LineAttributes red{.width = 1, .style = LineStyle::Solid, .ink = kOpaqueRed};
};

TEST_F(CanvasTest, a_new_canvas_is_transparent) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kBlueBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::DynamicLineArt, lineArt);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlue));
}

TEST_F(CanvasTest, a_line_runs_from_point_to_point) {
  CanvasLine({10, 20}, {59, 20}, red, lineArt.Canvas);
  const Area ink = Ink();
  EXPECT_EQ(ink.left, 110);
  EXPECT_EQ(ink.top, 120);
  EXPECT_NEAR(ink.right, 160, 1);  // GDI+ decides whether a line includes its last pixel
  EXPECT_EQ(ink.bottom, 121);
}

TEST_F(CanvasTest, a_line_that_leaves_the_canvas_keeps_its_slope) {
  constexpr std::int32_t kFar = 2000000000;
  CanvasLine({0, 0}, {kFar, kFar / 2}, red, lineArt.Canvas);
  const Pixels picture = Paint();
  const Area end = picture.Extent({290, 100, 300, 200});
  EXPECT_NEAR(end.top, 195, 2);
  EXPECT_NEAR(end.bottom, 200, 2);
}

TEST_F(CanvasTest, a_rectangle_has_its_fill_inside_its_border) {
  red.width = 4;
  CanvasRectangle({10, 10}, {20, 20}, red, kOpaqueGreen, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Extent(kWholeScene), (Area{110, 110, 120, 120}));
  EXPECT_EQ(picture.Count(kWholeScene, kGreen), 4);
  EXPECT_TRUE(picture.IsAll({114, 114, 116, 116}, kGreen));
}

TEST_F(CanvasTest, an_oval_has_a_fill_and_no_outline) {
  CanvasOval({20, 10}, 100, 60, kOpaqueGreen, lineArt.Canvas);
  const Pixels picture = Paint();
  const Area ink = picture.Extent(kWholeScene);
  EXPECT_NEAR(ink.left, 120, 1);
  EXPECT_NEAR(ink.right, 220, 1);
  EXPECT_NEAR(ink.top, 110, 1);
  EXPECT_NEAR(ink.bottom, 170, 1);
  EXPECT_NEAR(picture.Count(kWholeScene, kGreen), 3.1416 * 50 * 30, 120);
  EXPECT_EQ(picture.At(121, 111), kBlack) << "the corner of its box";
}

TEST_F(CanvasTest, an_oval_without_a_fill_draws_nothing) {
  CanvasOval({20, 10}, 100, 60, kTransparentColour, lineArt.Canvas);
  EXPECT_EQ(Ink(), Area{});
}

TEST_F(CanvasTest, a_positive_arc_runs_counter_clockwise_from_its_start) {
  // Starts at the right (0 degrees) and runs a quarter upwards: the ellipse's top right quarter.
  CanvasArc({50, 0}, 100, 100, 0, 90, red, kTransparentColour, ArcForm::Arc, lineArt.Canvas);
  const Area ink = Ink();
  EXPECT_GE(ink.left, 199);
  EXPECT_NEAR(ink.right, 250, 2);
  EXPECT_NEAR(ink.top, 101, 2);
  EXPECT_LE(ink.bottom, 152);
}

TEST_F(CanvasTest, the_ellipse_of_an_arc_is_inset_from_the_box_by_the_line_width) {
  red.width = 6;
  CanvasArc({50, 0}, 100, 100, 0, 360, red, kTransparentColour, ArcForm::Arc, lineArt.Canvas);
  const Area ink = Ink();  // the line's middle is 6 inside the box, its outer edge 3
  EXPECT_NEAR(ink.left, 153, 1);
  EXPECT_NEAR(ink.right, 247, 1);
  EXPECT_NEAR(ink.top, 103, 1);
  EXPECT_NEAR(ink.bottom, 197, 1);
}

TEST_F(CanvasTest, an_arc_is_never_filled) {
  CanvasArc({50, 0}, 100, 100, 0, 360, red, kOpaqueGreen, ArcForm::Arc, lineArt.Canvas);
  EXPECT_EQ(Paint().Count(kWholeScene, kGreen), 0);
}

TEST_F(CanvasTest, a_sector_is_a_filled_pie) {
  CanvasArc({50, 0}, 100, 100, 0, 90, red, kOpaqueGreen, ArcForm::Sector, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.At(220, 130), kGreen);
  EXPECT_EQ(picture.At(180, 130), kBlack);
  EXPECT_EQ(picture.At(220, 170), kBlack);
}

TEST_F(CanvasTest, a_sector_with_a_transparent_fill_has_only_an_outline) {
  CanvasArc({50, 0}, 100, 100, 0, 90, red, 0x00FF00FF, ArcForm::Sector, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.Count(kWholeScene, kGreen), 0);
  EXPECT_GT(picture.Count(kWholeScene, kRed), 100);
}

TEST_F(CanvasTest, a_sectors_fill_is_as_transparent_as_its_line) {
  red.ink = 0xFF000080;
  CanvasArc({50, 0}, 100, 100, 0, 90, red, kOpaqueGreen, ArcForm::Sector, lineArt.Canvas);
  const std::uint32_t mixed = Paint().At(220, 130);
  EXPECT_NEAR(mixed >> 8 & 0xFF, 127, 3);
  EXPECT_EQ(mixed & 0xFF00FF, 0U);
}

TEST_F(CanvasTest, a_sector_whose_line_has_no_width_has_only_a_fill) {
  for (const int width : {0, -1}) {
    Clear();
    red.width = width;
    CanvasArc({50, 0}, 100, 100, 0, 90, red, kOpaqueGreen, ArcForm::Sector, lineArt.Canvas);
    const Pixels picture = Paint();
    EXPECT_EQ(picture.Count(kWholeScene, kRed), 0) << width;
    EXPECT_NEAR(picture.Count(kWholeScene, kGreen), 3.1416 * 50 * 50 / 4, 80) << width;
    EXPECT_EQ(picture.At(220, 130), kGreen) << width;
  }
}

TEST_F(CanvasTest, a_line_without_width_draws_nothing) {
  const CanvasPoint corners[] = {{10, 20}, {59, 20}, {40, 90}};
  for (const int width : {0, -1}) {
    red.width = width;
    CanvasLine({10, 20}, {59, 20}, red, lineArt.Canvas);
    CanvasRectangle({10, 10}, {90, 90}, red, kTransparentColour, lineArt.Canvas);
    CanvasArc({50, 0}, 100, 100, 0, 90, red, kTransparentColour, ArcForm::Arc, lineArt.Canvas);
    CanvasPolygon(corners, red, kTransparentColour, lineArt.Canvas);
    EXPECT_EQ(Ink(), Area{}) << width;
  }
}

TEST_F(CanvasTest, a_polygon_of_two_points_is_a_line) {
  const CanvasPoint corners[] = {{10, 20}, {59, 20}};
  CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
  const Pixels picture = Paint();
  Clear();
  CanvasLine(corners[0], corners[1], red, lineArt.Canvas);
  EXPECT_EQ(picture, Paint());
  EXPECT_EQ(picture.At(130, 120), kRed);
}

TEST_F(CanvasTest, a_polygon_is_closed_and_filled) {
  const CanvasPoint corners[] = {{10, 10}, {90, 10}, {90, 80}};
  CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.At(180, 130), kGreen);
  EXPECT_EQ(picture.At(120, 170), kBlack) << "outside the closing side";
  EXPECT_NEAR(picture.Count(kWholeScene, kGreen) + picture.Count(kWholeScene, kRed), 80 * 70 / 2,
              200);
}

TEST_F(CanvasTest, fewer_than_two_points_draw_nothing) {
  const CanvasPoint corners[] = {{10, 10}};
  CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
  CanvasPolygon({}, red, kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), Area{});
}

TEST_F(CanvasTest, a_polygon_with_far_corners_is_clipped_without_distortion) {
  constexpr std::int32_t kFar = 2000000000;
  const CanvasPoint corners[] = {{0, 0}, {kFar, kFar / 2}, {-kFar, kFar}};
  CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_NEAR(picture.Extent({280, 100, 281, 200}).top, 190, 2);
  EXPECT_EQ(picture.At(150, 180), kGreen);
  EXPECT_EQ(picture.At(250, 150), kBlack);
}

TEST_F(CanvasTest, a_polygon_of_a_thousand_corners_is_drawn_and_one_of_more_is_not) {
  std::vector<CanvasPoint> corners;  // along the upper side and back, pixel by pixel
  for (std::int32_t round = 0; round < 10; ++round) {
    for (std::int32_t x = 0; x < 50; ++x) corners.push_back({x, 0});
    for (std::int32_t x = 50; x > 0; --x) corners.push_back({x, 0});
  }
  corners[500] = {25, 50};
  ASSERT_EQ(corners.size(), 1000U);
  CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink().Height(), 51) << "the outline";
  Clear();
  corners.push_back({0, 0});
  CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), Area{});
}

TEST_F(CanvasTest, lines_of_style_2_are_dashed_and_of_style_3_dotted) {
  const auto inkOf = [this](std::int32_t style) {
    Clear();
    red.style = LineStyle{style};
    CanvasLine({0, 50}, {199, 50}, red, lineArt.Canvas);
    return Paint().Count(kWholeScene, kRed);
  };
  red.width = 4;
  const int solid = inkOf(1);
  EXPECT_EQ(inkOf(9), solid);
  EXPECT_EQ(inkOf(0), solid);
  const int dashed = inkOf(2);
  const int dotted = inkOf(3);
  EXPECT_LT(dashed, solid);
  EXPECT_LT(dotted, dashed);
  EXPECT_GT(dotted, 0);
}

TEST_F(CanvasTest, dashes_of_lines_that_leave_the_canvas_do_not_move) {
  struct Line {
    CanvasPoint from;
    CanvasPoint to;
  };
  // The two lines of each pair look the same on the canvas: one of them is longer at its end, or
  // longer at its start by a multiple of every dash period.
  const std::pair<Line, Line> pairs[] = {{{{0, 50}, {220, 50}}, {{0, 50}, {2000000000, 50}}},
                                         {{{-48, 50}, {220, 50}}, {{-48000048, 50}, {220, 50}}},
                                         {{{-60, -80}, {300, 400}}, {{-60, -80}, {60000, 80000}}},
                                         {{{-60, -80}, {90, 120}}, {{-28860, -38480}, {90, 120}}}};
  for (const auto& [nearby, distant] : pairs) {
    for (const std::int32_t style : {1, 2, 3}) {
      for (const std::int32_t width : {1, 4}) {
        red.style = LineStyle{style};
        red.width = width;
        Clear();
        CanvasLine(nearby.from, nearby.to, red, lineArt.Canvas);
        const Pixels expected = Paint();
        EXPECT_GE(expected.Count(kWholeScene, kRed), 50);
        Clear();
        CanvasLine(distant.from, distant.to, red, lineArt.Canvas);
        EXPECT_TRUE(Paint() == expected) << distant.from.x << ' ' << style << ' ' << width;
      }
    }
  }
}

TEST_F(CanvasTest, dashes_of_rectangles_that_leave_the_canvas_do_not_move) {
  for (const std::int32_t style : {2, 3}) {
    for (const std::int32_t width : {1, 4}) {
      red.style = LineStyle{style};
      red.width = width;
      const auto inkOf = [this](CanvasPoint from, CanvasPoint to) {
        Clear();
        CanvasRectangle(from, to, red, kTransparentColour, lineArt.Canvas);
        return Paint();
      };
      const Pixels expected = inkOf({10, 10}, {266, 170});
      EXPECT_GT(expected.Count(kWholeScene, kRed), 100);
      EXPECT_TRUE(inkOf({10, 10}, {266 + 16 * 1000, 170 + 16 * 1500}) == expected) << style;
      const Pixels corner = inkOf({-70, -150}, {190, 90});
      EXPECT_GT(corner.Count(kWholeScene, kRed), 100);
      EXPECT_TRUE(inkOf({-70 - 16 * 1700, -150 - 16 * 1100}, {190, 90}) == corner) << style;
    }
  }
}

TEST_F(CanvasTest, black_is_invisible_and_the_darkest_grey_is_not) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kBlueBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::DynamicLineArt, lineArt);
  CanvasOval({10, 10}, 50, 50, 0x00000000, lineArt.Canvas);
  CanvasOval({100, 10}, 50, 50, 0x01010100, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.At(135, 135), kBlue);
  EXPECT_EQ(picture.At(225, 135), 0x010101U);
}

TEST_F(CanvasTest, half_transparent_black_is_invisible_too) {
  Rectangle below;
  Place(below, 0, 0, 720, 576);
  Fill(below, kBlueBytes);
  App().DisplayStack.Clear();
  Show(ItemType::Rectangle, below);
  Show(ItemType::DynamicLineArt, lineArt);
  CanvasOval({10, 10}, 50, 50, 0x00000080, lineArt.Canvas);
  EXPECT_EQ(Paint().At(135, 135), kBlue);
}

TEST_F(CanvasTest, a_border_is_drawn_inside_the_box_and_the_canvas_inside_the_border) {
  lineArt.BorderedBoundingBox = true;
  lineArt.LineWidth = 5;
  lineArt.RefLineColour = Absolute(kGreenBytes);
  CanvasLine({0, 0}, {30, 0}, red, lineArt.Canvas);
  const Pixels picture = Paint();
  EXPECT_TRUE(picture.IsAll({100, 100, 300, 105}, kGreen));
  EXPECT_EQ(picture.At(105, 105), kRed);
  EXPECT_EQ(picture.At(105, 106), kBlack);
}

TEST_F(CanvasTest, a_drawable_area_limits_what_is_drawn) {
  ClipCanvas(50, 40, lineArt.Canvas);
  CanvasRectangle({0, 0}, {200, 100}, red, kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), (Area{100, 100, 150, 140}));
  ClearCanvas(kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), (Area{100, 100, 150, 140})) << "clearing keeps the area";
  ClipCanvas(-3, 40, lineArt.Canvas);
  Clear();
  CanvasRectangle({0, 0}, {200, 100}, red, kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), Area{});
}

TEST_F(CanvasTest, clearing_removes_everything_and_keeps_the_size) {
  CanvasRectangle({0, 0}, {200, 100}, red, kOpaqueGreen, lineArt.Canvas);
  lineArt.BoxSize = {50, 50};
  Clear();
  EXPECT_EQ(Ink(), Area{});
  ClearCanvas(kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), (Area{100, 100, 300, 200}));
}

TEST_F(CanvasTest, without_a_canvas_every_operation_draws_nothing) {
  const CanvasPoint corners[] = {{0, 0}, {9, 9}, {0, 9}};
  CanvasLine({0, 0}, {9, 9}, red, nullptr);
  CanvasRectangle({0, 0}, {9, 9}, red, kOpaqueGreen, nullptr);
  CanvasOval({0, 0}, 9, 9, kOpaqueGreen, nullptr);
  CanvasArc({0, 0}, 9, 9, 0, 90, red, kOpaqueGreen, ArcForm::Sector, nullptr);
  CanvasPolygon(corners, red, kOpaqueGreen, nullptr);
  ClearCanvas(kOpaqueGreen, nullptr);
  ClipCanvas(1, 1, nullptr);
  DestroyCanvas(nullptr);
  DynamicLineArt bare;
  Place(bare, 0, 0, 50, 50);
  bare.BorderedBoundingBox = false;
  Show(ItemType::DynamicLineArt, bare);
  EXPECT_EQ(Ink(), Area{});
}

TEST_F(CanvasTest, sizes_without_area_or_beyond_the_limit_make_no_canvas) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  EXPECT_EQ(NewCanvas(0, 10), nullptr);
  EXPECT_EQ(NewCanvas(10, 0), nullptr);
  EXPECT_EQ(NewCanvas(-5, 10), nullptr);
  EXPECT_EQ(NewCanvas(kLargest, kLargest), nullptr);
  EXPECT_EQ(NewCanvas(kLargest, 1), nullptr);
}

TEST_F(CanvasTest, a_canvas_larger_than_the_scene_is_clipped_to_it) {
  DestroyCanvas(lineArt.Canvas);
  lineArt.Canvas = NewCanvas(3000, 2000);
  ASSERT_NE(lineArt.Canvas, nullptr);
  ClearCanvas(kOpaqueGreen, lineArt.Canvas);
  Place(lineArt, -1000, -1000, 3000, 2000);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kGreen));
  Place(lineArt, 700, 570, 3000, 2000);
  EXPECT_EQ(Ink(), (Area{700, 570, 720, 576}));
  Place(lineArt, 0x7FFFFFFF, -0x7FFFFFFF, 3000, 2000);
  EXPECT_EQ(Ink(), Area{});
}

TEST_F(CanvasTest, drawing_with_the_largest_numbers_is_fast) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  constexpr std::int32_t kSmallest = -kLargest - 1;
  const std::uint64_t start = ProcessorMs();
  for (const std::int32_t style : {1, 2, 3}) {
    for (const std::int32_t width : {1, kLargest, kSmallest}) {
      red.style = LineStyle{style};
      red.width = width;
      const CanvasPoint corners[] = {{kSmallest, kLargest}, {kLargest, 5}, {3, kSmallest}};
      CanvasLine({kSmallest, 3}, {kLargest, 4}, red, lineArt.Canvas);
      CanvasRectangle({kSmallest, kSmallest}, {kLargest, kLargest}, red, kOpaqueGreen,
                      lineArt.Canvas);
      CanvasArc({kSmallest, kSmallest}, kLargest, kLargest, kLargest, kSmallest, red, kOpaqueGreen,
                ArcForm::Sector, lineArt.Canvas);
      CanvasArc({-3, -3}, kLargest, kLargest, kSmallest, kLargest, red, kOpaqueGreen, ArcForm::Arc,
                lineArt.Canvas);
      CanvasOval({kLargest, kLargest}, kLargest, kLargest, kOpaqueGreen, lineArt.Canvas);
      CanvasPolygon(corners, red, kOpaqueGreen, lineArt.Canvas);
    }
  }
  EXPECT_LT(ProcessorMs() - start, 54 * 250U) << "more than a quarter of a second per operation";
  Clear();
  red.style = LineStyle::Solid;
  red.width = 2;
  CanvasRectangle({10, 10}, {20, 20}, red, kOpaqueGreen, lineArt.Canvas);
  EXPECT_EQ(Ink(), (Area{110, 110, 120, 120})) << "the next ordinary rectangle";
}

}  // namespace korvel::test
