// Entry fields: a black border of fixed width, and the text at a fixed size whatever the object's
// font attributes say.
#include "presentation/drawings.h"
#include "presentation/line.h"
#include "presentation/surface.h"
#include "presentation/text.h"

namespace korvel {

Status Draw(const EntryField& entryField) noexcept {
  constexpr LineAttributes kBorder{.Width = 2, .Style = 1, .Ink = 0x00000000};
  constexpr FontAttributes kFont{
      .Style = FontStyle::Plain, .Size = 15, .LineSpacing = 1, .LetterSpacing = 2};
  DrawBorderedRectangle(SurfaceGraphics(), BoxOf(entryField), kBorder, kTransparentColour);
  TextDrawing drawing = DrawingOf(entryField);
  drawing.Font = kFont;
  DrawTextIn(drawing);
  return Status::Done;
}

}  // namespace korvel
