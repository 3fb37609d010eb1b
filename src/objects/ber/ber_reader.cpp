// Headers and contents of elements, byte by byte, never beyond the end of the enclosing element.
#include "objects/ber/ber_reader.h"

namespace korvel::ber {
namespace {

constexpr std::uint8_t kConstructedBit = 0x20;
constexpr std::uint8_t kTagNumberBits = 0x1F;  // all set: the number is in the following bytes
constexpr std::uint8_t kMoreBit = 0x80;
constexpr std::uint8_t kLowBits = 0x7F;

}  // namespace

bool BerReader::RefuseAt(const std::uint8_t* place) const {
  if (refusal_ != nullptr && refusal_->place == nullptr) refusal_->place = place;
  return false;
}

bool BerReader::Explain(const char* Refusal::*what, const char* text) const {
  if (refusal_ != nullptr && refusal_->*what == nullptr) refusal_->*what = text;
  return false;
}

bool BerReader::RefuseHeader(bool isWhole) const {
  Refuse();
  return Explain(&Refusal::expected, isWhole ? "elements that are not nested so deep"
                                             : "an element that ends within what encloses it");
}

bool BerReader::ReadByte(std::uint8_t& byte) {
  if (cursor_ == end_) return false;
  byte = *cursor_++;
  return true;
}

bool BerReader::ReadTag(BerElement& element) {
  std::uint8_t byte = 0;
  if (!ReadByte(byte)) return false;
  element.isConstructed = (byte & kConstructedBit) != 0;
  element.tag = {static_cast<TagClass>(byte >> 6), byte & std::uint32_t{kTagNumberBits}};
  if (element.tag.number != kTagNumberBits) return true;
  element.tag.number = 0;
  do {
    if (!ReadByte(byte)) return false;
    element.tag.number = element.tag.number << 7 | (byte & kLowBits);
  } while ((byte & kMoreBit) != 0);
  return true;
}

// The indefinite form is not supported: its 0x80 announces no length bytes and so reads as 0.
bool BerReader::ReadLength(std::uint32_t& length) {
  std::uint8_t byte = 0;
  if (!ReadByte(byte)) return false;
  length = byte;
  if ((byte & kMoreBit) == 0) return true;
  length = 0;
  for (std::uint32_t count = byte & kLowBits; count > 0; --count) {
    if (!ReadByte(byte)) return false;
    length = length << 8 | byte;
  }
  return true;
}

bool BerReader::Next(BerElement& element) {
  BerReader ahead = *this;
  BerElement read;
  std::uint32_t length = 0;
  const bool isWhole = ahead.ReadTag(read) && ahead.ReadLength(length) &&
                       length <= static_cast<std::size_t>(ahead.end_ - ahead.cursor_);
  if (!isWhole || depth_ == kDeepestNesting) return RefuseHeader(isWhole);
  read.start = cursor_;
  read.content = ahead;
  read.content.end_ = ahead.cursor_ + length;
  read.content.known_ = nullptr;
  ++read.content.depth_;
  cursor_ = read.content.end_;
  SkipUnknown();
  element = read;
  return true;
}

void BerReader::SkipUnknown() {
  if (known_ == nullptr) return;
  BerReader ahead = *this;
  ahead.known_ = nullptr;
  ahead.refusal_ = nullptr;
  for (BerElement element; ahead.Next(element); cursor_ = ahead.cursor_) {
    if (element.tag.tagClass != TagClass::Context || known_(element.tag)) return;
  }
}

BerReader BerReader::Knowing(KnownTags tags) const {
  BerReader reader = *this;
  reader.known_ = tags;
  reader.SkipUnknown();
  return reader;
}

bool BerReader::Ends() {
  BerElement element;
  return AtEnd() || (Next(element) && element.Refuse());
}

bool BerReader::Only(BerElement& element) const {
  BerReader reader = *this;
  return reader.Next(element) && reader.Ends();
}

bool BerReader::Peek(BerElement& element) const {
  BerReader reader = *this;
  reader.refusal_ = nullptr;
  if (!reader.Next(element)) return false;
  element.content.refusal_ = refusal_;
  return true;
}

bool BerReader::NextIs(Tag tag) const {
  BerElement element;
  return Peek(element) && element.Is(tag);
}

std::uint32_t BerElement::Length() const {
  return static_cast<std::uint32_t>(content.end_ - content.cursor_);
}

std::int32_t BerElement::Integer() const {
  if (content.AtEnd()) return 0;
  const bool isNegative = (FirstByte() & kMoreBit) != 0;
  std::uint32_t value = isNegative ? ~std::uint32_t{0} : 0;
  for (const std::uint8_t* byte = content.cursor_; byte != content.end_; ++byte) {
    value = value << 8 | *byte;
  }
  return static_cast<std::int32_t>(value);
}

std::string_view BerElement::Bytes() const {
  return {reinterpret_cast<const char*>(content.cursor_), Length()};
}

bool ListReader::HasMore() {
  BerElement wrapper;
  for (;;) {
    if (reader_.AtEnd()) {
      if (open_ == 0) return false;
      reader_.end_ = ends_[--open_];
      --reader_.depth_;
      reader_.SkipUnknown();
    } else if (reader_.Peek(wrapper) && wrapper.Is(kSequence)) {
      Enter(wrapper);
    } else {
      return true;
    }
  }
}

void ListReader::Enter(const BerElement& wrapper) {
  ends_[open_++] = reader_.end_;
  reader_ = wrapper.content.Knowing(reader_.known_);
}

}  // namespace korvel::ber
