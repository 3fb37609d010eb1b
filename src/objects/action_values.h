// Divides an action's flat list of values among the places (parameter positions) of its syntax, to
// encode the action, write it as text and evaluate its parameters.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "objects/action_table.h"
#include "objects/values.h"

namespace korvel {

// A range of an action's values, read in order. Borrowed from the action.
class ActionValues {
 public:
  explicit ActionValues(std::span<const GenericValue> values) : left_(values) {}

  [[nodiscard]] std::size_t Left() const { return left_.size(); }
  [[nodiscard]] bool IsEmpty() const { return left_.empty(); }
  // The next value. The range must not be empty.
  [[nodiscard]] const GenericValue& Next() const { return left_.front(); }
  const GenericValue& Take() { return TakeFirst(1).front(); }
  // Removes and returns the values of the next place. If the list ends early, the rest of that
  // place and all later places are empty.
  [[nodiscard]] ActionValues TakePlace(Parameter place) {
    return ActionValues(TakeFirst(std::min(left_.size(), CountAt(place))));
  }

 private:
  std::span<const GenericValue> TakeFirst(std::size_t count) {
    const std::span<const GenericValue> taken = left_.first(count);
    left_ = left_.subspan(count);
    return taken;
  }
  // The number of values that a place takes if enough are left.
  [[nodiscard]] std::size_t CountAt(Parameter place) const {
    switch (place) {
    case Parameter::Integer:
    case Parameter::IntegerOrNull:
    case Parameter::Boolean:
    case Parameter::Octets:
    case Parameter::Reference:
    case Parameter::Typed:
    case Parameter::Colour:
    case Parameter::FontChoice:
    case Parameter::EventNumber: return 1;
    case Parameter::NewTimer:
    case Parameter::Speed: return 2;
    case Parameter::NewContent: return 3;
    case Parameter::TypedList:
    case Parameter::Points: return left_.size();
    case Parameter::References: return CountReferences();
    }
    return 0;
  }
  // The remaining values are references, except the last one if it is a file name: an octet string
  // or an indirect reference.
  [[nodiscard]] std::size_t CountReferences() const {
    if (left_.empty()) return 0;
    const ValueKind last = left_.back().Kind;
    const bool isName = last == ValueKind::OctetString || last == ValueKind::IndirectReference;
    return left_.size() - (isName ? 1 : 0);
  }

  std::span<const GenericValue> left_;
};

}  // namespace korvel
