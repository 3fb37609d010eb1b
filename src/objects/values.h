// The values that objects and actions hold: references, generic values, colours, fonts, contents,
// sizes and positions. They own their contents. Copying is an explicit call because it can fail.
// Two values with a kind are equal if their kinds are and the field of that kind is. A scene holds
// thousands of values: members without an address of their own let the members after them use
// their padding.
#pragma once

#include <cstdint>
#include <type_traits>

#include "objects/list.h"
#include "objects/octet_string.h"

namespace korvel {

// Names an object: the group that holds it and its number there. An absent group identifier means
// the group that contains the reference; number 0 means the group itself. A leading "~" of a group
// identifier means the current directory.
struct ObjectReference {
  OctetString GroupIdentifier;
  std::int32_t Number = 0;
  bool operator==(const ObjectReference&) const = default;
};

// The dump prints these numbers, so they are fixed.
enum class ValueKind : std::uint8_t {
  None = 0,
  Boolean = 1,
  Integer = 2,
  OctetString = 3,
  ObjectReference = 4,
  IndirectReference = 5,  // read the value from the variable that the reference names
  ContentReference = 6,
};

// An action's target or parameter, or a link's event data: one value of the kind `Kind`. Only the
// field of that kind is meaningful.
struct GenericValue {
  OctetString Octets;                               // OctetString, ContentReference
  [[no_unique_address]] ObjectReference Reference;  // ObjectReference, IndirectReference
  std::int32_t Integer = 0;
  ValueKind Kind = ValueKind::None;
  bool Boolean = false;

  bool operator==(const GenericValue& other) const;
};

// The data of an event. Links compare booleans and integers; a link waiting for another kind never
// fires.
struct EventData {
  ValueKind kind = ValueKind::None;
  std::int32_t value = 0;

  [[nodiscard]] static EventData Boolean(bool value) { return {ValueKind::Boolean, value ? 1 : 0}; }
  [[nodiscard]] static EventData Integer(std::int32_t value) { return {ValueKind::Integer, value}; }
  bool operator==(const EventData&) const = default;
};

// A colour attribute: absent (None), an index into a palette (Integer; -1 is "not set"), or an
// absolute colour (OctetString) of three bytes red, green, blue and an optional fourth, the
// transparency.
struct ColourValue {
  ValueKind Kind = ValueKind::None;
  std::int32_t Index = 0;
  OctetString Absolute;

  [[nodiscard]] static ColourValue NotSet() {
    ColourValue colour;
    colour.Kind = ValueKind::Integer;
    colour.Index = -1;
    return colour;
  }
  bool operator==(const ColourValue& other) const;
};

// A font attribute: absent (None), a font name (OctetString), or a Font object (ObjectReference).
struct FontBody {
  OctetString Name;
  [[no_unique_address]] ObjectReference Reference;
  ValueKind Kind = ValueKind::None;

  bool operator==(const FontBody& other) const;
};

// The path of a content file in the broadcast file system.
struct ContentReference {
  OctetString Path;
  bool operator==(const ContentReference&) const = default;
};

// An ingredient's content: the data itself, or the path of the file that holds it. Absent if `Data`
// is.
struct ContentBody {
  OctetString Data;
  bool IsReferenced = false;
  std::int32_t Size = 0;
  std::int32_t CachePriority = 127;

  // The run-time content of an object that was never prepared. Its cache priority is 0; 127 is the
  // default of decoded content only.
  [[nodiscard]] static ContentBody NotPrepared() {
    ContentBody content;
    content.CachePriority = 0;
    return content;
  }
  bool operator==(const ContentBody&) const = default;
};

// An optional reference. CompleteReferences skips it while it is absent.
struct OptionalReference {
  [[no_unique_address]] ObjectReference Reference;
  bool IsPresent = false;
  bool operator==(const OptionalReference& other) const {
    return IsPresent == other.IsPresent && (!IsPresent || Reference == other.Reference);
  }
};

struct BoxSize {
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  bool operator==(const BoxSize&) const = default;
};

struct Position {
  std::int32_t X = 0;
  std::int32_t Y = 0;
  bool operator==(const Position&) const = default;
};

// One step of an action list. `ActionType` is its number in the action table. The parameters are in
// the order of the standard's syntax; nested groups of parameters are flattened.
struct ElementaryAction {
  [[no_unique_address]] GenericValue Target;
  std::uint8_t ActionType = 0;
  List<GenericValue> Parameters;
  bool operator==(const ElementaryAction&) const = default;
};

using ActionList = List<ElementaryAction>;

// Deep copies. False if memory runs out; `to` is then unchanged.
template <class Number>
requires std::is_arithmetic_v<Number>
[[nodiscard]] bool Copy(const Number& from, Number& to) {
  to = from;
  return true;
}
[[nodiscard]] inline bool Copy(const OctetString& from, OctetString& to) {
  return to.CopyFrom(from);
}
[[nodiscard]] bool Copy(const ObjectReference& from, ObjectReference& to);
[[nodiscard]] bool Copy(const OptionalReference& from, OptionalReference& to);
[[nodiscard]] bool Copy(const ColourValue& from, ColourValue& to);
[[nodiscard]] bool Copy(const FontBody& from, FontBody& to);
[[nodiscard]] bool Copy(const ContentReference& from, ContentReference& to);
[[nodiscard]] bool Copy(const ContentBody& from, ContentBody& to);
[[nodiscard]] bool Copy(const GenericValue& from, GenericValue& to);

// The name without its leading "~", which comparisons of names ignore.
[[nodiscard]] constexpr std::string_view WithoutTilde(std::string_view name) {
  return name.substr(name.starts_with('~') ? 1 : 0);
}
// Whether both names mean the same group.
[[nodiscard]] constexpr bool IsSameGroup(std::string_view one, std::string_view other) {
  return WithoutTilde(one) == WithoutTilde(other);
}

}  // namespace korvel
