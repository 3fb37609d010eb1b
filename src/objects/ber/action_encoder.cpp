// Writing actions. Where a record does not tell which of two forms a value was read from, the
// choice is made here: the result reads back as the same record.
#include "objects/ber/action_encoder.h"

#include <utility>

#include "objects/action_table.h"
#include "objects/ber/value_encoder.h"

namespace korvel::ber {
namespace {

// The values of an action that are still to be written.
class Values {
 public:
  explicit Values(const List<GenericValue>& values)
      : next_(values.begin()), end_(values.end()), left_(values.Size()) {}

  [[nodiscard]] std::size_t Left() const { return left_; }
  [[nodiscard]] bool IsEmpty() const { return left_ == 0; }
  [[nodiscard]] const GenericValue& Next() const { return *next_; }
  const GenericValue& Take() {
    const GenericValue& value = *next_;
    ++next_;
    --left_;
    return value;
  }
  [[nodiscard]] const GenericValue& Last() const {
    auto last = next_;
    for (auto place = next_; place != end_; ++place) last = place;
    return *last;
  }

 private:
  using Place = decltype(std::declval<const List<GenericValue>&>().begin());
  Place next_;
  Place end_;
  std::size_t left_;
};

void EncodeUnder(BerWriter& writer, Tag tag, const GenericValue& value) {
  writer.Constructed(tag, [&] { Encode(writer, value); });
}

// The tag that announces a value's kind. An indirect value does not tell what its variable holds.
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

// An indirect colour is taken for an absolute one: receivers need not know palettes.
void EncodeColour(BerWriter& writer, const GenericValue& value) {
  const bool isIndex = value.Kind == ValueKind::Integer;
  EncodeUnder(writer, isIndex ? kNewColourIndex : kNewAbsoluteColour, value);
}

// An indirect font is taken for a name: receivers need not know Font objects.
void EncodeFont(BerWriter& writer, const GenericValue& value) {
  const bool isReference = value.Kind == ValueKind::ObjectReference;
  EncodeUnder(writer, isReference ? kNewFontReference : kNewFontName, value);
}

void EncodeEventNumber(BerWriter& writer, const GenericValue& value) {
  if (value.Kind != ValueKind::Integer) return Encode(writer, value);
  writer.Integer(kEnumerated, value.Integer);
}

void EncodeTypedList(BerWriter& writer, Values& values) {
  writer.Constructed(kSequence, [&] {
    while (!values.IsEmpty()) EncodeTyped(writer, values.Take());
  });
}

void EncodePoints(BerWriter& writer, Values& values) {
  writer.Constructed(kSequence, [&] {
    while (!values.IsEmpty()) {
      writer.Constructed(kSequence, [&] {
        Encode(writer, values.Take());
        if (!values.IsEmpty()) Encode(writer, values.Take());
      });
    }
  });
}

// The last value is the file name, which an octet string or a variable gives; without one all are
// references.
void EncodeReferences(BerWriter& writer, Values& values) {
  const ValueKind last = values.Last().Kind;
  const bool hasName = last == ValueKind::OctetString || last == ValueKind::IndirectReference;
  writer.Constructed(kSequence, [&] {
    while (values.Left() > (hasName ? 1U : 0U)) Encode(writer, values.Take());
  });
}

// One value of its own is content included in the action, directly or by a variable; a path stands
// with its size and cache priority in a SEQUENCE.
void EncodeNewContent(BerWriter& writer, Values& values) {
  const bool isPath = values.Next().Kind == ValueKind::ContentReference;
  if (values.Left() == 1 && !isPath) return Encode(writer, values.Take());
  writer.Constructed(kSequence, [&] {
    Encode(writer, values.Take());
    for (const Tag tag : {kNewContentSize, kNewContentCachePriority}) {
      if (values.IsEmpty()) return;
      const GenericValue& number = values.Take();
      if (IsPresent(number)) {
        EncodeUnder(writer, tag, number);
      } else {
        writer.Null();
      }
    }
  });
}

void EncodeRest(BerWriter& writer, Values& values) {
  writer.Constructed(kSequence, [&] {
    while (!values.IsEmpty()) Encode(writer, values.Take());
  });
}

// Writes what stands at one place of an action's syntax, for which there is at least one value.
void EncodePlace(BerWriter& writer, Parameter place, Values& values) {
  switch (place) {
  case Parameter::Integer:
  case Parameter::IntegerOrNull:
  case Parameter::Boolean:
  case Parameter::Octets:
  case Parameter::Reference: return Encode(writer, values.Take());
  case Parameter::Typed: return EncodeTyped(writer, values.Take());
  case Parameter::TypedList: return EncodeTypedList(writer, values);
  case Parameter::References: return EncodeReferences(writer, values);
  case Parameter::Points: return EncodePoints(writer, values);
  case Parameter::Colour: return EncodeColour(writer, values.Take());
  case Parameter::FontChoice: return EncodeFont(writer, values.Take());
  case Parameter::NewContent: return EncodeNewContent(writer, values);
  case Parameter::NewTimer:
  case Parameter::Speed: return EncodeRest(writer, values);
  case Parameter::EventNumber: return EncodeEventNumber(writer, values.Take());
  }
}

void EncodeAction(BerWriter& writer, const ElementaryAction& action) {
  const ActionRow* row = FindAction(action.ActionType);
  if (row == nullptr || action.ActionType > kDecodedActionCount) return writer.Fail();
  writer.Constructed(Context(kActionTagBase + action.ActionType), [&] {
    Encode(writer, action.Target);
    Values values(action.Parameters);
    for (const Parameter place : row->Syntax()) {
      if (!values.IsEmpty()) EncodePlace(writer, place, values);
    }
  });
}

}  // namespace

void EncodeActions(BerWriter& writer, const ActionList& actions) {
  for (const ElementaryAction& action : actions) EncodeAction(writer, action);
}

}  // namespace korvel::ber
