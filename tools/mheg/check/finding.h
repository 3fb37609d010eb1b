// A fault that a check has found.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "mheg/check/rules.h"
#include "mheg/message.h"

namespace mheg {

struct Finding {
  Rule rule{};
  std::optional<std::int32_t> object;  // absent if the finding is about the whole file
  Message message;                     // CheckGroup adds the file and the excerpt
};
using Findings = std::vector<Finding>;

}  // namespace mheg
