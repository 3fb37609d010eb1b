// What the classes keep engine-wide, in one record that an engine start resets. The objects belong
// to running groups: a group that ends takes its own out.
#pragma once

#include <cstddef>

#include "engine/engine.h"

namespace korvel {

struct ClassVariables {
  FoundObject HighlightedObject;  // where the highlight was switched on last
  FoundObject InteractingObject;  // the interaction in progress, one at a time
  std::size_t chosenAnchor = 0;   // the anchor that an interacting hyper text stands at
};

[[nodiscard]] ClassVariables& CurrentClassVariables();

}  // namespace korvel
