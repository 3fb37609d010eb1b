// Reading action lists: which parameters an action has is the action table's knowledge.
#pragma once

#include "objects/ber/ber_reader.h"
#include "objects/values.h"

namespace korvel::ber {

// Whether the tag is an action's.
[[nodiscard]] bool IsAction(Tag tag);

// Reads the elements of an action list behind those that `actions` already holds. Tags that are no
// action's are skipped. False, with the place recorded, for anything else that is no action and
// when memory is out.
[[nodiscard]] bool DecodeActions(const BerReader& reader, ActionList& actions);

}  // namespace korvel::ber
