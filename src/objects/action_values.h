// Splits an action's flat list of values by the places of its syntax, for encoding an action,
// writing it as text and evaluating its parameters.
#pragma once

#include <algorithm>
#include <cstddef>

#include "objects/action_table.h"
#include "objects/values.h"

namespace korvel {

// A range of an action's values, read in order. Borrowed from the action.
class ActionValues {
 public:
  explicit ActionValues(const List<GenericValue>& values)
      : next_(values.begin()), left_(values.Size()) {}

  [[nodiscard]] std::size_t Left() const { return left_; }
  [[nodiscard]] bool IsEmpty() const { return left_ == 0; }
  // The next value. The range must not be empty.
  [[nodiscard]] const GenericValue& Next() const { return *next_; }
  const GenericValue& Take() {
    const GenericValue& value = *next_;
    ++next_;
    --left_;
    return value;
  }
  // Removes and returns the values of the next place. The values may end anywhere; the places after
  // that are empty.
  [[nodiscard]] ActionValues TakePlace(Parameter place) {
    ActionValues taken = *this;
    taken.left_ = std::min(left_, CountAt(place));
    for (std::size_t i = 0; i < taken.left_; ++i) static_cast<void>(Take());
    return taken;
  }

 private:
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
    case Parameter::Points: return left_;
    case Parameter::References: return CountReferences();
    }
    return 0;
  }
  // All values are references, except the last one if it is a file name: an octet string, direct or
  // in a variable.
  [[nodiscard]] std::size_t CountReferences() const {
    if (left_ == 0) return 0;
    auto last = next_;
    for (std::size_t i = 1; i < left_; ++i) ++last;
    const bool isName =
        last->Kind == ValueKind::OctetString || last->Kind == ValueKind::IndirectReference;
    return isName ? left_ - 1 : left_;
  }

  decltype(std::declval<const List<GenericValue>&>().begin()) next_;
  std::size_t left_;
};

}  // namespace korvel
