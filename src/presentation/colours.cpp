// The reduction of every object's colour to red, green, blue and transparency. Palettes are looked
// up here; what is drawn in a colour is left to the drawing files.
#include "presentation/colours.h"

#include <string_view>

#include "engine/engine.h"
#include "host/host.h"
#include "presentation/content_path.h"

namespace korvel {

namespace {

constexpr DrawnColour kWhite = 0xFFFFFF00;
constexpr DrawnColour kBlack = 0x00000000;

// A palette is a row of such entries: red, green, blue, transparency.
constexpr std::size_t kPaletteEntryBytes = 4;

DrawnColour Pack(std::string_view bytes) noexcept {
  DrawnColour colour = 0;
  for (const char byte : bytes) colour = colour << 8 | static_cast<unsigned char>(byte);
  return colour;
}

// A palette outside the numbers that object lookup serves: it is looked for here.
const Palette* FindPalette(const Group* group, std::string_view name,
                           std::int32_t number) noexcept {
  if (group == nullptr) return nullptr;
  if (WithoutTilde(group->Reference.GroupIdentifier.View()) != WithoutTilde(name)) return nullptr;
  for (const Item& item : group->Items) {
    if (item.Type() == ItemType::Palette && item.Record()->Reference.Number == number) {
      return &item.As<Palette>();
    }
  }
  return nullptr;
}

const Palette* FirstPalette(const Application* application) noexcept {
  if (application == nullptr) return nullptr;
  for (const Item& item : application->Items) {
    if (item.Type() == ItemType::Palette) return &item.As<Palette>();
  }
  return nullptr;
}

// The palette that the object names, or the application's when it names none.
const Palette* PaletteOf(const Visible& visible) noexcept {
  if (!visible.PaletteRef.IsPresent) return FirstPalette(CurrentApplication());
  const ObjectReference& reference = visible.PaletteRef.Reference;
  std::string_view name = reference.GroupIdentifier.View();
  if (!reference.GroupIdentifier.IsPresent() && visible.owner != nullptr) {
    name = visible.owner->Reference.GroupIdentifier.View();
  }
  const Palette* palette = FindPalette(CurrentScene(), name, reference.Number);
  if (palette != nullptr) return palette;
  return FindPalette(CurrentApplication(), name, reference.Number);
}

[[nodiscard]] bool ReadEntry(std::string_view entries, std::int32_t index,
                             DrawnColour& colour) noexcept {
  if (index < 0 || static_cast<std::size_t>(index) >= entries.size() / kPaletteEntryBytes) {
    return false;
  }
  const std::size_t offset = static_cast<std::size_t>(index) * kPaletteEntryBytes;
  colour = Pack(entries.substr(offset, kPaletteEntryBytes));
  return true;
}

// A palette that nothing has prepared still has its original content.
[[nodiscard]] bool ReadPalette(const Palette& palette, std::int32_t index,
                               DrawnColour& colour) noexcept {
  const ContentBody& content =
      palette.Content.Data.IsPresent() ? palette.Content : palette.OriginalContent;
  if (!content.IsReferenced) return ReadEntry(content.Data.View(), index, colour);
  OctetString path;
  OctetString entries;
  return ContentPath(content.Data.View(), path) &&
         FetchFile(path.View(), &entries) == Status::Done &&
         ReadEntry(entries.View(), index, colour);
}

// The one reduction. False when the colour is not set; `reduced` is then unchanged.
[[nodiscard]] bool Reduce(const ColourValue& colour, const Visible& visible,
                          DrawnColour& reduced) noexcept {
  if (colour.Kind == ValueKind::Integer) {
    if (colour.Index < 0) return false;
    const Palette* palette = PaletteOf(visible);
    return palette != nullptr && ReadPalette(*palette, colour.Index, reduced);
  }
  if (colour.Kind != ValueKind::OctetString) return false;
  const std::string_view bytes = colour.Absolute.View();
  if (bytes.size() != 3 && bytes.size() != 4) return false;
  reduced = bytes.size() == 4 ? Pack(bytes) : Pack(bytes) << 8;  // three bytes are opaque
  return true;
}

DrawnColour ReduceOr(const ColourValue& colour, const Visible& visible,
                     DrawnColour unset) noexcept {
  static_cast<void>(Reduce(colour, visible, unset));
  return unset;
}

DrawnColour ReduceOr(const ColourValue& colour, const Visible& visible,
                     ColourValue DefaultAttributes::*applications, DrawnColour unset) noexcept {
  if (Reduce(colour, visible, unset)) return unset;
  const Application* application = CurrentApplication();
  if (application == nullptr) return unset;
  return ReduceOr(application->Defaults.*applications, visible, unset);
}

}  // namespace

DrawnColour TextColourOf(const Text& text) noexcept {
  return ReduceOr(text.TextColour, text, &DefaultAttributes::TextColour, kWhite);
}

DrawnColour BackgroundColourOf(const Text& text) noexcept {
  return ReduceOr(text.BackgroundColour, text, &DefaultAttributes::BackgroundColour,
                  kTransparentColour);
}

DrawnColour SliderColourOf(const Slider& slider) noexcept {
  return ReduceOr(slider.SliderRefColour, slider, &DefaultAttributes::SliderRefColour, kWhite);
}

DrawnColour LineColourOf(const LineArt& lineArt) noexcept {
  return ReduceOr(lineArt.RefLineColour, lineArt, kBlack);
}

DrawnColour FillColourOf(const LineArt& lineArt) noexcept {
  return ReduceOr(lineArt.RefFillColour, lineArt, kTransparentColour);
}

DrawnColour OriginalFillColourOf(const LineArt& lineArt) noexcept {
  return ReduceOr(lineArt.OriginalRefFillColour, lineArt, kTransparentColour);
}

Gdiplus::ARGB ToGdiPlus(DrawnColour colour) noexcept {
  const Gdiplus::ARGB alpha = 255 - (colour & kTransparencyByte);
  return alpha << 24 | colour >> 8;
}

bool MakeBrush(DrawnColour colour, SolidBrushOwner& brush) noexcept {
  return IsSeen(colour) && Succeeded(gdip::GdipCreateSolidFill(ToGdiPlus(colour), brush.Slot()));
}

}  // namespace korvel
