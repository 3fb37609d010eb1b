// The octet string of MHEG-5: bytes with a length, which may hold zeros and need not be text. A
// zero byte always follows them, so that they can also be passed to code that expects
// terminated text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace korvel {

// An absent octet string (never set) differs from an empty one (set, of length 0).
class OctetString {
 public:
  OctetString() = default;
  OctetString(OctetString&& other) noexcept
      : bytes_(std::exchange(other.bytes_, nullptr)), length_(std::exchange(other.length_, 0)) {}
  OctetString& operator=(OctetString&& other) noexcept;
  OctetString(const OctetString&) = delete;
  OctetString& operator=(const OctetString&) = delete;
  ~OctetString() { Clear(); }

  // Copies `bytes`, which may point into this very string. False, and unchanged, if memory runs
  // out.
  [[nodiscard]] bool Assign(std::string_view bytes);
  // Replaces the contents with `length` zero bytes for the caller to fill in. False, and unchanged,
  // if memory runs out.
  [[nodiscard]] bool AssignZeros(std::size_t length);
  // Like Assign, but an absent string makes this one absent.
  [[nodiscard]] bool CopyFrom(const OctetString& other);
  // Adds `bytes`, which may point into this very string, at the end. False, and unchanged, if
  // memory runs out.
  [[nodiscard]] bool Append(std::string_view bytes);
  // Makes the string absent.
  void Clear();

  [[nodiscard]] bool IsPresent() const { return bytes_ != nullptr; }
  [[nodiscard]] bool IsEmpty() const { return length_ == 0; }
  [[nodiscard]] std::size_t Length() const { return length_; }
  // An absent string differs from an empty one.
  bool operator==(const OctetString& other) const {
    return IsPresent() == other.IsPresent() && View() == other.View();
  }
  // The bytes, valid until the string is changed; empty when absent.
  [[nodiscard]] std::string_view View() const { return {Text(), length_}; }
  // The bytes before the first zero byte, as code that expects terminated text sees them.
  [[nodiscard]] std::string_view TextView() const { return {Text()}; }
  // The bytes and the zero after them; "" when absent.
  [[nodiscard]] const char* Text() const { return bytes_ == nullptr ? "" : bytes_; }
  // The bytes to change in place, Length() of them; null when absent.
  [[nodiscard]] char* MutableBytes() { return bytes_; }

 private:
  // Replaces the contents with the block and owns it. False, and unchanged, if the block is null.
  [[nodiscard]] bool Take(char* block, std::size_t length);

  char* bytes_ = nullptr;
  std::size_t length_ = 0;
};

}  // namespace korvel
