// Reading font attributes. What drawing does with them is left to text.cpp.
#include "appearance/font_attributes.h"

#include <array>
#include <charconv>

namespace korvel {

namespace {

constexpr std::array<std::string_view, 4> kStyleWords = {"plain", "italic", "bold", "bold-italic"};

// Takes the part up to the next '.' off the front.
std::string_view TakePart(std::string_view& written) {
  const std::size_t dot = written.find('.');
  const std::string_view part = written.substr(0, dot);
  written.remove_prefix(dot == std::string_view::npos ? written.size() : dot + 1);
  return part;
}

[[nodiscard]] bool ReadStyle(std::string_view word, FontStyle& style) {
  for (std::uint32_t number = 0; number < kStyleWords.size(); ++number) {
    if (kStyleWords[number] != word) continue;
    style = static_cast<FontStyle>(number);
    return true;
  }
  return false;
}

[[nodiscard]] bool ReadNumber(std::string_view digits, std::int32_t& number) {
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  return error == std::errc() && stop == end;
}

}  // namespace

FontAttributes ReadFontAttributes(std::string_view written) {
  FontAttributes read;
  const bool isReadable =
      ReadStyle(TakePart(written), read.Style) && ReadNumber(TakePart(written), read.Size) &&
      ReadNumber(TakePart(written), read.LineSpacing) && ReadNumber(written, read.LetterSpacing);
  return isReadable ? read : FontAttributes{};
}

FontAttributes FontAttributesOf(const Text& text, const Application* application) {
  if (text.FontAttributes.IsPresent()) return ReadFontAttributes(text.FontAttributes.View());
  if (application == nullptr || !application->Defaults.FontAttributes.IsPresent()) return {};
  return ReadFontAttributes(application->Defaults.FontAttributes.View());
}

}  // namespace korvel
