// Reads the attributes of text: control sequences in the text itself, and font attributes in the
// form "style.size.linespacing.letterspacing".
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/group.h"
#include "objects/octet_string.h"
#include "objects/visibles.h"
#include "platform/canvases.h"

namespace korvel {

// ---- Control sequences ----
// A colour is ESC 'C', a length byte and four bytes red, green, blue and transparency. Every other
// sequence is ESC and one more byte.

// Reads the colour sequence at the start of a text; it applies to the whole text. False, with
// `colour` unchanged, if there is none or if nothing follows it.
[[nodiscard]] bool ReadLeadingColour(std::string_view text, DrawnColour& colour);

// Copies the text without its control sequences and with each CR replaced by LF. The result ends at
// its first zero byte; ignore the bytes after that. False if memory runs out.
[[nodiscard]] bool RemoveControlSequences(std::string_view text, OctetString& clean);

// ---- Font attributes ----

enum class FontStyle : std::uint32_t { Plain = 0, Italic = 1, Bold = 2, BoldItalic = 3 };

// The default is "plain.24.28.0".
struct FontAttributes {
  FontStyle style = FontStyle::Plain;
  std::int32_t size = 24;
  std::int32_t lineSpacing = 28;
  std::int32_t letterSpacing = 0;
};

// Reads that form: a style word and three numbers. Returns the default if it cannot be read.
[[nodiscard]] FontAttributes ReadFontAttributes(std::string_view written);

// Whether it can be read.
[[nodiscard]] bool IsFontAttributes(std::string_view written);

// The text's own attributes, or else the application's, or else the default.
[[nodiscard]] FontAttributes FontAttributesOf(const Text& text, const Application* application);

}  // namespace korvel
