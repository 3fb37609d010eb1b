// One pass over the text, a token at a time. Every scan stops at the end of the text and every step
// advances, so that reading always terminates.
#include "textual/lexer.h"

#include <limits>
#include <utility>

#include "objects/vocabulary.h"
#include "textual/textual.h"

namespace korvel {
namespace {

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool EndsLine(char c) { return c == 10 || c == 12 || c == 13; }
// Control bytes, the space and the delete byte end a word; bytes from 128 on do not.
constexpr bool EndsWord(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 33 || byte == 127;
}
// The value of a hexadecimal digit, or -1.
constexpr int HexadecimalDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

constexpr bool IsBracket(char c) { return c == '(' || c == ')' || c == '{' || c == '}'; }

class Lexer {
 public:
  Lexer(std::string_view text, LexMode mode, TokenList& list)
      : text_(text), mode_(mode), list_(list) {}

  bool Run() {
    while (!IsAtEnd()) {
      if (!ReadToken()) return false;
    }
    return Add(kEndOfText, position_);
  }

 private:
  [[nodiscard]] bool IsAtEnd() const { return position_ >= text_.size(); }
  [[nodiscard]] char Here() const { return text_[position_]; }
  // The byte `distance` ahead; 0 beyond the end.
  [[nodiscard]] char Ahead(std::size_t distance) const {
    return position_ + distance < text_.size() ? text_[position_ + distance] : '\0';
  }

  // Each returns false if memory runs out, like all functions that read a token.
  [[nodiscard]] bool AddProblem(const char* expected, std::size_t begin, std::size_t end) {
    list_.isValid = false;
    return list_.problems.Append({list_.tokens.Size(), static_cast<std::uint32_t>(begin),
                                  static_cast<std::uint32_t>(end - begin), expected}) != nullptr;
  }
  // Adds the token that ends at `end` and moves there.
  [[nodiscard]] bool Add(std::uint16_t code, std::size_t end, std::int32_t number = 0) {
    const std::size_t begin = std::exchange(position_, end);
    return list_.tokens.Append({code, number, static_cast<std::uint32_t>(begin),
                                static_cast<std::uint32_t>(end - begin), 0, 0}) != nullptr;
  }
  [[nodiscard]] bool AddBracket(std::uint16_t code, std::int32_t& open, std::int32_t change) {
    open += change;
    return Add(code, position_ + 1);
  }

  [[nodiscard]] bool ReadToken() {
    const char c = Here();
    switch (c) {
    case 9:
    case 10:
    case 12:
    case 13:
    case ' ': ++position_; return true;
    case '{': return AddBracket(kOpenBrace, list_.openBraces, 1);
    case '}': return AddBracket(kCloseBrace, list_.openBraces, -1);
    case '(': return AddBracket(kOpenParenthesis, list_.openParentheses, 1);
    case ')': return AddBracket(kCloseParenthesis, list_.openParentheses, -1);
    case ':': return ReadWord('(', '{');
    case '/': return SkipComment();
    case '"': return ReadString([this](char& byte) { return ReadQuoted(byte); });
    case '\'': return ReadString([this](char& byte) { return ReadQuotedPrintable(byte); });
    default: break;
    }
    if (IsDigit(c) || c == '-') return ReadNumber();
    if (EndsWord(c) || static_cast<unsigned char>(c) > 126) return AddInvalidByte();
    return ReadWord('}', ')');
  }

  // Adds a byte that begins no token, with all others of its character.
  [[nodiscard]] bool AddInvalidByte() {
    list_.isValid = false;
    std::size_t end = position_ + 1;
    while (end < text_.size() && !BeginsCharacter(text_[end])) ++end;
    return Add(kUnknown, end);
  }

  // Reads a keyword. It ends at a byte that ends words or at one of two brackets: an opening one
  // after a word with a colon, a closing one after a word without. Any other bracket is an error,
  // but ends the word too, so that reading can continue.
  [[nodiscard]] bool ReadWord(char bracket, char otherBracket) {
    std::size_t end = position_ + 1;
    while (end < text_.size() && !EndsWord(text_[end]) && !IsBracket(text_[end])) ++end;
    OctetString word;
    if (!AssignUpper(end, word)) return false;
    std::uint16_t code = FindKeyword(word.View());
    const char next = end < text_.size() ? text_[end] : ' ';
    const bool lacksSpace = IsBracket(next) && next != bracket && next != otherBracket;
    if ((code == 0 || lacksSpace) && list_.isValid && !KeepUnknownWord(bracket, otherBracket)) {
      return false;
    }
    if (code == 0) {
      code = Here() == ':' ? kUnknownKeyword : kUnknown;
    } else if (lacksSpace && !AddProblem("a space after this word", position_, end)) {
      return false;
    }
    return Add(code, end);
  }

  // The text from here to `end` in capitals.
  [[nodiscard]] bool AssignUpper(std::size_t end, OctetString& word) const {
    if (!word.Assign(text_.substr(position_, end - position_))) return false;
    for (char* c = word.MutableBytes(); *c != 0; ++c) *c = UpperCase(*c);
    return true;
  }

  // Keeps the word as it is printed: with all brackets that do not end it.
  [[nodiscard]] bool KeepUnknownWord(char bracket, char otherBracket) {
    list_.isValid = false;
    std::size_t end = position_ + 1;
    while (end < text_.size() && !EndsWord(text_[end]) && text_[end] != bracket &&
           text_[end] != otherBracket) {
      ++end;
    }
    return AssignUpper(end, list_.unknownWord);
  }

  [[nodiscard]] bool SkipComment() {
    const bool isBlock = Ahead(1) == '*';
    if (Ahead(1) != '/' && !AddProblem("//, which begins a comment up to the end of the line",
                                       position_, position_ + (isBlock ? 2 : 1))) {
      return false;
    }
    if (isBlock && !lacksBlockEnd_) {
      const std::size_t end = text_.find("*/", position_ + 2);
      if (end != std::string_view::npos) {
        position_ = end + 2;
        return true;
      }
      lacksBlockEnd_ = true;
    }
    while (!IsAtEnd() && !EndsLine(Here())) ++position_;
    return true;
  }

  // In double quotes a backslash escapes the next byte. False at the end of the text.
  [[nodiscard]] bool ReadQuoted(char& byte) {
    if (Here() == '\\') ++position_;
    if (IsAtEnd()) return false;
    byte = text_[position_++];
    return true;
  }

  // In single quotes "=" and two hexadecimal digits are one byte.
  [[nodiscard]] bool ReadQuotedPrintable(char& byte) {
    const int high = HexadecimalDigit(Ahead(1));
    const int low = HexadecimalDigit(Ahead(2));
    const bool isCoded = Here() == '=' && high >= 0 && low >= 0;
    byte = isCoded ? static_cast<char>(high * 16 + low) : Here();
    position_ += isCoded ? 3 : 1;
    return true;
  }

  template <class ReadByte> [[nodiscard]] bool ReadString(ReadByte&& readByte) {
    const std::size_t begin = position_++;
    const char quote = text_[begin];
    const std::size_t start = list_.stringBytes.Size();
    while (!IsAtEnd() && Here() != quote) {
      char byte = 0;
      if (readByte(byte) && !list_.stringBytes.Append(byte)) return false;
    }
    const std::size_t length = list_.stringBytes.Size() - start;
    const bool isClosed = !IsAtEnd();
    const std::size_t end = isClosed ? position_ + 1 : text_.size();
    position_ = begin;
    const bool isDoubtful = isClosed && IsDoubtful(begin, end);
    list_.hasDoubtfulString = list_.hasDoubtfulString || isDoubtful;
    const bool isCut = mode_ == LexMode::ExplainingDoubtfulStrings && isDoubtful;
    if (!isClosed || isCut) return AddOpenString(begin);
    if (!Add(kString, end)) return false;
    Token& token = *list_.tokens.Last();
    token.stringStart = static_cast<std::uint32_t>(start);
    token.stringLength = static_cast<std::uint32_t>(length);
    return true;
  }

  [[nodiscard]] bool IsDoubtful(std::size_t begin, std::size_t end) const {
    const bool isFollowed = end < text_.size() && !EndsWord(text_[end]) && !IsBracket(text_[end]);
    return isFollowed && text_.substr(begin, end - begin).find('\n') != std::string_view::npos;
  }

  // A string without its closing quote ends with its line, before any brackets at the end, but not
  // before its opening quote.
  [[nodiscard]] bool AddOpenString(std::size_t begin) {
    std::size_t end = begin;
    while (end < text_.size() && !EndsLine(text_[end])) ++end;
    while (EndsWord(text_[end - 1]) || IsBracket(text_[end - 1])) --end;
    return AddProblem("the quote that ends this string", begin, end) && Add(kString, end);
  }

  // Reads a minus or a digit, and the digits after it. A leading zero is a number by itself, and
  // there are no hexadecimal numbers.
  [[nodiscard]] bool ReadNumber() {
    const std::size_t begin = position_;
    const bool isNegative = Here() == '-';
    const bool isZero = Here() == '0';
    std::size_t end = begin + 1;
    if (isZero && (Ahead(1) == 'x' || Ahead(1) == 'X')) {
      for (end = begin + 2; end < text_.size() && HexadecimalDigit(text_[end]) >= 0;) ++end;
      return AddProblem("a decimal number", begin, end) && Add(kInteger, end);
    }
    if (isZero && (mode_ == LexMode::Plain || !IsDigit(Ahead(1)))) return Add(kInteger, end);
    while (end < text_.size() && IsDigit(text_[end])) ++end;
    std::int64_t value = 0;
    const std::int64_t largest = kLargest + (isNegative ? 1 : 0);
    for (std::size_t i = begin + (isNegative ? 1 : 0); i < end && value <= largest; ++i) {
      value = value * 10 + (text_[i] - '0');
    }
    const char* expected = nullptr;
    if (isZero) expected = "a number without a leading zero";
    if (isNegative && end == begin + 1) expected = "a digit after the -";
    if (value > largest) expected = "a number from -2147483648 to 2147483647";
    if (expected != nullptr && !AddProblem(expected, begin, end)) return false;
    return Add(kInteger, end,
               value > largest ? 0 : static_cast<std::int32_t>(isNegative ? -value : value));
  }

  static constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();

  std::string_view text_;
  LexMode mode_;
  std::size_t position_ = 0;
  bool lacksBlockEnd_ = false;  // no "*/" is left
  TokenList& list_;
};

}  // namespace

bool Lex(std::string_view text, LexMode mode, TokenList& list) {
  return Lexer(text, mode, list).Run();
}

}  // namespace korvel
