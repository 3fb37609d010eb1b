// Writing values in the standard's form. A type that is one universal type can take an implicit
// tag; one that is a choice of several shows which by standing in itself inside an explicit tag.
#pragma once

#include <concepts>

#include "objects/ber/ber_writer.h"
#include "objects/values.h"

namespace korvel::ber {

// The types that are a choice of several universal ones.
template <class T>
concept IsChoice = std::same_as<T, ObjectReference> || std::same_as<T, OptionalReference> ||
    std::same_as<T, ColourValue> || std::same_as<T, FontBody> || std::same_as<T, ContentBody> ||
    std::same_as<T, GenericValue>;

// Each writes one element, or nothing for a value that is absent.
void Encode(BerWriter& writer, const ObjectReference& value) noexcept;
void Encode(BerWriter& writer, const OptionalReference& value) noexcept;
void Encode(BerWriter& writer, const ColourValue& value) noexcept;
void Encode(BerWriter& writer, const FontBody& value) noexcept;
void Encode(BerWriter& writer, const ContentBody& value) noexcept;
// A value of kind None is written as NULL.
void Encode(BerWriter& writer, const GenericValue& value) noexcept;

// Whether there is a value to write at all.
inline bool IsPresent(const OctetString& value) noexcept { return value.IsPresent(); }
inline bool IsPresent(const ContentReference& value) noexcept { return value.Path.IsPresent(); }
inline bool IsPresent(const OptionalReference& value) noexcept { return value.IsPresent; }
inline bool IsPresent(const ColourValue& value) noexcept { return value.Kind != ValueKind::None; }
inline bool IsPresent(const FontBody& value) noexcept { return value.Kind != ValueKind::None; }
inline bool IsPresent(const ContentBody& value) noexcept { return value.Data.IsPresent(); }
inline bool IsPresent(const GenericValue& value) noexcept { return value.Kind != ValueKind::None; }
template <class T>
bool IsPresent(const T& /*value*/) noexcept {
  return true;
}

}  // namespace korvel::ber
