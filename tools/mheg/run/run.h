// Plays a carousel in the engine core, without a window and on a virtual clock.
#pragma once

#include "mheg/options.h"

namespace mheg {

// Returns the exit status of the tool: 0 if the carousel was played and met every expectation.
[[nodiscard]] int Run(const RunOptions& options);

}  // namespace mheg
