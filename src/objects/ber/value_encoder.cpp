// Encodes values and actions. If a value has two forms, always the same one is written; it decodes
// to an equal record.
#include "objects/ber/value_encoder.h"

#include "objects/action_values.h"

namespace korvel::ber {

void Encode(BerWriter& writer, const ObjectReference& value) {
  if (!value.GroupIdentifier.IsPresent()) return writer.Integer(kInteger, value.Number);
  writer.Constructed(kSequence, [&] {
    writer.Octets(kOctetString, value.GroupIdentifier.View());
    writer.Integer(kInteger, value.Number);
  });
}

void Encode(BerWriter& writer, const OptionalReference& value) {
  if (value.IsPresent) Encode(writer, value.Reference);
}

void Encode(BerWriter& writer, const ColourValue& value) {
  if (value.Kind == ValueKind::Integer) writer.Integer(kInteger, value.Index);
  if (value.Kind == ValueKind::OctetString) writer.Octets(kOctetString, value.Absolute.View());
}

void Encode(BerWriter& writer, const FontBody& value) {
  if (value.Kind == ValueKind::OctetString) writer.Octets(kOctetString, value.Name.View());
  if (value.Kind == ValueKind::ObjectReference) Encode(writer, value.Reference);
}

void Encode(BerWriter& writer, const ContentBody& value) {
  if (!value.IsReferenced) return writer.Octets(kOctetString, value.Data.View());
  const ContentBody usual;
  writer.Constructed(kSequence, [&] {
    writer.Octets(kOctetString, value.Data.View());
    if (value.Size != usual.Size) writer.Integer(kContentSize, value.Size);
    if (value.CachePriority != usual.CachePriority) {
      writer.Integer(kContentCachePriority, value.CachePriority);
    }
  });
}

void Encode(BerWriter& writer, const GenericValue& value) {
  switch (value.Kind) {
  case ValueKind::None: return writer.Null();
  case ValueKind::Boolean: return writer.Boolean(kBoolean, value.Boolean);
  case ValueKind::Integer: return writer.Integer(kInteger, value.Integer);
  case ValueKind::OctetString: return writer.Octets(kOctetString, value.Octets.View());
  case ValueKind::ObjectReference: return Encode(writer, value.Reference);
  case ValueKind::IndirectReference:
    return writer.Constructed(kIndirectReference, [&] { Encode(writer, value.Reference); });
  case ValueKind::ContentReference: return writer.Octets(kContentReference, value.Octets.View());
  }
}

namespace {

void EncodeValue(BerWriter& writer, const GenericValue& value) { Encode(writer, value); }

void EncodeUnder(BerWriter& writer, Tag tag, const GenericValue& value) {
  writer.Constructed(tag, [&] { Encode(writer, value); });
}

// The tag that announces a value's kind. The kind of an indirect value is unknown; it is announced
// as an object reference.
Tag TypedTag(ValueKind kind) {
  switch (kind) {
  case ValueKind::Boolean: return kNewBoolean;
  case ValueKind::Integer: return kNewInteger;
  case ValueKind::OctetString: return kNewOctetString;
  case ValueKind::ContentReference: return kNewContentReference;
  case ValueKind::None:
  case ValueKind::ObjectReference:
  case ValueKind::IndirectReference: break;
  }
  return kNewObjectReference;
}

void EncodeTyped(BerWriter& writer, const GenericValue& value) {
  EncodeUnder(writer, TypedTag(value.Kind), value);
}

// An indirect colour is announced as an absolute one: receivers need not support palettes.
void EncodeColour(BerWriter& writer, const GenericValue& value) {
  const bool isIndex = value.Kind == ValueKind::Integer;
  EncodeUnder(writer, isIndex ? kNewColourIndex : kNewAbsoluteColour, value);
}

// An indirect font is announced as a name: receivers need not support Font objects.
void EncodeFont(BerWriter& writer, const GenericValue& value) {
  const bool isReference = value.Kind == ValueKind::ObjectReference;
  EncodeUnder(writer, isReference ? kNewFontReference : kNewFontName, value);
}

void EncodeEventNumber(BerWriter& writer, const GenericValue& value) {
  if (value.Kind != ValueKind::Integer) return Encode(writer, value);
  writer.Integer(kEnumerated, value.Integer);
}

// The values in a SEQUENCE, each written by `encode`.
template <class EncodeValue>
void EncodeRow(BerWriter& writer, ActionValues values, EncodeValue&& encode) {
  writer.Constructed(kSequence, [&] {
    while (!values.IsEmpty()) encode(writer, values.Take());
  });
}

void EncodePoints(BerWriter& writer, ActionValues values) {
  writer.Constructed(kSequence, [&] {
    while (!values.IsEmpty()) EncodeRow(writer, values.TakePlace(Parameter::Speed), EncodeValue);
  });
}

// A single value that is not a path is included content, direct or in a variable. A path is in a
// SEQUENCE with its size and cache priority.
void EncodeNewContent(BerWriter& writer, ActionValues values) {
  const bool isPath = values.Next().Kind == ValueKind::ContentReference;
  if (values.Left() == 1 && !isPath) return Encode(writer, values.Take());
  writer.Constructed(kSequence, [&] {
    Encode(writer, values.Take());
    for (const Tag tag : {kNewContentSize, kNewContentCachePriority}) {
      if (values.IsEmpty()) return;
      const GenericValue& number = values.Take();
      IsPresent(number) ? EncodeUnder(writer, tag, number) : writer.Null();
    }
  });
}

// Writes the values at one place of an action's syntax.
void EncodePlace(BerWriter& writer, Parameter place, ActionValues values) {
  switch (place) {
  case Parameter::Integer:
  case Parameter::IntegerOrNull:
  case Parameter::Boolean:
  case Parameter::Octets:
  case Parameter::Reference: return Encode(writer, values.Take());
  case Parameter::Typed: return EncodeTyped(writer, values.Take());
  case Parameter::TypedList: return EncodeRow(writer, values, EncodeTyped);
  case Parameter::References:
  case Parameter::NewTimer:
  case Parameter::Speed: return EncodeRow(writer, values, EncodeValue);
  case Parameter::Points: return EncodePoints(writer, values);
  case Parameter::Colour: return EncodeColour(writer, values.Take());
  case Parameter::FontChoice: return EncodeFont(writer, values.Take());
  case Parameter::NewContent: return EncodeNewContent(writer, values);
  case Parameter::EventNumber: return EncodeEventNumber(writer, values.Take());
  }
}

void EncodeAction(BerWriter& writer, const ElementaryAction& action) {
  const ActionRow* row = FindAction(action.ActionType);
  if (row == nullptr || action.ActionType > kDecodedActionCount) return writer.Fail();
  writer.Constructed(Context(kActionTagBase + action.ActionType), [&] {
    Encode(writer, action.Target);
    ActionValues values(action.Parameters);
    for (const Parameter place : row->Syntax()) {
      if (!values.IsEmpty()) EncodePlace(writer, place, values.TakePlace(place));
    }
  });
}

}  // namespace

void EncodeActions(BerWriter& writer, const ActionList& actions) {
  for (const ElementaryAction& action : actions) EncodeAction(writer, action);
}

}  // namespace korvel::ber
