// The tags of the interchange form: the universal types that values are made of, and the
// context-specific tags inside values. The tags of attributes and classes are in the
// class tables, those of actions follow from the action table.
#pragma once

#include <array>
#include <cstdint>

#include "objects/values.h"

namespace korvel::ber {

enum class TagClass : std::uint8_t { Universal = 0, Application = 1, Context = 2, Private = 3 };

struct Tag {
  TagClass tagClass = TagClass::Universal;
  std::uint32_t number = 0;

  friend constexpr bool operator==(const Tag& one, const Tag& other) = default;
};

constexpr Tag Universal(std::uint32_t number) { return {TagClass::Universal, number}; }
constexpr Tag Context(std::uint32_t number) { return {TagClass::Context, number}; }

inline constexpr Tag kBoolean = Universal(1);
inline constexpr Tag kInteger = Universal(2);
inline constexpr Tag kOctetString = Universal(4);
inline constexpr Tag kNull = Universal(5);
inline constexpr Tag kEnumerated = Universal(10);
inline constexpr Tag kSequence = Universal(16);

// Inside referenced content.
inline constexpr Tag kContentSize = Context(60);
inline constexpr Tag kContentCachePriority = Context(61);
// The path of a content file as a generic value.
inline constexpr Tag kContentReference = Context(69);
// A reference to the variable that holds the value.
inline constexpr Tag kIndirectReference = Context(236);

// The tags that announce the type of a generic value if it would otherwise be ambiguous.
inline constexpr Tag kNewBoolean = Context(225);
inline constexpr Tag kNewInteger = Context(226);
inline constexpr Tag kNewOctetString = Context(227);
inline constexpr Tag kNewObjectReference = Context(228);
inline constexpr Tag kNewContentReference = Context(229);
inline constexpr Tag kNewColourIndex = Context(230);
inline constexpr Tag kNewAbsoluteColour = Context(231);
inline constexpr Tag kNewFontName = Context(232);
inline constexpr Tag kNewFontReference = Context(233);
inline constexpr Tag kNewContentSize = Context(234);
inline constexpr Tag kNewContentCachePriority = Context(235);

// The kind of value that the tags from 225 to 235 announce, in their order.
inline constexpr std::array kAnnouncedKinds = {
    ValueKind::Boolean,         ValueKind::Integer,          ValueKind::OctetString,
    ValueKind::ObjectReference, ValueKind::ContentReference, ValueKind::Integer,
    ValueKind::OctetString,     ValueKind::OctetString,      ValueKind::ObjectReference,
    ValueKind::Integer,         ValueKind::Integer};

// The kind that a tag announces, or None.
constexpr ValueKind AnnouncedKind(Tag tag) {
  const std::uint32_t place = tag.number - kNewBoolean.number;
  const bool announces = tag.tagClass == TagClass::Context && place < kAnnouncedKinds.size();
  return announces ? kAnnouncedKinds[place] : ValueKind::None;
}

// The context tags that a generic value may have.
constexpr bool IsValueTag(Tag tag) {
  return tag == kIndirectReference || tag == kContentReference ||
         AnnouncedKind(tag) != ValueKind::None;
}

}  // namespace korvel::ber
