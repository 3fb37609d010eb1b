// Builders of values: each reads one attribute's value from the tokens, chosen by the type of its
// field. Lists and structures are read from their parts. All return false, with the place noted in
// the reader, when the next tokens are nothing of the kind; an alternative is always chosen by its
// first token, before anything is taken.
#pragma once

#include <utility>

#include "objects/class_tables.h"
#include "objects/values.h"
#include "textual/text_reader.h"

namespace korvel {

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

// The number of a word, from 1 on.
[[nodiscard]] bool ReadWord(TextReader& reader, Words words, std::int32_t& value);

// A word, or the number of an enumeration without words.
template <IsEnumeration Enumeration>
[[nodiscard]] bool Read(TextReader& reader, Enumeration& value) {
  constexpr Words kItsWords{kWords<Enumeration>};
  std::int32_t number = 0;
  const bool isRead =
      kItsWords.empty() ? Read(reader, number) : ReadWord(reader, kItsWords, number);
  if (isRead) value = static_cast<Enumeration>(number);
  return isRead;
}

// A structure's elements in their order, those with a keyword only where it stands.
template <IsSequence Record>
[[nodiscard]] bool Read(TextReader& reader, Record& record) {
  bool isRead = true;
  ForEachElement<Record>([&](const auto& element) {
    if (!isRead) return;
    if (element.keyword != nullptr && !reader.TakeKeyword(element.keyword)) return;
    isRead = Read(reader, record.*element.field);
  });
  return isRead;
}

// One entry of a list. A structure stands in parentheses there.
template <class Entry>
[[nodiscard]] bool ReadEntry(TextReader& reader, Entry& entry) {
  return Read(reader, entry);
}
template <IsSequence Entry>
[[nodiscard]] bool ReadEntry(TextReader& reader, Entry& entry) {
  return reader.Expect(kOpenParenthesis, "(") && Read(reader, entry) &&
         reader.Expect(kCloseParenthesis, ")");
}
[[nodiscard]] bool ReadEntry(TextReader& reader, Movement& movement);
[[nodiscard]] bool ReadEntry(TextReader& reader, ActionSlot& slot);
[[nodiscard]] bool ReadEntry(TextReader& reader, ElementaryAction& action);

// Entries in parentheses.
template <class Entry>
[[nodiscard]] bool Read(TextReader& reader, List<Entry>& list) {
  if (!reader.Expect(kOpenParenthesis, "(")) return false;
  while (!reader.Take(kCloseParenthesis)) {
    Entry entry{};
    if (!ReadEntry(reader, entry)) return false;
    if (list.Append(std::move(entry)) == nullptr) return reader.RefuseForMemory();
  }
  return true;
}

}  // namespace korvel
