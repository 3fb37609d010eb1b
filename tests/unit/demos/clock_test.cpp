// The clock demo: it shows every day of a year correctly, and the viewer's settings survive a
// launch.
#include <array>
#include <ctime>

#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

using namespace keys;

constexpr std::int32_t kWeekday = 1;
constexpr std::int32_t kTime = 2;
constexpr std::int32_t kDate = 3;
constexpr std::int32_t kColours = 7;
constexpr std::int32_t kHours = 8;
constexpr std::int32_t kTick = 1;  // a timer

class Clock : public DemoTest {
 protected:
  void SetUp() override {
    DemoTest::SetUp();
    TheHost().localTime = {2024, 2, 29, 13, 5, 9};
    ASSERT_NO_FATAL_FAILURE(Play("clock"));
    ASSERT_EQ(SceneName(), "~/clock");
  }
};

TEST_F(Clock, shows_the_time_the_weekday_and_the_date) {
  EXPECT_EQ(TextOf(kTime), "13:05:09");
  EXPECT_EQ(TextOf(kWeekday), "Thursday");
  EXPECT_EQ(TextOf(kDate), "29 February 2024");
  EXPECT_EQ(Find<Rectangle>(5, SceneName()).BoxSize.Width, 9 * 8);
}

TEST_F(Clock, updates_on_each_tick_of_its_timer) {
  TheHost().localTime = {2024, 2, 29, 23, 59, 59};
  ASSERT_NO_FATAL_FAILURE(ExpireTimer(kTick));
  EXPECT_EQ(TextOf(kTime), "23:59:59");
  TheHost().localTime = {2024, 3, 1, 0, 0, 0};
  ASSERT_NO_FATAL_FAILURE(ExpireTimer(kTick));
  EXPECT_EQ(TextOf(kTime), "00:00:00");
  EXPECT_EQ(TextOf(kWeekday), "Friday");
  EXPECT_EQ(TextOf(kDate), "1 March 2024");
  EXPECT_TRUE(IsPending(kTick));
}

TEST_F(Clock, shows_every_day_like_the_c_library) {
  for (int day = 1; day <= 731; ++day) {
    std::tm calendar{};
    calendar.tm_year = 2024 - 1900;
    calendar.tm_mday = day;
    calendar.tm_hour = 12;
    std::mktime(&calendar);
    TheHost().localTime = {
        calendar.tm_year + 1900, calendar.tm_mon + 1, calendar.tm_mday, 12, 0, 0};
    ASSERT_NO_FATAL_FAILURE(ExpireTimer(kTick));
    std::array<char, 40> expected{};
    std::strftime(expected.data(), expected.size(), "%B %Y", &calendar);
    EXPECT_EQ(TextOf(kDate), std::to_string(calendar.tm_mday) + " " + expected.data());
    std::strftime(expected.data(), expected.size(), "%A", &calendar);
    EXPECT_EQ(TextOf(kWeekday), expected.data());
  }
}

TEST_F(Clock, shows_twelve_hours_or_twenty_four) {
  EXPECT_EQ(TextOf(kHours), "24 hours");
  PressAll({kGreen});
  EXPECT_EQ(TextOf(kHours), "12 hours");
  EXPECT_EQ(TextOf(kTime), "1:05:09 pm");
  PressAll({kGreen});
  EXPECT_EQ(TextOf(kTime), "13:05:09");
}

TEST_F(Clock, keeps_its_settings_through_launches) {
  EXPECT_EQ(TextOf(kColours), "Night");
  PressAll({kRed, kRed, kGreen, kYellow});
  ASSERT_EQ(NameOf(CurrentApplication()), "~/other");
  EXPECT_EQ(TextOf(5), "Wine");
  EXPECT_EQ(TextOf(6), "12 hours");
  EXPECT_TRUE(TheHost().timers.empty());
  PressAll({kYellow});
  ASSERT_EQ(NameOf(CurrentApplication()), "~/a");
  EXPECT_EQ(TextOf(kColours), "Wine");
  EXPECT_EQ(TextOf(kTime), "1:05:09 pm");
  PressAll({kRed});
  EXPECT_EQ(TextOf(kColours), "Night");
}

}  // namespace
}  // namespace korvel::test
