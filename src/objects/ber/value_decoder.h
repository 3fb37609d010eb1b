// Reading values and actions: from an element to a field, for every type of field that is one
// value. The content of a context tag, implicit or explicit, is first brought into the form of a
// universal element, so that each type is read in one place only.
#pragma once

#include "objects/ber/ber_reader.h"
#include "objects/values.h"

namespace korvel::ber {

// The kinds of value that a place allows, one bit for each ValueKind.
using KindSet = std::uint32_t;

template <class... Kinds>
constexpr KindSet SetOfKinds(Kinds... kinds) {
  return (KindSet{0} | ... | (KindSet{1} << static_cast<unsigned>(kinds)));
}

// The universal element of a tagged value. A primitive one is the value itself, of the type
// `implied`; a constructed one holds exactly one universal element.
[[nodiscard]] bool Untag(const BerElement& tagged, Tag implied, BerElement& value);
// The same for a reference, whose two forms also show themselves by what the tag holds.
[[nodiscard]] bool UntagReference(const BerElement& tagged, BerElement& value);
// Whether an element is the reference to an object of a named group, and not a SEQUENCE that wraps
// something.
[[nodiscard]] bool IsExternalReference(const BerElement& element);

enum class NumberType { Integer, Enumerated };

// Each reads a universal element. False, with the place recorded, for another type and when memory
// is out.
[[nodiscard]] bool Decode(const BerElement& element, NumberType type, std::int32_t& value);
[[nodiscard]] bool Decode(const BerElement& element, bool& value);
[[nodiscard]] bool Decode(const BerElement& element, OctetString& value);
// An element that is no reference leaves the reference empty; that is no failure.
[[nodiscard]] bool Decode(const BerElement& element, ObjectReference& value);
[[nodiscard]] bool Decode(const BerElement& element, ColourValue& value);
[[nodiscard]] bool Decode(const BerElement& element, FontBody& value);
[[nodiscard]] bool Decode(const BerElement& element, ContentBody& value);

// Reads a generic value of one of these kinds: in itself, under the context tag that announces its
// kind, or, always allowed, as an indirect reference.
[[nodiscard]] bool DecodeGeneric(const BerElement& element, KindSet kinds, GenericValue& value);

// ---- Actions ----

// Whether the tag is an action's.
[[nodiscard]] bool IsAction(Tag tag);

// Reads the elements of an action list and adds them to `actions`. Tags that are no action's are
// skipped. False, with the place recorded, for anything else that is no action and when memory is
// out.
[[nodiscard]] bool DecodeActions(const BerReader& reader, ActionList& actions);

}  // namespace korvel::ber
