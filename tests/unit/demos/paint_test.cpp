// The paint demo: its first picture uses every drawing action, each digit chooses a shape, and the
// brush stays on the canvas.
#include <algorithm>
#include <utility>
#include <vector>

#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

using namespace keys;

// Objects of the scene.
constexpr std::int32_t kCanvas = 10;
constexpr std::int32_t kBrush = 11;
constexpr std::int32_t kSample = 39;

class Paint : public DemoTest {
 protected:
  void SetUp() override {
    DemoTest::SetUp();
    ASSERT_NO_FATAL_FAILURE(Play("paint"));
    ASSERT_EQ(SceneName(), "~/paint");
  }

  // The calls on canvases since the last call.
  static std::vector<std::string> TakeDrawings() {
    return std::exchange(ThePresentation().drawings, {});
  }
  static std::string FirstWord(const std::string& line) { return line.substr(0, line.find(' ')); }
  static Position Brush() { return Find<Rectangle>(kBrush, SceneName()).Position; }
};

TEST_F(Paint, each_digit_chooses_another_shape) {
  TakeDrawings();
  std::vector<std::string> painted;
  for (std::int32_t digit = 1; digit <= 7; ++digit) {
    PressAll({kDigit0 + digit, kSelect});
    const auto drawings = TakeDrawings();
    ASSERT_EQ(drawings.size(), 1U) << digit;
    EXPECT_EQ(std::count(painted.begin(), painted.end(), drawings[0]), 0) << drawings[0];
    painted.push_back(drawings[0]);
  }
}

TEST_F(Paint, the_first_picture_contains_every_shape) {
  const auto first = TakeDrawings();
  for (std::int32_t digit = 1; digit <= 7; ++digit) PressAll({kDigit0 + digit, kSelect});
  for (const std::string& shape : TakeDrawings()) {
    EXPECT_TRUE(std::ranges::any_of(first, [&](const std::string& line) {
      return FirstWord(line) == FirstWord(shape);
    })) << shape;
  }
}

TEST_F(Paint, the_brush_wraps_around_the_canvas) {
  const Position start = Brush();
  for (const std::int32_t key : {kLeft, kRight, kUp, kDown}) {
    int steps = 0;
    do {
      PressAll({key});
      EXPECT_GE(Brush().X, 48 + 20);
      EXPECT_LE(Brush().X, 48 + 480 - 80 - 20);
      EXPECT_GE(Brush().Y, 120 + 20);
      EXPECT_LE(Brush().Y, 120 + 360 - 80 - 20);
      ++steps;
    } while ((Brush().X != start.X || Brush().Y != start.Y) && steps < 100);
    EXPECT_EQ(steps, key == kLeft || key == kRight ? 10 : 7);
  }
}

TEST_F(Paint, the_sample_has_the_colours_and_the_line_of_the_brush) {
  const auto& canvas = Find<DynamicLineArt>(kCanvas, SceneName());
  const auto& sample = Find<Rectangle>(kSample, SceneName());
  for (int step = 0; step < 12; ++step) {
    PressAll({kRed, kGreen, kYellow});
    EXPECT_EQ(sample.LineWidth, canvas.LineWidth);
    EXPECT_EQ(sample.LineStyle, canvas.LineStyle);
    EXPECT_EQ(sample.RefFillColour.Absolute.View(), canvas.RefFillColour.Absolute.View());
    EXPECT_EQ(sample.RefLineColour.Absolute.View(), canvas.RefLineColour.Absolute.View());
  }
}

}  // namespace
}  // namespace korvel::test
