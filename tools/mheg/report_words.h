// The words for classes, keys and events in reports.
#pragma once

#include <cstdint>
#include <string>

#include "objects/vocabulary.h"

namespace mheg {

// The class's keyword without its colon: "IntegerVar"; "object" for None.
[[nodiscard]] std::string ClassName(korvel::ItemType type);

// "Red"; "key 55" for a number without a key.
[[nodiscard]] std::string KeyName(std::int32_t key);

// "TestEvent", or the number of an unknown type.
[[nodiscard]] std::string EventName(korvel::EventType type);

}  // namespace mheg
