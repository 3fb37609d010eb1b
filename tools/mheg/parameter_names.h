// The names of the values of actions, for messages.
#pragma once

#include <cstddef>
#include <span>

namespace mheg {

// The names of the values that follow the target of the action, in order. Empty if it has none.
[[nodiscard]] std::span<const char* const> ParameterNames(const char* action);

}  // namespace mheg
