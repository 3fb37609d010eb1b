// The font attributes of text in their written form, "style.size.linespacing.letterspacing".
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/group.h"
#include "objects/visibles.h"

namespace korvel {

enum class FontStyle : std::uint32_t { Plain = 0, Italic = 1, Bold = 2, BoldItalic = 3 };

// "plain.24.28.0", which holds where neither the object nor the application says otherwise.
struct FontAttributes {
  FontStyle Style = FontStyle::Plain;
  std::int32_t Size = 24;
  std::int32_t LineSpacing = 28;
  std::int32_t LetterSpacing = 0;
};

// Reads the written form: a style word and three numbers. What cannot be read is the default.
[[nodiscard]] FontAttributes ReadFontAttributes(std::string_view written);

// The text's own attributes, or else the application's, or else the default.
[[nodiscard]] FontAttributes FontAttributesOf(const Text& text, const Application* application);

}  // namespace korvel
