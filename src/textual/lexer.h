// The lexer of the textual notation: a whole text to a row of tokens. It knows keywords, numbers,
// strings and brackets, and nothing of their order.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/octet_string.h"
#include "objects/sequence.h"
#include "textual/keywords.h"

namespace korvel {

struct Token {
  std::uint16_t code;
  std::int32_t number;        // of kInteger
  std::uint32_t offset;       // where the token begins in the text
  std::uint32_t stringStart;  // of kString, in the list's string bytes
  std::uint32_t stringLength;
};

// The tokens of one text, closed by one of code kEndOfText, with the bytes of its strings.
struct TokenList {
  Sequence<Token> tokens;
  Sequence<char> stringBytes;

  [[nodiscard]] std::string_view String(const Token& token) const {
    return {stringBytes.begin() + token.stringStart, token.stringLength};
  }
};

enum class [[nodiscard]] LexResult : std::int32_t{
    Done = 0,
    BadText = 1,  // a byte that begins nothing, or a string or a number that does not end
    NoMemory = -2,
    UnknownWord = -3,  // no keyword, or a lone "/"
};

// The place and the reason of the lexer's stop.
struct LexStop {
  std::uint32_t offset = 0;
  const char* expected = "";
  const char* subject = "";  // what follows it, where it ends in a space
  OctetString word;          // the unknown word in capitals; otherwise absent
};

LexResult Lex(std::string_view text, TokenList& list, LexStop& stop);

}  // namespace korvel
