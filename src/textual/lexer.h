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
  std::int32_t number;   // of kInteger
  std::uint32_t offset;  // where the token begins in the text
  std::uint32_t length;
  std::uint32_t stringStart;  // of kString, in the list's string bytes
  std::uint32_t stringLength;
};

// An error within a token or a comment. The list has a token of the intended kind all the same.
struct LexProblem {
  std::size_t token;  // the index of that token, or of the one after the comment
  std::uint32_t offset;
  std::uint32_t length;
  const char* expected;
};

// The tokens of one text, ending with kEndOfText, and the bytes of its strings.
struct TokenList {
  List<Token> tokens;
  List<char> stringBytes;
  List<LexProblem> problems;  // in the order of the text
  bool isValid = true;        // no problems and no unknown words
  // The first word that is not a keyword, in capitals; absent if another error precedes it.
  OctetString unknownWord;
  // The number of opening brackets minus that of closing ones.
  std::int32_t openBraces = 0;
  std::int32_t openParentheses = 0;
  // A string reaches over the end of a line, and the next token follows without a space. Its
  // closing quote is probably missing, and the next string's opening quote ends it.
  bool hasDoubtfulString = false;

  [[nodiscard]] std::string_view String(const Token& token) const {
    return {stringBytes.begin() + token.stringStart, token.stringLength};
  }
};

enum class LexMode {
  Plain,
  // For messages to an author: a number with a leading zero is a problem, instead of two numbers.
  Explaining,
  // Doubtful strings end with their line, too.
  ExplainingDoubtfulStrings,
};

// False if memory runs out. The text must not be longer than kMaxTextSize.
[[nodiscard]] bool Lex(std::string_view text, LexMode mode, TokenList& list);

}  // namespace korvel
