// Entry fields: a black border of fixed width, and the text at a fixed size whatever the object's
// font attributes say. Obscured input is drawn as stars; the text itself stays as it is.
#include "presentation/drawings.h"
#include "presentation/line.h"
#include "presentation/state.h"
#include "presentation/text.h"

namespace korvel {

Status Draw(const EntryField& entryField) {
  constexpr LineAttributes kBorder{.Width = 2, .Style = LineStyle::Solid, .Ink = 0x00000000};
  constexpr FontAttributes kFont{
      .Style = FontStyle::Plain, .Size = 15, .LineSpacing = 1, .LetterSpacing = 2};
  DrawBorderedRectangle(State().graphics, BoxOf(entryField), kBorder, kTransparentColour);
  TextDrawing drawing = DrawingOf(entryField);
  drawing.Font = kFont;
  drawing.IsObscured = entryField.ObsuredInput;
  DrawTextIn(drawing);
  return Status::Done;
}

}  // namespace korvel
