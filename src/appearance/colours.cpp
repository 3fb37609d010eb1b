// Converts every object's colour to red, green, blue and transparency, and looks up palettes.
#include "appearance/colours.h"

#include <string_view>
#include <utility>

#include "appearance/content_file.h"
#include "platform/canvases.h"
#include "platform/files.h"

namespace korvel {
namespace {

constexpr DrawnColour kWhite = 0xFFFFFF00;
constexpr DrawnColour kBlack = 0x00000000;

// A palette is an array of entries: red, green, blue, transparency.
constexpr std::size_t kPaletteEntryBytes = 4;

// FindObject does not find palettes.
Palette* FindPalette(const Group* group, std::string_view name, std::int32_t number) {
  if (group == nullptr) return nullptr;
  if (!IsSameGroup(group->Reference.GroupIdentifier.View(), name)) return nullptr;
  for (const Item& item : group->Items) {
    if (item.Type() == ItemType::Palette && item.Record()->Reference.Number == number) {
      return &item.As<Palette>();
    }
  }
  return nullptr;
}

Palette* FirstPalette(const Application* application) {
  if (application == nullptr) return nullptr;
  for (const Item& item : application->Items) {
    if (item.Type() == ItemType::Palette) return &item.As<Palette>();
  }
  return nullptr;
}

// The palette that the object names, or the application's first one if it names none.
Palette* PaletteOf(const Visible& visible, const RunningGroups& groups) {
  if (!visible.PaletteRef.IsPresent) return FirstPalette(groups.application);
  const ObjectReference& reference = visible.PaletteRef.Reference;
  std::string_view name = reference.GroupIdentifier.View();
  if (!reference.GroupIdentifier.IsPresent() && visible.owner != nullptr) {
    name = visible.owner->Reference.GroupIdentifier.View();
  }
  Palette* palette = FindPalette(groups.scene, name, reference.Number);
  if (palette != nullptr) return palette;
  return FindPalette(groups.application, name, reference.Number);
}

[[nodiscard]] bool ReadEntry(std::string_view entries, std::int32_t index, DrawnColour& colour) {
  if (index < 0 || static_cast<std::size_t>(index) >= entries.size() / kPaletteEntryBytes) {
    return false;
  }
  const std::size_t offset = static_cast<std::size_t>(index) * kPaletteEntryBytes;
  colour = PackColour(entries.substr(offset, kPaletteEntryBytes));
  return true;
}

// The file is read when a colour is first looked up, and its bytes become the palette's run-time
// content. A missing file is requested again each time. An unprepared palette has only its original
// content.
[[nodiscard]] bool ReadPalette(Palette& palette, std::int32_t index, DrawnColour& colour) {
  const ContentBody& content =
      palette.Content.Data.IsPresent() ? palette.Content : palette.OriginalContent;
  if (!content.IsReferenced) return ReadEntry(content.Data.View(), index, colour);
  OctetString path;
  OctetString entries;
  if (!ContentPath(content.Data.View(), path) || !FetchFile(path.View(), &entries)) return false;
  palette.Content.Data = std::move(entries);
  palette.Content.IsReferenced = false;
  return ReadEntry(palette.Content.Data.View(), index, colour);
}

// False, with `reduced` unchanged, if the colour is not set.
[[nodiscard]] bool Reduce(const ColourValue& colour, const Visible& visible,
                          const RunningGroups& groups, DrawnColour& reduced) {
  if (colour.Kind == ValueKind::Integer) {
    if (colour.Index < 0) return false;
    Palette* palette = PaletteOf(visible, groups);
    return palette != nullptr && ReadPalette(*palette, colour.Index, reduced);
  }
  if (colour.Kind != ValueKind::OctetString) return false;
  const std::string_view bytes = colour.Absolute.View();
  if (!IsColourLength(bytes.size())) return false;
  reduced =
      bytes.size() == 4 ? PackColour(bytes) : PackColour(bytes) << 8;  // three bytes are opaque
  return true;
}

DrawnColour ReduceOr(const ColourValue& colour, const Visible& visible, const RunningGroups& groups,
                     DrawnColour unset) {
  static_cast<void>(Reduce(colour, visible, groups, unset));
  return unset;
}

DrawnColour ReduceOr(const ColourValue& colour, const Visible& visible, const RunningGroups& groups,
                     ColourValue DefaultAttributes::*applications, DrawnColour unset) {
  if (Reduce(colour, visible, groups, unset) || groups.application == nullptr) return unset;
  return ReduceOr(groups.application->Defaults.*applications, visible, groups, unset);
}

}  // namespace

DrawnColour TextColourOf(const Text& text, const RunningGroups& groups) {
  return ReduceOr(text.TextColour, text, groups, &DefaultAttributes::TextColour, kWhite);
}

DrawnColour BackgroundColourOf(const Text& text, const RunningGroups& groups) {
  return ReduceOr(text.BackgroundColour, text, groups, &DefaultAttributes::BackgroundColour,
                  kTransparentColour);
}

DrawnColour SliderColourOf(const Slider& slider, const RunningGroups& groups) {
  return ReduceOr(slider.SliderRefColour, slider, groups, &DefaultAttributes::SliderRefColour,
                  kWhite);
}

LineAttributes LineAttributesOf(const LineArt& lineArt, const RunningGroups& groups) {
  return {lineArt.LineWidth, lineArt.LineStyle,
          ReduceOr(lineArt.RefLineColour, lineArt, groups, kBlack)};
}

DrawnColour FillColourOf(const LineArt& lineArt, const RunningGroups& groups) {
  return ReduceOr(lineArt.RefFillColour, lineArt, groups, kTransparentColour);
}

DrawnColour OriginalFillColourOf(const LineArt& lineArt, const RunningGroups& groups) {
  return ReduceOr(lineArt.OriginalRefFillColour, lineArt, groups, kTransparentColour);
}

}  // namespace korvel
