// Which keys of the keyboard stand for which keys of a receiver's remote control.
#pragma once

#include <cstdint>

namespace korvel {

inline constexpr std::int32_t kNoUserInput = 0;

// The number that a UserInput event carries for a virtual-key code of the platform, or
// kNoUserInput for a key that means nothing to content.
[[nodiscard]] std::int32_t UserInputKey(std::uint32_t virtualKey);

}  // namespace korvel
