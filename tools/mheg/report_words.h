// The words for classes, keys and events in reports, and lists of words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "objects/vocabulary.h"

namespace mheg {

// The class's keyword without its colon: "IntegerVar"; "object" for None.
[[nodiscard]] std::string ClassName(korvel::ItemType type);

// "Red"; "key 55" for a number without a key.
[[nodiscard]] std::string KeyName(std::int32_t key);

// "TestEvent", or the number of an unknown type.
[[nodiscard]] std::string EventName(korvel::EventType type);

// The words with a separator between them; `lastSeparator`, if given, is used before the last word.
template <class Words>
[[nodiscard]] std::string Joined(const Words& words, std::string_view separator,
                                 std::string_view lastSeparator = {}) {
  std::string joined;
  std::size_t left = words.size();
  for (const auto& word : words) {
    joined += word;
    --left;
    if (left > 0) joined += left == 1 && !lastSeparator.empty() ? lastSeparator : separator;
  }
  return joined;
}

}  // namespace mheg
