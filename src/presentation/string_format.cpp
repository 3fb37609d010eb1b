// The modes of a text as GDI+ takes them.
#include "presentation/string_format.h"

namespace korvel {

namespace {

// One tab stop, which GDI+ repeats along the line: 42 pixels where an inch has 96 dots.
constexpr float kTabStop = 4032.0F;

Gdiplus::StringAlignment AlignmentOf(Justification justification) {
  switch (justification) {
  case Justification::End: return Gdiplus::StringAlignmentFar;
  case Justification::Centre: return Gdiplus::StringAlignmentCenter;
  default: return Gdiplus::StringAlignmentNear;  // justified text too
  }
}

}  // namespace

bool MakeStringFormat(const TextDrawing& drawing, float resolution, StringFormatOwner& format) {
  const INT flags = drawing.TextWrapping ? 0 : Gdiplus::StringFormatFlagsNoWrap;
  const float tabStop = kTabStop / resolution;
  return Succeeded(gdip::GdipCreateStringFormat(flags, LANG_NEUTRAL, format.Slot())) &&
         Succeeded(gdip::GdipSetStringFormatAlign(format,
                                                  AlignmentOf(drawing.HorizontalJustification))) &&
         Succeeded(gdip::GdipSetStringFormatLineAlign(
             format, AlignmentOf(drawing.VerticalJustification))) &&
         Succeeded(gdip::GdipSetStringFormatTabStops(format, 0.0F, 1, &tabStop));
}

}  // namespace korvel
