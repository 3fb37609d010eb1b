// Decodes values and actions: one function for every type of field that is a single value. The
// content of a context tag, implicit or explicit, is first converted to a universal element, so
// that each type is decoded in one place only.
#pragma once

#include "objects/ber/ber_reader.h"
#include "objects/values.h"

namespace korvel::ber {

// The kinds of value that a place allows, one bit for each ValueKind.
using KindSet = std::uint32_t;

template <class... Kinds> constexpr KindSet SetOfKinds(Kinds... kinds) {
  return (KindSet{0} | ... | (KindSet{1} << static_cast<unsigned>(kinds)));
}

// Converts a tagged value to a universal element. A primitive element is the value itself, of type
// `implied`; a constructed one must hold exactly one universal element.
[[nodiscard]] bool Untag(const BerElement& tagged, Tag implied, BerElement& value);
// The same for a reference, whose form follows from the content of the tag.
[[nodiscard]] bool UntagReference(const BerElement& tagged, BerElement& value);
// Whether an element is a reference with a group identifier, and not a SEQUENCE that wraps a value.
[[nodiscard]] bool IsExternalReference(const BerElement& element);

enum class NumberType { Integer, Enumerated };

// Each decodes a universal element. False, with the refusal recorded, if it has another type or
// memory runs out.
[[nodiscard]] bool Decode(const BerElement& element, NumberType type, std::int32_t& value);
[[nodiscard]] bool Decode(const BerElement& element, bool& value);
[[nodiscard]] bool Decode(const BerElement& element, OctetString& value);
// Succeeds with an empty reference if the element is not a reference.
[[nodiscard]] bool Decode(const BerElement& element, ObjectReference& value);
[[nodiscard]] bool Decode(const BerElement& element, ColourValue& value);
[[nodiscard]] bool Decode(const BerElement& element, FontBody& value);
[[nodiscard]] bool Decode(const BerElement& element, ContentBody& value);

// Decodes a generic value of one of these kinds: plain, or under the context tag that announces its
// kind. An indirect reference is always allowed.
[[nodiscard]] bool DecodeGeneric(const BerElement& element, KindSet kinds, GenericValue& value);

// ---- Actions ----

// The tags of the 110 actions that content can hold.
[[nodiscard]] bool IsAction(Tag tag);

// Decodes the elements of an action list and appends them to `actions`. Skips other context tags.
// False, with the refusal recorded, if any other element is not an action or memory runs out.
[[nodiscard]] bool DecodeActions(const BerReader& reader, ActionList& actions);

}  // namespace korvel::ber
