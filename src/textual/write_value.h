// Writers of values, the counterparts of the builders: each writes one attribute's value, chosen by
// the type of its field.
#pragma once

#include "objects/class_tables.h"
#include "objects/equality.h"
#include "objects/values.h"
#include "textual/text_writer.h"

namespace korvel {

void Write(TextWriter& writer, bool value);
void Write(TextWriter& writer, std::int32_t value);
void Write(TextWriter& writer, const OctetString& value);
void Write(TextWriter& writer, const ObjectReference& value);
void Write(TextWriter& writer, const OptionalReference& value);
void Write(TextWriter& writer, const ColourValue& value);
void Write(TextWriter& writer, const FontBody& value);
void Write(TextWriter& writer, const ContentBody& value);
void Write(TextWriter& writer, const ContentReference& value);
// A value as an action or an event carries it, without the type that some parameters are announced
// with.
void Write(TextWriter& writer, const GenericValue& value);

// Whether there is a value that could be written. An attribute that an author must write has none
// when its string is absent or when no word was ever set.
template <class Value>
[[nodiscard]] bool IsGiven(const Value& /*value*/) {
  return true;
}
template <IsEnumeration Enumeration>
[[nodiscard]] bool IsGiven(const Enumeration& value) {
  return kWords<Enumeration>.empty() || value != Enumeration{};
}
[[nodiscard]] bool IsGiven(const OctetString& value);
[[nodiscard]] bool IsGiven(const ContentReference& value);

template <IsEnumeration Enumeration>
void Write(TextWriter& writer, Enumeration value) {
  const auto number = static_cast<std::int32_t>(value);
  if (kWords<Enumeration>.empty()) return writer.Number(number);
  const char* word = WordOf(value);
  word == nullptr ? writer.FailForWord(number) : writer.Word(word);
}

template <IsSequence Record>
void Write(TextWriter& writer, const Record& record) {
  const Record construction{};
  ForEachElement<Record>([&](const auto& element) {
    const auto& field = record.*element.field;
    if (element.keyword != nullptr) {
      if (IsSame(field, construction.*element.field)) return;
      writer.Word(element.keyword);
    }
    Write(writer, field);
  });
}

// One entry of a list. A structure stands in parentheses there.
template <class Entry>
void WriteEntry(TextWriter& writer, const Entry& entry) {
  Write(writer, entry);
}
template <IsSequence Entry>
void WriteEntry(TextWriter& writer, const Entry& entry) {
  writer.Open('(');
  Write(writer, entry);
  writer.Close(')');
}
void WriteEntry(TextWriter& writer, const Movement& movement);
void WriteEntry(TextWriter& writer, const ActionSlot& slot);
void WriteEntry(TextWriter& writer, const ElementaryAction& action);
void WriteEntry(TextWriter& writer, const Item& item);

// Entries that are too long to stand side by side.
template <class Entry>
inline constexpr bool kHasLinesOfItsOwn =
    std::is_same_v<Entry, Item> || std::is_same_v<Entry, ElementaryAction> ||
    std::is_same_v<Entry, TokenGroupItem> || std::is_same_v<Entry, ActionSlot>;

template <class Entry>
void Write(TextWriter& writer, const List<Entry>& list) {
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
