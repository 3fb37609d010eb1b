// Collects the text that is written: words with single spaces between them, brackets and indented
// lines. After a failure it writes nothing more and remembers the failure, so that callers need not
// check every call.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/class_tables.h"
#include "objects/list.h"
#include "textual/textual.h"

namespace korvel {

class TextWriter {
 public:
  // A word or a number, after a space unless a bracket or a line has just begun.
  void Word(std::string_view word);
  // Appends to the last word.
  void Append(std::string_view rest) { Add(rest); }
  void Number(std::int32_t number);
  // A string in double quotes or, if bytes must be coded, in single quotes.
  void String(std::string_view bytes);
  // A string with every byte coded, as colours are written.
  void CodedString(std::string_view bytes);

  void Open(char bracket);           // after a space
  void OpenAfterWord(char bracket);  // without a space
  void Close(char bracket);

  // Between an opening and a closing bracket, each line one level deeper.
  void Indent() { ++depth_; }
  void Outdent() { --depth_; }
  void NewLine();

  // The attribute that is being written, for the message about a value without a word.
  void SetPlace(std::int32_t object, const char* keyword) { place_ = {object, keyword, 0}; }
  void FailForWord(std::int32_t number);

  [[nodiscard]] bool HasFailed() const { return hasFailed_; }
  // The value that caused the failure; its keyword is empty if memory ran out instead.
  [[nodiscard]] const WordlessValue& Wordless() const { return wordless_; }
  [[nodiscard]] std::string_view Text() const { return {text_.begin(), text_.Size()}; }

 private:
  void Add(char byte);
  void Add(std::string_view bytes);
  void AddCoded(char byte);
  void Separate();

  List<char> text_;
  std::size_t depth_ = 0;
  bool isSpaceDue_ = false;
  bool hasFailed_ = false;
  WordlessValue place_;
  WordlessValue wordless_;
};

// ---- Writers of values, the counterparts of the builders ----

void Write(TextWriter& writer, bool value);
void Write(TextWriter& writer, std::int32_t value);
void Write(TextWriter& writer, const OctetString& value);
void Write(TextWriter& writer, const ObjectReference& value);
void Write(TextWriter& writer, const OptionalReference& value);
void Write(TextWriter& writer, const ColourValue& value);
void Write(TextWriter& writer, const FontBody& value);
void Write(TextWriter& writer, const ContentBody& value);
void Write(TextWriter& writer, const ContentReference& value);
// A value of an action or an event, without the keyword that announces the type of some parameters.
void Write(TextWriter& writer, const GenericValue& value);

// Whether there is a value that could be written. A mandatory attribute has none if its string is
// absent or its word was never set.
template <class Value> [[nodiscard]] bool IsGiven(const Value& /*value*/) { return true; }
template <IsEnumeration Enumeration> [[nodiscard]] bool IsGiven(const Enumeration& value) {
  return kWords<Enumeration>.empty() || value != Enumeration{};
}
[[nodiscard]] bool IsGiven(const OctetString& value);
[[nodiscard]] bool IsGiven(const ContentReference& value);

template <IsEnumeration Enumeration> void Write(TextWriter& writer, Enumeration value) {
  const auto number = static_cast<std::int32_t>(value);
  if (kWords<Enumeration>.empty()) return writer.Number(number);
  const char* word = WordOf(value);
  word == nullptr ? writer.FailForWord(number) : writer.Word(word);
}

template <IsSequence Record> void Write(TextWriter& writer, const Record& record) {
  const Record construction{};
  ForEachElement<Record>([&](const auto& element) {
    const auto& field = record.*element.field;
    if (element.keyword != nullptr) {
      if (field == construction.*element.field) return;
      writer.Word(element.keyword);
    }
    Write(writer, field);
  });
}

// Writes one entry of a list. A structure in a list is in parentheses.
template <class Entry> void WriteEntry(TextWriter& writer, const Entry& entry) {
  Write(writer, entry);
}
template <IsSequence Entry> void WriteEntry(TextWriter& writer, const Entry& entry) {
  writer.Open('(');
  Write(writer, entry);
  writer.Close(')');
}
void WriteEntry(TextWriter& writer, const Movement& movement);
void WriteEntry(TextWriter& writer, const ActionSlot& slot);
void WriteEntry(TextWriter& writer, const ElementaryAction& action);
void WriteEntry(TextWriter& writer, const Item& item);

// Whether list entries of this type each have their own line.
template <class Entry>
inline constexpr bool kHasLinesOfItsOwn =
    std::is_same_v<Entry, Item> || std::is_same_v<Entry, ElementaryAction> ||
    std::is_same_v<Entry, TokenGroupItem> || std::is_same_v<Entry, ActionSlot>;

template <class Entry> void Write(TextWriter& writer, const List<Entry>& list) {
  constexpr bool kIsBlock = kHasLinesOfItsOwn<Entry>;
  writer.Open('(');
  writer.Indent();
  for (const Entry& entry : list) {
    if constexpr (kIsBlock) writer.NewLine();
    WriteEntry(writer, entry);
  }
  writer.Outdent();
  if (kIsBlock && !list.IsEmpty()) writer.NewLine();
  writer.Close(')');
}

}  // namespace korvel
