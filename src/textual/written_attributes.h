// The attributes of a class as the textual notation shows them: what BER holds in a structure
// without a keyword of its own (an application's default attributes, a link's condition) stands
// beside the other attributes there.
#pragma once

#include <type_traits>

#include "objects/class_tables.h"
#include "objects/equality.h"

namespace korvel {

// Calls visit(keyword, form, fields...) for every attribute of the class, parents first; the fields
// are those of the records, in their order.
template <class Record, class Visit, class... Records>
void ForEachWrittenAttribute(Visit&& visit, Records&... records) {
  ForEachAttribute<Record>([&](const auto& attribute) {
    using Field = std::remove_cvref_t<decltype(std::declval<Record&>().*attribute.field)>;
    if constexpr (IsDescribed<Field>) {
      ForEachWrittenAttribute<Field>(visit, records.*attribute.field...);
    } else if constexpr (std::is_same_v<Field, LinkCondition>) {
      ForEachElement<Field>([&](const auto& element) {
        visit(element.keyword, element.form, (records.*attribute.field).*element.field...);
      });
    } else {
      visit(attribute.keyword, attribute.form, records.*attribute.field...);
    }
  });
}

}  // namespace korvel
