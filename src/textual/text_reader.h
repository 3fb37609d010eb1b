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
  TextReader(const TokenList& list, List<MissingPart>* missing) : list_(list), missing_(missing) {}

  [[nodiscard]] const Token& Next() const { return list_.tokens[place_]; }
  [[nodiscard]] std::string_view String(const Token& token) const { return list_.String(token); }
  [[nodiscard]] bool IsAt(std::uint16_t code) const { return Next().code == code; }
  // `keyword` in any case of letters.
  [[nodiscard]] bool IsAtKeyword(const char* keyword) const {
    return IsKeyword(Next().code) && IsSameWord(KeywordText(Next().code), keyword);
  }
  // Whether an object with that keyword begins here: a brace and the keyword behind it.
  [[nodiscard]] bool IsAtObject(const char* keyword) const {
    if (!IsAt(kOpenBrace)) return false;
    const std::uint16_t code = list_.tokens[place_ + 1].code;
    return IsKeyword(code) && IsSameWord(KeywordText(code), keyword);
  }

  // Takes the next token, which is not the end of the text.
  void Skip() { ++place_; }
  // Takes the next token if it is this one.
  bool Take(std::uint16_t code) { return IsAt(code) && TakeNext(); }
  bool TakeKeyword(const char* keyword) { return IsAtKeyword(keyword) && TakeNext(); }
  // Takes the next token, which must be this one.
  [[nodiscard]] bool Expect(std::uint16_t code, const char* expected) {
    return Take(code) || Refuse(expected);
  }
  [[nodiscard]] bool ExpectKeyword(const char* keyword) {
    return TakeKeyword(keyword) || Refuse(keyword);
  }

  // The place of the next token, and the way back to it.
  [[nodiscard]] std::size_t Place() const { return place_; }
  void PutBackTo(std::size_t place) { place_ = place; }

  // Says what is read from here on, and returns what was read before, for the caller to go back to.
  // After a refusal nobody needs to: it has been noted with the innermost.
  Construct Enter(Construct construct) { return std::exchange(construct_, construct); }

  // Notes what could have stood at the next token; `subject` is added to it. Always false, for the
  // caller to return.
  bool Refuse(const char* expected, const char* subject = "");
  // The same for an allocation that failed.
  bool RefuseForMemory() { return Refuse("more memory"); }

  // Notes a part that an author has to write.
  [[nodiscard]] bool NoteMissing(const Token& begin, const char* owner, const char* missing);

  // The furthest refusal.
  [[nodiscard]] const Token& RefusedToken() const { return list_.tokens[refusedPlace_]; }
  [[nodiscard]] const char* Expected() const { return expected_; }
  [[nodiscard]] const char* Subject() const { return subject_; }
  [[nodiscard]] Construct RefusedIn() const { return refusedIn_; }

 private:
  bool TakeNext() {
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
