// The ingredients that are seen or heard: bitmaps, line art, text, interactibles, and streams with
// their components. Boxes and positions are scene pixels, origin top-left.
#pragma once

#include <cstdint>

#include "objects/ingredients.h"

namespace korvel {

struct Canvas;  // a DynamicLineArt's drawing surface; the presentation defines it

struct Visible : Ingredient {
  korvel::BoxSize OriginalBoxSize;
  korvel::Position OriginalPosition;
  OptionalReference OriginalPaletteRef;
  // The run-time values. They have the names of their types, so the types need the namespace.
  korvel::BoxSize BoxSize;
  korvel::Position Position;
  OptionalReference PaletteRef;
};

// The width and height of a ScaledSize that was never set: the picture is drawn at its own size.
inline constexpr std::int32_t kNotScaled = -1;

struct Bitmap : Visible {
  bool Tiling = false;
  std::int32_t OriginalTransparency = 0;  // per cent
  std::int32_t Transparency = 0;
  korvel::BoxSize ScaledSize{kNotScaled, kNotScaled};
  korvel::Position DecodeOffset;
};

struct LineArt : Visible {
  bool BorderedBoundingBox = true;
  std::int32_t OriginalLineWidth = 1;
  korvel::LineStyle OriginalLineStyle = korvel::LineStyle::Solid;
  ColourValue OriginalRefLineColour = ColourValue::NotSet();
  ColourValue OriginalRefFillColour = ColourValue::NotSet();
  std::int32_t LineWidth = 1;
  korvel::LineStyle LineStyle = korvel::LineStyle::Solid;
  ColourValue RefLineColour = ColourValue::NotSet();
  ColourValue RefFillColour = ColourValue::NotSet();
};
struct Rectangle : LineArt {};
struct DynamicLineArt : LineArt {
  // Created when first drawn on. The presentation must destroy it before the record is released.
  korvel::Canvas* Canvas = nullptr;
};

struct Text : Visible {
  FontBody OriginalFont;
  OctetString FontAttributes;
  ColourValue TextColour;
  ColourValue BackgroundColour;
  std::int32_t CharacterSet = 0;
  Justification HorizontalJustification = Justification::Start;
  Justification VerticalJustification = Justification::Start;
  korvel::LineOrientation LineOrientation = korvel::LineOrientation::Horizontal;
  korvel::StartCorner StartCorner = korvel::StartCorner::UpperLeft;
  bool TextWrapping = false;

  OctetString TextData;  // the text that is shown
  FontBody Font;
};

// The additional attributes of a visible that the viewer can operate.
struct Interactible {
  bool EngineResp = true;
  ColourValue HighlightRefColour;
  bool HighlightStatus = false;
  bool InteractionStatus = false;
};

struct EntryField : Text, Interactible {
  korvel::InputType InputType = korvel::InputType::Any;
  OctetString CharList;
  bool ObsuredInput = false;
  std::int32_t MaxLength = 0;  // 0: no limit
  std::int32_t EntryPoint = 0;
  bool OverwriteMode = false;
};

struct HyperText : Text, Interactible {
  OctetString LastAnchorFired;
};

struct Button : Visible, Interactible {
  ColourValue ButtonRefColour;
  bool SelectionStatus = false;
};
struct HotSpot : Button {};
struct PushButton : Button {
  OctetString OriginalLabel;
  OctetString Label;
  std::int32_t CharacterSet = 0;
};
struct SwitchButton : PushButton {
  korvel::ButtonStyle ButtonStyle{};
};

struct Slider : Visible, Interactible {
  korvel::Orientation Orientation{};
  std::int32_t MaxValue = 0;
  std::int32_t MinValue = 0;
  std::int32_t InitialValue = 0;
  std::int32_t InitialPortion = 0;
  std::int32_t StepSize = 1;
  korvel::SliderStyle SliderStyle = korvel::SliderStyle::Normal;
  ColourValue SliderRefColour;
  std::int32_t SliderValue = 0;
  std::int32_t Portion = 0;
};

// The components of a Stream are not items of the group: they are found through their Stream.
struct Audio : Ingredient {
  std::int32_t ComponentTag = 0;
  std::int32_t OriginalVolume = 0;
  std::int32_t Volume = 0;
};
struct Video : Visible {
  std::int32_t ComponentTag = 0;
  korvel::Termination Termination = korvel::Termination::Disappear;
  korvel::BoxSize ScaledSize{kNotScaled, kNotScaled};
  korvel::Position DecodeOffset;
};
struct RTGraphics : Visible {
  std::int32_t ComponentTag = 0;
  korvel::Termination Termination = korvel::Termination::Disappear;
};

struct Rational {
  std::int32_t Numerator = 1;
  std::int32_t Denominator = 1;
};

// A position of -1 means that the action gave none.
struct CounterTrigger {
  std::int32_t Identifier = 0;
  std::int32_t Position = 0;
};

struct Stream : Ingredient {
  List<Item> Multiplex;  // Audio, Video and RTGraphics
  korvel::Storage Storage = korvel::Storage::Stream;
  std::int32_t Looping = 1;
  Rational Speed;
  std::int32_t CounterPosition = 0;
  std::int32_t CounterEndPosition = -1;  // -1: the end of the stream
  List<CounterTrigger> CounterTriggers;
};

}  // namespace korvel
