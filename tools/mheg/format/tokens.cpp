// The lexer of the notation skips blanks and comments, so the comments are found between its
// tokens.
#include "mheg/format/tokens.h"

#include <new>

#include "textual/lexer.h"

namespace mheg {
namespace {

constexpr std::string_view kLineEnds = "\n\r\f";
constexpr std::string_view kBlanks = " \t\n\r\f";

// A carriage return and the line feed after it are one line end.
std::size_t LineEndsIn(std::string_view blanks) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < blanks.size(); ++i) {
    const bool isPair = blanks[i] == '\r' && i + 1 < blanks.size() && blanks[i + 1] == '\n';
    if (kLineEnds.find(blanks[i]) != std::string_view::npos && !isPair) ++count;
  }
  return count;
}

// A comment ends with its line. Blanks at the end of the line are not part of it.
std::size_t EndOfComment(std::string_view text, std::size_t begin) {
  const std::string_view line = text.substr(0, text.find_first_of(kLineEnds, begin));
  return line.find_last_not_of(kBlanks) + 1;
}

}  // namespace

std::vector<Token> TokensOf(std::string_view text) {
  korvel::TokenList list;
  if (!korvel::Lex(text, korvel::LexMode::Explaining, list)) throw std::bad_alloc();
  std::vector<Token> tokens;
  std::size_t end = 0;
  const auto add = [&](std::size_t begin, std::size_t next) {
    const std::size_t linesAbove = LineEndsIn(text.substr(end, begin - end));
    tokens.push_back({text.substr(begin, next - begin), begin, linesAbove});
    end = next;
  };
  for (const korvel::Token& token : list.tokens) {
    const std::string_view before = text.substr(0, token.offset);
    for (std::size_t comment = before.find('/', end); comment != std::string_view::npos;
         comment = before.find('/', end)) {
      add(comment, EndOfComment(text, comment));
    }
    if (token.code != korvel::kEndOfText) add(token.offset, token.offset + token.length);
  }
  return tokens;
}

}  // namespace mheg
