// What the classes keep engine-wide, in one record that an engine start resets. Objects are kept by
// name and number and looked up at each use, so that an object that has ended is simply not found.
#pragma once

#include <cstddef>

#include "objects/values.h"

namespace korvel {

struct ClassVariables {
  OptionalReference HighlightedObject;  // where the highlight was switched on last
  OptionalReference InteractingObject;  // the interaction in progress, one at a time
  std::size_t chosenAnchor = 0;         // the anchor that an interacting hyper text stands at
  int layoutsInProgress = 0;  // list groups placing their items: redraws wait until all are done
};

[[nodiscard]] ClassVariables& CurrentClassVariables() noexcept;

}  // namespace korvel
