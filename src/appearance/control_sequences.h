// The control sequences in MHEG-5 text: a colour is ESC 'C', a length byte and four bytes red,
// green, blue and transparency; every other sequence is ESC and one more byte.
#pragma once

#include <string_view>

#include "objects/octet_string.h"
#include "platform/canvases.h"

namespace korvel {

// Reads the colour sequence that a text begins with; it holds for the whole text. False, and
// `colour` unchanged, when there is none or nothing follows it.
[[nodiscard]] bool ReadLeadingColour(std::string_view text, DrawnColour& colour);

// Copies the text without its control sequences and with CR turned to LF, as far as its first zero
// byte means anything. False when memory is out.
[[nodiscard]] bool RemoveControlSequences(std::string_view text, OctetString& clean);

}  // namespace korvel
