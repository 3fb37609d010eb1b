// Groups made up at random, for tests that want any group rather than a certain one: every class,
// every attribute set or left alone, every action with direct and indirect values and with values
// left out at the end.
#pragma once

#include <cstdint>

#include "objects/decoded_group.h"

namespace korvel {

// The same number gives the same group.
[[nodiscard]] OwnedGroup RandomGroup(std::uint32_t seed);

}  // namespace korvel
