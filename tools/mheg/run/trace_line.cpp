// Both forms of a line.
#include "mheg/run/trace_line.h"

#include <array>
#include <cstdio>

namespace mheg {
namespace {

// The number of bytes of the UTF-8 sequence at the start of the text; 0 if there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [text](std::size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U;
  };
  const auto goesOn = [&](std::size_t at) { return (byte(at) & 0xC0U) == 0x80; };
  const unsigned first = byte(0);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return goesOn(1) ? 2 : 0;
  if (first >= 0xE0 && first < 0xF0) {
    const bool isOverlong = first == 0xE0 && byte(1) < 0xA0;
    const bool isSurrogate = first == 0xED && byte(1) >= 0xA0;
    return goesOn(1) && goesOn(2) && !isOverlong && !isSurrogate ? 3 : 0;
  }
  if (first >= 0xF0 && first < 0xF5) {
    const bool isOverlong = first == 0xF0 && byte(1) < 0x90;
    const bool isBeyondUnicode = first == 0xF4 && byte(1) >= 0x90;
    const bool isWhole = goesOn(1) && goesOn(2) && goesOn(3);
    return isWhole && !isOverlong && !isBeyondUnicode ? 4 : 0;
  }
  return 0;
}

std::string Escape(char byte) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "\\u%04x",
                static_cast<unsigned>(static_cast<unsigned char>(byte)));
  return text.data();
}

}  // namespace

std::string JsonString(std::string_view bytes) {
  std::string json = "\"";
  while (!bytes.empty()) {
    std::size_t length = SequenceLength(bytes);
    const char first = bytes.front();
    const bool isControl = static_cast<unsigned char>(first) < 0x20;
    if (length == 0 || isControl) {
      json += Escape(first);
      length = 1;
    } else {
      if (first == '"' || first == '\\') json += '\\';
      json += bytes.substr(0, length);
    }
    bytes.remove_prefix(length);
  }
  return json + '"';
}

TraceLine::TraceLine(std::string_view what, std::uint64_t now, std::size_t depth)
    : now_(now), depth_(depth) {
  Field("time", static_cast<std::int64_t>(now));
  Field("depth", static_cast<std::int64_t>(depth));
  Field("what", what);
}

TraceLine& TraceLine::Field(std::string_view name, std::string_view value) {
  return Add(name, JsonString(value));
}

TraceLine& TraceLine::Field(std::string_view name, std::int64_t value) {
  return Add(name, std::to_string(value));
}

TraceLine& TraceLine::FlagField(std::string_view name, bool value) {
  return Add(name, value ? "true" : "false");
}

TraceLine& TraceLine::Add(std::string_view name, std::string_view json) {
  json_ += json_.empty() ? '{' : ',';
  json_ += '"';
  json_ += name;
  json_ += "\":";
  json_ += json;
  return *this;
}

void TraceLine::Print(TraceForm form, std::string_view words) const {
  std::string line = json_ + '}';
  if (form == TraceForm::Text) {
    std::array<char, 32> time{};
    constexpr unsigned kMsPerSecond = 1000;
    std::snprintf(time.data(), time.size(), "%5llu.%03llu  ",
                  static_cast<unsigned long long>(now_ / kMsPerSecond),
                  static_cast<unsigned long long>(now_ % kMsPerSecond));
    line = time.data() + std::string(depth_ * 2, ' ') + std::string(words);
  }
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stdout);
}

}  // namespace mheg
