// The writer of actions. Splits an action's flat list of values into the places of the action
// table. Places after the last value are omitted.
#include <initializer_list>

#include "objects/action_values.h"
#include "textual/keywords.h"
#include "textual/text_writer.h"

namespace korvel {
namespace {

void WriteTyped(TextWriter& writer, const GenericValue& value) {
  writer.Word(TypeWord(value.Kind));
  Write(writer, value);
}

void WriteInParentheses(TextWriter& writer, ActionValues values) {
  writer.Open('(');
  while (!values.IsEmpty()) Write(writer, values.Take());
  writer.Close(')');
}

void WritePoints(TextWriter& writer, ActionValues values) {
  writer.Open('(');
  while (!values.IsEmpty()) WriteInParentheses(writer, values.TakePlace(Parameter::Speed));
  writer.Close(')');
}

void WriteColour(TextWriter& writer, const GenericValue& colour) {
  writer.Word(colour.Kind == ValueKind::Integer ? ":NewColourIndex" : ":NewAbsoluteColour");
  if (colour.Kind == ValueKind::OctetString) return writer.CodedString(colour.Octets.View());
  Write(writer, colour);
}

// Each value after its keyword.
void WriteAfterKeywords(TextWriter& writer, std::initializer_list<const char*> keywords,
                        ActionValues values) {
  for (const char* keyword : keywords) {
    if (values.IsEmpty()) return;
    writer.Word(keyword);
    Write(writer, values.Take());
  }
}

// The reader adds a size of kind None after a lone indirect reference.
void WriteNewContent(TextWriter& writer, ActionValues values) {
  const bool isIndirect = values.Next().Kind == ValueKind::IndirectReference;
  const bool isReferenced = values.Next().Kind == ValueKind::ContentReference || values.Left() > 1;
  if (!isReferenced) return Write(writer, values.Take());
  writer.Word(":NewRefContent");
  writer.Open('(');
  Write(writer, values.Take());
  if (isIndirect && values.Left() == 1 && values.Next().Kind == ValueKind::None) values.Take();
  WriteAfterKeywords(writer, {":NewContentSize", ":NewCCPriority"}, values);
  writer.Close(')');
}

void WriteNewTimer(TextWriter& writer, ActionValues values) {
  Write(writer, values.Take());
  WriteAfterKeywords(writer, {":AbsoluteTime"}, values);
}

void WriteEventNumber(TextWriter& writer, const GenericValue& event) {
  const char* word =
      event.Kind == ValueKind::Integer ? WordOf(static_cast<EventType>(event.Integer)) : nullptr;
  word == nullptr ? Write(writer, event) : writer.Word(word);
}

void WriteParameter(TextWriter& writer, Parameter parameter, ActionValues values) {
  switch (parameter) {
  case Parameter::Integer:
  case Parameter::IntegerOrNull:
  case Parameter::Boolean:
  case Parameter::Octets:
  case Parameter::Reference:
  case Parameter::FontChoice: return Write(writer, values.Take());
  case Parameter::Typed: return WriteTyped(writer, values.Take());
  case Parameter::TypedList:
    while (!values.IsEmpty()) WriteTyped(writer, values.Take());
    return;
  case Parameter::References: return WriteInParentheses(writer, values);
  case Parameter::Points: return WritePoints(writer, values);
  case Parameter::Colour: return WriteColour(writer, values.Take());
  case Parameter::NewContent: return WriteNewContent(writer, values);
  case Parameter::NewTimer: return WriteNewTimer(writer, values);
  case Parameter::Speed:
    while (!values.IsEmpty()) Write(writer, values.Take());
    return;
  case Parameter::EventNumber: return WriteEventNumber(writer, values.Take());
  }
}

}  // namespace

void WriteEntry(TextWriter& writer, const ElementaryAction& action) {
  const ActionRow* row = FindAction(action.ActionType);
  if (row == nullptr || action.ActionType > kDecodedActionCount) {
    return writer.FailForWord(action.ActionType);
  }
  writer.Word(":");
  writer.Append(row->name);
  writer.OpenAfterWord('(');
  Write(writer, action.Target);
  ActionValues values(action.Parameters);
  for (const Parameter place : row->Syntax()) {
    if (!values.IsEmpty()) WriteParameter(writer, place, values.TakePlace(place));
  }
  writer.Close(')');
}

}  // namespace korvel
