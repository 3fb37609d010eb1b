// Headers and contents of elements as bytes.
#include "objects/ber/ber_writer.h"

#include <algorithm>

namespace korvel::ber {
namespace {

constexpr std::uint32_t kConstructedBit = 0x20;
constexpr std::uint32_t kHighTagNumber = 0x1F;
constexpr std::uint32_t kMoreBit = 0x80;
constexpr std::uint8_t kTrue = 0xFF;

// The number of seven-bit groups in a tag number.
int CountTagBytes(std::uint32_t number) {
  int count = 1;
  while ((number >>= 7) != 0) ++count;
  return count;
}

// The number of bytes that a length takes after the byte that counts them; 0 for the short form.
std::size_t CountLengthBytes(std::size_t length) {
  if (length < kMoreBit) return 0;
  std::size_t count = 1;
  while ((length >>= 8) != 0) ++count;
  return count;
}

}  // namespace

void BerWriter::Byte(std::uint32_t value) {
  if (!bytes_.Append(static_cast<char>(value & 0xFF))) hasFailed_ = true;
}

void BerWriter::Header(Tag tag, bool isConstructed) {
  const std::uint32_t leading =
      static_cast<std::uint32_t>(tag.tagClass) << 6 | (isConstructed ? kConstructedBit : 0);
  if (tag.number < kHighTagNumber) return Byte(leading | tag.number);
  Byte(leading | kHighTagNumber);
  for (int left = CountTagBytes(tag.number) - 1; left >= 0; --left) {
    const std::uint32_t bits = tag.number >> (7 * left) & (kMoreBit - 1);
    Byte(bits | (left > 0 ? kMoreBit : 0));
  }
}

void BerWriter::Length(std::size_t length) {
  const std::size_t count = CountLengthBytes(length);
  Byte(static_cast<std::uint32_t>(count == 0 ? length : kMoreBit | count));
  for (std::size_t left = count; left > 0; --left) {
    Byte(static_cast<std::uint32_t>(length >> (8 * (left - 1))));
  }
}

void BerWriter::Boolean(Tag tag, bool value) {
  Header(tag, false);
  Length(1);
  Byte(value ? kTrue : 0);
}

void BerWriter::Integer(Tag tag, std::int32_t value) {
  Header(tag, false);
  // Counts the lowest bytes that represent the number, sign included.
  int count = 1;
  while (count < 4 && (value >> (8 * count - 1)) != 0 && (value >> (8 * count - 1)) != -1) ++count;
  Length(static_cast<std::size_t>(count));
  for (int left = count - 1; left >= 0; --left) {
    Byte(static_cast<std::uint32_t>(value) >> (8 * left));
  }
}

void BerWriter::Octets(Tag tag, std::string_view bytes) {
  Header(tag, false);
  Length(bytes.size());
  for (const char byte : bytes) Byte(static_cast<std::uint8_t>(byte));
}

void BerWriter::Null() {
  Header(kNull, false);
  Length(0);
}

std::size_t BerWriter::BeginConstructed(Tag tag) {
  Header(tag, true);
  return bytes_.Size();
}

// The length is known only now: it is written after the content and then moved before it.
void BerWriter::EndConstructed(std::size_t begin) {
  const std::size_t end = bytes_.Size();
  Length(end - begin);
  if (hasFailed_) return;
  std::rotate(bytes_.begin() + begin, bytes_.begin() + end, bytes_.end());
}

bool BerWriter::Finish(OctetString& bytes) const {
  return !hasFailed_ && bytes.Assign({bytes_.begin(), bytes_.Size()});
}

}  // namespace korvel::ber
