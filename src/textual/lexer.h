// The lexer of the textual notation: converts a whole text to a list of tokens. It recognises
// keywords, numbers, strings and brackets, but does not check their order.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/list.h"
#include "objects/octet_string.h"
#include "textual/keywords.h"

namespace korvel {

struct Token {
  std::uint16_t code;
  std::int32_t number;        // of kInteger
  std::uint32_t offset;       // where the token begins in the text
  std::uint32_t stringStart;  // of kString, in the list's string bytes
  std::uint32_t stringLength;
};

// The tokens of one text, ending with kEndOfText, and the bytes of its strings.
struct TokenList {
  List<Token> tokens;
  List<char> stringBytes;

  [[nodiscard]] std::string_view String(const Token& token) const {
    return {stringBytes.begin() + token.stringStart, token.stringLength};
  }
};

enum class [[nodiscard]] LexResult : std::int32_t{
    Done = 0,
    BadText = 1,  // a byte begins no token, a token is malformed, or the text is too long
    NoMemory = -2,
    UnknownWord = -3,  // not a keyword, or a lone "/"
};

// The position at which the lexer stopped, and the reason.
struct LexStop {
  std::uint32_t offset = 0;
  const char* expected = "";
  const char* subject = "";  // appended to `expected`
  OctetString word;          // the unknown word in capitals; otherwise absent
};

LexResult Lex(std::string_view text, TokenList& list, LexStop& stop);

}  // namespace korvel
