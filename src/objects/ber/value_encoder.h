// Encodes values and actions. A value of one ASN.1 type can be tagged implicitly. A CHOICE must be
// tagged explicitly: the tag encloses the whole element of the chosen type.
#pragma once

#include <concepts>

#include "objects/ber/ber_writer.h"
#include "objects/values.h"

namespace korvel::ber {

// The types that are encoded as a CHOICE.
template <class T>
concept IsChoice = std::same_as<T, ObjectReference> || std::same_as<T, OptionalReference> ||
    std::same_as<T, ColourValue> || std::same_as<T, FontBody> || std::same_as<T, ContentBody> ||
    std::same_as<T, GenericValue>;

// Each writes one element, or nothing for an absent reference, colour or font. Content is present.
void Encode(BerWriter& writer, const ObjectReference& value);
void Encode(BerWriter& writer, const OptionalReference& value);
void Encode(BerWriter& writer, const ColourValue& value);
void Encode(BerWriter& writer, const FontBody& value);
void Encode(BerWriter& writer, const ContentBody& value);
// A value of kind None is written as NULL.
void Encode(BerWriter& writer, const GenericValue& value);

// Whether the value is present, so that there is something to write.
inline bool IsPresent(const OctetString& value) { return value.IsPresent(); }
inline bool IsPresent(const ContentReference& value) { return value.Path.IsPresent(); }
inline bool IsPresent(const OptionalReference& value) { return value.IsPresent; }
inline bool IsPresent(const ColourValue& value) { return value.Kind != ValueKind::None; }
inline bool IsPresent(const FontBody& value) { return value.Kind != ValueKind::None; }
inline bool IsPresent(const ContentBody& value) { return value.Data.IsPresent(); }
inline bool IsPresent(const GenericValue& value) { return value.Kind != ValueKind::None; }
template <class T> bool IsPresent(const T& /*value*/) { return true; }

// Writes the elements of an action list. The caller writes the enclosing SEQUENCE or the
// attribute's tag. The writer fails for an extension action, which has no tag.
void EncodeActions(BerWriter& writer, const ActionList& actions);

}  // namespace korvel::ber
