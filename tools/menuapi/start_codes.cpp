// Finds the start code prefixes. A unit never contains the bytes of a prefix, so even a damaged
// unit ends at the next prefix.
#include "menuapi/start_codes.h"

#include <algorithm>

namespace menuapi {
namespace {

constexpr std::size_t kPrefixBytes = 3;

}  // namespace

StartCodes::StartCodes(std::span<const std::uint8_t> stream)
    : stream_(stream), next_(NextPrefix(0)) {
  Advance();
}

void StartCodes::Advance() {
  const std::size_t code = next_ + kPrefixBytes;
  isAtEnd_ = code >= stream_.size();
  if (isAtEnd_) {
    current_ = {};
    return;
  }
  next_ = NextPrefix(code + 1);
  current_ = {stream_[code], stream_.subspan(code + 1, next_ - code - 1)};
}

std::size_t StartCodes::NextPrefix(std::size_t offset) const {
  // The third byte determines how far the search can skip ahead.
  while (offset + kPrefixBytes <= stream_.size()) {
    const std::uint8_t third = stream_[offset + 2];
    if (third == 1 && stream_[offset] == 0 && stream_[offset + 1] == 0) return offset;
    offset += third == 0 ? 1 : 3;
  }
  return stream_.size();
}

}  // namespace menuapi
