// What polygons cover, pixel by pixel: pictures drawn by hand, and many polygons beside a rule that
// looks at each pixel alone.
#include "presentation/coverage.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "substitutes/memory.h"

namespace korvel::test {

namespace {

using Corners = std::vector<CanvasPoint>;

constexpr std::uint32_t kInk = 0x80FF0000;

// The area's rows: '#' for ink, '.' for none.
std::vector<std::string> Picture(const Box& area, FillRule rule,
                                 const std::vector<Corners>& figures) {
  Coverage coverage;
  EXPECT_TRUE(coverage.Reserve(std::int64_t{area.Width()} * area.Height()));
  coverage.Begin(area);
  for (const Corners& figure : figures) coverage.AddFigure(figure);
  const std::uint32_t* pixel = coverage.Colour(rule, kInk);
  std::vector<std::string> rows(static_cast<std::size_t>(area.Height()));
  for (std::string& row : rows) {
    for (std::int32_t x = area.Left; x < area.Right; ++x, ++pixel) {
      EXPECT_TRUE(*pixel == kInk || *pixel == 0);
      row += *pixel == 0 ? '.' : '#';
    }
  }
  return rows;
}

using Rows = std::vector<std::string>;

// How many more sides lead down than up on the left of the pixel's corner, or through it.
int Enclosing(const Corners& corners, std::int32_t x, std::int32_t y) {
  int enclosing = 0;
  for (std::size_t corner = 0; corner < corners.size(); ++corner) {
    const CanvasPoint& from = corners[corner];
    const CanvasPoint& to = corners[(corner + 1) % corners.size()];
    if ((from.Y <= y) == (to.Y <= y)) continue;
    const std::int64_t area = (std::int64_t{to.X} - from.X) * (std::int64_t{y} - from.Y) -
                              (std::int64_t{to.Y} - from.Y) * (std::int64_t{x} - from.X);
    const bool isDownwards = from.Y < to.Y;
    if (isDownwards && area <= 0) ++enclosing;
    if (!isDownwards && area >= 0) --enclosing;
  }
  return enclosing;
}

}  // namespace

TEST(CoverageTest, a_rectangle_covers_its_left_and_upper_edge_alone) {
  EXPECT_EQ(Picture({0, 0, 6, 4}, FillRule::EvenOdd, {{{1, 1}, {5, 1}, {5, 3}, {1, 3}}}),
            (Rows{"......", ".####.", ".####.", "......"}));
}

TEST(CoverageTest, a_slope_parts_the_pixels_by_their_corners) {
  EXPECT_EQ(Picture({0, 0, 9, 4}, FillRule::EvenOdd, {{{0, 0}, {8, 4}, {0, 4}}}),
            (Rows{".........", "##.......", "####.....", "######..."}));
}

TEST(CoverageTest, what_is_enclosed_twice_is_a_hole_or_not_by_the_rule) {
  const Corners outer{{0, 0}, {5, 0}, {5, 5}, {0, 5}};
  const Corners inner{{1, 1}, {4, 1}, {4, 4}, {1, 4}};
  const Corners innerBackwards(inner.rbegin(), inner.rend());
  const Rows ring{"#####", "#...#", "#...#", "#...#", "#####"};
  const Box area{0, 0, 5, 5};
  EXPECT_EQ(Picture(area, FillRule::EvenOdd, {outer, inner}), ring);
  EXPECT_EQ(Picture(area, FillRule::EvenOdd, {outer, innerBackwards}), ring);
  EXPECT_EQ(Picture(area, FillRule::NonZero, {outer, innerBackwards}), ring);
  EXPECT_EQ(Picture(area, FillRule::NonZero, {outer, inner}), Rows(5, "#####"));
}

TEST(CoverageTest, figures_turned_either_way_are_filled) {
  EXPECT_EQ(Picture({0, 0, 3, 1}, FillRule::NonZero, {{{0, 0}, {0, 1}, {2, 1}, {2, 0}}}),
            Rows{"##."});
  EXPECT_EQ(Picture({0, 0, 3, 1}, FillRule::NonZero, {{{0, 0}, {2, 0}, {2, 1}, {0, 1}}}),
            Rows{"##."});
}

// The pixels on the long side belong to what lies right of it.
TEST(CoverageTest, what_lies_outside_of_the_area_is_cut_off) {
  const Corners corners{{-1000, -1000}, {1000, 1000}, {-1000, 1000}};
  EXPECT_EQ(Picture({10, 10, 14, 13}, FillRule::EvenOdd, {corners}),
            (Rows{"....", "#...", "##.."}));
  EXPECT_EQ(Picture({-5, 10, -3, 12}, FillRule::EvenOdd, {corners}), Rows(2, "##"));
  EXPECT_EQ(Picture({990, 20, 992, 22}, FillRule::EvenOdd, {corners}), Rows(2, ".."));
  EXPECT_EQ(Picture({0, 2000, 2, 2002}, FillRule::EvenOdd, {corners}), Rows(2, ".."));
}

TEST(CoverageTest, coordinates_up_to_a_billion_keep_their_slope) {
  constexpr std::int32_t kFar = 1'000'000'000;
  const Corners corners{{-kFar, -kFar}, {kFar, kFar}, {-kFar, kFar}};
  EXPECT_EQ(Picture({0, 0, 3, 3}, FillRule::EvenOdd, {corners}), (Rows{"...", "#..", "##."}));
}

TEST(CoverageTest, figures_without_an_area_cover_nothing) {
  const Box area{0, 0, 4, 4};
  for (const Corners& corners :
       {Corners{}, Corners{{1, 1}}, Corners{{0, 0}, {4, 4}}, Corners{{1, 1}, {1, 1}, {1, 1}},
        Corners{{0, 2}, {2, 2}, {4, 2}}}) {
    EXPECT_EQ(Picture(area, FillRule::EvenOdd, {corners}), Rows(4, "...."));
    EXPECT_EQ(Picture(area, FillRule::NonZero, {corners}), Rows(4, "...."));
  }
}

TEST(CoverageTest, a_pixel_is_covered_alone_at_the_right_edge_too) {
  Coverage coverage;
  ASSERT_TRUE(coverage.Reserve(6));
  coverage.Begin({5, 5, 8, 7});
  for (const CanvasPoint& pixel : Corners{{5, 5}, {7, 5}, {6, 6}, {6, 6}, {4, 6}, {8, 5}, {5, 7}}) {
    coverage.AddPixel(pixel);
  }
  const std::uint32_t* pixels = coverage.Colour(FillRule::NonZero, kInk);
  EXPECT_EQ(std::vector<std::uint32_t>(pixels, pixels + 6),
            (std::vector<std::uint32_t>{kInk, 0, kInk, 0, kInk, 0}));
}

TEST(CoverageTest, each_area_begins_with_nothing_covered) {
  Coverage coverage;
  ASSERT_TRUE(coverage.Reserve(4));
  coverage.Begin({0, 0, 2, 2});
  coverage.AddFigure(Corners{{0, 0}, {2, 0}, {2, 2}, {0, 2}});
  EXPECT_EQ(coverage.Colour(FillRule::EvenOdd, kInk)[3], kInk);
  coverage.Begin({0, 2, 2, 4});
  EXPECT_EQ(coverage.Colour(FillRule::EvenOdd, kInk)[3], 0U);
}

TEST(CoverageTest, without_memory_there_is_no_room) {
  FailAllocation(1);
  Coverage coverage;
  EXPECT_FALSE(coverage.Reserve(4));
  FailAllocation(0);
}

TEST(CoverageTest, every_polygon_covers_what_its_rule_says_of_each_pixel) {
  std::mt19937 numbers(1);
  const auto random = [&](int from, int to) {
    return std::uniform_int_distribution<std::int32_t>(from, to)(numbers);
  };
  const Box area{-3, 4, 37, 29};
  for (int polygon = 0; polygon < 300; ++polygon) {
    Corners corners(static_cast<std::size_t>(random(2, polygon % 3 == 0 ? 4 : 60)));
    const int extent = polygon % 2 == 0 ? 30 : 100;
    for (CanvasPoint& corner : corners) corner = {random(-extent, extent), random(-extent, extent)};
    const Rows evenOdd = Picture(area, FillRule::EvenOdd, {corners});
    const Rows nonZero = Picture(area, FillRule::NonZero, {corners});
    for (std::int32_t y = area.Top; y < area.Bottom; ++y) {
      for (std::int32_t x = area.Left; x < area.Right; ++x) {
        const auto row = static_cast<std::size_t>(y - area.Top);
        const auto column = static_cast<std::size_t>(x - area.Left);
        const int enclosing = Enclosing(corners, x, y);
        ASSERT_EQ(evenOdd[row][column] == '#', enclosing % 2 != 0)
            << polygon << ": " << x << "," << y;
        ASSERT_EQ(nonZero[row][column] == '#', enclosing != 0) << polygon << ": " << x << "," << y;
      }
    }
  }
}

}  // namespace korvel::test
