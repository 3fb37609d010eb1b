// Copies and grows octet strings. The new string is always complete before the old one is released,
// so a failure changes nothing and a string may be assigned from a part of itself.
#include "objects/octet_string.h"

namespace korvel {

bool OctetString::AssignZeros(std::size_t length) {
  Storage zeros;
  if (length < sizeof zeros.asShort.bytes) {
    zeros.asShort.form = static_cast<std::uint8_t>(kShort + length);
  } else {
    if (length >= UINT32_MAX) return false;
    auto* block = static_cast<char*>(AllocateZeroed(length + 1));
    if (block == nullptr) return false;
    zeros.asLong = {kLong, static_cast<std::uint32_t>(length), block};
  }
  Clear();
  storage_ = zeros;
  return true;
}

bool OctetString::CopyFrom(const OctetString& other) {
  if (other.IsPresent()) return Assign(other.View());
  Clear();
  return true;
}

bool OctetString::Join(std::string_view first, std::string_view second) {
  const std::size_t length = first.size() + second.size();
  OctetString joined;
  if (length < first.size() || !joined.AssignZeros(length)) return false;
  first.copy(joined.MutableBytes(), first.size());
  second.copy(joined.MutableBytes() + first.size(), second.size());
  *this = std::move(joined);
  return true;
}

}  // namespace korvel
