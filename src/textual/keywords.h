// The words of the textual notation and their codes, and the hash table that a text's words are
// looked up in. What a word means where it stands is the builders' knowledge.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "objects/list.h"
#include "objects/octet_string.h"

namespace korvel {

// The codes of tokens. 1 to 300 are the keywords; their order is the notation's own, in which Stop
// precedes Step.
inline constexpr std::uint16_t kEndOfText = 0;
inline constexpr std::uint16_t kKeywordCount = 300;
inline constexpr std::uint16_t kNullWord = 298;
inline constexpr std::uint16_t kTrueWord = 299;
inline constexpr std::uint16_t kFalseWord = 300;
inline constexpr std::uint16_t kOpenBrace = 301;
inline constexpr std::uint16_t kCloseBrace = 302;
inline constexpr std::uint16_t kString = 303;
inline constexpr std::uint16_t kOpenParenthesis = 304;
inline constexpr std::uint16_t kCloseParenthesis = 305;
inline constexpr std::uint16_t kInteger = 306;

constexpr bool IsKeyword(std::uint16_t code) { return code >= 1 && code <= kKeywordCount; }

// The keyword of a code from 1 to 300, in upper case; a keyword that names an attribute, a class or
// an action begins with its colon.
[[nodiscard]] const char* KeywordText(std::uint16_t code);

// Whether both are the same word in any case of letters.
[[nodiscard]] bool IsSameWord(const char* one, const char* other);

// Words to codes. Built for each text that is read.
class KeywordTable {
 public:
  // Enters all keywords. False when memory is out.
  [[nodiscard]] bool Build();
  // The code of an upper-case word, or 0 when it is no keyword.
  [[nodiscard]] std::uint16_t Find(std::string_view word) const;

  static constexpr std::size_t kBucketCount = 101;
  // The sum of the bytes, taken as signed and kept to 16 bits without a sign, so that bytes from
  // 128 on also give a bucket.
  [[nodiscard]] static std::size_t Bucket(std::string_view word);

 private:
  struct Entry {
    OctetString word;
    std::uint16_t code = 0;
  };
  std::array<List<Entry>, kBucketCount> buckets_;
};

}  // namespace korvel
