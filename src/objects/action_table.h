// The one table of elementary actions: number, name, parameters and accepting classes of each.
// Decoding, writing, the textual notation, the dump and the interpreter all read it.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "objects/vocabulary.h"

namespace korvel {

// The actions by number. 1 to 110 are the standard's, in alphabetical order but for Step before
// Stop, and are what the decoders produce (BER tag = number + 114); 111 to 119 are extensions that
// only run.
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

// What stands at one place of an action's syntax. The composite kinds stand for several values,
// which a decoded action holds flattened, one after the other.
enum class Parameter : std::uint8_t {
  Integer,        // GenericInteger
  IntegerOrNull,  // GenericInteger or NULL
  Boolean,        // GenericBoolean
  Octets,         // GenericOctetString
  Reference,      // GenericObjectReference: an object, or the variable that receives an answer
  Typed,          // one value of any type, tagged with its type (Parameter of the standard)
  TypedList,      // any number of Typed
  References,     // a list of Reference
  Points,         // a list of pairs of Integer
  Colour,         // an absolute colour (Octets) or a colour index (Integer)
  FontChoice,     // a Font object (Reference) or a font name (Octets)
  NewContent,     // included content (Octets), or a content reference with IntegerOrNull size and
                  // cache priority
  NewTimer,       // Integer timer value, then optionally Boolean absolute time
  Speed,          // Integer numerator, then optionally Integer denominator
  EventNumber,    // Integer; an event type, written as its word
};

inline constexpr std::size_t kMostParameters = 6;

struct ActionRow {
  Action action;
  const char* name;  // the keyword of the textual notation is ":" and this name
  std::array<Parameter, kMostParameters> parameters;
  std::uint8_t parameterCount;  // places of the syntax
  std::uint8_t requiredCount;   // how many of them must be there for the action to be carried out
  ClassSet accepts;  // classes of target that the action works on; empty: no target is looked up,
                     // or not performed

  [[nodiscard]] constexpr std::span<const Parameter> Syntax() const {
    return {parameters.data(), parameterCount};
  }
};

// The row of an action number, or null for 0 and numbers above 119.
[[nodiscard]] const ActionRow* FindAction(std::uint8_t number);

// The row of an action name such as "SetData", in any case of letters, among the 110 that content
// can hold; or null.
[[nodiscard]] const ActionRow* FindActionByName(const char* name);

}  // namespace korvel
