// Keys have the names that scripts use for them.
#include "mheg/event_words.h"

#include "mheg/key_names.h"

namespace mheg {

std::string KeyName(std::int32_t key) {
  for (const korvel::KeyRange& range : korvel::kKeyboard) {
    const std::uint32_t virtualKey = range.first + (static_cast<std::uint32_t>(key) -
                                                    static_cast<std::uint32_t>(range.userInput));
    if (virtualKey >= range.first && virtualKey <= range.last) return NameOfKey(virtualKey);
  }
  return "key " + std::to_string(key);
}

std::string EventName(korvel::EventType type) {
  const char* word = korvel::WordOf(type);
  return word == nullptr ? "event " + std::to_string(static_cast<std::int32_t>(type)) : word;
}

}  // namespace mheg
