// The names of keys in scripts, and their virtual keys. Portable.
#pragma once

#include <optional>
#include <string>

namespace player {

// The virtual-key code of a name, in any case: Enter, Escape, Left, Up, Right, Down, 0 to 9, Keypad
// 0 to Keypad 9, the letters B G I R T Y, and Red, Green, Yellow, Blue, Text for the letters that
// replace those keys of a remote control. The words "arrow", "digit" and "letter" are allowed too.
[[nodiscard]] std::optional<unsigned> VirtualKeyOf(std::string name);

}  // namespace player
