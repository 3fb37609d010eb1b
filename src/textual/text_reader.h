// Gives the tokens of a text to the builders, and records errors. After an error it finds the place
// where reading can continue, if there is a report to record further errors in.
#pragma once

#include <cstddef>
#include <cstdint>
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
  // Both are borrowed. Without a report reading ends at the first error.
  TextReader(const TokenList& list, TextReport* report);

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
  void Skip();
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
  // restore.
  Construct Enter(Construct construct) {
    ReportProblems();  // in the construct that contains them
    return std::exchange(construct_, construct);
  }

  // Records that the next token is wrong and what was expected in its place. Always returns false,
  // for the caller to return.
  bool Refuse(const char* expected, TextChoice choice = TextChoice::None, Words words = {},
              std::uint32_t first = 0);
  // The same for an attribute that the object already has.
  bool RefuseRepeated(const char* keyword);
  bool RefuseForMemory();

  // Like the next two, returns false if memory runs out.
  [[nodiscard]] bool NoteMissing(const MissingPart& part);
  // Records the place of the object or attribute that has just been entered, or of the attribute's
  // next action.
  [[nodiscard]] bool NotePlace(const Token& begin);
  [[nodiscard]] bool NoteActionPlace(const Token& begin) { return AddPlace(begin, actionCount_++); }

  // ---- Continuing after an error ----

  // False after an error that ends reading: the last of a report, or any if there is no report.
  [[nodiscard]] bool MayContinue() const;
  // The number of errors so far; always 0 without a report.
  [[nodiscard]] std::size_t ErrorCount() const { return errorCount_; }
  // The number of parentheses that are open in the object that is being read.
  [[nodiscard]] std::int32_t OpenParentheses() const { return openParentheses_; }
  std::int32_t SetOpenParentheses(std::int32_t count) {
    return std::exchange(openParentheses_, count);
  }
  // After an error in what begins at the token `begin`, each skips at least that token unless it
  // ends the object. Their number of steps is limited by that of the tokens.
  //
  // Moves to the object's next attribute or its closing brace. False if there is neither: the
  // object lacks its brace, or reading must end.
  [[nodiscard]] bool ContinueObject(std::size_t begin, bool isGroup);
  // Moves to the next action or object of the list with that number of open parentheses, or to its
  // closing parenthesis. False if the list lacks it or reading must end.
  [[nodiscard]] bool ContinueList(std::size_t begin, std::int32_t openParentheses, bool hasObjects);

 private:
  bool TakeNext() {
    Skip();
    return true;
  }
  [[nodiscard]] bool AddPlace(const Token& begin, std::int32_t action);
  void AddError(const TextError& error);
  void ReportProblems();

  [[nodiscard]] bool IsAtAction() const;
  [[nodiscard]] bool IsAtAttribute() const;
  // Consumes an opening brace and everything up to its closing one.
  void SkipObject();
  // Whether the next token is a closing bracket too many in the whole text, which the call uses up.
  [[nodiscard]] bool IsSurplus(std::uint16_t bracket);
  // Whether the attribute at the next token shows that the closing parenthesis before it is
  // missing.
  [[nodiscard]] bool IsAfterLostParenthesis() const;

  const TokenList& list_;
  TextReport* report_;
  std::size_t place_ = 0;
  Construct construct_;
  std::int32_t actionCount_ = 0;  // of the attribute that is being read
  bool isOutOfMemory_ = false;
  std::size_t errorCount_ = 0;
  // No further error is recorded up to this token; SIZE_MAX before the first error.
  std::size_t refusedPlace_ = SIZE_MAX;
  std::size_t nextProblem_ = 0;  // the first of the lexer's that is not recorded yet
  std::int32_t openParentheses_ = 0;
  // Closing brackets too many in the rest of the text; negative if some are missing.
  std::int32_t surplusBraces_;
  std::int32_t surplusParentheses_;
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
