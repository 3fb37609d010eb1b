// Compares values, records and groups. Writers use this to omit attributes at their construction
// values. Only fields in the class tables are compared, not run-time values.
#pragma once

#include <cstdint>
#include <type_traits>

#include "objects/class_tables.h"
#include "objects/values.h"

namespace korvel {

inline bool IsSame(bool one, bool other) { return one == other; }
inline bool IsSame(std::int32_t one, std::int32_t other) { return one == other; }
template <IsEnumeration Enumeration> bool IsSame(Enumeration one, Enumeration other) {
  return one == other;
}
// An absent string differs from an empty one.
[[nodiscard]] bool IsSame(const OctetString& one, const OctetString& other);
[[nodiscard]] bool IsSame(const ObjectReference& one, const ObjectReference& other);
[[nodiscard]] bool IsSame(const OptionalReference& one, const OptionalReference& other);
// For values with a kind, only the field of that kind is compared.
[[nodiscard]] bool IsSame(const GenericValue& one, const GenericValue& other);
[[nodiscard]] bool IsSame(const ColourValue& one, const ColourValue& other);
[[nodiscard]] bool IsSame(const FontBody& one, const FontBody& other);
[[nodiscard]] bool IsSame(const ContentReference& one, const ContentReference& other);
[[nodiscard]] bool IsSame(const ContentBody& one, const ContentBody& other);
[[nodiscard]] bool IsSame(const ElementaryAction& one, const ElementaryAction& other);
[[nodiscard]] bool IsSame(const ActionSlot& one, const ActionSlot& other);
[[nodiscard]] bool IsSame(const Movement& one, const Movement& other);
// The same class, and the same own reference and attributes.
[[nodiscard]] bool IsSame(const Item& one, const Item& other);
// The same kind of group, and the same own reference and attributes, items included.
[[nodiscard]] bool IsSame(const Group& one, const Group& other);

template <class T> [[nodiscard]] bool IsSame(const List<T>& one, const List<T>& other);
template <IsSequence Record> [[nodiscard]] bool IsSame(const Record& one, const Record& other);

// Whether all attributes of the class are equal.
template <IsDescribed Record>
[[nodiscard]] bool HasSameAttributes(const Record& one, const Record& other);

template <class T> bool IsSame(const List<T>& one, const List<T>& other) {
  auto place = one.begin();
  auto otherPlace = other.begin();
  for (; place != one.end() && otherPlace != other.end(); ++place, ++otherPlace) {
    if (!IsSame(*place, *otherPlace)) return false;
  }
  return !(place != one.end()) && !(otherPlace != other.end());
}

template <IsSequence Record> bool IsSame(const Record& one, const Record& other) {
  bool isSame = true;
  ForEachElement<Record>([&](const auto& element) {
    isSame = isSame && IsSame(one.*element.field, other.*element.field);
  });
  return isSame;
}

template <IsDescribed Record> bool HasSameAttributes(const Record& one, const Record& other) {
  bool isSame = true;
  ForEachAttribute<Record>([&](const auto& attribute) {
    const auto& value = one.*attribute.field;
    const auto& otherValue = other.*attribute.field;
    if constexpr (IsDescribed<std::remove_cvref_t<decltype(value)>>) {
      isSame = isSame && HasSameAttributes(value, otherValue);
    } else {
      isSame = isSame && IsSame(value, otherValue);
    }
  });
  return isSame;
}

}  // namespace korvel
