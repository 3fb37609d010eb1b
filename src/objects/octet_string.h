// The octet string of MHEG-5: bytes with a length, which may hold zeros and need not be text. One
// zero byte always stands behind them, so that they can also be handed to code that wants
// terminated text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace korvel {

// An absent octet string (never given) differs from an empty one (given, of length 0).
class OctetString {
 public:
  OctetString() noexcept = default;
  OctetString(OctetString&& other) noexcept
      : bytes_(std::exchange(other.bytes_, nullptr)), length_(std::exchange(other.length_, 0)) {}
  OctetString& operator=(OctetString&& other) noexcept;
  OctetString(const OctetString&) = delete;
  OctetString& operator=(const OctetString&) = delete;
  ~OctetString() { Clear(); }

  // Copies `bytes`, which may point into this very string. False, and unchanged, when memory is
  // out.
  [[nodiscard]] bool Assign(std::string_view bytes) noexcept;
  // Makes the string so many zeros, to be written over. False, and unchanged, when memory is out.
  [[nodiscard]] bool AssignZeros(std::size_t length) noexcept;
  // As Assign, and an absent string makes this one absent.
  [[nodiscard]] bool CopyFrom(const OctetString& other) noexcept;
  // Adds `bytes`, which may point into this very string, at the end. False, and unchanged, when
  // memory is out.
  [[nodiscard]] bool Append(std::string_view bytes) noexcept;
  // Makes the string absent.
  void Clear() noexcept;

  [[nodiscard]] bool IsPresent() const noexcept { return bytes_ != nullptr; }
  [[nodiscard]] bool IsEmpty() const noexcept { return length_ == 0; }
  [[nodiscard]] std::size_t Length() const noexcept { return length_; }
  // The bytes, valid until the string is changed; empty when absent.
  [[nodiscard]] std::string_view View() const noexcept { return {Text(), length_}; }
  // The bytes up to their first zero byte: what code that reads them as text sees.
  [[nodiscard]] std::string_view TextView() const noexcept { return {Text()}; }
  // The bytes with the zero behind them; "" when absent.
  [[nodiscard]] const char* Text() const noexcept { return bytes_ == nullptr ? "" : bytes_; }
  // The bytes to change in place, Length() of them; null when absent.
  [[nodiscard]] char* MutableBytes() noexcept { return bytes_; }

 private:
  // Owns the block, unless it is null, in place of what was there.
  [[nodiscard]] bool Take(char* block, std::size_t length) noexcept;

  char* bytes_ = nullptr;
  std::size_t length_ = 0;
};

}  // namespace korvel
