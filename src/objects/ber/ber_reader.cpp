// Headers and contents of elements, byte by byte, never beyond the end of the enclosing element.
#include "objects/ber/ber_reader.h"

namespace korvel::ber {
namespace {

constexpr std::uint8_t kConstructedBit = 0x20;
constexpr std::uint8_t kTagNumberBits = 0x1F;  // all set: the number is in the following bytes
constexpr std::uint8_t kMoreBit = 0x80;
constexpr std::uint8_t kLowBits = 0x7F;

constexpr TagClass ClassOf(std::uint8_t firstByte) { return static_cast<TagClass>(firstByte >> 6); }

// The bytes from the cursor to the end of the enclosing element.
struct Bytes {
  const std::uint8_t* cursor;
  const std::uint8_t* end;

  bool Read(std::uint8_t& byte) {
    if (cursor == end) return false;
    byte = *cursor++;
    return true;
  }
};

bool ReadTag(Bytes& bytes, Tag& tag, bool& isConstructed) {
  std::uint8_t byte = 0;
  if (!bytes.Read(byte)) return false;
  isConstructed = (byte & kConstructedBit) != 0;
  tag = {ClassOf(byte), byte & std::uint32_t{kTagNumberBits}};
  if (tag.number != kTagNumberBits) return true;
  tag.number = 0;
  do {
    if (!bytes.Read(byte)) return false;
    tag.number = tag.number << 7 | (byte & kLowBits);
  } while ((byte & kMoreBit) != 0);
  return true;
}

// The indefinite form is not supported: its 0x80 announces no length bytes and so reads as 0.
bool ReadLength(Bytes& bytes, std::uint32_t& length) {
  std::uint8_t byte = 0;
  if (!bytes.Read(byte)) return false;
  length = byte;
  if ((byte & kMoreBit) == 0) return true;
  length = 0;
  for (std::uint32_t count = byte & kLowBits; count > 0; --count) {
    if (!bytes.Read(byte)) return false;
    length = length << 8 | byte;
  }
  return true;
}

}  // namespace

bool BerReader::RefuseAt(const std::uint8_t* place) const {
  if (refusal_ != nullptr && refusal_->place == nullptr) refusal_->place = place;
  return false;
}

bool BerReader::Explain(const char* Refusal::*what, const char* text) const {
  if (refusal_ != nullptr && refusal_->*what == nullptr) refusal_->*what = text;
  return false;
}

bool BerReader::RefuseHeader() const {
  BerElement element;
  Refuse();
  return Explain(&Refusal::expected, ReadHeader(element)
                                         ? "elements that are not nested so deep"
                                         : "an element that ends within what encloses it");
}

bool BerReader::ReadHeader(BerElement& element) const {
  Bytes bytes{cursor_, end_};
  Tag tag;
  bool isConstructed = false;
  std::uint32_t length = 0;
  const bool isWhole = ReadTag(bytes, tag, isConstructed) && ReadLength(bytes, length) &&
                       length <= static_cast<std::size_t>(end_ - bytes.cursor);
  if (!isWhole) return false;
  element.tag = tag;
  element.isConstructed = isConstructed;
  element.start = cursor_;
  element.content.cursor_ = bytes.cursor;
  element.content.end_ = bytes.cursor + length;
  element.content.refusal_ = refusal_;
  element.content.depth_ = depth_ + 1;
  return true;
}

bool BerReader::Next(BerElement& element) {
  if (!Peek(element)) return RefuseHeader();
  cursor_ = element.content.end_;
  SkipUnknown();
  return true;
}

void BerReader::SkipUnknown() {
  const auto isNextContext = [this] { return !AtEnd() && ClassOf(*cursor_) == TagClass::Context; };
  if (known_ == nullptr) return;
  for (BerElement element; isNextContext() && Peek(element); cursor_ = element.content.end_) {
    if (known_(element.tag)) return;
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
  return depth_ < kDeepestNesting && ReadHeader(element);
}

std::size_t BerReader::Count() const {
  BerReader reader = *this;
  std::size_t count = 0;
  for (BerElement element; reader.Peek(element); ++count) {
    reader.cursor_ = element.content.end_;
    reader.SkipUnknown();
  }
  return count;
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
  for (;;) {
    if (reader_.AtEnd()) {
      if (open_ == 0) return false;
      reader_.end_ = ends_[--open_];
      --reader_.depth_;
      reader_.SkipUnknown();
    } else {
      isRead_ = reader_.Next(next_);
      if (!isRead_ || !next_.Is(kSequence)) return true;
      ends_[open_++] = reader_.end_;
      reader_ = next_.content.Knowing(reader_.known_);
    }
  }
}

}  // namespace korvel::ber
