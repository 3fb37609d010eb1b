// Copies and grows octet strings. New bytes are always allocated before the old ones are released,
// so a failure changes nothing and a string may be assigned from a part of itself.
#include "objects/octet_string.h"

#include <cstring>

#include "objects/memory.h"

namespace korvel {
namespace {

// `length` zero bytes and a terminating one, or null.
char* Zeros(std::size_t length) {
  return length + 1 == 0 ? nullptr : static_cast<char*>(AllocateZeroed(length + 1));
}

// Both pieces in one new zero-terminated block, or null.
char* Join(std::string_view first, std::string_view second) {
  const std::size_t length = first.size() + second.size();
  char* block = length < first.size() ? nullptr : Zeros(length);
  if (block == nullptr) return nullptr;
  if (!first.empty()) std::memcpy(block, first.data(), first.size());
  if (!second.empty()) std::memcpy(block + first.size(), second.data(), second.size());
  return block;
}

}  // namespace

OctetString& OctetString::operator=(OctetString&& other) noexcept {
  if (this != &other) {
    Clear();
    bytes_ = std::exchange(other.bytes_, nullptr);
    length_ = std::exchange(other.length_, 0);
  }
  return *this;
}

bool OctetString::Assign(std::string_view bytes) { return Take(Join(bytes, {}), bytes.size()); }

bool OctetString::AssignZeros(std::size_t length) { return Take(Zeros(length), length); }

bool OctetString::CopyFrom(const OctetString& other) {
  if (other.IsPresent()) return Assign(other.View());
  Clear();
  return true;
}

bool OctetString::Append(std::string_view bytes) {
  return Take(Join(View(), bytes), length_ + bytes.size());
}

bool OctetString::Take(char* block, std::size_t length) {
  if (block == nullptr) return false;
  Clear();
  bytes_ = block;
  length_ = length;
  return true;
}

void OctetString::Clear() {
  ReleaseMemory(bytes_);
  bytes_ = nullptr;
  length_ = 0;
}

}  // namespace korvel
