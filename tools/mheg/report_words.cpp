// Names classes and events as the notation does, and keys as scripts do.
#include "mheg/report_words.h"

#include "mheg/key_names.h"
#include "objects/class_tables.h"

namespace mheg {

std::string ClassName(korvel::ItemType type) {
  if (type == korvel::ItemType::Application) return "Application";
  if (type == korvel::ItemType::Scene) return "Scene";
  std::string name = "object";
  korvel::VisitIngredientClass(
      type, [&]<class Record>() { name = korvel::Description<Record>::heading.keyword + 1; });
  return name;
}

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
