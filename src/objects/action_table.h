// The table of elementary actions: number, name, parameters and accepted target classes. Decoding,
// writing, the textual notation, the dump and the interpreter all read it.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "objects/vocabulary.h"

namespace korvel {

// The actions by number. 1 to 110 are the standard's, in alphabetical order; content can hold only
// these (BER tag = number + 114). 111 to 119 are extensions that have no encoded form.
enum class Action : std::uint8_t {
  Activate = 1,
  Add,
  AddItem,
  Append,
  BringToFront,
  Call,
  CallActionSlot,
  Clear,
  Clone,
  CloseConnection,
  Deactivate,
  DelItem,
  Deselect,
  DeselectItem,
  Divide,
  DrawArc,
  DrawLine,
  DrawOval,
  DrawPolygon,
  DrawPolyline,
  DrawRectangle,
  DrawSector,
  Fork,
  GetAvailabilityStatus,
  GetBoxSize,
  GetCellItem,
  GetCursorPosition,
  GetEngineSupport,
  GetEntryPoint,
  GetFillColour,
  GetFirstItem,
  GetHighlightStatus,
  GetInteractionStatus,
  GetItemStatus,
  GetLabel,
  GetLastAnchorFired,
  GetLineColour,
  GetLineStyle,
  GetLineWidth,
  GetListItem,
  GetListSize,
  GetOverwriteMode,
  GetPortion,
  GetPosition,
  GetRunningStatus,
  GetSelectionStatus,
  GetSliderValue,
  GetTextContent,
  GetTextData,
  GetTokenPosition,
  GetVolume,
  Launch,
  LockScreen,
  Modulo,
  Move,
  MoveTo,
  Multiply,
  OpenConnection,
  Preload,
  PutBefore,
  PutBehind,
  Quit,
  ReadPersistent,
  Run,
  ScaleBitmap,
  ScaleVideo,
  ScrollItems,
  Select,
  SelectItem,
  SendEvent,
  SendToBack,
  SetBoxSize,
  SetCachePriority,
  SetCounterEndPosition,
  SetCounterPosition,
  SetCounterTrigger,
  SetCursorPosition,
  SetCursorShape,
  SetData,
  SetEntryPoint,
  SetFillColour,
  SetFirstItem,
  SetFontRef,
  SetHighlightStatus,
  SetInteractionStatus,
  SetLabel,
  SetLineColour,
  SetLineStyle,
  SetLineWidth,
  SetOverwriteMode,
  SetPaletteRef,
  SetPortion,
  SetPosition,
  SetSliderValue,
  SetSpeed,
  SetTimer,
  SetTransparency,
  SetVariable,
  SetVolume,
  Spawn,
  Step,
  Stop,
  StorePersistent,
  Subtract,
  TestVariable,
  Toggle,
  ToggleItem,
  TransitionTo,
  Unload,
  UnlockScreen = 110,
  SetInputRegister,
  SetCellPosition,
  GetBitmapDecodeOffset,
  SetBitmapDecodeOffset,
  SetBackgroundColour,
  SetTextColour,
  SetFontAttributes,
  SetVideoDecodeOffset,
  GetVideoDecodeOffset = 119,
};
inline constexpr std::uint8_t kActionCount = 119;
inline constexpr std::uint8_t kDecodedActionCount = 110;
inline constexpr std::uint32_t kActionTagBase = 114;

// The kind of one place (parameter position) in an action's syntax. A composite place takes several
// values, which a decoded action holds one after the other.
enum class Parameter : std::uint8_t {
  Integer,        // GenericInteger
  IntegerOrNull,  // GenericInteger or NULL
  Boolean,        // GenericBoolean
  Octets,         // GenericOctetString
  Reference,      // GenericObjectReference: an object, or the variable that receives a result
  Typed,          // one value of any type, tagged with its type (the standard's Parameter)
  TypedList,      // any number of Typed
  References,     // a list of Reference
  Points,         // a list of pairs of Integer
  Colour,         // an absolute colour (Octets) or a colour index (Integer)
  FontChoice,     // a Font object (Reference) or a font name (Octets)
  NewContent,     // included content (Octets), or a content reference with IntegerOrNull size and
                  // cache priority
  NewTimer,       // Integer timer value, then optionally Boolean absolute time
  Speed,          // Integer numerator, then optionally Integer denominator
  EventNumber,    // Integer; an event type, a word in the notation
};

inline constexpr std::size_t kMostParameters = 6;

struct ActionRow {
  Action action;
  const char* name;  // the keyword of the textual notation is ":" and this name
  std::array<Parameter, kMostParameters> parameters;
  std::uint8_t parameterCount;  // the number of places
  std::uint8_t requiredCount;   // how many of these must be present for the action to run
  ClassSet accepts;  // accepted classes of target; empty if no target is looked up or the action
                     // does nothing

  [[nodiscard]] constexpr std::span<const Parameter> Syntax() const {
    return {parameters.data(), parameterCount};
  }
};

namespace action_rows {

using enum Parameter;

inline constexpr ClassSet kNone = 0;
inline constexpr ClassSet kLinkOrProgram = SetOf(ItemType::Link, ItemType::ResidentProgram);
inline constexpr ClassSet kRunnable =
    kVisibles | kTokenGroups | SetOf(ItemType::Audio, ItemType::Stream);

// The classes numbered from `first` to `last`, inclusive.
constexpr ClassSet Span(ItemType first, ItemType last) {
  ClassSet set = 0;
  for (auto number = static_cast<unsigned>(first); number <= static_cast<unsigned>(last);
       ++number) {
    set |= ClassSet{1} << number;
  }
  return set;
}

// GetAvailabilityStatus and GetRunningStatus reject an ObjectRefVariable, although it has both.
inline constexpr ClassSet kStatusClasses =
    (Span(ItemType::Application, ItemType::HyperText) & ~SetOf(ItemType::ObjectRefVariable)) |
    SetOf(ItemType::LineArt, ItemType::RemoteProgram, ItemType::InterchangedProgram);
inline constexpr ClassSet kIngredients3To24 = Span(ItemType::Link, ItemType::LineArt);

constexpr ActionRow Row(Action action, const char* name,
                        std::initializer_list<Parameter> parameters, std::uint8_t requiredCount,
                        ClassSet accepts) {
  ActionRow row{action, name, {}, 0, requiredCount, accepts};
  for (const Parameter parameter : parameters) row.parameters[row.parameterCount++] = parameter;
  return row;
}

inline constexpr std::array<ActionRow, kActionCount> kActions = {
    Row(Action::Activate, "Activate", {}, 0, kLinkOrProgram),
    Row(Action::Add, "Add", {Integer}, 1, SetOf(ItemType::IntegerVariable)),
    Row(Action::AddItem, "AddItem", {Integer, Reference}, 2, SetOf(ItemType::ListGroup)),
    Row(Action::Append, "Append", {Octets}, 1, SetOf(ItemType::OctetStringVariable)),
    Row(Action::BringToFront, "BringToFront", {}, 0, kVisibles),
    Row(Action::Call, "Call", {Reference, TypedList}, 1, SetOf(ItemType::ResidentProgram)),
    Row(Action::CallActionSlot, "CallActionSlot", {Integer}, 1, kTokenGroups),
    Row(Action::Clear, "Clear", {}, 0, SetOf(ItemType::DynamicLineArt)),
    Row(Action::Clone, "Clone", {Reference}, 1, kNone),
    Row(Action::CloseConnection, "CloseConnection", {Integer}, 1, kNone),
    Row(Action::Deactivate, "Deactivate", {}, 0, kLinkOrProgram),
    Row(Action::DelItem, "DelItem", {Reference}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::Deselect, "Deselect", {}, 0, SetOf(ItemType::ListGroup)),
    Row(Action::DeselectItem, "DeselectItem", {Integer}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::Divide, "Divide", {Integer}, 1, SetOf(ItemType::IntegerVariable)),
    Row(Action::DrawArc, "DrawArc", {Integer, Integer, Integer, Integer, Integer, Integer}, 6,
        SetOf(ItemType::DynamicLineArt)),
    Row(Action::DrawLine, "DrawLine", {Integer, Integer, Integer, Integer}, 4,
        SetOf(ItemType::DynamicLineArt)),
    Row(Action::DrawOval, "DrawOval", {Integer, Integer, Integer, Integer}, 4,
        SetOf(ItemType::DynamicLineArt)),
    Row(Action::DrawPolygon, "DrawPolygon", {Points}, 1, SetOf(ItemType::DynamicLineArt)),
    Row(Action::DrawPolyline, "DrawPolyline", {Points}, 1, SetOf(ItemType::DynamicLineArt)),
    Row(Action::DrawRectangle, "DrawRectangle", {Integer, Integer, Integer, Integer}, 4,
        SetOf(ItemType::DynamicLineArt)),
    Row(Action::DrawSector, "DrawSector", {Integer, Integer, Integer, Integer, Integer, Integer}, 6,
        SetOf(ItemType::DynamicLineArt)),
    Row(Action::Fork, "Fork", {Reference, TypedList}, 1, SetOf(ItemType::ResidentProgram)),
    Row(Action::GetAvailabilityStatus, "GetAvailabilityStatus", {Reference}, 1, kStatusClasses),
    Row(Action::GetBoxSize, "GetBoxSize", {Reference, Reference}, 2, kVisibles),
    Row(Action::GetCellItem, "GetCellItem", {Integer, Reference}, 2, SetOf(ItemType::ListGroup)),
    Row(Action::GetCursorPosition, "GetCursorPosition", {Reference, Reference}, 2, kNone),
    Row(Action::GetEngineSupport, "GetEngineSupport", {Octets, Reference}, 2,
        SetOf(ItemType::Application)),
    Row(Action::GetEntryPoint, "GetEntryPoint", {Reference}, 1, SetOf(ItemType::EntryField)),
    Row(Action::GetFillColour, "GetFillColour", {Reference}, 1, SetOf(ItemType::DynamicLineArt)),
    Row(Action::GetFirstItem, "GetFirstItem", {Reference}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::GetHighlightStatus, "GetHighlightStatus", {Reference}, 1, kInteractibles),
    Row(Action::GetInteractionStatus, "GetInteractionStatus", {Reference}, 1, kInteractibles),
    Row(Action::GetItemStatus, "GetItemStatus", {Integer, Reference}, 2,
        SetOf(ItemType::ListGroup)),
    Row(Action::GetLabel, "GetLabel", {Reference}, 1, kNone),
    Row(Action::GetLastAnchorFired, "GetLastAnchorFired", {Reference}, 1,
        SetOf(ItemType::HyperText)),
    Row(Action::GetLineColour, "GetLineColour", {Reference}, 1, SetOf(ItemType::DynamicLineArt)),
    Row(Action::GetLineStyle, "GetLineStyle", {Reference}, 1, SetOf(ItemType::DynamicLineArt)),
    Row(Action::GetLineWidth, "GetLineWidth", {Reference}, 1, SetOf(ItemType::DynamicLineArt)),
    Row(Action::GetListItem, "GetListItem", {Integer, Reference}, 2, SetOf(ItemType::ListGroup)),
    Row(Action::GetListSize, "GetListSize", {Reference}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::GetOverwriteMode, "GetOverwriteMode", {Reference}, 1, SetOf(ItemType::EntryField)),
    Row(Action::GetPortion, "GetPortion", {Reference}, 1, SetOf(ItemType::Slider)),
    Row(Action::GetPosition, "GetPosition", {Reference, Reference}, 2, kVisibles),
    Row(Action::GetRunningStatus, "GetRunningStatus", {Reference}, 1, kStatusClasses),
    Row(Action::GetSelectionStatus, "GetSelectionStatus", {Reference}, 1, kNone),
    Row(Action::GetSliderValue, "GetSliderValue", {Reference}, 1, SetOf(ItemType::Slider)),
    Row(Action::GetTextContent, "GetTextContent", {Reference}, 1, kTexts),
    Row(Action::GetTextData, "GetTextData", {Reference}, 1, kTexts),
    Row(Action::GetTokenPosition, "GetTokenPosition", {Reference}, 1, kTokenGroups),
    Row(Action::GetVolume, "GetVolume", {Reference}, 1, SetOf(ItemType::Audio)),
    Row(Action::Launch, "Launch", {}, 0, kNone),
    Row(Action::LockScreen, "LockScreen", {}, 0, SetOf(ItemType::Application)),
    Row(Action::Modulo, "Modulo", {Integer}, 1, SetOf(ItemType::IntegerVariable)),
    Row(Action::Move, "Move", {Integer}, 1, kTokenGroups),
    Row(Action::MoveTo, "MoveTo", {Integer}, 1, kTokenGroups),
    Row(Action::Multiply, "Multiply", {Integer}, 1, SetOf(ItemType::IntegerVariable)),
    Row(Action::OpenConnection, "OpenConnection", {Reference, Octets, Octets, Integer}, 4, kNone),
    Row(Action::Preload, "Preload", {}, 0,
        SetOf(ItemType::Bitmap, ItemType::Text, ItemType::LineArt)),
    Row(Action::PutBefore, "PutBefore", {Reference}, 1, kVisibles),
    Row(Action::PutBehind, "PutBehind", {Reference}, 1, kVisibles),
    Row(Action::Quit, "Quit", {}, 0, kNone),
    Row(Action::ReadPersistent, "ReadPersistent", {Reference, References, Octets}, 3,
        SetOf(ItemType::Application)),
    Row(Action::Run, "Run", {}, 0, kRunnable),
    Row(Action::ScaleBitmap, "ScaleBitmap", {Integer, Integer}, 2, SetOf(ItemType::Bitmap)),
    Row(Action::ScaleVideo, "ScaleVideo", {Integer, Integer}, 2, SetOf(ItemType::Video)),
    Row(Action::ScrollItems, "ScrollItems", {Integer}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::Select, "Select", {}, 0, SetOf(ItemType::ListGroup)),
    Row(Action::SelectItem, "SelectItem", {Integer}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::SendEvent, "SendEvent", {Reference, EventNumber, Typed}, 2, SetOf(ItemType::Scene)),
    Row(Action::SendToBack, "SendToBack", {}, 0, kVisibles),
    Row(Action::SetBoxSize, "SetBoxSize", {Integer, Integer}, 2, kVisibles),
    Row(Action::SetCachePriority, "SetCachePriority", {Integer}, 1, kGroups),
    Row(Action::SetCounterEndPosition, "SetCounterEndPosition", {Integer}, 1,
        SetOf(ItemType::Stream)),
    Row(Action::SetCounterPosition, "SetCounterPosition", {Integer}, 1, SetOf(ItemType::Stream)),
    Row(Action::SetCounterTrigger, "SetCounterTrigger", {Integer, Integer}, 1,
        SetOf(ItemType::Stream)),
    Row(Action::SetCursorPosition, "SetCursorPosition", {Integer, Integer}, 2, kNone),
    Row(Action::SetCursorShape, "SetCursorShape", {Reference}, 1, kNone),
    Row(Action::SetData, "SetData", {NewContent}, 1, kIngredients3To24),
    Row(Action::SetEntryPoint, "SetEntryPoint", {Integer}, 1, SetOf(ItemType::EntryField)),
    Row(Action::SetFillColour, "SetFillColour", {Colour}, 1, kLineArts),
    Row(Action::SetFirstItem, "SetFirstItem", {Integer}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::SetFontRef, "SetFontRef", {FontChoice}, 1, kTexts),
    Row(Action::SetHighlightStatus, "SetHighlightStatus", {Boolean}, 1, kInteractibles),
    Row(Action::SetInteractionStatus, "SetInteractionStatus", {Boolean}, 1, kInteractibles),
    Row(Action::SetLabel, "SetLabel", {Octets}, 1, kNone),
    Row(Action::SetLineColour, "SetLineColour", {Colour}, 1, kLineArts),
    Row(Action::SetLineStyle, "SetLineStyle", {Integer}, 1, kLineArts),
    Row(Action::SetLineWidth, "SetLineWidth", {Integer}, 1, kLineArts),
    Row(Action::SetOverwriteMode, "SetOverwriteMode", {Boolean}, 1, SetOf(ItemType::EntryField)),
    Row(Action::SetPaletteRef, "SetPaletteRef", {Reference}, 1,
        kVisibles & ~SetOf(ItemType::Video)),
    Row(Action::SetPortion, "SetPortion", {Integer}, 1, SetOf(ItemType::Slider)),
    Row(Action::SetPosition, "SetPosition", {Integer, Integer}, 2, kVisibles),
    Row(Action::SetSliderValue, "SetSliderValue", {Integer}, 1, SetOf(ItemType::Slider)),
    Row(Action::SetSpeed, "SetSpeed", {Speed}, 1, SetOf(ItemType::Stream)),
    Row(Action::SetTimer, "SetTimer", {Integer, NewTimer}, 1, kGroups),
    Row(Action::SetTransparency, "SetTransparency", {Integer}, 1, SetOf(ItemType::Bitmap)),
    Row(Action::SetVariable, "SetVariable", {Typed}, 1, kVariables),
    Row(Action::SetVolume, "SetVolume", {Integer}, 1, SetOf(ItemType::Audio)),
    Row(Action::Spawn, "Spawn", {}, 0, kNone),
    Row(Action::Step, "Step", {Integer}, 1, SetOf(ItemType::Slider)),
    Row(Action::Stop, "Stop", {}, 0, kRunnable),
    Row(Action::StorePersistent, "StorePersistent", {Reference, References, Octets}, 3,
        SetOf(ItemType::Application)),
    Row(Action::Subtract, "Subtract", {Integer}, 1, SetOf(ItemType::IntegerVariable)),
    Row(Action::TestVariable, "TestVariable", {Integer, Typed}, 2, kVariables),
    Row(Action::Toggle, "Toggle", {}, 0, kNone),
    Row(Action::ToggleItem, "ToggleItem", {Integer}, 1, SetOf(ItemType::ListGroup)),
    Row(Action::TransitionTo, "TransitionTo", {IntegerOrNull, IntegerOrNull}, 0, kNone),
    Row(Action::Unload, "Unload", {}, 0, kNone),
    Row(Action::UnlockScreen, "UnlockScreen", {}, 0, SetOf(ItemType::Application)),
    Row(Action::SetInputRegister, "SetInputRegister", {Integer}, 1, SetOf(ItemType::Scene)),
    Row(Action::SetCellPosition, "SetCellPosition", {Integer, Integer, Integer}, 3,
        SetOf(ItemType::ListGroup)),
    Row(Action::GetBitmapDecodeOffset, "GetBitmapDecodeOffset", {Reference, Reference}, 2,
        SetOf(ItemType::Bitmap)),
    Row(Action::SetBitmapDecodeOffset, "SetBitmapDecodeOffset", {Integer, Integer}, 2,
        SetOf(ItemType::Bitmap)),
    Row(Action::SetBackgroundColour, "SetBackgroundColour", {Colour}, 1, kTexts),
    Row(Action::SetTextColour, "SetTextColour", {Colour}, 1, kTexts),
    Row(Action::SetFontAttributes, "SetFontAttributes", {Octets}, 1, kTexts),
    Row(Action::SetVideoDecodeOffset, "SetVideoDecodeOffset", {Integer, Integer}, 2,
        SetOf(ItemType::Video)),
    Row(Action::GetVideoDecodeOffset, "GetVideoDecodeOffset", {Reference, Reference}, 2,
        SetOf(ItemType::Video)),
};

constexpr bool IsInNumericOrder() {
  for (std::size_t i = 0; i < kActions.size(); ++i) {
    if (static_cast<std::size_t>(kActions[i].action) != i + 1) return false;
  }
  return true;
}
static_assert(IsInNumericOrder());

}  // namespace action_rows

// The row of an action number, or null for 0 and numbers above 119.
[[nodiscard]] constexpr const ActionRow* FindAction(std::uint8_t number) {
  return number >= 1 && number <= kActionCount ? &action_rows::kActions[number - 1U] : nullptr;
}

// The row of an action name such as "SetData", ignoring case, or null. Finds only the 110 actions
// that content can hold.
[[nodiscard]] constexpr const ActionRow* FindActionByName(const char* name) {
  for (std::uint8_t number = 1; number <= kDecodedActionCount; ++number) {
    if (IsSameWord(FindAction(number)->name, name)) return FindAction(number);
  }
  return nullptr;
}

}  // namespace korvel
