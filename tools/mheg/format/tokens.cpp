// The rules are those of the notation. Errors in the text are not detected.
#include "mheg/format/tokens.h"

#include <algorithm>

namespace mheg {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBracket(char c) { return c == '(' || c == ')' || c == '{' || c == '}'; }
bool EndsLine(char c) { return c == '\n' || c == '\r' || c == '\f'; }
bool IsBlank(char c) { return static_cast<unsigned char>(c) <= ' ' || c == 127; }

// The offset of the first byte from `begin` on with that property, or the end of the text.
template <class Property>
std::size_t Find(std::string_view text, std::size_t begin, Property&& hasProperty) {
  const auto* found = std::find_if(text.begin() + begin, text.end(), hasProperty);
  return static_cast<std::size_t>(found - text.begin());
}

std::size_t EndOfQuoted(std::string_view text, std::size_t begin) {
  for (std::size_t i = begin + 1; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == '"') {
      return i + 1;
    }
  }
  return text.size();
}

// A leading zero is a number by itself.
std::size_t EndOfNumber(std::string_view text, std::size_t begin) {
  if (text[begin] == '0') return begin + 1;
  return Find(text, begin + 1, [](char c) { return !IsDigit(c); });
}

std::size_t EndOfToken(std::string_view text, std::size_t begin) {
  const char c = text[begin];
  if (IsBracket(c)) return begin + 1;
  if (c == '/') return Find(text, begin, EndsLine);
  if (c == '"') return EndOfQuoted(text, begin);
  if (c == '\'') return std::min(text.find('\'', begin + 1), text.size() - 1) + 1;
  if (IsDigit(c) || c == '-') return EndOfNumber(text, begin);
  return Find(text, begin + 1, [](char next) { return IsBlank(next) || IsBracket(next); });
}

// A carriage return and the line feed after it are one line end.
std::size_t LineEndsIn(std::string_view blanks) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < blanks.size(); ++i) {
    const bool isPair = blanks[i] == '\r' && i + 1 < blanks.size() && blanks[i + 1] == '\n';
    if (EndsLine(blanks[i]) && !isPair) ++count;
  }
  return count;
}

}  // namespace

std::vector<Token> TokensOf(std::string_view text) {
  std::vector<Token> tokens;
  std::size_t end = 0;
  for (;;) {
    const std::size_t begin = Find(text, end, [](char c) { return !IsBlank(c); });
    if (begin == text.size()) return tokens;
    const std::size_t linesAbove = LineEndsIn(text.substr(end, begin - end));
    end = EndOfToken(text, begin);
    Token token{text.substr(begin, end - begin), begin, linesAbove};
    while (token.IsComment() && IsBlank(token.text.back())) token.text.remove_suffix(1);
    tokens.push_back(token);
  }
}

}  // namespace mheg
