// Converts a group in the textual notation to records or BER bytes. A syntax error fails the
// current test, with the position and the expected token in the message.
#pragma once

#include <string>
#include <string_view>

#include "objects/ownership.h"

namespace korvel {

// Returns the group's records. References without a group name are completed with the group's own
// name, as the engine does after decoding.
[[nodiscard]] OwnedGroup ParseText(std::string_view text);

// Returns the group's BER bytes; empty after a syntax error.
[[nodiscard]] std::string CompileText(std::string_view text);

}  // namespace korvel
