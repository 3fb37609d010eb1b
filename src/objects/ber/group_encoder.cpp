// Encodes groups in one pass over the class tables. This file writes a field of each shape: as an
// element of a SEQUENCE, as an entry of a list, and under an attribute's tag.
#include <type_traits>

#include "objects/ber/ber.h"
#include "objects/ber/value_encoder.h"
#include "objects/class_tables.h"

namespace korvel {
namespace ber {
namespace {

// ---- Contents of fields that are a SEQUENCE or a list ----

void EncodeContent(BerWriter& writer, const ActionList& actions) { EncodeActions(writer, actions); }

template <IsSequence Record> void EncodeContent(BerWriter& writer, const Record& record);
template <class T> void EncodeContent(BerWriter& writer, const List<T>& list);

// ---- Fields under a given tag ----

void EncodeUnder(BerWriter& writer, Tag tag, bool field) { writer.Boolean(tag, field); }
void EncodeUnder(BerWriter& writer, Tag tag, std::int32_t field) { writer.Integer(tag, field); }
template <IsEnumeration Enumeration>
void EncodeUnder(BerWriter& writer, Tag tag, const Enumeration& field) {
  writer.Integer(tag, static_cast<std::int32_t>(field));
}
void EncodeUnder(BerWriter& writer, Tag tag, const OctetString& field) {
  writer.Octets(tag, field.View());
}
void EncodeUnder(BerWriter& writer, Tag tag, const ContentReference& field) {
  writer.Octets(tag, field.Path.View());
}
template <IsChoice Field> void EncodeUnder(BerWriter& writer, Tag tag, const Field& field) {
  writer.Constructed(tag, [&] { Encode(writer, field); });
}
template <class Field> void EncodeUnder(BerWriter& writer, Tag tag, const Field& field) {
  writer.Constructed(tag, [&] { EncodeContent(writer, field); });
}

// ---- Fields under the tag of their type ----

void EncodeElement(BerWriter& writer, const Item& item);
void EncodeElement(BerWriter& writer, bool field) { writer.Boolean(kBoolean, field); }
void EncodeElement(BerWriter& writer, std::int32_t field) { writer.Integer(kInteger, field); }
template <IsEnumeration Enumeration> void EncodeElement(BerWriter& writer, Enumeration field) {
  EncodeUnder(writer, kWords<Enumeration>.empty() ? kInteger : kEnumerated, field);
}
void EncodeElement(BerWriter& writer, const OctetString& field) {
  writer.Octets(kOctetString, field.View());
}
void EncodeElement(BerWriter& writer, const ActionSlot& slot) {
  if (slot.IsNull) return writer.Null();
  writer.Constructed(kSequence, [&] { EncodeActions(writer, slot.Actions); });
}
void EncodeElement(BerWriter& writer, const Movement& movement) {
  EncodeUnder(writer, kSequence, movement.Targets);
}
void EncodeElement(BerWriter& writer, const ContentReference& field) {
  writer.Octets(kOctetString, field.Path.View());
}
template <IsChoice Field> void EncodeElement(BerWriter& writer, const Field& field) {
  if (IsPresent(field)) Encode(writer, field);
}
template <IsSequence Record> void EncodeElement(BerWriter& writer, const Record& record) {
  EncodeUnder(writer, kSequence, record);
}
template <class T> void EncodeElement(BerWriter& writer, const List<T>& list) {
  if (!list.IsEmpty()) EncodeUnder(writer, kSequence, list);
}

template <IsSequence Record> void EncodeContent(BerWriter& writer, const Record& record) {
  ForEachElement<Record>(
      [&](const auto& element) { EncodeElement(writer, record.*element.field); });
}

template <class T> void EncodeContent(BerWriter& writer, const List<T>& list) {
  for (const T& entry : list) EncodeElement(writer, entry);
}

// ---- Attributes ----

template <class Field>
void EncodeAttribute(BerWriter& writer, Tag tag, const Form& form, const Field& field) {
  if (form.innerTag != 0) {
    writer.Constructed(tag, [&] { EncodeUnder(writer, Context(form.innerTag), field); });
  } else if (form.isChoice) {
    writer.Constructed(tag, [&] { EncodeElement(writer, field); });
  } else {
    EncodeUnder(writer, tag, field);
  }
}

// Writes the mandatory attributes, and the others that differ from a new record's.
template <IsDescribed Record> void EncodeAttributes(BerWriter& writer, const Record& record) {
  const Record fresh;
  ForEachAttribute<Record>([&](const auto& attribute) {
    const auto& field = record.*attribute.field;
    const Tag tag = Context(attribute.tag);
    const bool isUsual = field == fresh.*attribute.field;
    if constexpr (IsDescribed<std::remove_cvref_t<decltype(field)>>) {
      if (isUsual) return;
      writer.Constructed(tag, [&] { EncodeAttributes(writer, field); });
    } else {
      if (!IsPresent(field) || (isUsual && !attribute.form.isRequired)) return;
      EncodeAttribute(writer, tag, attribute.form, field);
    }
  });
}

// ---- Objects ----

template <class Record> void EncodeObject(BerWriter& writer, const Record& record) {
  writer.Constructed(Context(Description<Record>::heading.tag), [&] {
    Encode(writer, record.Reference);
    EncodeAttributes(writer, record);
  });
}

void EncodeElement(BerWriter& writer, const Item& item) {
  VisitIngredientClass(item.Type(),
                       [&]<class Record>() { EncodeObject(writer, item.As<Record>()); });
}

}  // namespace
}  // namespace ber

Status EncodeGroup(const Group& group, OctetString& bytes) {
  ber::BerWriter writer;
  VisitGroup(group, [&writer](const auto& record) { ber::EncodeObject(writer, record); });
  return writer.Finish(bytes) ? Status::Done : Status::Refused;
}

}  // namespace korvel
