// Walks the tokens of a text for the builders, and remembers the furthest place that none of them
// could read, which is where the author has to look.
#pragma once

#include <utility>

#include "textual/lexer.h"
#include "textual/textual.h"

namespace korvel {

// What a token stands in, for messages: an object's class and the keyword of its attribute, or an
// action. Empty outside of everything.
struct Construct {
  const char* owner = "";
  const char* part = "";
};

class TextReader {
 public:
  // Both are borrowed. `missing` may be null.
  TextReader(const TokenList& list, List<MissingPart>* missing) noexcept
      : list_(list), missing_(missing) {}

  [[nodiscard]] const Token& Next() const noexcept { return list_.tokens[place_]; }
  [[nodiscard]] std::string_view String(const Token& token) const noexcept {
    return list_.String(token);
  }
  [[nodiscard]] bool IsAt(std::uint16_t code) const noexcept { return Next().code == code; }
  // `keyword` in any case of letters.
  [[nodiscard]] bool IsAtKeyword(const char* keyword) const noexcept {
    return IsKeyword(Next().code) && IsSameWord(KeywordText(Next().code), keyword);
  }
  // Whether an object with that keyword begins here: a brace and the keyword behind it.
  [[nodiscard]] bool IsAtObject(const char* keyword) const noexcept {
    if (!IsAt(kOpenBrace)) return false;
    const std::uint16_t code = list_.tokens[place_ + 1].code;
    return IsKeyword(code) && IsSameWord(KeywordText(code), keyword);
  }

  // Takes the next token, which is not the end of the text.
  void Skip() noexcept { ++place_; }
  // Takes the next token if it is this one.
  bool Take(std::uint16_t code) noexcept { return IsAt(code) && TakeNext(); }
  bool TakeKeyword(const char* keyword) noexcept { return IsAtKeyword(keyword) && TakeNext(); }
  // Takes the next token, which must be this one.
  [[nodiscard]] bool Expect(std::uint16_t code, const char* expected) noexcept {
    return Take(code) || Refuse(expected);
  }
  [[nodiscard]] bool ExpectKeyword(const char* keyword) noexcept {
    return TakeKeyword(keyword) || Refuse(keyword);
  }

  // The place of the next token, and the way back to it.
  [[nodiscard]] std::size_t Place() const noexcept { return place_; }
  void PutBackTo(std::size_t place) noexcept { place_ = place; }

  // Says what is read from here on, and returns what was read before, for the caller to go back to.
  // After a refusal nobody needs to: it has been noted with the innermost.
  Construct Enter(Construct construct) noexcept { return std::exchange(construct_, construct); }

  // Notes what could have stood at the next token; `subject` is added to it. Always false, for the
  // caller to return.
  bool Refuse(const char* expected, const char* subject = "") noexcept;
  // The same for an allocation that failed.
  bool RefuseForMemory() noexcept { return Refuse("more memory"); }

  // Notes a part that an author has to write.
  [[nodiscard]] bool NoteMissing(const Token& begin, const char* owner,
                                 const char* missing) noexcept;

  // The furthest refusal.
  [[nodiscard]] const Token& RefusedToken() const noexcept { return list_.tokens[refusedPlace_]; }
  [[nodiscard]] const char* Expected() const noexcept { return expected_; }
  [[nodiscard]] const char* Subject() const noexcept { return subject_; }
  [[nodiscard]] Construct RefusedIn() const noexcept { return refusedIn_; }

 private:
  bool TakeNext() noexcept {
    ++place_;
    return true;
  }

  const TokenList& list_;
  List<MissingPart>* missing_;
  std::size_t place_ = 0;
  std::size_t refusedPlace_ = 0;
  const char* expected_ = "";
  const char* subject_ = "";
  Construct construct_;
  Construct refusedIn_;
};

}  // namespace korvel
