// The news demo: the list wraps around in both directions, and each story shows the fields of its
// file and leads to the related one.
#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

using namespace keys;

// Objects of the application and of the scenes.
constexpr std::int32_t kChosen = 1;
constexpr std::int32_t kNote = 24;
constexpr std::int32_t kList = 10;
constexpr std::int32_t kPreview = 15;
constexpr std::int32_t kHeadline = 1;
constexpr std::int32_t kPlace = 2;
constexpr std::int32_t kPicture = 3;
constexpr std::int32_t kBody = 4;
constexpr std::int32_t kAnchor = 7;

constexpr std::int32_t kStories = 8;

class News : public DemoTest {
 protected:
  void SetUp() override {
    DemoTest::SetUp();
    ASSERT_NO_FATAL_FAILURE(Play("news"));
    ASSERT_EQ(SceneName(), "~/headlines");
  }

  static std::string PictureOf(std::int32_t number) {
    return std::string(Find<Bitmap>(number, SceneName()).Content.Data.View());
  }
  static std::string AnchorText() {
    return std::string(Find<HyperText>(kAnchor, SceneName()).TextData.View());
  }
};

TEST_F(News, the_headlines_wrap_around_in_both_directions) {
  for (std::int32_t step = 1; step <= 2 * kStories; ++step) {
    PressAll({kDown});
    const std::int32_t story = step % kStories + 1;
    EXPECT_EQ(IntegerOf(kChosen), story);
    EXPECT_EQ(PictureOf(kPreview), "~/" + std::to_string(story) + ".png");
    EXPECT_TRUE(Find<Text>(100 + story, SceneName()).RunningStatus);
  }
  PressAll({kUp});
  EXPECT_EQ(IntegerOf(kChosen), kStories);
  PressAll({kRed});
  EXPECT_EQ(IntegerOf(kChosen), 1);
}

TEST_F(News, each_story_has_the_headline_of_the_list_and_a_related_one) {
  for (std::int32_t story = 1; story <= kStories; ++story) {
    SCOPED_TRACE(story);
    const std::string listed = TextOf(100 + story);
    PressAll({kSelect});
    ASSERT_EQ(SceneName(), "~/story");
    EXPECT_EQ(TextOf(kHeadline), listed);
    EXPECT_NE(TextOf(kPlace), "");
    EXPECT_TRUE(TextOf(kBody).ends_with(".")) << TextOf(kBody);
    EXPECT_EQ(TextIn("~/a", kNote), std::to_string(story) + " of 8");
    EXPECT_EQ(PictureOf(kPicture), "~/" + std::to_string(story) + ".png");

    const std::string anchor = AnchorText();
    PressAll({kSelect});
    EXPECT_EQ(anchor, "\x1B"
                      "A\nSee also: " +
                          TextOf(kHeadline) +
                          "\x1B"
                          "a");
    EXPECT_NE(IntegerOf(kChosen), story);

    PressAll({kCancel});
    ASSERT_EQ(SceneName(), "~/headlines");
    while (IntegerOf(kChosen) != story % kStories + 1) PressAll({kDown});
  }
}

TEST_F(News, green_reads_all_stories_in_order) {
  PressAll({kSelect});
  for (std::int32_t step = 1; step <= kStories; ++step) {
    PressAll({kGreen});
    EXPECT_EQ(IntegerOf(kChosen), step % kStories + 1);
  }
  PressAll({kRed});
  EXPECT_EQ(SceneName(), "~/headlines");
  EXPECT_EQ(Find<ListGroup>(kList, SceneName()).FirstItem, 1);
}

TEST_F(News, the_list_returns_to_the_story_that_was_read) {
  PressAll({kSelect, kGreen, kGreen, kCancel});
  EXPECT_EQ(Find<ListGroup>(kList, SceneName()).FirstItem, 3);
  EXPECT_EQ(PictureOf(kPreview), "~/3.png");
}

TEST_F(News, a_missing_scene_keeps_the_old_one_visible) {
  TheHost().files.erase("story");
  EXPECT_NE(Press(kSelect), Status::Failure);
  EXPECT_EQ(SceneName(), "~/headlines");
  EXPECT_EQ(CurrentApplication()->LockCount, 0U);
}

}  // namespace
}  // namespace korvel::test
