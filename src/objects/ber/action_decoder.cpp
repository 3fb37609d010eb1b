// Decodes actions. The standard nests some parameters in a SEQUENCE, and whole parameter lists may
// be wrapped in one; all forms give the same flat list of values.
#include <utility>

#include "objects/action_table.h"
#include "objects/ber/value_decoder.h"

namespace korvel::ber {
namespace {

using enum ValueKind;
using Values = List<GenericValue>;

constexpr KindSet kAnyTyped =
    SetOfKinds(Boolean, Integer, OctetString, ObjectReference, ContentReference);

bool DecodeValue(const BerElement& element, KindSet kinds, Values& values) {
  GenericValue value;
  if (!DecodeGeneric(element, kinds, value)) return false;
  return values.Append(std::move(value)) != nullptr || element.Refuse();
}

// Reads one value, or none if the encoding ends early.
bool DecodeNext(BerReader& reader, KindSet kinds, Values& values) {
  if (reader.AtEnd()) return true;
  BerElement element;
  return reader.Next(element) && DecodeValue(element, kinds, values);
}

// Reads values from the SEQUENCE that comes next or, if another element does, directly from
// `outside`: the standard's nested form and the flat one are both accepted. Moves `outside` past
// the values.
template <class ReadValues> bool ReadNestedOrFlat(BerReader& outside, ReadValues&& readValues) {
  if (!outside.NextIs(kSequence)) return readValues(outside);
  BerElement nested;
  if (!outside.Next(nested)) return false;
  BerReader inside = nested.content.Knowing(IsValueTag);
  return readValues(inside) && inside.Ends();
}

// A value whose tag determines its type.
bool DecodeTyped(const BerElement& element, Values& values) {
  const bool isTyped = element.Is(kIndirectReference) || AnnouncedKind(element.tag) != None;
  return isTyped ? DecodeValue(element, kAnyTyped, values) : element.Refuse();
}

bool DecodeTypedList(BerReader& reader, Values& values) {
  ListReader list(reader);
  BerElement element;
  while (list.HasMore()) {
    if (!list.Next(element) || !DecodeTyped(element, values)) return false;
  }
  reader.SkipAll();
  return true;
}

bool DecodePoints(BerReader& reader, Values& values) {
  ListReader list(reader);
  BerElement element;
  while (list.HasMore()) {
    if (!list.Next(element)) return false;
    if (!DecodeValue(element, SetOfKinds(Integer), values)) return false;
  }
  reader.SkipAll();
  return true;
}

// The list ends with its SEQUENCE or, without one, before the octet string that follows it in the
// syntax.
bool DecodeReferences(BerReader& reader, Values& values) {
  const auto readReferences = [&values](BerReader& list) {
    BerElement next;
    while (!list.AtEnd()) {
      const bool isString =
          list.Peek(next) && (next.Is(kOctetString) || AnnouncedKind(next.tag) == OctetString);
      if (isString) return true;
      if (!DecodeNext(list, SetOfKinds(ObjectReference), values)) return false;
    }
    return true;
  };
  BerElement first;
  const bool isFlat = reader.Peek(first) && IsExternalReference(first);
  return isFlat ? readReferences(reader) : ReadNestedOrFlat(reader, readReferences);
}

bool AppendNone(BerReader& reader, Values& values) {
  return values.Append(GenericValue{}) != nullptr || reader.Refuse();
}

// Reads a size or cache priority. A size that is missing before a cache priority becomes a value of
// kind None.
bool DecodeContentNumber(BerReader& reader, Tag own, Tag later, Values& values) {
  const KindSet kinds = SetOfKinds(Integer, None);
  if (!reader.NextIs(later) || own == later) return DecodeNext(reader, kinds, values);
  return AppendNone(reader, values);
}

// A lone indirect value is included content. In a SEQUENCE it is a path, and a size of kind None
// keeps that known.
bool DecodeNewContent(BerReader& reader, Values& values) {
  const KindSet kinds = SetOfKinds(OctetString, ContentReference);
  const bool isNested = reader.NextIs(kSequence);
  return ReadNestedOrFlat(reader, [&](BerReader& content) {
    if (!DecodeNext(content, kinds, values)) return false;
    const GenericValue* value = values.Last();
    if (value != nullptr && value->Kind == OctetString) return true;
    const bool isLonePath = isNested && content.AtEnd() && value != nullptr;
    if (isLonePath && value->Kind == IndirectReference) return AppendNone(content, values);
    return DecodeContentNumber(content, kNewContentSize, kNewContentCachePriority, values) &&
           DecodeContentNumber(content, kNewContentCachePriority, kNewContentCachePriority, values);
  });
}

bool DecodeTwo(BerReader& reader, KindSet first, KindSet second, Values& values) {
  return ReadNestedOrFlat(reader, [&](BerReader& pair) {
    return DecodeNext(pair, first, values) && DecodeNext(pair, second, values);
  });
}

bool DecodeNextTyped(BerReader& reader, Values& values) {
  if (reader.AtEnd()) return true;
  BerElement element;
  return reader.Next(element) && DecodeTyped(element, values);
}

// Reads the values at one place of an action's syntax.
bool DecodePlace(Parameter place, BerReader& reader, Values& values) {
  switch (place) {
  case Parameter::Integer:
  case Parameter::EventNumber: return DecodeNext(reader, SetOfKinds(Integer), values);
  case Parameter::IntegerOrNull: return DecodeNext(reader, SetOfKinds(Integer, None), values);
  case Parameter::Boolean: return DecodeNext(reader, SetOfKinds(Boolean), values);
  case Parameter::Octets: return DecodeNext(reader, SetOfKinds(OctetString), values);
  case Parameter::Reference: return DecodeNext(reader, SetOfKinds(ObjectReference), values);
  case Parameter::Typed: return DecodeNextTyped(reader, values);
  case Parameter::TypedList: return DecodeTypedList(reader, values);
  case Parameter::References: return DecodeReferences(reader, values);
  case Parameter::Points: return DecodePoints(reader, values);
  case Parameter::Colour: return DecodeNext(reader, SetOfKinds(Integer, OctetString), values);
  case Parameter::FontChoice:
    return DecodeNext(reader, SetOfKinds(ObjectReference, OctetString), values);
  case Parameter::NewContent: return DecodeNewContent(reader, values);
  case Parameter::NewTimer:
    return DecodeTwo(reader, SetOfKinds(Integer), SetOfKinds(Boolean), values);
  case Parameter::Speed: return DecodeTwo(reader, SetOfKinds(Integer), SetOfKinds(Integer), values);
  }
  return false;
}

// The values of an action, which may be wrapped in a SEQUENCE of their own.
bool EnterValues(const BerElement& element, BerReader& values) {
  BerElement first;
  values = element.content.Knowing(IsValueTag);
  const bool isWrapped = values.Peek(first) && first.Is(kSequence) && !IsExternalReference(first);
  if (!isWrapped) return true;
  if (!values.Only(first)) return false;
  values = first.content.Knowing(IsValueTag);
  return true;
}

bool DecodeTarget(BerReader& reader, GenericValue& target) {
  BerElement element;
  return reader.Next(element) && DecodeGeneric(element, SetOfKinds(ObjectReference), target);
}

bool DecodeValues(const BerElement& element, const ActionRow& row, ElementaryAction& action) {
  BerReader reader;
  if (!EnterValues(element, reader) || !DecodeTarget(reader, action.Target)) return false;
  if (!action.Parameters.Reserve(reader.Count())) return element.Refuse();
  for (const Parameter place : row.Syntax()) {
    if (!DecodePlace(place, reader, action.Parameters)) return false;
  }
  return reader.Ends();
}

// A primitive element can hold only the target.
bool DecodeImplicitTarget(const BerElement& element, GenericValue& target) {
  BerElement number = element;
  number.tag = kInteger;
  return DecodeGeneric(number, SetOfKinds(ObjectReference), target);
}

bool DecodeAction(const BerElement& element, ActionList& actions) {
  ElementaryAction action;
  action.ActionType = static_cast<std::uint8_t>(element.tag.number - kActionTagBase);
  const ActionRow& row = *FindAction(action.ActionType);
  const bool isRead = element.isConstructed ? DecodeValues(element, row, action)
                                            : DecodeImplicitTarget(element, action.Target);
  if (!isRead) {
    element.content.Explain(&Refusal::part, row.name);
    return element.content.Explain(&Refusal::expected, "a target and the action's values");
  }
  return actions.Append(std::move(action)) != nullptr || element.Refuse();
}

}  // namespace

bool IsAction(Tag tag) {
  return tag.tagClass == TagClass::Context && tag.number > kActionTagBase &&
         tag.number <= kActionTagBase + kDecodedActionCount;
}

bool DecodeActions(const BerReader& reader, ActionList& actions) {
  const BerReader known = reader.Knowing(IsAction);
  if (!actions.Reserve(actions.Size() + known.Count())) return reader.Refuse();
  ListReader list(known);
  BerElement element;
  while (list.HasMore()) {
    if (!list.Next(element)) return false;
    if (!IsAction(element.tag)) return element.Refuse();
    if (!DecodeAction(element, actions)) return false;
  }
  return true;
}

}  // namespace korvel::ber
