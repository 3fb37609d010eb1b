// Sliders: the numbers above the box and the bar in it.
#include <array>
#include <cstdio>

#include "appearance/colours.h"
#include "appearance/slider_bar.h"
#include "engine/engine.h"
#include "presentation/drawings.h"
#include "presentation/line_art.h"
#include "presentation/state.h"
#include "presentation/text.h"

namespace korvel {
namespace {

constexpr std::int32_t kNumberWidth = 30;
constexpr std::int32_t kNumberHeight = 15;

void DrawNumber(std::int32_t number, std::int64_t x, std::int64_t y, DrawnColour colour) {
  std::array<char, 16> digits{};
  const int length = std::snprintf(digits.data(), digits.size(), "%d", number);
  DrawTextIn({.content = {digits.data(), static_cast<std::size_t>(length)},
              .position = {NearCoordinate(x), NearCoordinate(y)},
              .boxSize = {kNumberWidth, kNumberHeight},
              .font = {.size = 0},
              .ink = colour});
}

void DrawNumbers(const Slider& slider, DrawnColour colour) {
  constexpr std::int64_t kOverhang = 15;
  const std::int64_t x = slider.Position.X;
  const std::int64_t y = std::int64_t{slider.Position.Y} - kNumberHeight;
  DrawNumber(slider.MinValue, x - kOverhang, y, colour);
  DrawNumber(slider.MaxValue, x + slider.BoxSize.Width + kOverhang, y, colour);
  DrawNumber(slider.SliderValue, x, y, colour);
}

void DrawBar(const Slider& slider, DrawnColour colour) {
  const LineAttributes line{.width = 1, .ink = colour};
  const SliderBar bar = SliderBarOf(slider);
  DrawBorderedRectangle(State().graphics, bar.bar, line, kTransparentColour);
  DrawBorderedRectangle(State().graphics, bar.marker, line, colour);
}

}  // namespace

void Draw(const Slider& slider) {
  const DrawnColour colour = SliderColourOf(slider, CurrentGroups());
  DrawNumbers(slider, colour);
  DrawBar(slider, colour);
}

}  // namespace korvel
