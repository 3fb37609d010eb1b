// Builds BER elements byte by byte, and decodes them.
#include "support/ber_bytes.h"

#include <algorithm>
#include <memory>

#include "objects/ber/ber.h"

namespace korvel::test {
namespace {

constexpr unsigned kUniversal = 0;
constexpr unsigned kContext = 2;

char Low(std::uint64_t value) { return static_cast<char>(value & 0xFF); }

Bytes TagNumber(std::uint32_t number) {
  Bytes bytes(1, Low(number & 0x7F));
  while ((number >>= 7) != 0) bytes.insert(bytes.begin(), Low((number & 0x7F) | 0x80));
  return bytes;
}

Bytes Length(std::size_t length) {
  if (length < 0x80) return {Low(length)};
  Bytes bytes;
  for (; length != 0; length >>= 8) bytes.insert(bytes.begin(), Low(length));
  return Low(0x80 | bytes.size()) + bytes;
}

Bytes GroupFile(std::uint32_t tag, const Bytes& attributes) {
  return Holding(tag, External("~/g", 0) + attributes);
}

}  // namespace

Bytes Element(unsigned classBits, bool isConstructed, std::uint32_t number, const Bytes& content) {
  const unsigned leading = classBits << 6 | (isConstructed ? 0x20U : 0U);
  const Bytes identifier =
      number < 31 ? Bytes(1, Low(leading | number)) : Low(leading | 31) + TagNumber(number);
  return identifier + Length(content.size()) + content;
}

Bytes NumberContent(std::int64_t value) {
  Bytes bytes(1, Low(static_cast<std::uint64_t>(value)));
  for (std::int64_t rest = value >> 7; rest != 0 && rest != -1; rest >>= 8) {
    bytes.insert(bytes.begin(), Low(static_cast<std::uint64_t>(rest >> 1)));
  }
  return bytes;
}

Bytes Boolean(bool value) { return Element(kUniversal, false, 1, Bytes(1, value ? '\xFF' : '\0')); }
Bytes Integer(std::int64_t value) { return Element(kUniversal, false, 2, NumberContent(value)); }
Bytes Enumerated(std::int64_t value) {
  return Element(kUniversal, false, 10, NumberContent(value));
}
Bytes Octets(const Bytes& bytes) { return Element(kUniversal, false, 4, bytes); }
Bytes Null() { return Element(kUniversal, false, 5, {}); }
Bytes Sequence(const Bytes& elements) { return Element(kUniversal, true, 16, elements); }
Bytes External(const Bytes& group, std::int64_t number) {
  return Sequence(Octets(group) + Integer(number));
}

Bytes Primitive(std::uint32_t tag, const Bytes& content) {
  return Element(kContext, false, tag, content);
}
Bytes Holding(std::uint32_t tag, const Bytes& elements) {
  return Element(kContext, true, tag, elements);
}

Bytes ApplicationFile(const Bytes& attributes) { return GroupFile(0, attributes); }
Bytes SceneFile(const Bytes& attributes) { return GroupFile(1, attributes); }
Bytes FileWithItems(const Bytes& items) { return SceneFile(Holding(8, items)); }

Decoded Decode(const Bytes& bytes) {
  const auto copy = std::make_unique<std::uint8_t[]>(bytes.size());
  std::copy(bytes.begin(), bytes.end(), copy.get());
  Decoded decoded;
  decoded.status = DecodeGroup({copy.get(), bytes.size()}, decoded.group, &decoded.error);
  return decoded;
}

Bytes Encode(const Group& group) {
  OctetString bytes;
  if (EncodeGroup(group, bytes) != Status::Done) return {};
  return Bytes(bytes.View());
}

Bytes Hexadecimal(const Bytes& bytes) {
  constexpr const char* digits = "0123456789ABCDEF";
  Bytes text;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += {digits[value >> 4], digits[value & 15], ' '};
  }
  return text;
}

}  // namespace korvel::test
