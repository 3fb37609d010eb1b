// Boxes, line attributes, and the clipping of lines and polygons. The visible parts keep their
// position and direction.
#include "appearance/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "substitutes/memory.h"

namespace korvel::test {

constexpr std::int32_t kFar = 32000;

bool IsDrawn(const CanvasPoint& point) {
  return std::abs(point.x) <= kFar && std::abs(point.y) <= kFar;
}

// Twice the area of the triangle a, b, c. Positive if a, b, c turn right on the screen, where y
// grows downward.
double Turn(const CanvasPoint& a, const CanvasPoint& b, const CanvasPoint& c) {
  return (static_cast<double>(b.x) - a.x) * (static_cast<double>(c.y) - a.y) -
         (static_cast<double>(b.y) - a.y) * (static_cast<double>(c.x) - a.x);
}

// The distance of a point from the line through a and b.
double Distance(const CanvasPoint& a, const CanvasPoint& b, double x, double y) {
  const double alongX = static_cast<double>(b.x) - a.x;
  const double alongY = static_cast<double>(b.y) - a.y;
  const double length = std::hypot(alongX, alongY);
  return length == 0 ? std::hypot(x - a.x, y - a.y)
                     : std::abs(alongX * (y - a.y) - alongY * (x - a.x)) / length;
}

// Points with any 32-bit coordinates. At least one in four is inside the drawn square.
class RandomPoints {
 public:
  CanvasPoint Next() {
    const bool isNear = random_() % 4 == 0;
    return {Coordinate(isNear), Coordinate(isNear)};
  }
  CanvasPoint Near() { return {Coordinate(true), Coordinate(true)}; }

 private:
  std::int32_t Coordinate(bool isNear) {
    const auto any = static_cast<std::int32_t>(random_());
    return isNear ? any % (kFar + 1) : any >> random_() % 16;
  }
  std::mt19937 random_{1};  // NOLINT: the same points every time
};

TEST(Clipping, a_line_inside_is_unchanged_and_a_line_outside_is_not_drawn) {
  LinePart part;
  EXPECT_TRUE(ClipLine({-kFar, 0}, {kFar, 7}, kFar, 0, part));
  EXPECT_EQ(part.fromX, -kFar);
  EXPECT_EQ(part.fromY, 0);
  EXPECT_EQ(part.toX, kFar);
  EXPECT_EQ(part.toY, 7);
  EXPECT_FALSE(ClipLine({kFar + 1, 0}, {kFar + 9, 5}, kFar, 0, part));
  EXPECT_FALSE(ClipLine({kFar + 1, 0}, {kFar + 1, 5}, kFar, 0, part));
  EXPECT_FALSE(ClipLine({0, 150}, {150, 0}, 70, 0, part)) << "past the corner";
  EXPECT_EQ(part.toY, 7) << "unchanged";
}

TEST(Clipping, a_clipped_line_keeps_its_direction) {
  constexpr double kRounding = 0.001;
  RandomPoints random;
  for (int round = 0; round < 5000; ++round) {
    const CanvasPoint from = random.Next();
    const CanvasPoint to = random.Next();
    LinePart part;
    if (!ClipLine(from, to, kFar, 0, part)) {
      EXPECT_FALSE(IsDrawn(from) || IsDrawn(to));
      continue;
    }
    for (const double coordinate : {part.fromX, part.fromY, part.toX, part.toY}) {
      ASSERT_LE(std::abs(coordinate), kFar + kRounding) << round;
    }
    ASSERT_LE(Distance(from, to, part.fromX, part.fromY), kRounding) << round;
    ASSERT_LE(Distance(from, to, part.toX, part.toY), kRounding) << round;
    if (IsDrawn(from)) {
      ASSERT_EQ(part.fromX, from.x);
      ASSERT_EQ(part.fromY, from.y);
    }
    if (IsDrawn(to)) {
      ASSERT_NEAR(part.toX, to.x, kRounding);
    }
  }
}

TEST(Clipping, a_dashed_line_is_clipped_by_whole_dashes_at_its_start) {
  constexpr double kPeriod = 12;
  LinePart part;
  ASSERT_TRUE(ClipLine({-1000, 0}, {5000, 0}, 100, kPeriod, part));
  EXPECT_DOUBLE_EQ(part.fromX, -1000 + 75 * kPeriod) << "the last dash that begins outside";
  EXPECT_DOUBLE_EQ(part.toX, 100);
  ASSERT_TRUE(ClipLine({-3000, -4000}, {3000, 4000}, 100, kPeriod, part));
  const double lost = std::hypot(part.fromX + 3000, part.fromY + 4000) / kPeriod;
  EXPECT_NEAR(lost, std::round(lost), 1e-9);
  EXPECT_NEAR(lost * kPeriod, 5000 - 125, kPeriod);
  ASSERT_TRUE(ClipLine({50, 0}, {5000, 0}, 100, kPeriod, part));
  EXPECT_EQ(part.fromX, 50);
}

// Whether a point is inside a convex polygon, and its distance from the outline.
struct PointInPolygon {
  bool isInside;
  double distance;
};
PointInPolygon Locate(const std::vector<CanvasPoint>& corners, const CanvasPoint& point) {
  bool isRight = false;
  bool isLeft = false;
  double nearest = 1e300;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const CanvasPoint& next = corners[(i + 1) % corners.size()];
    const double turn = Turn(corners[i], next, point);
    isRight = isRight || turn > 0;
    isLeft = isLeft || turn < 0;
    nearest = std::min(nearest, Distance(corners[i], next, point.x, point.y));
  }
  return {!corners.empty() && isLeft != isRight, nearest};
}

TEST(Clipping, a_clipped_triangle_covers_the_same_points_of_the_square) {
  RandomPoints random;
  int covered = 0;
  for (int round = 0; round < 2000; ++round) {
    const std::vector<CanvasPoint> triangle = {random.Next(), random.Next(), random.Next()};
    List<CanvasPoint> polygon;
    ASSERT_TRUE(ClipPolygon(triangle, kFarthestCoordinate, polygon));
    const std::vector<CanvasPoint> clipped(polygon.begin(), polygon.end());
    for (const CanvasPoint& corner : clipped) ASSERT_TRUE(IsDrawn(corner));
    for (int sample = 0; sample < 10; ++sample) {
      const CanvasPoint point = random.Near();
      const PointInPolygon wanted = Locate(triangle, point);
      if (wanted.distance < 4) continue;
      covered += wanted.isInside ? 1 : 0;
      ASSERT_EQ(Locate(clipped, point).isInside, wanted.isInside) << round;
    }
  }
  EXPECT_GT(covered, 500);
}

TEST(Clipping, clipping_fails_if_any_allocation_fails) {
  const CanvasPoint points[] = {{-40000, 0}, {0, -40000}, {40000, 0}, {0, 40000}};
  List<CanvasPoint> whole;
  ASSERT_TRUE(ClipPolygon(points, kFarthestCoordinate, whole));
  EXPECT_EQ(whole.Size(), 8U);
  const std::size_t failures = FailEachInTurn(
      [&points] {
        List<CanvasPoint> clipped;
        return ClipPolygon(points, kFarthestCoordinate, clipped);
      },
      [](bool isDone, bool hasFailed) { EXPECT_EQ(isDone, !hasFailed); });
  EXPECT_GE(failures, 4U);
}

TEST(LineParts, length_is_the_distance_between_the_ends) {
  EXPECT_DOUBLE_EQ((LinePart{1, 2, 4, -2}).Length(), 5);
}

TEST(Boxes, a_box_without_width_or_height_is_empty) {
  const Box box = BoxAt({10, 20}, {30, 40});
  EXPECT_EQ(box.Width(), 30);
  EXPECT_EQ(box.Height(), 40);
  EXPECT_FALSE(box.IsEmpty());
  EXPECT_TRUE(BoxAt({10, 20}, {0, 40}).IsEmpty());
  EXPECT_TRUE(BoxAt({10, 20}, {30, 0}).IsEmpty());
  EXPECT_TRUE(BoxAt({10, 20}, {30, -1}).IsEmpty());
}

TEST(Boxes, the_box_of_a_visible_ends_at_the_farthest_coordinates) {
  Rectangle rectangle;
  rectangle.Position = {-100000, 5};
  rectangle.BoxSize = {200000, 10};
  EXPECT_EQ(BoxOf(rectangle).Width(), 64000);
}

TEST(Boxes, a_size_without_width_or_height_has_no_area) {
  EXPECT_FALSE(HasArea({0, 1}));
  EXPECT_FALSE(HasArea({1, 0}));
  EXPECT_TRUE(HasArea({1, 1}));
}

TEST(Clipping, a_polygon_without_points_stays_empty) {
  List<CanvasPoint> clipped;
  EXPECT_TRUE(ClipPolygon({}, kFarthestCoordinate, clipped));
  EXPECT_EQ(clipped.Size(), 0U);
}

TEST(LineAttributes, a_width_is_clamped_to_0_and_the_farthest_coordinate) {
  EXPECT_EQ(DrawnWidth({.width = 7}), 7);
  EXPECT_EQ(DrawnWidth({.width = 0}), 0);
  EXPECT_EQ(DrawnWidth({.width = -1}), 0);
  EXPECT_EQ(DrawnWidth({.width = 0x7FFFFFFF}), 32000);
}

TEST(LineAttributes, style_2_is_dashed_and_style_3_dotted) {
  EXPECT_EQ(DashesOf({.style = LineStyle{1}}), Dashes::None);
  EXPECT_EQ(DashesOf({.style = LineStyle{2}}), Dashes::Long);
  EXPECT_EQ(DashesOf({.style = LineStyle{3}}), Dashes::Short);
  EXPECT_EQ(DashesOf({.style = LineStyle{0}}), Dashes::None);
  EXPECT_EQ(DashesOf({.style = LineStyle{4}}), Dashes::None);
}

TEST(LineAttributes, a_dash_is_three_widths_long_a_dot_one_and_a_gap_one) {
  EXPECT_EQ(DashPeriod({.width = 5, .style = LineStyle{1}}), 0);
  EXPECT_EQ(DashPeriod({.width = 5, .style = LineStyle{2}}), 20);
  EXPECT_EQ(DashPeriod({.width = 5, .style = LineStyle{3}}), 10);
  EXPECT_EQ(DashPeriod({.width = -5, .style = LineStyle{3}}), 0);
}

TEST(LineAttributes, dashes_are_counted_with_their_gaps) {
  EXPECT_FALSE(HasTooManyDashes({.width = 5, .style = LineStyle{3}}, 30'000));
  EXPECT_TRUE(HasTooManyDashes({.width = 5, .style = LineStyle{3}}, 30'001));
  EXPECT_FALSE(HasTooManyDashes({.width = 5, .style = LineStyle{2}}, 60'000));
  EXPECT_TRUE(HasTooManyDashes({.width = 5, .style = LineStyle{2}}, 60'001));
  EXPECT_FALSE(HasTooManyDashes({.width = 5, .style = LineStyle{1}}, 60'001));
  EXPECT_FALSE(HasTooManyDashes({.width = 0, .style = LineStyle{2}}, 60'001));
}

}  // namespace korvel::test
