// Keys have the names that scripts use.
#include "mheg/event_words.h"

namespace mheg {

std::string KeyName(std::int32_t key) {
  namespace keys = korvel::keys;
  if (korvel::IsDigitKey(key)) return std::to_string(key - keys::kDigit0);
  switch (key) {
  case keys::kUp: return "Up";
  case keys::kDown: return "Down";
  case keys::kLeft: return "Left";
  case keys::kRight: return "Right";
  case keys::kSelect: return "OK";
  case keys::kCancel: return "Cancel";
  case keys::kInfo: return "Info";
  case keys::kRed: return "Red";
  case keys::kGreen: return "Green";
  case keys::kYellow: return "Yellow";
  case keys::kBlue: return "Blue";
  case keys::kText: return "Text";
  default: return "key " + std::to_string(key);
  }
}

std::string EventName(korvel::EventType type) {
  const char* word = korvel::WordOf(type);
  return word == nullptr ? "event " + std::to_string(static_cast<std::int32_t>(type)) : word;
}

}  // namespace mheg
