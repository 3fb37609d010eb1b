// The timers of groups, as the rest of the engine core sees them: firing, and the end of a group's
// timers.
#pragma once

#include <cstdint>

#include "objects/group.h"
#include "objects/status.h"

namespace korvel {

// Takes the record of a timer that has fired out of the current scene's list and hands out its
// owner. Refused when no scene runs or the scene has no such timer; a timer of the application
// never has.
Status TakeFiredTimer(std::int32_t id, ObjectReference& owner);

// Kills every pending timer of a group that ends.
void CancelAllTimers(Group& group);

}  // namespace korvel
