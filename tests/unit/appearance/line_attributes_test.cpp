// The limits on the attributes of lines.
#include "appearance/line_attributes.h"

#include <gtest/gtest.h>

namespace korvel::test {

TEST(LineAttributesTest, a_width_lies_between_nothing_and_the_farthest_coordinate) {
  EXPECT_EQ(DrawnWidth({.Width = 7}), 7);
  EXPECT_EQ(DrawnWidth({.Width = 0}), 0);
  EXPECT_EQ(DrawnWidth({.Width = -1}), 0);
  EXPECT_EQ(DrawnWidth({.Width = 0x7FFFFFFF}), 32000);
}

TEST(LineAttributesTest, style_2_is_dashed_and_style_3_dotted) {
  EXPECT_EQ(DashesOf({.Style = LineStyle{1}}), Dashes::None);
  EXPECT_EQ(DashesOf({.Style = LineStyle{2}}), Dashes::Long);
  EXPECT_EQ(DashesOf({.Style = LineStyle{3}}), Dashes::Short);
  EXPECT_EQ(DashesOf({.Style = LineStyle{0}}), Dashes::None);
  EXPECT_EQ(DashesOf({.Style = LineStyle{4}}), Dashes::None);
}

TEST(LineAttributesTest, a_dash_is_three_widths_long_a_dot_one_and_a_gap_one) {
  EXPECT_EQ(DashPeriod({.Width = 5, .Style = LineStyle{1}}), 0);
  EXPECT_EQ(DashPeriod({.Width = 5, .Style = LineStyle{2}}), 20);
  EXPECT_EQ(DashPeriod({.Width = 5, .Style = LineStyle{3}}), 10);
  EXPECT_EQ(DashPeriod({.Width = -5, .Style = LineStyle{3}}), 0);
}

TEST(LineAttributesTest, dashes_are_counted_with_their_gaps) {
  EXPECT_FALSE(HasTooManyDashes({.Width = 5, .Style = LineStyle{3}}, 30'000));
  EXPECT_TRUE(HasTooManyDashes({.Width = 5, .Style = LineStyle{3}}, 30'001));
  EXPECT_FALSE(HasTooManyDashes({.Width = 5, .Style = LineStyle{2}}, 60'000));
  EXPECT_TRUE(HasTooManyDashes({.Width = 5, .Style = LineStyle{2}}, 60'001));
  EXPECT_FALSE(HasTooManyDashes({.Width = 5, .Style = LineStyle{1}}, 60'001));
  EXPECT_FALSE(HasTooManyDashes({.Width = 0, .Style = LineStyle{2}}, 60'001));
}

}  // namespace korvel::test
