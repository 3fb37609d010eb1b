// The rare outside events that are neither keys nor timers.
#pragma once

#include <cstdint>

#include "objects/status.h"
#include "objects/vocabulary.h"

namespace korvel {

// Runs every active link of the input table that waits for this source number, type and value,
// without a limit on their number.
Status RaiseOutsideInput(std::int32_t sourceNumber, EventType type, std::int32_t value);

}  // namespace korvel
