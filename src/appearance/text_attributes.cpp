// Control sequences and font attributes. The bytes come from content and may end anywhere.
#include "appearance/text_attributes.h"

#include <array>
#include <charconv>

#include "appearance/colours.h"

namespace korvel {
namespace {

constexpr char kEscape = 27;
constexpr char kColour = 'C';
constexpr char kCarriageReturn = 13;
constexpr char kLineFeed = 10;

constexpr std::size_t kColourSequenceBytes = 7;
constexpr std::size_t kOtherSequenceBytes = 2;
constexpr std::size_t kColourOffset = 3;
constexpr std::size_t kColourBytes = 4;

constexpr std::array<std::string_view, 4> kStyleWords = {"plain", "italic", "bold", "bold-italic"};

// Removes and returns the part up to the next '.'.
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

[[nodiscard]] bool ReadParts(std::string_view written, FontAttributes& read) {
  return ReadStyle(TakePart(written), read.style) && ReadNumber(TakePart(written), read.size) &&
         ReadNumber(TakePart(written), read.lineSpacing) && ReadNumber(written, read.letterSpacing);
}

}  // namespace

bool ReadLeadingColour(std::string_view text, DrawnColour& colour) {
  if (text.size() <= kColourSequenceBytes || text[0] != kEscape || text[1] != kColour) {
    return false;
  }
  colour = PackColour(text.substr(kColourOffset, kColourBytes));
  return true;
}

bool RemoveControlSequences(std::string_view text, OctetString& clean) {
  if (!clean.Assign(text)) return false;
  char* to = clean.MutableBytes();
  std::size_t index = 0;
  while (index < text.size()) {
    if (text[index] == kEscape) {
      const bool isColour = index + 1 < text.size() && text[index + 1] == kColour;
      index += isColour ? kColourSequenceBytes : kOtherSequenceBytes;
      continue;
    }
    *to++ = text[index] == kCarriageReturn ? kLineFeed : text[index];
    ++index;
  }
  *to = 0;
  return true;
}

FontAttributes ReadFontAttributes(std::string_view written) {
  FontAttributes read;
  return ReadParts(written, read) ? read : FontAttributes{};
}

bool IsFontAttributes(std::string_view written) {
  FontAttributes read;
  return ReadParts(written, read);
}

FontAttributes FontAttributesOf(const Text& text, const Application* application) {
  if (text.FontAttributes.IsPresent()) return ReadFontAttributes(text.FontAttributes.View());
  if (application == nullptr || !application->Defaults.FontAttributes.IsPresent()) return {};
  return ReadFontAttributes(application->Defaults.FontAttributes.View());
}

}  // namespace korvel
