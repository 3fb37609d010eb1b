// Text objects and the text routine. GDI+ breaks the lines and places them; the colours and the
// font that it is given are settled here, the modes in string_format.cpp.
#include "presentation/text.h"

#include <cstring>

#include "appearance/colours.h"
#include "appearance/control_sequences.h"
#include "appearance/geometry.h"
#include "engine/engine.h"
#include "objects/limits.h"
#include "objects/memory.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/font_family.h"
#include "presentation/state.h"
#include "presentation/string_format.h"

namespace korvel {

namespace {

constexpr float kDefaultSize = 24.0F;
constexpr float kPointsPerInch = 72.0F;
// More lines than pixel rows are in no picture.
constexpr std::size_t kMostLines = kSceneHeight;

// UTF-16 as GDI+ takes it, ended by a zero.
class WideText {
 public:
  explicit WideText(const char* utf8) {
    const std::size_t bytes = std::strlen(utf8);
    units_ = static_cast<WCHAR*>(AllocateZeroed(2 * bytes + 2));
    if (units_ == nullptr) return;
    const int count = static_cast<int>(bytes) + 1;
    MultiByteToWideChar(CP_UTF8, 0, utf8, count, units_, count);
    Limit();
  }
  ~WideText() { ReleaseMemory(units_); }
  WideText(const WideText&) = delete;
  WideText& operator=(const WideText&) = delete;
  [[nodiscard]] const WCHAR* Units() const { return units_; }
  // Puts a star in place of each character, of which some are two units. Line feeds stay.
  void Obscure() {
    if (units_ == nullptr) return;
    WCHAR* to = units_;
    for (const WCHAR* from = units_; *from != 0; ++from) {
      if (!IS_LOW_SURROGATE(*from)) *to++ = *from == L'\n' ? *from : L'*';
    }
    *to = 0;
  }

 private:
  void Limit() {
    std::size_t lines = 0;
    for (std::size_t index = 0; units_[index] != 0; ++index) {
      if (units_[index] == L'\n') ++lines;
      if (lines == kMostLines || index == kMostCharacters) units_[index] = 0;
    }
  }

  WCHAR* units_ = nullptr;
};

// The size is turned from points to pixels although it is given in pixels already: 24 is an em of
// 18 pixels at 96 dots per inch. The broadcasts' layouts count on it.
[[nodiscard]] bool MakeFont(std::int32_t size, float resolution, FontOwner& font) {
  const float em = (size == 0 ? kDefaultSize : static_cast<float>(size)) * kPointsPerInch;
  FontFamilyOwner family;
  return FindFontFamily(family) &&
         Succeeded(gdip::GdipCreateFont(family, em / resolution, Gdiplus::FontStyleRegular,
                                        Gdiplus::UnitPixel, font.Slot()));
}

Gdiplus::RectF LayoutOf(const TextDrawing& drawing) {
  const Box box = BoxAt(drawing.X, drawing.Y, drawing.Width, drawing.Height);
  return {static_cast<float>(box.Left), static_cast<float>(box.Top),
          static_cast<float>(box.Width()), static_cast<float>(box.Height())};
}

[[nodiscard]] bool FillBackground(Gdiplus::GpGraphics* graphics, const Gdiplus::RectF& layout,
                                  DrawnColour background) {
  SolidBrushOwner brush;
  return Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(background), brush.Slot())) &&
         Succeeded(gdip::GdipFillRectangle(graphics, brush, layout.X, layout.Y, layout.Width,
                                           layout.Height));
}

// False when GDI+ could not do it: there is no text to see then.
[[nodiscard]] bool DrawLines(Gdiplus::GpGraphics* graphics, const Gdiplus::RectF& layout,
                             const TextDrawing& drawing) {
  DrawnColour ink = drawing.Ink;
  static_cast<void>(ReadLeadingColour(drawing.Content, ink));
  OctetString clean;
  if (!RemoveControlSequences(drawing.Content, clean)) return false;
  WideText wide(clean.Text());
  if (drawing.IsObscured) wide.Obscure();
  float resolution = 0;
  FontOwner font;
  StringFormatOwner format;
  SolidBrushOwner brush;
  return wide.Units() != nullptr && Succeeded(gdip::GdipGetDpiX(graphics, &resolution)) &&
         MakeFont(drawing.Font.Size, resolution, font) &&
         MakeStringFormat(drawing, resolution, format) &&
         Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(ink), brush.Slot())) &&
         Succeeded(gdip::GdipDrawString(graphics, wide.Units(), -1, font, &layout, format, brush));
}

}  // namespace

void DrawTextIn(const TextDrawing& drawing) {
  Gdiplus::GpGraphics* graphics = State().graphics;
  if (graphics == nullptr || drawing.Width < 1 || drawing.Height < 1) return;
  const Gdiplus::RectF layout = LayoutOf(drawing);
  if (!FillBackground(graphics, layout, drawing.Background)) return;
  if (drawing.Font.Size < 0 || drawing.Font.Size > kLargestFontSize) return;
  // The box cuts the text. GDI+ does so too, but not all of them to the pixel.
  if (!Succeeded(gdip::GdipSetClipRect(graphics, layout.X, layout.Y, layout.Width, layout.Height,
                                       Gdiplus::CombineModeReplace))) {
    return;
  }
  // What cannot be drawn is left out; there is nobody to tell.
  static_cast<void>(DrawLines(graphics, layout, drawing));
  static_cast<void>(gdip::GdipResetClip(graphics));
}

TextDrawing DrawingOf(const Text& text) {
  return {.Content = text.TextData.View(),
          .X = text.Position.X,
          .Y = text.Position.Y,
          .Width = text.BoxSize.Width,
          .Height = text.BoxSize.Height,
          .Font = FontAttributesOf(text, CurrentApplication()),
          .Ink = TextColourOf(text, CurrentGroups()),
          .Background = BackgroundColourOf(text, CurrentGroups()),
          .HorizontalJustification = text.HorizontalJustification,
          .VerticalJustification = text.VerticalJustification,
          .TextWrapping = text.TextWrapping};
}

Status Draw(const Text& text) {
  DrawTextIn(DrawingOf(text));
  return Status::Done;
}

}  // namespace korvel
