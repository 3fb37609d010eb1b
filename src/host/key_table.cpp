// The table of keys. The colour keys and the Text key of a remote control are letters here.
#include "host/key_table.h"

#include <array>

#include "objects/vocabulary.h"

namespace korvel {
namespace {

// Keys with consecutive codes and consecutive UserInput numbers.
struct KeyRange {
  std::uint32_t First;
  std::uint32_t Last;
  std::int32_t UserInput;  // of the first
};

constexpr std::array<KeyRange, 14> kKeys = {{
    {13, 13, keys::kSelect},  // Enter
    {27, 27, keys::kCancel},  // Escape
    {37, 37, keys::kLeft},
    {38, 38, keys::kUp},
    {39, 39, keys::kRight},
    {40, 40, keys::kDown},
    {'0', '9', keys::kDigit0},
    {'B', 'B', keys::kBlue},
    {'G', 'G', keys::kGreen},
    {'I', 'I', keys::kInfo},
    {'R', 'R', keys::kRed},
    {'T', 'T', keys::kText},
    {'Y', 'Y', keys::kYellow},
    {96, 105, keys::kDigit0},  // the keypad
}};

}  // namespace

std::int32_t UserInputKey(std::uint32_t virtualKey) {
  for (const KeyRange& range : kKeys) {
    if (virtualKey < range.First || virtualKey > range.Last) continue;
    return range.UserInput + static_cast<std::int32_t>(virtualKey - range.First);
  }
  return kNoUserInput;
}

}  // namespace korvel
