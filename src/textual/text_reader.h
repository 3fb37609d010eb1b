// Gives the tokens of a text to the builders, and remembers the furthest token that could not be
// read, which is probably the author's error.
#pragma once

#include <utility>

#include "objects/class_tables.h"
#include "textual/lexer.h"
#include "textual/textual.h"

namespace korvel {

// The context of a token, for messages: an object's class, the keyword of its attribute and its
// number, or an action. Empty outside all objects.
struct Construct {
  const char* owner = "";
  const char* part = "";
  std::int32_t object = 0;
};

class TextReader {
 public:
  // All are borrowed. `missing` and `places` may be null.
  TextReader(const TokenList& list, List<MissingPart>* missing, List<SourcePlace>* places)
      : list_(list), missing_(missing), places_(places) {}

  [[nodiscard]] const Token& Next() const { return list_.tokens[place_]; }
  [[nodiscard]] std::string_view String(const Token& token) const { return list_.String(token); }
  [[nodiscard]] bool IsAt(std::uint16_t code) const { return Next().code == code; }
  // Ignores the case of `keyword`.
  [[nodiscard]] bool IsAtKeyword(const char* keyword) const {
    return IsKeyword(Next().code) && IsSameWord(KeywordText(Next().code), keyword);
  }
  // Whether an object with that keyword begins here: a brace and the keyword after it.
  [[nodiscard]] bool IsAtObject(const char* keyword) const {
    if (!IsAt(kOpenBrace)) return false;
    const std::uint16_t code = list_.tokens[place_ + 1].code;
    return IsKeyword(code) && IsSameWord(KeywordText(code), keyword);
  }

  // Consumes the next token, which must not be the end of the text.
  void Skip() { ++place_; }
  // Consumes the next token if it is the given one.
  bool Take(std::uint16_t code) { return IsAt(code) && TakeNext(); }
  bool TakeKeyword(const char* keyword) { return IsAtKeyword(keyword) && TakeNext(); }
  // Consumes the next token, which must be the given one.
  [[nodiscard]] bool Expect(std::uint16_t code, const char* expected) {
    return Take(code) || Refuse(expected);
  }
  [[nodiscard]] bool ExpectKeyword(const char* keyword) {
    return TakeKeyword(keyword) || Refuse(keyword);
  }

  // The index of the next token, to return to later.
  [[nodiscard]] std::size_t Place() const { return place_; }
  void ReturnTo(std::size_t place) { place_ = place; }

  // Sets the construct that is read from here on, and returns the previous one for the caller to
  // restore. After a refusal, restoring it is not needed: the refusal has recorded the construct.
  Construct Enter(Construct construct) { return std::exchange(construct_, construct); }

  // Records what was expected in place of the next token; `subject` is appended to it. Always
  // returns false, for the caller to return.
  bool Refuse(const char* expected, const char* subject = "") {
    if (place_ > refusedPlace_ || *expected_ == 0) {
      refusedPlace_ = place_;
      expected_ = expected;
      subject_ = subject;
      refusedIn_ = construct_;
    }
    return false;
  }
  // The same for an allocation that failed.
  bool RefuseForMemory() { return Refuse("more memory"); }

  // Records a missing mandatory part.
  [[nodiscard]] bool NoteMissing(const Token& begin, const char* owner, const char* missing) {
    if (missing_ == nullptr) return true;
    return missing_->Append({begin.offset, owner, missing}) != nullptr || RefuseForMemory();
  }

  // Records the place of the object or attribute that has just been entered.
  [[nodiscard]] bool NotePlace(const Token& begin) {
    actionCount_ = 0;
    return AddPlace(begin, -1);
  }
  // The same for the next action of the attribute.
  [[nodiscard]] bool NoteActionPlace(const Token& begin) { return AddPlace(begin, actionCount_++); }

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
  [[nodiscard]] bool AddPlace(const Token& begin, std::int32_t action) {
    if (places_ == nullptr) return true;
    const SourcePlace place{begin.offset, construct_.object, construct_.part, action};
    return places_->Append(place) != nullptr || RefuseForMemory();
  }

  const TokenList& list_;
  List<MissingPart>* missing_;
  List<SourcePlace>* places_;
  std::int32_t actionCount_ = 0;  // of the attribute that is being read
  std::size_t place_ = 0;
  std::size_t refusedPlace_ = 0;
  const char* expected_ = "";
  const char* subject_ = "";
  Construct construct_;
  Construct refusedIn_;
};

// ---- Builders ----

// Each builder reads a value from the tokens, chosen by the type of its field. All return false,
// with the refusal recorded, if the next tokens do not form such a value. Alternatives are chosen
// by their first token, before any token is consumed.
[[nodiscard]] bool Read(TextReader& reader, bool& value);
[[nodiscard]] bool Read(TextReader& reader, std::int32_t& value);
[[nodiscard]] bool Read(TextReader& reader, OctetString& value);
[[nodiscard]] bool Read(TextReader& reader, ObjectReference& value);
[[nodiscard]] bool Read(TextReader& reader, OptionalReference& value);
[[nodiscard]] bool Read(TextReader& reader, ColourValue& value);
[[nodiscard]] bool Read(TextReader& reader, FontBody& value);
[[nodiscard]] bool Read(TextReader& reader, ContentBody& value);
// A path, with or without parentheses.
[[nodiscard]] bool Read(TextReader& reader, ContentReference& value);
// An event's data: a boolean, an integer or a string.
[[nodiscard]] bool Read(TextReader& reader, GenericValue& value);

// A parameter or target: a literal of that kind, or ":IndirectRef" and the variable that holds one.
[[nodiscard]] bool ReadGeneric(TextReader& reader, ValueKind kind, GenericValue& value);

// Reads one of these words as its number. The first word is 1.
[[nodiscard]] bool ReadWord(TextReader& reader, Words words, std::int32_t& value);

// A word, or the number of an enumeration without words.
template <IsEnumeration Enumeration>
[[nodiscard]] bool Read(TextReader& reader, Enumeration& value) {
  constexpr Words kAllowedWords{kWords<Enumeration>};
  std::int32_t number = 0;
  const bool isRead =
      kAllowedWords.empty() ? Read(reader, number) : ReadWord(reader, kAllowedWords, number);
  if (isRead) value = static_cast<Enumeration>(number);
  return isRead;
}

// Reads a structure's elements in order. Those with a keyword are optional.
template <IsSequence Record> [[nodiscard]] bool Read(TextReader& reader, Record& record) {
  bool isRead = true;
  ForEachElement<Record>([&](const auto& element) {
    if (!isRead) return;
    if (element.keyword != nullptr && !reader.TakeKeyword(element.keyword)) return;
    isRead = Read(reader, record.*element.field);
  });
  return isRead;
}

// Reads one entry of a list. A structure in a list is in parentheses.
template <class Entry> [[nodiscard]] bool ReadEntry(TextReader& reader, Entry& entry) {
  return Read(reader, entry);
}
template <IsSequence Entry> [[nodiscard]] bool ReadEntry(TextReader& reader, Entry& entry) {
  return reader.Expect(kOpenParenthesis, "(") && Read(reader, entry) &&
         reader.Expect(kCloseParenthesis, ")");
}
[[nodiscard]] bool ReadEntry(TextReader& reader, Movement& movement);
[[nodiscard]] bool ReadEntry(TextReader& reader, ActionSlot& slot);
[[nodiscard]] bool ReadEntry(TextReader& reader, ElementaryAction& action);

// Any number of entries in parentheses. `readNext` reads one.
template <class ReadNext>
[[nodiscard]] bool ReadInParentheses(TextReader& reader, ReadNext&& readNext) {
  if (!reader.Expect(kOpenParenthesis, "(")) return false;
  while (!reader.Take(kCloseParenthesis)) {
    if (!readNext()) return false;
  }
  return true;
}

template <class Entry> [[nodiscard]] bool Read(TextReader& reader, List<Entry>& list) {
  return ReadInParentheses(reader, [&] {
    Entry entry{};
    if (!ReadEntry(reader, entry)) return false;
    return list.Append(std::move(entry)) != nullptr || reader.RefuseForMemory();
  });
}

}  // namespace korvel
