// The names of the values of actions, for messages.
#pragma once

#include <cstddef>
#include <span>

namespace mheg {

// The values of the action after its target, as in its row. Empty if it has none.
[[nodiscard]] std::span<const char* const> ParameterNames(const char* action);

}  // namespace mheg
