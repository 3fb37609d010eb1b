// The attributes of a class as the textual notation shows them: what BER holds in a structure
// without a keyword of its own (an application's default attributes, a link's condition) stands
// beside the other attributes there.
#pragma once

#include <type_traits>

#include "objects/class_tables.h"

namespace korvel {

template <class Field>
concept HasAttributes = requires {
  Description<Field>::attributes;
};

// Calls visit(keyword, field, form) for every attribute of the record, parents first.
template <class Leaf, class Record, class Visit>
void ForEachWrittenAttribute(Record& record, Visit&& visit) {
  ForEachAttribute<Leaf>([&](const auto& attribute) {
    auto& field = record.*attribute.field;
    using Field = std::remove_cvref_t<decltype(field)>;
    if constexpr (HasAttributes<Field>) {
      ForEachWrittenAttribute<Field>(field, visit);
    } else if constexpr (std::is_same_v<Field, LinkCondition>) {
      ForEachElement<Field>(
          [&](const auto& element) { visit(element.keyword, field.*element.field, element.form); });
    } else {
      visit(attribute.keyword, field, attribute.form);
    }
  });
}

}  // namespace korvel
