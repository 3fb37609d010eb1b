// Converts a name to lower case and removes blanks and the words for the kind of key. Looks up the
// rest, or takes a single character as its own virtual key.
#include "mheg/key_names.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace mheg {
namespace {

struct NamedKey {
  std::string_view name;
  unsigned virtualKey;
};

// For each key, the name that a remote control has for it comes first.
constexpr NamedKey kNames[] = {
    {"ok", 13},    {"cancel", 27}, {"left", 37},   {"up", 38},      {"right", 39},
    {"down", 40},  {"red", 'R'},   {"green", 'G'}, {"yellow", 'Y'}, {"blue", 'B'},
    {"text", 'T'}, {"info", 'I'},  {"enter", 13},  {"escape", 27},
};

constexpr std::string_view kCharacters = "0123456789bgirty";
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
    if (key.name == name) return key.virtualKey;
  }
  const bool isOnKeypad = name.starts_with("keypad");
  if (isOnKeypad) RemoveWord("keypad", name);
  if (name.size() != 1 || kCharacters.find(name[0]) == std::string_view::npos) return std::nullopt;
  const auto character = static_cast<unsigned char>(name[0]);
  if (!isOnKeypad) return static_cast<unsigned>(std::toupper(character));
  if (std::isdigit(character) == 0) return std::nullopt;
  return kKeypadZero + character - '0';
}

std::string NameOfKey(unsigned virtualKey) {
  for (const NamedKey& key : kNames) {
    if (key.virtualKey == virtualKey) return std::string(key.name);
  }
  if (virtualKey >= '0' && virtualKey <= '9') return {static_cast<char>(virtualKey)};
  if (virtualKey < kKeypadZero || virtualKey > kKeypadZero + 9) return {};
  return "keypad " + std::to_string(virtualKey - kKeypadZero);
}

}  // namespace mheg
