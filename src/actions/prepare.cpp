// Preparing objects: every run-time value is set up from its original one, text is taken from its
// content, and the object becomes available. Bitmaps fetch their content when they are drawn, not
// here.
#include "actions/actions.h"
#include "actions/lifecycle.h"
#include "engine/engine.h"
#include "objects/objects.h"

namespace korvel {
namespace {

// For each class the function of its nearest ancestor that has run-time values. False when memory
// or time is out.
bool SetUp(Ingredient& ingredient) { return Copy(ingredient.OriginalContent, ingredient.Content); }

bool SetUp(BooleanVariable& variable) {
  variable.Value = variable.OriginalValue;
  return true;
}
bool SetUp(IntegerVariable& variable) {
  variable.Value = variable.OriginalValue;
  return true;
}
bool SetUp(OctetStringVariable& variable) {
  return variable.Value.CopyFrom(variable.OriginalValue);
}
bool SetUp(ObjectRefVariable& variable) { return Copy(variable.OriginalValue, variable.Value); }
bool SetUp(ContentRefVariable& variable) { return Copy(variable.OriginalValue, variable.Value); }

bool SetUp(TokenGroup& group) {
  group.TokenPosition = group.TokenGroupItems.IsEmpty() ? 0 : 1;
  return true;
}
bool SetUp(ListGroup& group) {
  List<ListItem> items;
  for (const TokenGroupItem& member : group.TokenGroupItems) {
    ListItem item;
    if (!MayGoOn() || !Copy(member.AVisible, item.AVisible)) return false;
    if (items.Append(std::move(item)) == nullptr) return false;
  }
  group.ItemList = std::move(items);
  group.FirstItem = 1;
  return SetUp(static_cast<TokenGroup&>(group));
}

bool SetUp(Visible& visible) {
  visible.BoxSize = visible.OriginalBoxSize;
  visible.Position = visible.OriginalPosition;
  return Copy(visible.OriginalPaletteRef, visible.PaletteRef) &&
         SetUp(static_cast<Ingredient&>(visible));
}
bool SetUp(Bitmap& bitmap) {
  bitmap.Transparency = bitmap.OriginalTransparency;
  bitmap.ScaledSize = {kNotScaled, kNotScaled};
  bitmap.DecodeOffset = {};
  return SetUp(static_cast<Visible&>(bitmap));
}
bool SetUp(LineArt& lineArt) {
  lineArt.LineWidth = lineArt.OriginalLineWidth;
  lineArt.LineStyle = lineArt.OriginalLineStyle;
  return Copy(lineArt.OriginalRefLineColour, lineArt.RefLineColour) &&
         Copy(lineArt.OriginalRefFillColour, lineArt.RefFillColour) &&
         SetUp(static_cast<Visible&>(lineArt));
}
bool SetUp(Text& text) {
  const OctetString& content = text.OriginalContent.Data;
  const bool isIncluded = !text.OriginalContent.IsReferenced;
  text.TextData.Clear();
  return (!isIncluded || text.TextData.CopyFrom(content)) && Copy(text.OriginalFont, text.Font) &&
         SetUp(static_cast<Visible&>(text));
}
bool SetUp(EntryField& field) {
  field.EntryPoint = 0;
  field.OverwriteMode = false;
  return SetUp(static_cast<Text&>(field));
}
bool SetUp(HyperText& text) {
  text.LastAnchorFired.Clear();
  return SetUp(static_cast<Text&>(text));
}
bool SetUp(PushButton& button) {
  return button.Label.CopyFrom(button.OriginalLabel) && SetUp(static_cast<Visible&>(button));
}
bool SetUp(Slider& slider) {
  slider.SliderValue = slider.InitialValue;
  slider.Portion = slider.InitialPortion;
  return SetUp(static_cast<Visible&>(slider));
}

bool SetUp(Audio& audio) {
  audio.Volume = audio.OriginalVolume;
  return true;
}
bool SetUp(Video& video) {
  video.ScaledSize = {kNotScaled, kNotScaled};
  video.DecodeOffset = {};
  return SetUp(static_cast<Visible&>(video));
}

}  // namespace

Change Prepare(ItemType type, Ingredient& ingredient) {
  if (ingredient.AvailabilityStatus) return Change::Nothing;
  bool isSetUp = true;
  VisitIngredientClass(type,
                       [&]<class Record>() { isSetUp = SetUp(static_cast<Record&>(ingredient)); });
  if (!isSetUp) return Change::Failure;
  ingredient.AvailabilityStatus = true;
  if (Contains(kTexts, type) && ingredient.Content.IsReferenced &&
      FetchText(static_cast<Text&>(ingredient)) == Status::Failure) {
    return Change::Failure;
  }
  return Change::Changed;
}

}  // namespace korvel
