// The numbers that content uses, with their names: classes and sets of classes, event types, keys,
// and the enumerations of attributes with the words of the textual notation. Content may hold any
// number in an enumeration: a number without a name is decoded, encoded and compared too.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace korvel {

// ---- Classes ----

// The number that names an object's class everywhere in the engine; in the display stack it is
// called an entry's kind.
enum class ItemType : std::uint32_t {
  None = 0,  // no object: the result of a lookup that finds nothing
  Application = 1,
  Scene = 2,
  Link = 3,
  ResidentProgram = 4,
  BooleanVariable = 5,
  IntegerVariable = 6,
  OctetStringVariable = 7,
  ObjectRefVariable = 8,
  ContentRefVariable = 9,
  TokenGroup = 10,
  ListGroup = 11,
  Bitmap = 12,
  Rectangle = 13,
  DynamicLineArt = 14,
  Text = 15,
  Stream = 16,
  Audio = 17,
  Video = 18,
  Slider = 19,
  EntryField = 20,
  HyperText = 21,
  PushButton = 23,
  LineArt = 24,
  RTGraphics = 25,
  HotSpot = 26,
  SwitchButton = 27,
  Palette = 28,
  RemoteProgram = 29,
  InterchangedProgram = 30,
  Font = 31,
  CursorShape = 32,
};

// A set of classes, one bit for each ItemType.
using ClassSet = std::uint64_t;

template <class... Types> constexpr ClassSet SetOf(Types... types) {
  return (ClassSet{0} | ... | (ClassSet{1} << static_cast<unsigned>(types)));
}
constexpr bool Contains(ClassSet set, ItemType type) {
  return ((set >> static_cast<unsigned>(type)) & 1U) != 0;
}

inline constexpr ClassSet kGroups = SetOf(ItemType::Application, ItemType::Scene);
inline constexpr ClassSet kPrograms =
    SetOf(ItemType::ResidentProgram, ItemType::RemoteProgram, ItemType::InterchangedProgram);
inline constexpr ClassSet kVariables =
    SetOf(ItemType::BooleanVariable, ItemType::IntegerVariable, ItemType::OctetStringVariable,
          ItemType::ObjectRefVariable, ItemType::ContentRefVariable);
inline constexpr ClassSet kTokenGroups = SetOf(ItemType::TokenGroup, ItemType::ListGroup);
inline constexpr ClassSet kTexts = SetOf(ItemType::Text, ItemType::EntryField, ItemType::HyperText);
inline constexpr ClassSet kLineArts =
    SetOf(ItemType::Rectangle, ItemType::DynamicLineArt, ItemType::LineArt);
// Buttons are interactibles and visibles too, but no action accepts them.
inline constexpr ClassSet kButtons =
    SetOf(ItemType::HotSpot, ItemType::PushButton, ItemType::SwitchButton);
inline constexpr ClassSet kInteractibles =
    SetOf(ItemType::EntryField, ItemType::HyperText, ItemType::Slider);
inline constexpr ClassSet kVisibles =
    kTexts | kLineArts | SetOf(ItemType::Bitmap, ItemType::Slider, ItemType::Video);

// ---- Enumerations ----

template <class T>
concept IsEnumeration = std::is_enum_v<T> && sizeof(T) == sizeof(std::int32_t);

using Words = std::span<const char* const>;

constexpr char UpperCase(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

// Whether both are the same word, ignoring case.
constexpr bool IsSameWord(const char* one, const char* other) {
  for (; UpperCase(*one) == UpperCase(*other); ++one, ++other) {
    if (*one == 0) return true;
  }
  return false;
}

// The words of an enumeration in the textual notation, beginning with the word for 1. An
// enumeration without words is written as a number.
template <IsEnumeration Enumeration> inline constexpr std::array<const char*, 0> kWords{};

// The word for a value, or null.
template <IsEnumeration Enumeration> constexpr const char* WordOf(Enumeration value) {
  constexpr Words words{kWords<Enumeration>};
  const std::size_t place = static_cast<std::size_t>(static_cast<std::int64_t>(value) - 1);
  return place < words.size() ? words[place] : nullptr;
}

enum class EventType : std::int32_t {
  IsAvailable = 1,
  ContentAvailable,
  IsDeleted,
  IsRunning,
  IsStopped,
  UserInput,
  AnchorFired,
  TimerFired,
  AsynchStopped,
  InteractionCompleted,
  TokenMovedFrom,
  TokenMovedTo,
  StreamEvent,
  StreamPlaying,
  StreamStopped,
  CounterTrigger,
  HighlightOn,
  HighlightOff,
  CursorEnter,
  CursorLeave,
  IsSelected,
  IsDeselected,
  TestEvent,
  FirstItemPresented,
  LastItemPresented,
  HeadItems,
  TailItems,
  ItemSelected,
  ItemDeselected,
  EntryFieldFull,
  EngineEvent = 31,
};
template <>
inline constexpr std::array kWords<EventType> = {"IsAvailable",       "ContentAvailable",
                                                 "IsDeleted",         "IsRunning",
                                                 "IsStopped",         "UserInput",
                                                 "AnchorFired",       "TimerFired",
                                                 "AsynchStopped",     "InteractionCompleted",
                                                 "TokenMovedFrom",    "TokenMovedTo",
                                                 "StreamEvent",       "StreamPlaying",
                                                 "StreamStopped",     "CounterTrigger",
                                                 "HighlightOn",       "HighlightOff",
                                                 "CursorEnter",       "CursorLeave",
                                                 "IsSelected",        "IsDeselected",
                                                 "TestEvent",         "FirstItemPresented",
                                                 "LastItemPresented", "HeadItems",
                                                 "TailItems",         "ItemSelected",
                                                 "ItemDeselected",    "EntryFieldFull",
                                                 "EngineEvent"};

enum class Justification : std::int32_t { Start = 1, End, Centre, Justified };
template <>
inline constexpr std::array kWords<Justification> = {"start", "end", "centre", "justified"};

enum class LineOrientation : std::int32_t { Vertical = 1, Horizontal };
template <> inline constexpr std::array kWords<LineOrientation> = {"vertical", "horizontal"};

enum class StartCorner : std::int32_t { UpperLeft = 1, UpperRight, LowerLeft, LowerRight };
template <>
inline constexpr std::array kWords<StartCorner> = {"upper-left", "upper-right", "lower-left",
                                                   "lower-right"};

enum class InputType : std::int32_t { Alpha = 1, Numeric, Any, Listed };
template <> inline constexpr std::array kWords<InputType> = {"alpha", "numeric", "any", "listed"};

enum class ButtonStyle : std::int32_t { PushButton = 1, RadioButton, CheckBox };
template <>
inline constexpr std::array kWords<ButtonStyle> = {"pushbutton", "radiobutton", "checkbox"};

// The side of the box where a slider's bar begins.
enum class Orientation : std::int32_t { Left = 1, Right, Up, Down };
template <> inline constexpr std::array kWords<Orientation> = {"left", "right", "up", "down"};

enum class SliderStyle : std::int32_t { Normal = 1, Thermometer, Proportional };
template <>
inline constexpr std::array kWords<SliderStyle> = {"normal", "thermometer", "proportional"};

enum class Storage : std::int32_t { Memory = 1, Stream };
template <> inline constexpr std::array kWords<Storage> = {"memory", "stream"};

enum class Termination : std::int32_t { Freeze = 1, Disappear };
template <> inline constexpr std::array kWords<Termination> = {"freeze", "disappear"};

enum class LineStyle : std::int32_t { Solid = 1, Dashed, Dotted };

// The comparisons of TestVariable.
enum class Comparison : std::int32_t {
  Equal = 1,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
};

// ---- Keys and engine events ----

// The numbers of UserInput: the keys of a remote control.
namespace keys {
inline constexpr std::int32_t kUp = 1;
inline constexpr std::int32_t kDown = 2;
inline constexpr std::int32_t kLeft = 3;
inline constexpr std::int32_t kRight = 4;
inline constexpr std::int32_t kDigit0 = 5;
inline constexpr std::int32_t kDigit9 = 14;
inline constexpr std::int32_t kSelect = 15;
inline constexpr std::int32_t kCancel = 16;
inline constexpr std::int32_t kInfo = 17;
inline constexpr std::int32_t kRed = 100;
inline constexpr std::int32_t kGreen = 101;
inline constexpr std::int32_t kYellow = 102;
inline constexpr std::int32_t kBlue = 103;
inline constexpr std::int32_t kText = 104;
}  // namespace keys

constexpr bool IsDigitKey(std::int32_t key) { return key >= keys::kDigit0 && key <= keys::kDigit9; }
constexpr bool IsColourKey(std::int32_t key) { return key >= keys::kRed && key <= keys::kBlue; }
// Whether a receiver has a key of that number.
constexpr bool IsKey(std::int32_t number) {
  return (number >= keys::kUp && number <= keys::kInfo) || IsColourKey(number) ||
         number == keys::kText;
}

// Keys of a keyboard with consecutive virtual-key codes and consecutive UserInput numbers. The
// colour keys and the Text key of a remote control are letters.
struct KeyRange {
  std::uint32_t first;
  std::uint32_t last;
  std::int32_t userInput;  // of the first code
};
inline constexpr std::array<KeyRange, 14> kKeyboard = {{
    {13, 13, keys::kSelect},  // Enter
    {27, 27, keys::kCancel},  // Escape
    {37, 37, keys::kLeft},
    {38, 38, keys::kUp},
    {39, 39, keys::kRight},
    {40, 40, keys::kDown},
    {'0', '9', keys::kDigit0},
    {'B', 'B', keys::kBlue},
    {'G', 'G', keys::kGreen},
    {'I', 'I', keys::kInfo},
    {'R', 'R', keys::kRed},
    {'T', 'T', keys::kText},
    {'Y', 'Y', keys::kYellow},
    {96, 105, keys::kDigit0},  // the keypad
}};

inline constexpr std::int32_t kNoUserInput = 0;

// The UserInput number of a virtual-key code, or kNoUserInput for a key that content does not
// receive.
constexpr std::int32_t UserInputKey(std::uint32_t virtualKey) {
  for (const KeyRange& range : kKeyboard) {
    if (virtualKey < range.first || virtualKey > range.last) continue;
    return range.userInput + static_cast<std::int32_t>(virtualKey - range.first);
  }
  return kNoUserInput;
}

// The input event register while no scene runs: only Cancel, the colour keys and Text pass.
inline constexpr std::int32_t kRegisterWithoutScene = 3;

// Whether the input event register blocks the key from the scene. Registers 3 to 5 also block Info
// and every number between or above the keys.
constexpr bool IsKeyBlocked(std::int32_t inputEventRegister, std::int32_t key) {
  const bool isBeyondAll = (key > keys::kCancel && key < keys::kRed) || key > keys::kText;
  switch (inputEventRegister) {
  case 3: return isBeyondAll || (key >= keys::kUp && key <= keys::kSelect);
  case 4: return isBeyondAll;
  case 5: return isBeyondAll || IsDigitKey(key);
  default: return false;
  }
}

// The event data of EngineEvent. For Cancel and the colour keys it is the key number.
namespace engineEvents {
inline constexpr std::int32_t kGroupReferenceError = 2;
inline constexpr std::int32_t kContentReferenceError = 3;
inline constexpr std::int32_t kTextKey = 4;
}  // namespace engineEvents

// Whether the key raises the engine event of its own number.
constexpr bool RaisesOwnEngineEvent(std::int32_t key) {
  return key == keys::kCancel || IsColourKey(key);
}
// Whether the engine raises an engine event of that number.
constexpr bool IsEngineEvent(std::int32_t number) {
  return number == engineEvents::kGroupReferenceError ||
         number == engineEvents::kContentReferenceError || number == engineEvents::kTextKey ||
         RaisesOwnEngineEvent(number);
}

}  // namespace korvel
