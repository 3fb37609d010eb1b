// The words of the textual notation and their codes. The builders decide which word is allowed at
// each place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "objects/values.h"

namespace korvel {

// The codes of tokens. 1 to kKeywordCount are the keywords, in the fixed order of the notation. For
// actions it is that of the action table, but Stop precedes Step.
inline constexpr std::uint16_t kEndOfText = 0;
inline constexpr std::uint16_t kKeywordCount = 300;
inline constexpr std::uint16_t kNullWord = 298;
inline constexpr std::uint16_t kTrueWord = 299;
inline constexpr std::uint16_t kFalseWord = 300;
inline constexpr std::uint16_t kOpenBrace = kKeywordCount + 1;
inline constexpr std::uint16_t kCloseBrace = kKeywordCount + 2;
inline constexpr std::uint16_t kString = kKeywordCount + 3;
inline constexpr std::uint16_t kOpenParenthesis = kKeywordCount + 4;
inline constexpr std::uint16_t kCloseParenthesis = kKeywordCount + 5;
inline constexpr std::uint16_t kInteger = kKeywordCount + 6;
inline constexpr std::uint16_t kUnknown = kKeywordCount + 7;  // a bare word or an invalid byte
inline constexpr std::uint16_t kUnknownKeyword = kKeywordCount + 8;  // it begins with a colon

constexpr bool IsKeyword(std::uint16_t code) { return code >= 1 && code <= kKeywordCount; }

// The keyword of a code from 1 to kKeywordCount, in upper case; a keyword that names an attribute,
// a class or an action begins with its colon.
[[nodiscard]] const char* KeywordText(std::uint16_t code);

// The keywords that occur only inside the values of attributes and the parameters of actions.
inline constexpr const char* kValueKeywords[] = {
    ":ContentRef",    ":ContentSize",       ":CCPriority",     ":ObjectRef",     ":ActionSlots",
    ":AbsoluteTime",  ":NewAbsoluteColour", ":NewColourIndex", ":NewCCPriority", ":NewContentSize",
    ":GBoolean",      ":GInteger",          ":GOctetString",   ":GObjectRef",    ":GContentRef",
    ":NewRefContent", ":IndirectRef"};

// The code of an upper-case word, or 0 if it is not a keyword.
[[nodiscard]] std::uint16_t FindKeyword(std::string_view word);

// The hash of a word: the sum of its bytes as signed numbers, reduced to 16 unsigned bits, so that
// words with bytes above 127 have a bucket too.
inline constexpr std::size_t kKeywordBuckets = 101;
[[nodiscard]] constexpr std::size_t KeywordBucket(std::string_view word) {
  std::int32_t sum = 0;
  for (const char byte : word) sum += static_cast<signed char>(byte);
  return static_cast<std::uint16_t>(sum) % kKeywordBuckets;
}

// The keyword that announces the type of a parameter of that kind. The type of an indirect one is
// unknown; it is announced as an integer.
[[nodiscard]] constexpr const char* TypeWord(ValueKind kind) {
  switch (kind) {
  case ValueKind::Boolean: return ":GBoolean";
  case ValueKind::OctetString: return ":GOctetString";
  case ValueKind::ObjectReference: return ":GObjectRef";
  case ValueKind::ContentReference: return ":GContentRef";
  default: return ":GInteger";
  }
}

}  // namespace korvel
