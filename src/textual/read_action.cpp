// The builder of actions. The action table lists the contents of an action's parentheses; a
// composite parameter becomes several consecutive values, as in the BER decoder.
#include "objects/action_table.h"
#include "objects/vocabulary.h"
#include "textual/text_reader.h"

namespace korvel {
namespace {

using Parameters = List<GenericValue>;

bool Add(TextReader& reader, GenericValue&& value, Parameters& parameters) {
  return parameters.Append(std::move(value)) != nullptr || reader.RefuseForMemory();
}

bool AddGeneric(TextReader& reader, ValueKind kind, Parameters& parameters) {
  GenericValue value;
  return ReadGeneric(reader, kind, value) && Add(reader, std::move(value), parameters);
}

bool AddIntegerOrNull(TextReader& reader, Parameters& parameters) {
  if (reader.Take(kNullWord)) return Add(reader, GenericValue{}, parameters);
  return AddGeneric(reader, ValueKind::Integer, parameters);
}

// A value that may be missing before the closing parenthesis.
bool AddOptional(TextReader& reader, ValueKind kind, Parameters& parameters) {
  return reader.IsAt(kCloseParenthesis) || AddGeneric(reader, kind, parameters);
}

bool AddTyped(TextReader& reader, Parameters& parameters) {
  using enum ValueKind;
  for (const ValueKind kind : {Integer, Boolean, OctetString, ObjectReference, ContentReference}) {
    if (reader.TakeKeyword(TypeWord(kind))) return AddGeneric(reader, kind, parameters);
  }
  return reader.Refuse("a value after its type: :GInteger, :GBoolean, :GOctetString, :GObjectRef "
                       "or :GContentRef");
}

bool AddTypedList(TextReader& reader, Parameters& parameters) {
  while (!reader.IsAt(kCloseParenthesis)) {
    if (!AddTyped(reader, parameters)) return false;
  }
  return true;
}

bool AddReferences(TextReader& reader, Parameters& parameters) {
  return ReadInParentheses(
      reader, [&] { return AddGeneric(reader, ValueKind::ObjectReference, parameters); });
}

// A point without its second coordinate is accepted, because BER can hold one.
bool AddPoint(TextReader& reader, Parameters& parameters) {
  if (!reader.Expect(kOpenParenthesis, "(") ||
      !AddGeneric(reader, ValueKind::Integer, parameters)) {
    return false;
  }
  const bool isComplete = !reader.IsAt(kCloseParenthesis);
  const bool isTaken = isComplete ? AddGeneric(reader, ValueKind::Integer, parameters)
                                  : reader.NoteMissing({reader.Next().offset, "a point", "y"});
  return isTaken && reader.Expect(kCloseParenthesis, ")");
}

bool AddPoints(TextReader& reader, Parameters& parameters) {
  return ReadInParentheses(reader, [&] { return AddPoint(reader, parameters); });
}

bool AddColour(TextReader& reader, Parameters& parameters) {
  if (reader.TakeKeyword(":NewColourIndex")) {
    return AddGeneric(reader, ValueKind::Integer, parameters);
  }
  if (reader.TakeKeyword(":NewAbsoluteColour")) {
    return AddGeneric(reader, ValueKind::OctetString, parameters);
  }
  return reader.Refuse(":NewColourIndex or :NewAbsoluteColour");
}

// A size that is omitted becomes a value of kind None before a cache priority, and after an
// indirect reference, which would be included content if it were the only value.
bool AddNewContent(TextReader& reader, Parameters& parameters) {
  if (!reader.TakeKeyword(":NewRefContent")) {
    return AddGeneric(reader, ValueKind::OctetString, parameters);
  }
  if (!reader.Expect(kOpenParenthesis, "(")) return false;
  const bool isIndirect = reader.IsAtKeyword(":IndirectRef");
  if (!AddGeneric(reader, ValueKind::ContentReference, parameters)) return false;
  if (reader.TakeKeyword(":NewContentSize")) {
    if (!AddIntegerOrNull(reader, parameters)) return false;
  } else if (isIndirect || reader.IsAtKeyword(":NewCCPriority")) {
    if (!Add(reader, GenericValue{}, parameters)) return false;
  }
  if (reader.TakeKeyword(":NewCCPriority") && !AddIntegerOrNull(reader, parameters)) return false;
  return reader.Expect(kCloseParenthesis, ")");
}

bool AddNewTimer(TextReader& reader, Parameters& parameters) {
  return AddGeneric(reader, ValueKind::Integer, parameters) &&
         (!reader.TakeKeyword(":AbsoluteTime") ||
          AddGeneric(reader, ValueKind::Boolean, parameters));
}

bool AddEventNumber(TextReader& reader, Parameters& parameters) {
  if (reader.IsAt(kInteger) || reader.IsAtKeyword(":IndirectRef")) {
    return AddGeneric(reader, ValueKind::Integer, parameters);
  }
  GenericValue event;
  event.Kind = ValueKind::Integer;
  return ReadWord(reader, kWords<EventType>, event.Integer) &&
         Add(reader, std::move(event), parameters);
}

bool AddParameter(TextReader& reader, Parameter parameter, Parameters& parameters) {
  switch (parameter) {
  case Parameter::Integer: return AddGeneric(reader, ValueKind::Integer, parameters);
  case Parameter::IntegerOrNull: return AddIntegerOrNull(reader, parameters);
  case Parameter::Boolean: return AddGeneric(reader, ValueKind::Boolean, parameters);
  case Parameter::Octets: return AddGeneric(reader, ValueKind::OctetString, parameters);
  case Parameter::Reference: return AddGeneric(reader, ValueKind::ObjectReference, parameters);
  case Parameter::Typed: return AddTyped(reader, parameters);
  case Parameter::TypedList: return AddTypedList(reader, parameters);
  case Parameter::References: return AddReferences(reader, parameters);
  case Parameter::Points: return AddPoints(reader, parameters);
  case Parameter::Colour: return AddColour(reader, parameters);
  case Parameter::FontChoice:
    return AddGeneric(reader,
                      reader.IsAt(kString) ? ValueKind::OctetString : ValueKind::ObjectReference,
                      parameters);
  case Parameter::NewContent: return AddNewContent(reader, parameters);
  case Parameter::NewTimer: return AddNewTimer(reader, parameters);
  case Parameter::Speed:
    return AddGeneric(reader, ValueKind::Integer, parameters) &&
           AddOptional(reader, ValueKind::Integer, parameters);
  case Parameter::EventNumber: return AddEventNumber(reader, parameters);
  }
  return false;
}

const ActionRow* ActionAt(const TextReader& reader) {
  const std::uint16_t code = reader.Next().code;
  if (!IsKeyword(code) || KeywordText(code)[0] != ':') return nullptr;
  return FindActionByName(KeywordText(code) + 1);
}

// A new colour may be omitted; that means no colour.
bool IsAnyMissing(const ActionRow& row, std::size_t given) {
  return given < row.requiredCount && row.parameters[given] != Parameter::Colour;
}

// The target and the values, with their parentheses.
bool ReadValues(TextReader& reader, const ActionRow& row, ElementaryAction& action) {
  if (!reader.Expect(kOpenParenthesis, "(") ||
      !ReadGeneric(reader, ValueKind::ObjectReference, action.Target)) {
    return false;
  }
  std::size_t given = 0;
  for (const Parameter parameter : row.Syntax()) {
    if (reader.IsAt(kCloseParenthesis)) break;
    if (!AddParameter(reader, parameter, action.Parameters)) return false;
    ++given;
  }
  if (IsAnyMissing(row, given) &&
      !reader.NoteMissing({reader.Next().offset, row.name, "", given})) {
    return false;
  }
  return reader.Expect(kCloseParenthesis, ")");
}

bool ReadAction(TextReader& reader, ElementaryAction& action) {
  const ActionRow* row = ActionAt(reader);
  if (row == nullptr) return reader.Refuse(")", TextChoice::Action);
  if (!reader.NoteActionPlace(reader.Next())) return false;
  reader.Skip();
  const Construct outer = reader.Enter({row->name});
  action.ActionType = static_cast<std::uint8_t>(row->action);
  const bool isRead = ReadValues(reader, *row, action);
  reader.Enter(outer);
  return isRead;
}

}  // namespace

bool ReadEntry(TextReader& reader, ElementaryAction& action) {
  const std::size_t begin = reader.Place();
  const std::int32_t openParentheses = reader.OpenParentheses();
  return ReadAction(reader, action) || reader.ContinueList(begin, openParentheses, false);
}

}  // namespace korvel
