// The words for keys and events in reports.
#pragma once

#include <cstdint>
#include <string>

#include "objects/vocabulary.h"

namespace mheg {

// "Red"; "key 55" for a number without a key.
[[nodiscard]] std::string KeyName(std::int32_t key);

// "TestEvent", or the number of an unknown type.
[[nodiscard]] std::string EventName(korvel::EventType type);

}  // namespace mheg
