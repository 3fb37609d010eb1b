// The builders of values, except actions and objects.
#include "textual/text_reader.h"

#include <array>

namespace korvel {
namespace {

bool ReadReferencedContent(TextReader& reader, ContentBody& value) {
  const bool isBracketed = reader.Take(kOpenParenthesis);
  if (!Read(reader, value.Data)) return false;
  value.IsReferenced = true;
  if (reader.TakeKeyword(":ContentSize") && !Read(reader, value.Size)) return false;
  if (reader.TakeKeyword(":CCPriority") && !Read(reader, value.CachePriority)) return false;
  return !isBracketed || reader.Expect(kCloseParenthesis, ")");
}

bool ReadLiteral(TextReader& reader, ValueKind kind, GenericValue& value) {
  switch (kind) {
  case ValueKind::None: break;
  case ValueKind::Boolean: return Read(reader, value.Boolean);
  case ValueKind::Integer: return Read(reader, value.Integer);
  case ValueKind::OctetString: return Read(reader, value.Octets);
  case ValueKind::ObjectReference:
  case ValueKind::IndirectReference: return Read(reader, value.Reference);
  case ValueKind::ContentReference: {
    ContentReference content;
    if (!reader.ExpectKeyword(":ContentRef") || !Read(reader, content)) return false;
    value.Octets = std::move(content.Path);
    return true;
  }
  }
  return reader.Refuse("a value");
}

}  // namespace

bool Read(TextReader& reader, bool& value) {
  static constexpr std::array kBooleanWords = {"TRUE", "FALSE"};
  if (!reader.IsAt(kTrueWord) && !reader.IsAt(kFalseWord)) {
    return reader.Refuse("", TextChoice::None, kBooleanWords);
  }
  value = reader.IsAt(kTrueWord);
  reader.Skip();
  return true;
}

bool ReadWord(TextReader& reader, Words words, std::int32_t& value) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (!reader.TakeKeyword(words[i])) continue;
    value = static_cast<std::int32_t>(i + 1);
    return true;
  }
  return reader.Refuse("", TextChoice::None, words);
}

bool Read(TextReader& reader, std::int32_t& value) {
  if (!reader.IsAt(kInteger)) return reader.Refuse("an integer");
  value = reader.Next().number;
  reader.Skip();
  return true;
}

bool Read(TextReader& reader, OctetString& value) {
  if (!reader.IsAt(kString)) return reader.Refuse("a string");
  if (!value.Assign(reader.String(reader.Next()))) return reader.RefuseForMemory();
  reader.Skip();
  return true;
}

bool Read(TextReader& reader, ObjectReference& value) {
  if (!reader.Take(kOpenParenthesis)) {
    return reader.IsAt(kInteger) ? Read(reader, value.Number)
                                 : reader.Refuse("an object number or (\"group\" number)");
  }
  return Read(reader, value.GroupIdentifier) && Read(reader, value.Number) &&
         reader.Expect(kCloseParenthesis, ")");
}

bool Read(TextReader& reader, OptionalReference& value) {
  value.IsPresent = Read(reader, value.Reference);
  return value.IsPresent;
}

bool Read(TextReader& reader, ColourValue& value) {
  const bool isAbsolute = reader.IsAt(kString);
  if (!isAbsolute && !reader.IsAt(kInteger)) {
    return reader.Refuse("a colour: '=FF=80=00' (red, green, blue) or an index in a palette");
  }
  value.Kind = isAbsolute ? ValueKind::OctetString : ValueKind::Integer;
  return isAbsolute ? Read(reader, value.Absolute) : Read(reader, value.Index);
}

bool Read(TextReader& reader, FontBody& value) {
  const bool isName = reader.IsAt(kString);
  value.Kind = isName ? ValueKind::OctetString : ValueKind::ObjectReference;
  return isName ? Read(reader, value.Name) : Read(reader, value.Reference);
}

bool Read(TextReader& reader, ContentBody& value) {
  return reader.TakeKeyword(":ContentRef") ? ReadReferencedContent(reader, value)
                                           : Read(reader, value.Data);
}

bool Read(TextReader& reader, ContentReference& value) {
  const bool isBracketed = reader.Take(kOpenParenthesis);
  return Read(reader, value.Path) && (!isBracketed || reader.Expect(kCloseParenthesis, ")"));
}

bool Read(TextReader& reader, GenericValue& value) {
  if (reader.IsAt(kInteger)) {
    value.Kind = ValueKind::Integer;
  } else if (reader.IsAt(kString)) {
    value.Kind = ValueKind::OctetString;
  } else if (reader.IsAt(kTrueWord) || reader.IsAt(kFalseWord)) {
    value.Kind = ValueKind::Boolean;
  } else {
    return reader.Refuse("a boolean, an integer or a string");
  }
  return ReadLiteral(reader, value.Kind, value);
}

bool ReadGeneric(TextReader& reader, ValueKind kind, GenericValue& value) {
  value.Kind = reader.TakeKeyword(":IndirectRef") ? ValueKind::IndirectReference : kind;
  return ReadLiteral(reader, value.Kind, value);
}

bool ReadEntry(TextReader& reader, Movement& movement) { return Read(reader, movement.Targets); }

bool ReadEntry(TextReader& reader, ActionSlot& slot) {
  slot.IsNull = reader.Take(kNullWord);
  return slot.IsNull || Read(reader, slot.Actions);
}

}  // namespace korvel
