// Text objects, entry fields and the text routine. GDI+ breaks and places the lines; this file
// selects the colours, the font and the modes.
#include "presentation/text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "appearance/colours.h"
#include "appearance/geometry.h"
#include "engine/engine.h"
#include "objects/limits.h"
#include "objects/list.h"
#include "objects/memory.h"
#include "platform/screen.h"
#include "presentation/drawings.h"
#include "presentation/line_art.h"
#include "presentation/state.h"

namespace korvel {
namespace {

// ---- Fonts ----

// The families belong to the system and are not released.
[[nodiscard]] bool ListInstalledFamilies(List<Gdiplus::GpFontFamily*>& families) {
  Gdiplus::GpFontCollection* installed = nullptr;
  INT count = 0;
  if (!Succeeded(gdip::GdipNewInstalledFontCollection(&installed)) ||
      !Succeeded(gdip::GdipGetFontCollectionFamilyCount(installed, &count))) {
    return false;
  }
  return families.Resize(static_cast<std::size_t>(count)) &&
         Succeeded(
             gdip::GdipGetFontCollectionFamilyList(installed, count, families.begin(), &count));
}

[[nodiscard]] bool IsCalledSans(const Gdiplus::GpFontFamily* family) {
  std::array<WCHAR, LF_FACESIZE> name{};
  return Succeeded(gdip::GdipGetFamilyName(family, name.data(), LANG_NEUTRAL)) &&
         std::wstring_view(name.data()).ends_with(L"Sans");
}

// The first installed family whose name ends in "Sans", else the first of all.
[[nodiscard]] bool FindAnyFamily(FontFamilyOwner& family) {
  List<Gdiplus::GpFontFamily*> families;
  if (!ListInstalledFamilies(families) || families.IsEmpty()) return false;
  const auto* sans = std::ranges::find_if(families, IsCalledSans);
  Gdiplus::GpFontFamily* chosen = sans == families.end() ? families[0] : *sans;
  return Succeeded(gdip::GdipCloneFontFamily(chosen, family.Slot()));
}

// ---- Layout ----

// One tab stop, which GDI+ repeats along the line: 42 pixels at 96 dots per inch.
constexpr float kTabStop = 4032.0F;

Gdiplus::StringAlignment AlignmentOf(Justification justification) {
  switch (justification) {
  case Justification::End: return Gdiplus::StringAlignmentFar;
  case Justification::Centre: return Gdiplus::StringAlignmentCenter;
  default: return Gdiplus::StringAlignmentNear;  // justified text too
  }
}

// ---- Drawing ----

constexpr float kDefaultSize = 24.0F;
constexpr float kPointsPerInch = 72.0F;
static_assert(kMostLines == kSceneHeight);

// The UTF-16 text for GDI+, terminated by a zero.
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
  // Replaces each character by a star, except line feeds. Some characters are two units.
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

// The size is converted from points to pixels although it is in pixels already: size 24 gives an em
// of 18 pixels at 96 dots per inch. The layouts of broadcasts depend on it.
[[nodiscard]] bool MakeFont(std::int32_t size, float resolution, FontOwner& font) {
  const float em = (size == 0 ? kDefaultSize : static_cast<float>(size)) * kPointsPerInch;
  FontFamilyOwner family;
  return FindFontFamily(family) &&
         Succeeded(gdip::GdipCreateFont(family, em / resolution, Gdiplus::FontStyleRegular,
                                        Gdiplus::UnitPixel, font.Slot()));
}

[[nodiscard]] bool DrawLines(Gdiplus::GpGraphics* graphics, const Gdiplus::RectF& layout,
                             const TextDrawing& drawing) {
  DrawnColour ink = drawing.ink;
  static_cast<void>(ReadLeadingColour(drawing.content, ink));
  OctetString clean;
  if (!RemoveControlSequences(drawing.content, clean)) return false;
  WideText wide(clean.Text());
  if (drawing.isObscured) wide.Obscure();
  float resolution = 0;
  FontOwner font;
  StringFormatOwner format;
  SolidBrushOwner brush;
  return wide.Units() != nullptr && Succeeded(gdip::GdipGetDpiX(graphics, &resolution)) &&
         MakeFont(drawing.font.size, resolution, font) &&
         MakeStringFormat(drawing, resolution, format) &&
         Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(ink), brush.Slot())) &&
         Succeeded(gdip::GdipDrawString(graphics, wide.Units(), -1, font, &layout, format, brush));
}

}  // namespace

bool FindFontFamily(FontFamilyOwner& family) {
  return Succeeded(gdip::GdipCreateFontFamilyFromName(L"Trebuchet MS", nullptr, family.Slot())) ||
         Succeeded(gdip::GdipGetGenericFontFamilySansSerif(family.Slot())) || FindAnyFamily(family);
}

bool MakeStringFormat(const TextDrawing& drawing, float resolution, StringFormatOwner& format) {
  const INT flags = drawing.textWrapping ? 0 : Gdiplus::StringFormatFlagsNoWrap;
  const float tabStop = kTabStop / resolution;
  return Succeeded(gdip::GdipCreateStringFormat(flags, LANG_NEUTRAL, format.Slot())) &&
         Succeeded(gdip::GdipSetStringFormatAlign(format,
                                                  AlignmentOf(drawing.horizontalJustification))) &&
         Succeeded(gdip::GdipSetStringFormatLineAlign(
             format, AlignmentOf(drawing.verticalJustification))) &&
         Succeeded(gdip::GdipSetStringFormatTabStops(format, 0.0F, 1, &tabStop));
}

void DrawTextIn(const TextDrawing& drawing) {
  Gdiplus::GpGraphics* graphics = State().graphics;
  if (graphics == nullptr || !HasArea(drawing.boxSize)) return;
  const Box box = BoxAt(drawing.position, drawing.boxSize);
  FillBox(graphics, box, drawing.background);
  if (drawing.font.size < 0 || drawing.font.size > kLargestFontSize) return;
  const Gdiplus::RectF layout = ToGdiPlus(box);
  // Cuts the text exactly at the box; under Wine the layout alone does not.
  if (!Succeeded(gdip::GdipSetClipRect(graphics, layout.X, layout.Y, layout.Width, layout.Height,
                                       Gdiplus::CombineModeReplace))) {
    return;
  }
  // Text that cannot be drawn is skipped without a report.
  static_cast<void>(DrawLines(graphics, layout, drawing));
  static_cast<void>(gdip::GdipResetClip(graphics));
}

TextDrawing DrawingOf(const Text& text) {
  return {.content = text.TextData.View(),
          .position = text.Position,
          .boxSize = text.BoxSize,
          .font = FontAttributesOf(text, CurrentApplication()),
          .ink = TextColourOf(text, CurrentGroups()),
          .background = BackgroundColourOf(text, CurrentGroups()),
          .horizontalJustification = text.HorizontalJustification,
          .verticalJustification = text.VerticalJustification,
          .textWrapping = text.TextWrapping};
}

void Draw(const Text& text) { DrawTextIn(DrawingOf(text)); }

// The border and the font size are fixed, whatever the font attributes of the object say. Obscured
// input is drawn as stars; the text itself does not change.
void Draw(const EntryField& entryField) {
  constexpr LineAttributes kBorder{.width = 2};
  constexpr FontAttributes kFont{
      .style = FontStyle::Plain, .size = 15, .lineSpacing = 1, .letterSpacing = 2};
  DrawBorderedRectangle(State().graphics, BoxOf(entryField), kBorder, kTransparentColour);
  TextDrawing drawing = DrawingOf(entryField);
  drawing.font = kFont;
  drawing.isObscured = entryField.ObsuredInput;
  DrawTextIn(drawing);
}

}  // namespace korvel
