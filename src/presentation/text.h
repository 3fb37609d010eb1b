// The one routine that draws text: for objects, the numbers of sliders and the fixed screens.
#pragma once

#include <cstdint>
#include <string_view>

#include "appearance/text_attributes.h"
#include "platform/canvases.h"
#include "presentation/gdi_plus.h"

namespace korvel {

// A text and how it looks. All text has the same font family; the style and the spacings of the
// font attributes are accepted without effect.
struct TextDrawing {
  std::string_view content;   // UTF-8 with control sequences
  korvel::Position position;  // of the box, in scene pixels
  korvel::BoxSize boxSize;
  FontAttributes font;  // size 0 means 24
  DrawnColour ink = kTransparentColour;
  DrawnColour background = kTransparentColour;
  Justification horizontalJustification{};  // all but end and centre are drawn as start
  Justification verticalJustification{};
  bool textWrapping = false;
  bool isObscured = false;  // each character is drawn as a star
};

// Fills the box with the background and lays out the text in it. Draws nothing if the box has no
// area.
void DrawTextIn(const TextDrawing& drawing);

// The drawing that a text object's attributes describe.
[[nodiscard]] TextDrawing DrawingOf(const Text& text);

// The font family of all text: "Trebuchet MS", or the nearest one, so that there is always some
// text. False only if no font is installed at all.
[[nodiscard]] bool FindFontFamily(FontFamilyOwner& family);

// The layout of a text in its box at that resolution, in dots per inch: its justifications, its
// wrapping, and its tab stops. False if it cannot be made.
[[nodiscard]] bool MakeStringFormat(const TextDrawing& drawing, float resolution,
                                    StringFormatOwner& format);

}  // namespace korvel
