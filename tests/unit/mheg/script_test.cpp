// Reading the steps of a script, and reporting the first wrong line.
#include "mheg/script.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using mheg::Step;
using mheg::StepKind;

std::vector<Step> StepsOf(const std::string& script) {
  std::istringstream text(script);
  std::vector<Step> steps;
  std::string problem;
  EXPECT_TRUE(mheg::ReadScript(text, steps, problem)) << problem;
  return steps;
}

TEST(Script, returns_its_steps_in_order) {
  const std::vector<Step> steps =
      StepsOf("wait 250\nkey Red\nuntil 719 0 #0a80FF\nexpose\nshot "
              "pictures/first one.png\ncatch 8 9 #123456 second one.png\nexit\n");
  ASSERT_EQ(steps.size(), 7U);
  EXPECT_EQ(steps[0].kind, StepKind::Wait);
  EXPECT_EQ(steps[0].number, 250U);
  EXPECT_EQ(steps[1].kind, StepKind::Key);
  EXPECT_EQ(steps[1].number, 82U);
  EXPECT_EQ(steps[2].kind, StepKind::Until);
  EXPECT_EQ(steps[2].pixel.x, 719U);
  EXPECT_EQ(steps[2].pixel.y, 0U);
  EXPECT_EQ(steps[2].pixel.colour, 0x0A80FFU);
  EXPECT_EQ(steps[3].kind, StepKind::Expose);
  EXPECT_EQ(steps[4].kind, StepKind::Shot);
  EXPECT_EQ(steps[4].file, "pictures/first one.png");
  EXPECT_EQ(steps[5].kind, StepKind::Catch);
  EXPECT_EQ(steps[5].pixel.x, 8U);
  EXPECT_EQ(steps[5].pixel.y, 9U);
  EXPECT_EQ(steps[5].pixel.colour, 0x123456U);
  EXPECT_EQ(steps[5].file, "second one.png");
  EXPECT_EQ(steps[6].kind, StepKind::Exit);
}

TEST(Script, skips_blank_lines_comments_and_carriage_returns) {
  const std::vector<Step> steps = StepsOf("# first\r\n\r\n  wait 1  \r\n\t# last\nexit");
  ASSERT_EQ(steps.size(), 2U);
  EXPECT_EQ(steps[0].number, 1U);
}

TEST(Script, reports_the_wrong_line_and_returns_no_steps) {
  for (const char* wrong :
       {"shot", "expect", "exit now", "expose 1", "until", "until 1 2", "until changed",
        "until 1 2 102030", "until 1 2 #10203", "until 1 2 #10203g", "until -1 2 #102030",
        "until 1 2 #102030 4", "catch", "catch 1 2 a.png", "catch 1 2 #102030",
        "catch 1 2 #10203 a.png", "press Red", "Wait 5"}) {
    std::istringstream text("wait 1\n" + std::string(wrong) + "\nexit\n");
    std::vector<Step> steps;
    std::string problem;
    EXPECT_FALSE(mheg::ReadScript(text, steps, problem)) << wrong;
    EXPECT_TRUE(steps.empty()) << wrong;
    EXPECT_EQ(problem, "2: no such step: " + std::string(wrong) +
                           " (steps: key NAME, wait MS, shot FILE.png, until X Y #RRGGBB, "
                           "catch X Y #RRGGBB FILE.png, expose, expect STATE, exit)");
  }
}

// The message for a script of one line.
std::string ProblemOf(const std::string& line) {
  std::istringstream text(line);
  std::vector<Step> steps;
  std::string problem;
  EXPECT_FALSE(mheg::ReadScript(text, steps, problem)) << line;
  return problem;
}

TEST(Script, the_message_for_an_unknown_key_lists_the_keys) {
  for (const char* name : {"", "Purple", "F5"}) {
    EXPECT_EQ(ProblemOf("key " + std::string(name)),
              "1: no such key: " + std::string(name) +
                  " (keys: Up, Down, Left, Right, OK, Cancel, Info, 0 to 9, Red, Green, Yellow, "
                  "Blue, Text)");
  }
}

TEST(Script, the_message_for_an_invalid_time_lists_the_valid_forms) {
  for (const char* time : {"", "-1", "1m", "s", "99999999999", "4294968s"}) {
    EXPECT_EQ(ProblemOf("wait " + std::string(time)),
              "1: no such time: " + std::string(time) + " (milliseconds, or seconds as 2s)");
  }
}

TEST(Script, times_are_in_milliseconds_or_seconds) {
  const std::vector<Step> steps = StepsOf("wait 5\nwait 6ms\nwait 2s");
  ASSERT_EQ(steps.size(), 3U);
  EXPECT_EQ(steps[0].number, 5U);
  EXPECT_EQ(steps[1].number, 6U);
  EXPECT_EQ(steps[2].number, 2000U);
}

TEST(Script, expectations_are_returned_as_words_with_their_line) {
  const std::vector<Step> steps = StepsOf("# a text\nexpect text 4 \"two words\"\n");
  ASSERT_EQ(steps.size(), 1U);
  EXPECT_EQ(steps[0].kind, StepKind::Expect);
  EXPECT_EQ(steps[0].words, (std::vector<std::string>{"text", "4", "\"two words\""}));
  EXPECT_EQ(steps[0].text, "expect text 4 \"two words\"");
  EXPECT_EQ(steps[0].line, 2U);
}

}  // namespace
