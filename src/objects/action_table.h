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

using enum Action;
using enum ItemType;
using enum Parameter;

inline constexpr ClassSet kNone = 0;
inline constexpr ClassSet kLinkOrProgram = SetOf(Link, ResidentProgram);
inline constexpr ClassSet kRunnable = kVisibles | kTokenGroups | SetOf(Audio, Stream);

// The classes numbered from `first` to `last`, inclusive.
consteval ClassSet Span(ItemType first, ItemType last) {
  ClassSet set = 0;
  for (auto number = static_cast<unsigned>(first); number <= static_cast<unsigned>(last);
       ++number) {
    set |= ClassSet{1} << number;
  }
  return set;
}

// GetAvailabilityStatus and GetRunningStatus reject an ObjectRefVariable, although it has both.
inline constexpr ClassSet kStatusClasses =
    (Span(Application, HyperText) & ~SetOf(ObjectRefVariable)) |
    SetOf(LineArt, RemoteProgram, InterchangedProgram);
inline constexpr ClassSet kIngredients3To24 = Span(Link, LineArt);

consteval ActionRow Row(Action action, const char* name,
                        std::initializer_list<Parameter> parameters, std::uint8_t requiredCount,
                        ClassSet accepts) {
  ActionRow row{action, name, {}, 0, requiredCount, accepts};
  for (const Parameter parameter : parameters) row.parameters[row.parameterCount++] = parameter;
  return row;
}

inline constexpr std::array<ActionRow, kActionCount> kActions = {
    Row(Activate, "Activate", {}, 0, kLinkOrProgram),
    Row(Add, "Add", {Integer}, 1, SetOf(IntegerVariable)),
    Row(AddItem, "AddItem", {Integer, Reference}, 2, SetOf(ListGroup)),
    Row(Append, "Append", {Octets}, 1, SetOf(OctetStringVariable)),
    Row(BringToFront, "BringToFront", {}, 0, kVisibles),
    Row(Call, "Call", {Reference, TypedList}, 1, SetOf(ResidentProgram)),
    Row(CallActionSlot, "CallActionSlot", {Integer}, 1, kTokenGroups),
    Row(Clear, "Clear", {}, 0, SetOf(DynamicLineArt)),
    Row(Clone, "Clone", {Reference}, 1, kNone),
    Row(CloseConnection, "CloseConnection", {Integer}, 1, kNone),
    Row(Deactivate, "Deactivate", {}, 0, kLinkOrProgram),
    Row(DelItem, "DelItem", {Reference}, 1, SetOf(ListGroup)),
    Row(Deselect, "Deselect", {}, 0, SetOf(ListGroup)),
    Row(DeselectItem, "DeselectItem", {Integer}, 1, SetOf(ListGroup)),
    Row(Divide, "Divide", {Integer}, 1, SetOf(IntegerVariable)),
    Row(DrawArc, "DrawArc", {Integer, Integer, Integer, Integer, Integer, Integer}, 6,
        SetOf(DynamicLineArt)),
    Row(DrawLine, "DrawLine", {Integer, Integer, Integer, Integer}, 4, SetOf(DynamicLineArt)),
    Row(DrawOval, "DrawOval", {Integer, Integer, Integer, Integer}, 4, SetOf(DynamicLineArt)),
    Row(DrawPolygon, "DrawPolygon", {Points}, 1, SetOf(DynamicLineArt)),
    Row(DrawPolyline, "DrawPolyline", {Points}, 1, SetOf(DynamicLineArt)),
    Row(DrawRectangle, "DrawRectangle", {Integer, Integer, Integer, Integer}, 4,
        SetOf(DynamicLineArt)),
    Row(DrawSector, "DrawSector", {Integer, Integer, Integer, Integer, Integer, Integer}, 6,
        SetOf(DynamicLineArt)),
    Row(Fork, "Fork", {Reference, TypedList}, 1, SetOf(ResidentProgram)),
    Row(GetAvailabilityStatus, "GetAvailabilityStatus", {Reference}, 1, kStatusClasses),
    Row(GetBoxSize, "GetBoxSize", {Reference, Reference}, 2, kVisibles),
    Row(GetCellItem, "GetCellItem", {Integer, Reference}, 2, SetOf(ListGroup)),
    Row(GetCursorPosition, "GetCursorPosition", {Reference, Reference}, 2, kNone),
    Row(GetEngineSupport, "GetEngineSupport", {Octets, Reference}, 2, SetOf(Application)),
    Row(GetEntryPoint, "GetEntryPoint", {Reference}, 1, SetOf(EntryField)),
    Row(GetFillColour, "GetFillColour", {Reference}, 1, SetOf(DynamicLineArt)),
    Row(GetFirstItem, "GetFirstItem", {Reference}, 1, SetOf(ListGroup)),
    Row(GetHighlightStatus, "GetHighlightStatus", {Reference}, 1, kInteractibles),
    Row(GetInteractionStatus, "GetInteractionStatus", {Reference}, 1, kInteractibles),
    Row(GetItemStatus, "GetItemStatus", {Integer, Reference}, 2, SetOf(ListGroup)),
    Row(GetLabel, "GetLabel", {Reference}, 1, kNone),
    Row(GetLastAnchorFired, "GetLastAnchorFired", {Reference}, 1, SetOf(HyperText)),
    Row(GetLineColour, "GetLineColour", {Reference}, 1, SetOf(DynamicLineArt)),
    Row(GetLineStyle, "GetLineStyle", {Reference}, 1, SetOf(DynamicLineArt)),
    Row(GetLineWidth, "GetLineWidth", {Reference}, 1, SetOf(DynamicLineArt)),
    Row(GetListItem, "GetListItem", {Integer, Reference}, 2, SetOf(ListGroup)),
    Row(GetListSize, "GetListSize", {Reference}, 1, SetOf(ListGroup)),
    Row(GetOverwriteMode, "GetOverwriteMode", {Reference}, 1, SetOf(EntryField)),
    Row(GetPortion, "GetPortion", {Reference}, 1, SetOf(Slider)),
    Row(GetPosition, "GetPosition", {Reference, Reference}, 2, kVisibles),
    Row(GetRunningStatus, "GetRunningStatus", {Reference}, 1, kStatusClasses),
    Row(GetSelectionStatus, "GetSelectionStatus", {Reference}, 1, kNone),
    Row(GetSliderValue, "GetSliderValue", {Reference}, 1, SetOf(Slider)),
    Row(GetTextContent, "GetTextContent", {Reference}, 1, kTexts),
    Row(GetTextData, "GetTextData", {Reference}, 1, kTexts),
    Row(GetTokenPosition, "GetTokenPosition", {Reference}, 1, kTokenGroups),
    Row(GetVolume, "GetVolume", {Reference}, 1, SetOf(Audio)),
    Row(Launch, "Launch", {}, 0, kNone),
    Row(LockScreen, "LockScreen", {}, 0, SetOf(Application)),
    Row(Modulo, "Modulo", {Integer}, 1, SetOf(IntegerVariable)),
    Row(Move, "Move", {Integer}, 1, kTokenGroups),
    Row(MoveTo, "MoveTo", {Integer}, 1, kTokenGroups),
    Row(Multiply, "Multiply", {Integer}, 1, SetOf(IntegerVariable)),
    Row(OpenConnection, "OpenConnection", {Reference, Octets, Octets, Integer}, 4, kNone),
    Row(Preload, "Preload", {}, 0, SetOf(Bitmap, Text, LineArt)),
    Row(PutBefore, "PutBefore", {Reference}, 1, kVisibles),
    Row(PutBehind, "PutBehind", {Reference}, 1, kVisibles),
    Row(Quit, "Quit", {}, 0, kNone),
    Row(ReadPersistent, "ReadPersistent", {Reference, References, Octets}, 3, SetOf(Application)),
    Row(Run, "Run", {}, 0, kRunnable),
    Row(ScaleBitmap, "ScaleBitmap", {Integer, Integer}, 2, SetOf(Bitmap)),
    Row(ScaleVideo, "ScaleVideo", {Integer, Integer}, 2, SetOf(Video)),
    Row(ScrollItems, "ScrollItems", {Integer}, 1, SetOf(ListGroup)),
    Row(Select, "Select", {}, 0, SetOf(ListGroup)),
    Row(SelectItem, "SelectItem", {Integer}, 1, SetOf(ListGroup)),
    Row(SendEvent, "SendEvent", {Reference, EventNumber, Typed}, 2, SetOf(Scene)),
    Row(SendToBack, "SendToBack", {}, 0, kVisibles),
    Row(SetBoxSize, "SetBoxSize", {Integer, Integer}, 2, kVisibles),
    Row(SetCachePriority, "SetCachePriority", {Integer}, 1, kGroups),
    Row(SetCounterEndPosition, "SetCounterEndPosition", {Integer}, 1, SetOf(Stream)),
    Row(SetCounterPosition, "SetCounterPosition", {Integer}, 1, SetOf(Stream)),
    Row(SetCounterTrigger, "SetCounterTrigger", {Integer, Integer}, 1, SetOf(Stream)),
    Row(SetCursorPosition, "SetCursorPosition", {Integer, Integer}, 2, kNone),
    Row(SetCursorShape, "SetCursorShape", {Reference}, 1, kNone),
    Row(SetData, "SetData", {NewContent}, 1, kIngredients3To24),
    Row(SetEntryPoint, "SetEntryPoint", {Integer}, 1, SetOf(EntryField)),
    Row(SetFillColour, "SetFillColour", {Colour}, 1, kLineArts),
    Row(SetFirstItem, "SetFirstItem", {Integer}, 1, SetOf(ListGroup)),
    Row(SetFontRef, "SetFontRef", {FontChoice}, 1, kTexts),
    Row(SetHighlightStatus, "SetHighlightStatus", {Boolean}, 1, kInteractibles),
    Row(SetInteractionStatus, "SetInteractionStatus", {Boolean}, 1, kInteractibles),
    Row(SetLabel, "SetLabel", {Octets}, 1, kNone),
    Row(SetLineColour, "SetLineColour", {Colour}, 1, kLineArts),
    Row(SetLineStyle, "SetLineStyle", {Integer}, 1, kLineArts),
    Row(SetLineWidth, "SetLineWidth", {Integer}, 1, kLineArts),
    Row(SetOverwriteMode, "SetOverwriteMode", {Boolean}, 1, SetOf(EntryField)),
    Row(SetPaletteRef, "SetPaletteRef", {Reference}, 1, kVisibles & ~SetOf(Video)),
    Row(SetPortion, "SetPortion", {Integer}, 1, SetOf(Slider)),
    Row(SetPosition, "SetPosition", {Integer, Integer}, 2, kVisibles),
    Row(SetSliderValue, "SetSliderValue", {Integer}, 1, SetOf(Slider)),
    Row(SetSpeed, "SetSpeed", {Speed}, 1, SetOf(Stream)),
    Row(SetTimer, "SetTimer", {Integer, NewTimer}, 1, kGroups),
    Row(SetTransparency, "SetTransparency", {Integer}, 1, SetOf(Bitmap)),
    Row(SetVariable, "SetVariable", {Typed}, 1, kVariables),
    Row(SetVolume, "SetVolume", {Integer}, 1, SetOf(Audio)),
    Row(Spawn, "Spawn", {}, 0, kNone),
    Row(Step, "Step", {Integer}, 1, SetOf(Slider)),
    Row(Stop, "Stop", {}, 0, kRunnable),
    Row(StorePersistent, "StorePersistent", {Reference, References, Octets}, 3, SetOf(Application)),
    Row(Subtract, "Subtract", {Integer}, 1, SetOf(IntegerVariable)),
    Row(TestVariable, "TestVariable", {Integer, Typed}, 2, kVariables),
    Row(Toggle, "Toggle", {}, 0, kNone),
    Row(ToggleItem, "ToggleItem", {Integer}, 1, SetOf(ListGroup)),
    Row(TransitionTo, "TransitionTo", {IntegerOrNull, IntegerOrNull}, 0, kNone),
    Row(Unload, "Unload", {}, 0, kNone),
    Row(UnlockScreen, "UnlockScreen", {}, 0, SetOf(Application)),
    Row(SetInputRegister, "SetInputRegister", {Integer}, 1, SetOf(Scene)),
    Row(SetCellPosition, "SetCellPosition", {Integer, Integer, Integer}, 3, SetOf(ListGroup)),
    Row(GetBitmapDecodeOffset, "GetBitmapDecodeOffset", {Reference, Reference}, 2, SetOf(Bitmap)),
    Row(SetBitmapDecodeOffset, "SetBitmapDecodeOffset", {Integer, Integer}, 2, SetOf(Bitmap)),
    Row(SetBackgroundColour, "SetBackgroundColour", {Colour}, 1, kTexts),
    Row(SetTextColour, "SetTextColour", {Colour}, 1, kTexts),
    Row(SetFontAttributes, "SetFontAttributes", {Octets}, 1, kTexts),
    Row(SetVideoDecodeOffset, "SetVideoDecodeOffset", {Integer, Integer}, 2, SetOf(Video)),
    Row(GetVideoDecodeOffset, "GetVideoDecodeOffset", {Reference, Reference}, 2, SetOf(Video)),
};

consteval bool IsInNumericOrder() {
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
