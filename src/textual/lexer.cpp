// One pass over the text, a token at a time. Every scan stops at the end of the text and every step
// advances, so that reading always terminates.
#include "textual/lexer.h"

#include <limits>
#include <utility>

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

class Lexer {
 public:
  Lexer(std::string_view text, TokenList& list, LexStop& stop)
      : text_(text), list_(list), stop_(stop) {}

  LexResult Run() {
    if (text_.size() > kMaxTextSize) {
      position_ = kMaxTextSize;
      return Stop(LexResult::BadText, "the end: a text has at most 65535 bytes");
    }
    while (!IsAtEnd()) {
      const LexResult result = ReadToken();
      if (result != LexResult::Done) return result;
    }
    return AddSimple(kEndOfText);
  }

 private:
  [[nodiscard]] bool IsAtEnd() const { return position_ >= text_.size(); }
  [[nodiscard]] char Here() const { return text_[position_]; }
  // The byte `distance` ahead; 0 beyond the end.
  [[nodiscard]] char Ahead(std::size_t distance) const {
    return position_ + distance < text_.size() ? text_[position_ + distance] : '\0';
  }
  LexResult Stop(LexResult result, const char* expected, const char* subject = "") {
    stop_ = {static_cast<std::uint32_t>(position_), expected, subject, {}};
    return result;
  }
  LexResult StopAt(OctetString unknownWord) {
    const char* guess = NearestKeyword(unknownWord.View());
    const LexResult result = guess == nullptr
                                 ? Stop(LexResult::UnknownWord, "a keyword")
                                 : Stop(LexResult::UnknownWord, "a keyword such as ", guess);
    stop_.word = std::move(unknownWord);
    return result;
  }
  LexResult Add(const Token& token) {
    return list_.tokens.Append(token) ? LexResult::Done : LexResult::NoMemory;
  }
  LexResult AddSimple(std::uint16_t code) {
    return Add({code, 0, static_cast<std::uint32_t>(position_), 0, 0});
  }
  LexResult AddBracket(std::uint16_t code) {
    const LexResult result = AddSimple(code);
    ++position_;
    return result;
  }

  LexResult ReadToken() {
    const char c = Here();
    switch (c) {
    case 9:
    case 10:
    case 12:
    case 13:
    case ' ': return SkipByte();
    case '{': return AddBracket(kOpenBrace);
    case '}': return AddBracket(kCloseBrace);
    case '(': return AddBracket(kOpenParenthesis);
    case ')': return AddBracket(kCloseParenthesis);
    case ':': return ReadWord('(', '{');
    case '/': return SkipComment();
    case '"': return ReadQuoted();
    case '\'': return ReadQuotedPrintable();
    default: break;
    }
    if (IsDigit(c) || c == '-') return ReadNumber();
    if (EndsWord(c) || static_cast<unsigned char>(c) > 126) {
      return Stop(LexResult::BadText, "a keyword, a value or a bracket");
    }
    return ReadWord('}', ')');
  }

  LexResult SkipByte() {
    ++position_;
    return LexResult::Done;
  }

  // Reads a keyword, up to a byte that ends words or one of two brackets: an opening one after a
  // word with a colon, a closing one after a word without.
  LexResult ReadWord(char bracket, char otherBracket) {
    std::size_t end = position_;
    while (end < text_.size() && !EndsWord(text_[end]) &&
           (end == position_ || (text_[end] != bracket && text_[end] != otherBracket))) {
      ++end;
    }
    OctetString word;
    if (!word.Assign(text_.substr(position_, end - position_))) return LexResult::NoMemory;
    for (char* c = word.MutableBytes(); *c != 0; ++c) *c = UpperCase(*c);
    const std::uint16_t code = FindKeyword(word.View());
    if (code == 0) return StopAt(std::move(word));
    const LexResult result = AddSimple(code);
    position_ = end;
    return result;
  }

  LexResult SkipComment() {
    if (Ahead(1) != '/') return Stop(LexResult::UnknownWord, "a second \"/\"");
    while (!IsAtEnd() && !EndsLine(Here())) ++position_;
    if (!IsAtEnd()) ++position_;
    return LexResult::Done;
  }

  // In double quotes a backslash escapes the next byte.
  LexResult ReadQuoted() {
    return ReadString('"', [this](char& byte) {
      if (Here() == '\\') ++position_;
      if (IsAtEnd()) return false;
      byte = text_[position_++];
      return true;
    });
  }

  // In single quotes "=" and two hexadecimal digits are one byte.
  LexResult ReadQuotedPrintable() {
    return ReadString('\'', [this](char& byte) {
      const int high = HexadecimalDigit(Ahead(1));
      const int low = HexadecimalDigit(Ahead(2));
      const bool isCoded = Here() == '=' && high >= 0 && low >= 0;
      byte = isCoded ? static_cast<char>(high * 16 + low) : Here();
      position_ += isCoded ? 3 : 1;
      return true;
    });
  }

  template <class ReadByte> LexResult ReadString(char quote, ReadByte&& readByte) {
    const std::size_t begin = position_++;
    const std::size_t start = list_.stringBytes.Size();
    while (!IsAtEnd() && Here() != quote) {
      char byte = 0;
      if (!readByte(byte)) break;
      if (!list_.stringBytes.Append(byte)) return LexResult::NoMemory;
    }
    if (IsAtEnd()) {
      position_ = begin;
      return Stop(LexResult::BadText, "a string with its closing quote");
    }
    ++position_;
    return Add({kString, 0, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(start),
                static_cast<std::uint32_t>(list_.stringBytes.Size() - start)});
  }

  // Reads a minus or a digit, and the digits after it. A leading zero is a number by itself, and
  // there are no hexadecimal numbers.
  LexResult ReadNumber() {
    const std::size_t begin = position_;
    const bool isNegative = Here() == '-';
    if (isNegative && !IsDigit(Ahead(1))) {
      return Stop(LexResult::BadText, "a digit behind the \"-\"");
    }
    if (Here() == '0') {
      if (Ahead(1) == 'x' || Ahead(1) == 'X') return Stop(LexResult::BadText, "a decimal number");
      return AddNumber(begin, begin + 1, 0);
    }
    std::size_t end = begin + 1;
    while (end < text_.size() && IsDigit(text_[end])) ++end;
    std::int64_t value = 0;
    for (std::size_t i = begin + (isNegative ? 1 : 0); i < end; ++i) {
      value = value * 10 + (text_[i] - '0');
      if (value > kLargest + (isNegative ? 1 : 0)) {
        return Stop(LexResult::BadText, "a number of 32 bits");
      }
    }
    return AddNumber(begin, end, static_cast<std::int32_t>(isNegative ? -value : value));
  }
  LexResult AddNumber(std::size_t begin, std::size_t end, std::int32_t value) {
    position_ = end;
    return Add({kInteger, value, static_cast<std::uint32_t>(begin), 0, 0});
  }

  static constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();

  std::string_view text_;
  std::size_t position_ = 0;
  TokenList& list_;
  LexStop& stop_;
};

}  // namespace

LexResult Lex(std::string_view text, TokenList& list, LexStop& stop) {
  return Lexer(text, list, stop).Run();
}

}  // namespace korvel
