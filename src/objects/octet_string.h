// The octet string of MHEG-5: bytes with a length, which may hold zeros and need not be text. A
// zero byte always follows them, so that they can also be passed to code that expects
// terminated text. Short strings are stored in place, because most of a scene's are short.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "objects/memory.h"

namespace korvel {

// An absent octet string (never set) differs from an empty one (set, of length 0).
class OctetString {
 public:
  OctetString() = default;
  OctetString(OctetString&& other) noexcept : storage_(std::exchange(other.storage_, {})) {}
  OctetString& operator=(OctetString&& other) noexcept {
    const Storage taken = std::exchange(other.storage_, {});
    Clear();
    storage_ = taken;
    return *this;
  }
  OctetString(const OctetString&) = delete;
  OctetString& operator=(const OctetString&) = delete;
  ~OctetString() { Clear(); }

  // Copies `bytes`, which may point into this string. False, and unchanged, if memory runs
  // out.
  [[nodiscard]] bool Assign(std::string_view bytes) { return Join(bytes, {}); }
  // Replaces the contents with `length` zero bytes for the caller to fill in. False, and unchanged,
  // if memory runs out or the length needs more than 32 bits.
  [[nodiscard]] bool AssignZeros(std::size_t length);
  // Like Assign, but an absent string makes this one absent.
  [[nodiscard]] bool CopyFrom(const OctetString& other);
  // Adds `bytes`, which may point into this string, at the end. False, and unchanged, if
  // memory runs out.
  [[nodiscard]] bool Append(std::string_view bytes) { return Join(View(), bytes); }
  // Makes the string absent.
  void Clear() {
    if (IsLong()) ReleaseMemory(storage_.asLong.bytes);
    storage_ = {};
  }

  [[nodiscard]] bool IsPresent() const { return storage_.asShort.form != 0; }
  [[nodiscard]] bool IsEmpty() const { return Length() == 0; }
  [[nodiscard]] std::size_t Length() const {
    return IsLong() ? storage_.asLong.length : storage_.asShort.form & kShortLength;
  }
  // An absent string differs from an empty one.
  bool operator==(const OctetString& other) const {
    return IsPresent() == other.IsPresent() && View() == other.View();
  }
  // The bytes, valid until the string is changed or moved; empty when absent.
  [[nodiscard]] std::string_view View() const { return {Text(), Length()}; }
  // The bytes before the first zero byte, as code that expects terminated text sees them.
  [[nodiscard]] std::string_view TextView() const { return {Text()}; }
  // The bytes and the zero after them; "" when absent.
  [[nodiscard]] const char* Text() const {
    return IsLong() ? storage_.asLong.bytes : storage_.asShort.bytes;
  }
  // The bytes to change in place, Length() of them; none when absent.
  [[nodiscard]] char* MutableBytes() {
    return IsLong() ? storage_.asLong.bytes : storage_.asShort.bytes;
  }

 private:
  // The form of a string: 0 if it is absent, kLong, or kShort plus the length.
  static constexpr std::uint8_t kShort = 0x80;
  static constexpr std::uint8_t kShortLength = 0x7F;
  static constexpr std::uint8_t kLong = 0xFF;

  // Both begin with the form, which may therefore be read from either.
  struct LongForm {
    std::uint8_t form;
    std::uint32_t length;
    char* bytes;  // owned
  };
  struct ShortForm {
    std::uint8_t form;
    char bytes[sizeof(LongForm) - 1];
  };
  union Storage {
    ShortForm asShort{};
    LongForm asLong;
  };

  [[nodiscard]] bool IsLong() const { return storage_.asShort.form == kLong; }
  // Replaces the contents with both pieces, which may point into this string. False, and
  // unchanged, if memory runs out.
  [[nodiscard]] bool Join(std::string_view first, std::string_view second);

  Storage storage_{};
};

}  // namespace korvel
