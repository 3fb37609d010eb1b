// Converts a name to lower case and removes blanks and the words for the kind of key. Looks up the
// rest, or takes a single character as its own virtual key.
#include "mheg/key_names.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "objects/vocabulary.h"

namespace mheg {
namespace {

struct NamedKey {
  const char* name;
  unsigned virtualKey;
};

// For each key, the name that it has on a remote control comes first.
constexpr NamedKey kNames[] = {
    {"OK", 13},    {"Cancel", 27}, {"Left", 37},   {"Up", 38},      {"Right", 39},
    {"Down", 40},  {"Red", 'R'},   {"Green", 'G'}, {"Yellow", 'Y'}, {"Blue", 'B'},
    {"Text", 'T'}, {"Info", 'I'},  {"Enter", 13},  {"Escape", 27},
};

constexpr unsigned kKeypadZero = 96;

void RemoveWord(std::string_view word, std::string& name) {
  if (const std::size_t at = name.find(word); at != std::string::npos) name.erase(at, word.size());
}

}  // namespace

std::optional<unsigned> VirtualKeyOf(std::string name) {
  std::erase(name, ' ');
  std::ranges::transform(name, name.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  for (std::string_view word : {"arrow", "digit", "letter"}) RemoveWord(word, name);
  for (const NamedKey& key : kNames) {
    if (korvel::IsSameWord(key.name, name.c_str())) return key.virtualKey;
  }
  const bool isOnKeypad = name.starts_with("keypad");
  if (isOnKeypad) RemoveWord("keypad", name);
  const int character = name.size() == 1 ? std::toupper(static_cast<unsigned char>(name[0])) : 0;
  const bool isNamed = isOnKeypad ? std::isdigit(character) != 0 : std::isalnum(character) != 0;
  const unsigned virtualKey =
      static_cast<unsigned>(character) + (isOnKeypad ? kKeypadZero - '0' : 0);
  if (!isNamed || korvel::UserInputKey(virtualKey) == korvel::kNoUserInput) return std::nullopt;
  return virtualKey;
}

std::string NameOfKey(unsigned virtualKey) {
  for (const NamedKey& key : kNames) {
    if (key.virtualKey == virtualKey) return key.name;
  }
  if (virtualKey >= '0' && virtualKey <= '9') return {static_cast<char>(virtualKey)};
  if (virtualKey < kKeypadZero || virtualKey > kKeypadZero + 9) return {};
  return "Keypad " + std::to_string(virtualKey - kKeypadZero);
}

}  // namespace mheg
