// The flat row of an action's values, cut into the places of its syntax. Writing an action in
// either form and evaluating its parameters are walks over these places.
#pragma once

#include <algorithm>
#include <cstddef>

#include "objects/action_table.h"
#include "objects/values.h"

namespace korvel {

// Some values of a row, taken one after the other. Borrowed from the action.
class ActionValues {
 public:
  explicit ActionValues(const List<GenericValue>& values)
      : next_(values.begin()), left_(values.Size()) {}

  [[nodiscard]] std::size_t Left() const { return left_; }
  [[nodiscard]] bool IsEmpty() const { return left_ == 0; }
  // The next value, of which there must be one.
  [[nodiscard]] const GenericValue& Next() const { return *next_; }
  const GenericValue& Take() {
    const GenericValue& value = *next_;
    ++next_;
    --left_;
    return value;
  }
  // Takes the values of the next place of the syntax. A row may end anywhere; the places after its
  // end are empty.
  [[nodiscard]] ActionValues TakePlace(Parameter place) {
    ActionValues taken = *this;
    taken.left_ = std::min(left_, CountAt(place));
    for (std::size_t i = 0; i < taken.left_; ++i) static_cast<void>(Take());
    return taken;
  }

 private:
  // How many values a place has if the row does not end before.
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
  // The octet string after the references is a file name: the last value, direct or in a variable.
  // Without one, all values are references.
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
