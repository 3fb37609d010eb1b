// Reading and removing control sequences; the bytes come from content, cut short or not.
#include "appearance/control_sequences.h"

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

}  // namespace

bool ReadLeadingColour(std::string_view text, DrawnColour& colour) {
  if (text.size() <= kColourSequenceBytes || text[0] != kEscape || text[1] != kColour) {
    return false;
  }
  colour = 0;
  for (const char byte : text.substr(kColourOffset, kColourBytes)) {
    colour = colour << 8 | static_cast<unsigned char>(byte);
  }
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

}  // namespace korvel
