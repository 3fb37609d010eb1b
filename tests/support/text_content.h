// Content written as text, for tests: a group in the textual notation becomes its records or its
// BER bytes. A text that cannot be read fails the current test and reports the position and what
// was expected there.
#pragma once

#include <string>
#include <string_view>

#include "objects/ownership.h"

namespace korvel {

// The group of a text, its references completed with the group's name as the engine does after
// decoding.
[[nodiscard]] OwnedGroup ParseText(std::string_view text);

// The BER bytes of a text's group; empty when the text cannot be read.
[[nodiscard]] std::string CompileText(std::string_view text);

}  // namespace korvel
