// The names under which scripts press keys, and the virtual keys they stand for. Portable.
#pragma once

#include <optional>
#include <string>

namespace player {

// The virtual-key code of a name, whatever its case: Enter, Escape, Left, Up, Right, Down, 0 to 9,
// Keypad 0 to Keypad 9, the letters B G I R T Y, and Red, Green, Yellow, Blue, Text for the
// letters that stand for a remote control's keys. "arrow", "digit" and "letter" may be said too.
[[nodiscard]] std::optional<unsigned> VirtualKeyOf(std::string name);

}  // namespace player
