// The table of keys. The colour keys and the Text key of a remote control are letters here.
#include "host/key_table.h"

#include <array>

namespace korvel {
namespace {

// Keys with consecutive codes and consecutive UserInput numbers.
struct KeyRange {
  std::uint32_t First;
  std::uint32_t Last;
  std::int32_t UserInput;  // of the first
};

constexpr std::array<KeyRange, 14> kKeys = {{
    {13, 13, 15},     // Enter: Select
    {27, 27, 16},     // Escape: Cancel
    {37, 37, 3},      // Left
    {38, 38, 1},      // Up
    {39, 39, 4},      // Right
    {40, 40, 2},      // Down
    {'0', '9', 5},    // digits
    {'B', 'B', 103},  // Blue
    {'G', 'G', 101},  // Green
    {'I', 'I', 17},
    {'R', 'R', 100},  // Red
    {'T', 'T', 104},  // Text
    {'Y', 'Y', 102},  // Yellow
    {96, 105, 5},     // digits of the keypad
}};

}  // namespace

std::int32_t UserInputKey(std::uint32_t virtualKey) {
  for (const KeyRange& keys : kKeys) {
    if (virtualKey < keys.First || virtualKey > keys.Last) continue;
    return keys.UserInput + static_cast<std::int32_t>(virtualKey - keys.First);
  }
  return kNoUserInput;
}

}  // namespace korvel
