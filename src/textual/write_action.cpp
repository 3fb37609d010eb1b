// The writer of actions. The flat row of an action's values is folded back into the notation's
// places, as the action table names them; a row that ends early leaves the later places out.
#include <iterator>

#include "objects/action_table.h"
#include "objects/vocabulary.h"
#include "textual/write_value.h"

namespace korvel {
namespace {

// The values of an action that are not written yet.
class Values {
 public:
  explicit Values(const List<GenericValue>& list)
      : place_(list.begin()), end_(list.end()), left_(list.Size()) {}

  [[nodiscard]] std::size_t Left() const { return left_; }
  [[nodiscard]] const GenericValue& Next() const { return *place_; }
  const GenericValue& Take() {
    const GenericValue& value = *place_;
    ++place_;
    --left_;
    return value;
  }
  // The kind of the last value.
  [[nodiscard]] ValueKind LastKind() const {
    ValueKind kind = ValueKind::None;
    for (auto place = place_; !(place == end_); ++place) kind = place->Kind;
    return kind;
  }

 private:
  using Place = decltype(std::declval<const List<GenericValue>&>().begin());
  Place place_;
  Place end_;
  std::size_t left_;
};

// The word that announces the type of a value. What a variable will hold is not known when the
// value is read from one; an integer then stands for any type.
const char* TypeWord(ValueKind kind) {
  switch (kind) {
  case ValueKind::Boolean: return ":GBoolean";
  case ValueKind::OctetString: return ":GOctetString";
  case ValueKind::ObjectReference: return ":GObjectRef";
  case ValueKind::ContentReference: return ":GContentRef";
  case ValueKind::None:
  case ValueKind::Integer:
  case ValueKind::IndirectReference: break;
  }
  return ":GInteger";
}

void WriteTyped(TextWriter& writer, Values& values) {
  writer.Word(TypeWord(values.Next().Kind));
  Write(writer, values.Take());
}

void WriteReferences(TextWriter& writer, Values& values) {
  const ValueKind last = values.LastKind();
  const bool isNamed = last == ValueKind::OctetString || last == ValueKind::IndirectReference;
  writer.Open('(');
  while (values.Left() > (isNamed ? 1U : 0U)) Write(writer, values.Take());
  writer.Close(')');
}

void WritePoints(TextWriter& writer, Values& values) {
  writer.Open('(');
  while (values.Left() > 0) {
    writer.Open('(');
    Write(writer, values.Take());
    if (values.Left() > 0) Write(writer, values.Take());
    writer.Close(')');
  }
  writer.Close(')');
}

void WriteColour(TextWriter& writer, Values& values) {
  const GenericValue& colour = values.Take();
  writer.Word(colour.Kind == ValueKind::Integer ? ":NewColourIndex" : ":NewAbsoluteColour");
  if (colour.Kind == ValueKind::OctetString) return writer.CodedString(colour.Octets.View());
  Write(writer, colour);
}

void WriteNewContent(TextWriter& writer, Values& values) {
  const bool isReferenced = values.Next().Kind == ValueKind::ContentReference || values.Left() > 1;
  if (!isReferenced) return Write(writer, values.Take());
  writer.Word(":NewRefContent");
  writer.Open('(');
  Write(writer, values.Take());
  for (const char* keyword : {":NewContentSize", ":NewCCPriority"}) {
    if (values.Left() == 0) break;
    writer.Word(keyword);
    Write(writer, values.Take());
  }
  writer.Close(')');
}

void WriteNewTimer(TextWriter& writer, Values& values) {
  Write(writer, values.Take());
  if (values.Left() == 0) return;
  writer.Word(":AbsoluteTime");
  Write(writer, values.Take());
}

void WriteEventNumber(TextWriter& writer, Values& values) {
  const GenericValue& event = values.Take();
  const char* word =
      event.Kind == ValueKind::Integer ? WordOf(static_cast<EventType>(event.Integer)) : nullptr;
  word == nullptr ? Write(writer, event) : writer.Word(word);
}

void WriteParameter(TextWriter& writer, Parameter parameter, Values& values) {
  switch (parameter) {
  case Parameter::Integer:
  case Parameter::IntegerOrNull:
  case Parameter::Boolean:
  case Parameter::Octets:
  case Parameter::Reference:
  case Parameter::FontChoice: return Write(writer, values.Take());
  case Parameter::Typed: return WriteTyped(writer, values);
  case Parameter::TypedList:
    while (values.Left() > 0) WriteTyped(writer, values);
    return;
  case Parameter::References: return WriteReferences(writer, values);
  case Parameter::Points: return WritePoints(writer, values);
  case Parameter::Colour: return WriteColour(writer, values);
  case Parameter::NewContent: return WriteNewContent(writer, values);
  case Parameter::NewTimer: return WriteNewTimer(writer, values);
  case Parameter::Speed:
    while (values.Left() > 0) Write(writer, values.Take());
    return;
  case Parameter::EventNumber: return WriteEventNumber(writer, values);
  }
}

}  // namespace

void WriteEntry(TextWriter& writer, const ElementaryAction& action) {
  const ActionRow* row = FindAction(action.ActionType);
  if (row == nullptr || action.ActionType > kDecodedActionCount) {
    return writer.FailForWord(action.ActionType);
  }
  writer.Word(":");
  writer.Behind(row->name);
  writer.OpenBehindWord('(');
  Write(writer, action.Target);
  Values values(action.Parameters);
  for (const Parameter parameter : row->Syntax()) {
    if (values.Left() > 0) WriteParameter(writer, parameter, values);
  }
  writer.Close(')');
}

}  // namespace korvel
