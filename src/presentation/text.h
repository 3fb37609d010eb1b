// The one routine that draws text, for objects, slider numbers and the fixed screens alike.
#pragma once

#include <cstdint>
#include <string_view>

#include "appearance/font_attributes.h"
#include "platform/canvases.h"

namespace korvel {

// A text and how it is to look. The family is always the same, and the style and the spacings of
// the font attributes are accepted without effect.
struct TextDrawing {
  std::string_view Content;  // UTF-8 with control sequences
  std::int32_t X = 0;        // the box, in scene pixels
  std::int32_t Y = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  FontAttributes Font;  // size 0 means 24
  DrawnColour Ink = kTransparentColour;
  DrawnColour Background = kTransparentColour;
  Justification HorizontalJustification{};  // drawn as start, but for end and centre
  Justification VerticalJustification{};
  bool TextWrapping = false;
  bool IsObscured = false;  // a star is drawn in place of each character
};

// Fills the box with the background and lays the text out in it. A box without area draws nothing.
void DrawTextIn(const TextDrawing& drawing);

// A text object's drawing as its attributes say it.
[[nodiscard]] TextDrawing DrawingOf(const Text& text);

}  // namespace korvel
