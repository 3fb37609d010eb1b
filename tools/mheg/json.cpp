// Checks that strings are UTF-8, because content may contain any bytes.
#include "mheg/json.h"

namespace mheg {
namespace {

// The number of bytes of the UTF-8 sequence at the start of the text; 0 if there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [text](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  };
  const auto continues = [&](std::size_t at) { return (byte(at) & 0xC0U) == 0x80; };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return continues(1) ? 2 : 0;
  if (first >= 0xE0 && first < 0xF0) {
    const bool isOverlong = first == 0xE0 && byte(1) < 0xA0;
    const bool isSurrogate = first == 0xED && byte(1) >= 0xA0;
    return continues(1) && continues(2) && !isOverlong && !isSurrogate ? 3 : 0;
  }
  if (first >= 0xF0 && first < 0xF5) {
    const bool isOverlong = first == 0xF0 && byte(1) < 0x90;
    const bool isBeyondUnicode = first == 0xF4 && byte(1) >= 0x90;
    const bool isWhole = continues(1) && continues(2) && continues(3);
    return isWhole && !isOverlong && !isBeyondUnicode ? 4 : 0;
  }
  return 0;
}

std::string Escaped(char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(byte);
  return std::string("\\u00") + kDigits[code >> 4U] + kDigits[code & 15U];
}

}  // namespace

std::string JsonString(std::string_view bytes) {
  std::string json = "\"";
  while (!bytes.empty()) {
    std::size_t length = SequenceLength(bytes);
    const char first = bytes.front();
    const bool isControl = static_cast<unsigned char>(first) < 0x20;
    if (length == 0 || isControl) {
      json += Escaped(first);
      length = 1;
    } else {
      if (first == '"' || first == '\\') json += '\\';
      json += bytes.substr(0, length);
    }
    bytes.remove_prefix(length);
  }
  return json + '"';
}

std::string JsonObject(std::initializer_list<std::pair<std::string_view, std::string>> members) {
  std::string json;
  for (const auto& [name, value] : members) {
    if (value.empty()) continue;
    if (!json.empty()) json += ", ";
    json += JsonString(name) + ": " + value;
  }
  return "{" + json + "}";
}

}  // namespace mheg
