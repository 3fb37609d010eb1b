// Converts a group in the textual notation to records or BER bytes. A text that cannot be read
// fails the current test, with the position and the expected token in the message.
#pragma once

#include <string>
#include <string_view>

#include "objects/ownership.h"

namespace korvel {

// The group of a text. References without a group name are completed with the group's own name, as
// the engine does after decoding.
[[nodiscard]] OwnedGroup ParseText(std::string_view text);

// The BER bytes of a text's group; empty if the text cannot be read.
[[nodiscard]] std::string CompileText(std::string_view text);

}  // namespace korvel
