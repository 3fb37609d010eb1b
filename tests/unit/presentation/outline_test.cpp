// What pens cover on their way around a polygon: widths, corners, dashes, and the pixels of a line
// of one pixel.
#include "presentation/outline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace korvel::test {

namespace {

using Corners = std::vector<CanvasPoint>;
using Rows = std::vector<std::string>;

// The area's rows: '#' where the outline covers, '.' elsewhere.
Rows Outline(const Box& area, const Corners& corners, std::int32_t width,
             Dashes dashes = Dashes::None) {
  Coverage coverage;
  EXPECT_TRUE(coverage.Reserve(std::int64_t{area.Width()} * area.Height()));
  coverage.Begin(area);
  if (width == 1) {
    AddThinOutline(corners, dashes, coverage);
  } else {
    AddWideOutline(corners, width, dashes, coverage);
  }
  const std::uint32_t* pixel = coverage.Colour(FillRule::NonZero, 1);
  Rows rows(static_cast<std::size_t>(area.Height()));
  for (std::string& row : rows) {
    for (std::int32_t x = area.Left; x < area.Right; ++x) row += *pixel++ == 0 ? '.' : '#';
  }
  return rows;
}

// How far to the right anything is covered.
std::int32_t RightEnd(const Rows& rows) {
  std::size_t end = 0;
  for (const std::string& row : rows) end = std::max(end, row.find_last_of('#') + 1);
  return static_cast<std::int32_t>(end);
}

class RandomCorners {
 public:
  // Some of them equal, in a square of that size around the origin or in small steps from there.
  Corners Next(std::int32_t extent) {
    Corners corners(static_cast<std::size_t>(Number(1, 40)));
    const bool isDense = Number(0, 1) == 0;
    CanvasPoint last;
    for (CanvasPoint& corner : corners) {
      corner = {Number(-extent, extent), Number(-extent, extent)};
      if (isDense) corner = {last.X + Number(-3, 3), last.Y + Number(-3, 3)};
      last = corner;
    }
    return corners;
  }

 private:
  std::int32_t Number(std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution<std::int32_t>(from, to)(numbers_);
  }

  std::mt19937 numbers_{1};
};

constexpr std::array kAllDashes{Dashes::None, Dashes::Short, Dashes::Long};

}  // namespace

TEST(OutlineTest, a_wide_pen_covers_half_its_width_on_either_side) {
  EXPECT_EQ(Outline({0, 0, 10, 9}, {{2, 2}, {8, 2}, {8, 7}, {2, 7}}, 2),
            (Rows{"..........",  //
                  ".########.",  //
                  ".########.",  //
                  ".##....##.",  //
                  ".##....##.",  //
                  ".##....##.",  //
                  ".########.",  //
                  ".########.",  //
                  ".........."}));
}

TEST(OutlineTest, a_pen_of_odd_width_has_the_outline_in_its_middle) {
  EXPECT_EQ(Outline({0, 0, 11, 9}, {{2, 2}, {8, 2}, {8, 6}, {2, 6}}, 3),
            (Rows{"...........",  //
                  ".#########.",  //
                  ".#########.",  //
                  ".#########.",  //
                  ".###...###.",  //
                  ".#########.",  //
                  ".#########.",  //
                  ".#########.",  //
                  "..........."}));
}

TEST(OutlineTest, the_outline_is_the_same_either_way_around) {
  const Corners corners{{2, 2}, {18, 3}, {11, 17}};
  const Corners backwards(corners.rbegin(), corners.rend());
  EXPECT_EQ(Outline({0, 0, 25, 25}, corners, 4), Outline({0, 0, 25, 25}, backwards, 4));
}

TEST(OutlineTest, sides_that_cross_cover_their_crossing) {
  const Rows rows = Outline({0, 0, 40, 40}, {{5, 5}, {35, 35}, {35, 5}, {5, 35}}, 6);
  EXPECT_EQ(rows[20].substr(16, 8), "########");
}

TEST(OutlineTest, a_sharp_corner_is_mitred_up_to_a_limit) {
  const Box area{0, 0, 150, 40};
  // The sides of the first meet at twice 9.5 degrees, and the mitre is 6.1 times half the width;
  // those of the second meet at twice 1.9 degrees, where it would be 30 times that.
  EXPECT_NEAR(RightEnd(Outline(area, {{10, 10}, {70, 20}, {10, 30}}, 4)), 82, 1);
  EXPECT_NEAR(RightEnd(Outline(area, {{10, 18}, {70, 20}, {10, 22}}, 4)), 70, 1);
}

TEST(OutlineTest, a_side_back_on_itself_ends_flat) {
  EXPECT_EQ(Outline({0, 0, 9, 6}, {{2, 3}, {7, 3}}, 2),
            (Rows{".........", ".........", "..#####..", "..#####..", ".........", "........."}));
}

TEST(OutlineTest, corners_that_are_given_twice_are_bevelled) {
  const Box area{0, 0, 20, 20};
  EXPECT_EQ(Outline(area, {{4, 4}, {16, 4}, {16, 16}, {4, 16}}, 4)[2][2], '#');
  EXPECT_EQ(Outline(area, {{4, 4}, {4, 4}, {16, 4}, {16, 16}, {4, 16}}, 4)[2][2], '.');
}

TEST(OutlineTest, a_point_has_no_outline) {
  for (const std::int32_t width : {1, 2, 9}) {
    for (const Dashes dashes : kAllDashes) {
      for (const Corners& corners : {Corners{}, Corners{{3, 3}}, Corners{{3, 3}, {3, 3}, {3, 3}}}) {
        EXPECT_EQ(Outline({0, 0, 8, 8}, corners, width, dashes), Rows(8, "........"));
      }
    }
  }
}

// The walk begins with the left side, upwards, and ends within a dash.
TEST(OutlineTest, wide_dashes_go_on_around_the_corners) {
  const Corners corners{{5, 5}, {43, 5}, {43, 25}, {5, 25}};
  const Rows dashed = Outline({0, 0, 60, 40}, corners, 2, Dashes::Long);
  const Rows dotted = Outline({0, 0, 60, 40}, corners, 2, Dashes::Short);
  const auto expectAfter = [&](std::size_t walked, std::size_t x, std::size_t y) {
    EXPECT_EQ(dashed[y][x] == '#', walked % 8 < 6) << x << ", " << y;
    EXPECT_EQ(dotted[y][x] == '#', walked % 4 < 2) << x << ", " << y;
  };
  for (std::size_t y = 6; y < 24; ++y) expectAfter(24 - y, 5, y);
  for (std::size_t x = 6; x < 42; ++x) expectAfter(20 + x - 5, x, 5);
  for (std::size_t y = 6; y < 24; ++y) expectAfter(20 + 38 + y - 5, 43, y);
  for (std::size_t x = 6; x < 42; ++x) expectAfter(20 + 38 + 20 + 42 - x, x, 25);
}

TEST(OutlineTest, a_dash_around_a_corner_is_mitred) {
  // The second dash of 30 pixels begins 5 below the upper left corner.
  const Rows rows =
      Outline({0, 0, 60, 60}, {{20, 10}, {50, 10}, {50, 50}, {20, 55}}, 10, Dashes::Long);
  EXPECT_EQ(rows[5].substr(15, 2), "##");
}

TEST(OutlineTest, a_thin_pen_takes_the_nearest_pixels) {
  EXPECT_EQ(Outline({0, 0, 8, 5}, {{1, 1}, {6, 3}, {6, 1}}, 1),
            (Rows{"........", ".######.", "...##.#.", ".....##.", "........"}));
}

TEST(OutlineTest, half_way_a_thin_pen_takes_the_right_or_lower_pixel_in_both_directions) {
  const Rows flat{"#....", ".##..", "...##"};
  EXPECT_EQ(Outline({0, 0, 5, 3}, {{0, 0}, {4, 2}}, 1), flat);
  EXPECT_EQ(Outline({0, 0, 5, 3}, {{4, 2}, {0, 0}}, 1), flat);
  EXPECT_EQ(Outline({0, 0, 5, 3}, {{0, 2}, {4, 0}}, 1), (Rows{"....#", "..##.", "##..."}));
  const Rows steep{"#..", ".#.", ".#.", "..#", "..#"};
  EXPECT_EQ(Outline({0, 0, 3, 5}, {{0, 0}, {2, 4}}, 1), steep);
  EXPECT_EQ(Outline({0, 0, 3, 5}, {{2, 4}, {0, 0}}, 1), steep);
}

TEST(OutlineTest, thin_dashes_are_counted_in_pixels_around_the_corners) {
  const Corners corners{{5, 5}, {43, 5}, {43, 26}, {5, 26}};
  Corners around;
  for (std::int32_t x = 5; x < 43; ++x) around.push_back({x, 5});
  for (std::int32_t y = 5; y < 26; ++y) around.push_back({43, y});
  for (std::int32_t x = 43; x > 5; --x) around.push_back({x, 26});
  for (std::int32_t y = 26; y > 5; --y) around.push_back({5, y});
  const auto expected = [&](std::size_t drawn) {
    Rows rows(40, std::string(60, '.'));
    for (std::size_t pixel = 0; pixel < around.size(); ++pixel) {
      if (pixel % (drawn + 1) >= drawn) continue;
      rows[static_cast<std::size_t>(around[pixel].Y)][static_cast<std::size_t>(around[pixel].X)] =
          '#';
    }
    return rows;
  };
  EXPECT_EQ(Outline({0, 0, 60, 40}, corners, 1, Dashes::Long), expected(3));
  EXPECT_EQ(Outline({0, 0, 60, 40}, corners, 1, Dashes::Short), expected(1));
}

// Whatever part of a picture is asked for, it shows the same pixels.
TEST(OutlineTest, a_part_of_the_area_is_covered_like_the_whole) {
  RandomCorners polygons;
  for (int polygon = 0; polygon < 100; ++polygon) {
    const Corners corners = polygons.Next(polygon % 2 == 0 ? 50 : 400);
    for (const Dashes dashes : kAllDashes) {
      for (const std::int32_t width : {1, 2, 7}) {
        const Rows whole = Outline({-40, -40, 60, 50}, corners, width, dashes);
        const Box part{-11, -7, 13, 22};
        Rows cut(whole.begin() + part.Top + 40, whole.begin() + part.Bottom + 40);
        for (std::string& row : cut) {
          row = row.substr(static_cast<std::size_t>(part.Left + 40),
                           static_cast<std::size_t>(part.Width()));
        }
        ASSERT_EQ(Outline(part, corners, width, dashes), cut) << polygon << ", width " << width;
      }
    }
  }
}

TEST(OutlineTest, the_widest_pens_and_farthest_corners_stay_within_bounds) {
  constexpr std::int32_t kFar = 40'000;
  const Corners corners{{-kFar, -kFar}, {kFar, -kFar + 1}, {-kFar, kFar}, {kFar, kFar}};
  for (const Dashes dashes : kAllDashes) {
    EXPECT_EQ(Outline({0, 0, 4, 4}, corners, 32'000, dashes).size(), 4U);
    EXPECT_EQ(Outline({0, 0, 4, 4}, corners, 1, dashes).size(), 4U);
  }
  EXPECT_EQ(Outline({0, 0, 4, 4}, corners, 32'000), Rows(4, "####"));
}

}  // namespace korvel::test
