// The quiz demo: every game can be won, lost and left.
#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

using namespace keys;

// Objects of the application and of the scenes.
constexpr std::int32_t kScore = 1;
constexpr std::int32_t kSeconds = 5;
constexpr std::int32_t kChosen = 6;
constexpr std::int32_t kRightAnswer = 61;
constexpr std::int32_t kToken = 30;
constexpr std::int32_t kVerdict = 50;
constexpr std::int32_t kRemark = 51;
constexpr std::int32_t kCountdown = 1;   // a timer
constexpr std::int32_t kCellUpdate = 2;  // the timer that updates the cells of the year

constexpr std::int32_t kSubjects = 7;

class Quiz : public DemoTest {
 protected:
  void SetUp() override {
    DemoTest::SetUp();
    ASSERT_NO_FATAL_FAILURE(Play("quiz"));
  }

  static std::int32_t RightAnswer() { return IntegerOf(kRightAnswer, SceneName()); }

  // Answers a question with four answers, which are laid out in two rows of two.
  void Answer(std::int32_t number) {
    PressAll({kUp, kLeft});
    if (number > 2) PressAll({kDown});
    if (number % 2 == 0) PressAll({kRight});
    EXPECT_EQ(Find<TokenGroup>(kToken, SceneName()).TokenPosition, number);
    PressAll({kSelect});
  }
  void Type(std::int32_t year) {
    for (const char digit : std::to_string(year)) PressAll({kDigit0 + (digit - '0')});
  }
  // Goes from the first page to the first question of a subject.
  void Begin(std::int32_t subject) {
    ASSERT_EQ(SceneName(), "~/welcome");
    PressAll({kRed});
    ASSERT_EQ(SceneName(), "~/subject");
    for (std::int32_t turns = (subject - IntegerOf(kChosen) + kSubjects) % kSubjects; turns > 0;
         --turns) {
      PressAll({kDown});
    }
    PressAll({kSelect});
    EXPECT_EQ(IntegerOf(kChosen), subject);
    PressAll({kGreen});
    ASSERT_EQ(SceneName(), "~/question");
  }
};

TEST_F(Quiz, right_answers_win_each_subject) {
  for (std::int32_t subject = 1; subject <= kSubjects; ++subject) {
    SCOPED_TRACE(subject);
    Begin(subject);
    for (int question = 1; question <= 2; ++question) {
      EXPECT_EQ(TextIn("~/a", 24), std::to_string(question) + " of 3");
      EXPECT_TRUE(TextOf(2).ends_with("?")) << TextOf(2);
      Answer(RightAnswer());
      EXPECT_EQ(TextOf(kVerdict), "That is right!");
      EXPECT_TRUE(TextOf(kRemark).ends_with(".")) << TextOf(kRemark);
      PressAll({kSelect});
    }
    ASSERT_EQ(SceneName(), "~/year");
    EXPECT_TRUE(TextOf(2).ends_with("?")) << TextOf(2);
    Type(RightAnswer());
    PressAll({kSelect});
    EXPECT_EQ(TextOf(kVerdict), "That is right!");
    EXPECT_TRUE(TextOf(kRemark).ends_with(".")) << TextOf(kRemark);
    PressAll({kSelect});
    ASSERT_EQ(SceneName(), "~/result");
    EXPECT_EQ(TextOf(4), "3 of 3");
    PressAll({kRed});
  }
}

TEST_F(Quiz, wrong_answers_score_nothing_and_show_the_right_one) {
  Begin(3);
  Answer(RightAnswer() % 4 + 1);
  EXPECT_EQ(TextOf(kVerdict), "No, it is the green one.");
  PressAll({kSelect});
  Answer(RightAnswer() % 4 + 1);
  PressAll({kSelect});
  const std::int32_t year = RightAnswer();
  Type(year - 1);
  PressAll({kSelect});
  EXPECT_EQ(TextOf(kVerdict), "No, it was " + std::to_string(year) + ".");
  PressAll({kSelect});
  EXPECT_EQ(TextOf(4), "0 of 3");
}

TEST_F(Quiz, a_question_without_an_answer_ends_when_its_time_is_up) {
  Begin(1);
  constexpr std::int32_t kWholeBar = 570;
  const std::int32_t seconds = IntegerOf(kSeconds);
  for (std::int32_t left = seconds; left > 0; --left) {
    EXPECT_EQ(TextOf(44), std::to_string(left));
    EXPECT_EQ(Find<Rectangle>(41, SceneName()).BoxSize.Width, kWholeBar * left / seconds);
    EXPECT_EQ(TextOf(kVerdict), "");
    ASSERT_NO_FATAL_FAILURE(ExpireTimer(kCountdown));
  }
  EXPECT_EQ(TextOf(44), "0");
  EXPECT_EQ(Find<Rectangle>(41, SceneName()).BoxSize.Width, 0);
  EXPECT_EQ(TextOf(kVerdict), "Time is up.");
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_EQ(Find<TokenGroup>(kToken, SceneName()).TokenPosition, RightAnswer());
  PressAll({kUp, kLeft, kDown, kRight});
  EXPECT_EQ(Find<TokenGroup>(kToken, SceneName()).TokenPosition, RightAnswer());
  EXPECT_EQ(IntegerOf(kScore), 0);
  PressAll({kSelect});
  EXPECT_EQ(TextIn("~/a", 24), "2 of 3");
  EXPECT_TRUE(IsPending(kCountdown)) << "the next question has its own time";
}

TEST_F(Quiz, the_question_for_a_year_ends_when_its_time_is_up) {
  Begin(1);
  PressAll({kSelect, kSelect, kSelect, kSelect, kDigit0 + 1});
  ASSERT_EQ(SceneName(), "~/year");
  const std::int32_t score = IntegerOf(kScore);
  for (std::int32_t left = IntegerOf(kSeconds); left > 0; --left) {
    ASSERT_NO_FATAL_FAILURE(ExpireTimer(kCountdown));
  }
  EXPECT_EQ(TextOf(kVerdict), "Time is up.");
  EXPECT_TRUE(TheHost().timers.empty());
  PressAll({kDigit0 + 9, kCancel});
  EXPECT_EQ(TextOf(kVerdict), "Time is up.");
  EXPECT_EQ(IntegerOf(kScore), score);
  PressAll({kSelect});
  EXPECT_EQ(SceneName(), "~/result");
}

TEST_F(Quiz, answering_or_leaving_stops_the_countdown) {
  Begin(1);
  EXPECT_TRUE(IsPending(kCountdown));
  Answer(1);
  EXPECT_FALSE(IsPending(kCountdown));
  PressAll({kSelect});
  EXPECT_TRUE(IsPending(kCountdown));
  PressAll({kRed});
  EXPECT_EQ(SceneName(), "~/welcome");
  EXPECT_TRUE(TheHost().timers.empty());
}

TEST_F(Quiz, without_a_limit_there_is_no_countdown) {
  PressAll({kGreen});
  ASSERT_EQ(SceneName(), "~/time");
  EXPECT_EQ(Find<Rectangle>(9, SceneName()).BoxSize.Width, 624 * 20 / 30);
  for (std::int32_t steps = 0; steps < 10; ++steps) PressAll({kLeft});
  EXPECT_EQ(Find<Rectangle>(9, SceneName()).BoxSize.Width, 0);
  EXPECT_EQ(TextOf(2), "No limit");
  PressAll({kSelect});
  EXPECT_EQ(TextOf(7), "No limit");
  PressAll({kSelect});
  ASSERT_EQ(SceneName(), "~/question");
  EXPECT_TRUE(TheHost().timers.empty());
  EXPECT_FALSE(Find<Rectangle>(41, SceneName()).RunningStatus);
}

TEST_F(Quiz, a_year_needs_four_digits_and_can_be_corrected) {
  Begin(1);
  PressAll({kSelect, kSelect, kSelect, kSelect});
  ASSERT_EQ(SceneName(), "~/year");
  Type(17);
  PressAll({kSelect});
  EXPECT_EQ(TextOf(kVerdict), "A year has four digits.");
  Type(685);
  EXPECT_EQ(TextOf(kVerdict), "A year has four digits.") << "there were five";
  PressAll({kLeft, kLeft, kLeft});
  ASSERT_NO_FATAL_FAILURE(ExpireTimer(kCellUpdate));
  EXPECT_EQ(TextOf(kVerdict), "");
  EXPECT_EQ(TextOf(31) + TextOf(32) + TextOf(33) + TextOf(34), "1768");
  PressAll({kDigit0 + 9});
  ASSERT_NO_FATAL_FAILURE(ExpireTimer(kCellUpdate));
  EXPECT_EQ(TextOf(31) + TextOf(32) + TextOf(33) + TextOf(34), "1968");
  EXPECT_EQ(Find<Rectangle>(25, SceneName()).Position.X, 48 + 2 * 84);
}

TEST_F(Quiz, the_help_explains_the_marked_row) {
  PressAll({kBlue});
  ASSERT_EQ(SceneName(), "~/help");
  std::int32_t row = 120;
  std::string before;
  for (const char* label : {"Answering", "The clock", "The score", "The keys"}) {
    EXPECT_EQ(Find<Rectangle>(6, SceneName()).Position.Y, row);
    EXPECT_EQ(TextOf(8), label);
    EXPECT_NE(TextOf(10), before);
    before = TextOf(10);
    row += 90;
    PressAll({kDown});
  }
  PressAll({kCancel});
  EXPECT_EQ(SceneName(), "~/welcome");
}

TEST_F(Quiz, a_missing_scene_keeps_the_old_one_visible) {
  TheHost().files.erase("help");
  EXPECT_NE(Press(kBlue), Status::Failure);
  EXPECT_EQ(SceneName(), "~/welcome");
  EXPECT_EQ(CurrentApplication()->LockCount, 0U);
}

}  // namespace
}  // namespace korvel::test
