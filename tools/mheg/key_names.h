// The names of keys in scripts, and their virtual keys. Portable.
#pragma once

#include <optional>
#include <string>

namespace mheg {

// The names to list in a message about an unknown name.
inline constexpr const char* kKeyList =
    "Up, Down, Left, Right, OK, Cancel, Info, 0 to 9, Red, Green, Yellow, Blue, Text";

// The virtual-key code for a name; nothing if the name is unknown. Case does not matter. Names are
// Enter, Escape, Left, Up, Right, Down, 0 to 9, Keypad 0 to Keypad 9, the letters B G I R T Y, and
// those of a remote control: OK (Enter), Cancel (Escape), and Red, Green, Yellow, Blue, Text and
// Info (the letters with which they begin). The words "arrow", "digit" and "letter" are ignored.
[[nodiscard]] std::optional<unsigned> VirtualKeyOf(std::string name);

// A name for a virtual-key code; empty if no name has this code.
[[nodiscard]] std::string NameOfKey(unsigned virtualKey);

}  // namespace mheg
