// Decodes groups in one pass over the class tables, which describe the attributes of each class.
// This file reads a field of each shape: as an element of a SEQUENCE, as an entry of a list, and
// under an attribute's tag.
#include <type_traits>
#include <utility>

#include "objects/ber/ber.h"
#include "objects/ber/value_decoder.h"
#include "objects/class_tables.h"
#include "objects/ownership.h"

namespace korvel {
namespace ber {
namespace {

// ---- The form of a field in a file, for messages ----

template <class Field, class... Types>
constexpr bool kIsOneOf = (std::is_same_v<Field, Types> || ...);

template <class Field> constexpr const char* ExpectedFor() {
  if constexpr (IsEnumeration<Field>) {
    return kWords<Field>.empty() ? "an INTEGER" : "an ENUMERATED";
  }
  if (kIsOneOf<Field, bool>) return "a BOOLEAN";
  if (kIsOneOf<Field, std::int32_t>) return "an INTEGER";
  if (kIsOneOf<Field, OctetString, ContentReference>) return "an OCTET STRING";
  if (kIsOneOf<Field, ObjectReference, OptionalReference>) return "an object reference";
  if (kIsOneOf<Field, ColourValue>) return "an INTEGER or an OCTET STRING";
  if (kIsOneOf<Field, FontBody>) return "an OCTET STRING or an object reference";
  if (kIsOneOf<Field, ContentBody>) return "an OCTET STRING or a content reference";
  if (kIsOneOf<Field, LinkCondition>) return "an event source, an event type and event data";
  if (kIsOneOf<Field, ActionList>) return "actions";
  if (kIsOneOf<Field, List<Item>>) return "objects";
  if (IsDescribed<Field>) return "attributes";
  return IsSequence<Field> ? "two INTEGERs" : "a list";
}

// ---- Elements of a SEQUENCE: universal, distinguished by their place ----

bool DecodeElement(const BerElement& element, std::int32_t& field) {
  return Decode(element, NumberType::Integer, field);
}
template <IsEnumeration Enumeration>
bool DecodeElement(const BerElement& element, Enumeration& field) {
  constexpr auto kType = kWords<Enumeration>.empty() ? NumberType::Integer : NumberType::Enumerated;
  std::int32_t number = 0;
  if (!Decode(element, kType, number)) return false;
  field = static_cast<Enumeration>(number);
  return true;
}
template <class Field>
requires requires(Field& field) { Decode(BerElement{}, field); }
bool DecodeElement(const BerElement& element, Field& field) { return Decode(element, field); }
// A link's event data.
bool DecodeElement(const BerElement& element, GenericValue& field) {
  using enum ValueKind;
  return DecodeGeneric(element, SetOfKinds(Boolean, Integer, OctetString), field);
}
bool DecodeElement(const BerElement& element, List<ActionSlot>& field);

// Fields of these types may be missing at the end of a SEQUENCE.
template <class Field>
constexpr bool kMayBeMissing =
    std::is_same_v<Field, GenericValue> || std::is_same_v<Field, List<ActionSlot>>;

template <IsSequence Record> bool DecodeSequence(const BerReader& elements, Record& record) {
  BerReader reader = elements.Knowing(NoTag);
  bool isRead = true;
  ForEachElement<Record>([&](const auto& description) {
    auto& field = record.*description.field;
    const bool isMissing = kMayBeMissing<std::remove_cvref_t<decltype(field)>> && reader.AtEnd();
    if (!isRead || isMissing) return;
    BerElement element;
    isRead = reader.Next(element) && DecodeElement(element, field);
  });
  return isRead && reader.Ends();
}

// ---- Entries of a SEQUENCE OF ----

template <class T> bool DecodeEntries(const BerReader& entries, List<T>& list);

bool DecodeEntry(const BerElement& element, std::int32_t& number) {
  return Decode(element, NumberType::Integer, number);
}

bool DecodeEntry(const BerElement& element, ActionSlot& slot) {
  slot.IsNull = element.Is(kNull);
  if (slot.IsNull) return true;
  return element.Is(kSequence) ? DecodeActions(element.content, slot.Actions) : element.Refuse();
}

bool DecodeEntry(const BerElement& element, Movement& movement) {
  return element.Is(kSequence) ? DecodeEntries(element.content, movement.Targets)
                               : element.Refuse();
}

template <IsSequence Record> bool DecodeEntry(const BerElement& element, Record& entry) {
  return element.Is(kSequence) ? DecodeSequence(element.content, entry) : element.Refuse();
}

template <class T> bool DecodeEntries(const BerReader& entries, List<T>& list) {
  BerReader reader = entries.Knowing(NoTag);
  if (!list.Reserve(reader.Count())) return reader.Refuse();
  BerElement element;
  while (!reader.AtEnd()) {
    T entry{};
    if (!reader.Next(element) || !DecodeEntry(element, entry)) return false;
    if (list.Append(std::move(entry)) == nullptr) return element.Refuse();
  }
  return true;
}

bool DecodeElement(const BerElement& element, List<ActionSlot>& field) {
  return element.Is(kSequence) ? DecodeEntries(element.content, field) : element.Refuse();
}

// ---- The SEQUENCE that an explicit tag puts around an attribute's elements ----

// Whether a SEQUENCE of this kind begins with an object reference, which may itself be a SEQUENCE.
template <class T> constexpr bool kBeginsWithReference = false;
template <IsSequence Record>
constexpr bool kBeginsWithReference<Record> = std::is_same_v<
    std::remove_cvref_t<decltype(std::declval<Record&>().*
                                 std::get<0>(SequenceDescription<Record>::elements).field)>,
    ObjectReference>;

// Reads the SEQUENCE that is the only element of a tag. False if the tag holds anything else.
bool HoldsOneSequence(const BerElement& tagged, BerElement& sequence) {
  BerReader reader = tagged.content.Knowing(NoTag);
  return reader.NextIs(kSequence) && reader.Next(sequence) && reader.AtEnd();
}

template <IsSequence Record> BerReader ElementsOf(const BerElement& tagged) {
  BerElement wrapper;
  const bool isExplicit = HoldsOneSequence(tagged, wrapper) &&
                          !(kBeginsWithReference<Record> && IsExternalReference(wrapper));
  return isExplicit ? wrapper.content : tagged.content;
}

// A single SEQUENCE either wraps all entries or is the only entry. It is the wrapper if its first
// element could be an entry. In an action slot actions are known tags, so that they are not skipped
// when looking for that element.
template <class Entry> BerReader EntriesOf(const BerElement& tagged) {
  constexpr KnownTags known = std::is_same_v<Entry, ActionSlot> ? IsAction : NoTag;
  BerElement wrapper;
  BerElement entry;
  const bool holdsEntry = HoldsOneSequence(tagged, wrapper) &&
                          wrapper.content.Knowing(known).Peek(entry) &&
                          (entry.Is(kSequence) || entry.Is(kNull)) &&
                          !(kBeginsWithReference<Entry> && IsExternalReference(entry));
  return holdsEntry ? wrapper.content : tagged.content;
}

// ---- Attributes: under a context tag ----

// The type of a primitive tag's content. Colours and fonts have two types, so a primitive tag is
// ambiguous: NULL makes their decoders refuse it.
template <class Field> constexpr Tag kImpliedTag = kInteger;
template <> constexpr Tag kImpliedTag<bool> = kBoolean;
template <> constexpr Tag kImpliedTag<OctetString> = kOctetString;
template <> constexpr Tag kImpliedTag<ContentBody> = kOctetString;
template <> constexpr Tag kImpliedTag<ColourValue> = kNull;
template <> constexpr Tag kImpliedTag<FontBody> = kNull;

template <class Field>
requires requires(Field& field) { DecodeElement(BerElement{}, field); }
bool DecodeField(const BerElement& tagged, Field& field) {
  BerElement element;
  return Untag(tagged, kImpliedTag<Field>, element) && DecodeElement(element, field);
}

bool DecodeField(const BerElement& tagged, ObjectReference& field) {
  BerElement element;
  return UntagReference(tagged, element) && Decode(element, field);
}

bool DecodeField(const BerElement& tagged, OptionalReference& field) {
  if (!DecodeField(tagged, field.Reference)) return false;
  field.IsPresent = true;
  return true;
}

bool DecodeField(const BerElement& tagged, ContentReference& field) {
  return DecodeField(tagged, field.Path);
}

template <IsSequence Record> bool DecodeField(const BerElement& tagged, Record& field) {
  Record record;
  if (!DecodeSequence(ElementsOf<Record>(tagged), record)) return false;
  field = std::move(record);
  return true;
}

bool DecodeField(const BerElement& tagged, ActionList& field) {
  ActionList actions;
  if (!DecodeActions(tagged.content, actions)) return false;
  field = std::move(actions);
  return true;
}

template <class T> bool DecodeField(const BerElement& tagged, List<T>& field) {
  List<T> list;
  if (!DecodeEntries(EntriesOf<T>(tagged), list)) return false;
  field = std::move(list);
  return true;
}

template <IsDescribed Record> bool DecodeField(const BerElement& tagged, Record& field);

// Some attributes have a second tag, which names their type.
template <class Field>
bool DecodeTaggedField(const BerElement& tagged, const Form& form, Field& field) {
  if (form.innerTag == 0) return DecodeField(tagged, field);
  BerElement inner;
  if (!Untag(tagged, kNull, inner)) return false;
  return inner.Is(Context(form.innerTag)) ? DecodeField(inner, field) : inner.Refuse();
}

template <class... Records>
bool DecodeItems(Classes<Records...> classes, const BerElement& tagged, List<Item>& field);

// Add the attribute or the object to a refusal, unless it has one.
bool ExplainAttribute(const BerElement& element, const char* keyword, const char* expected) {
  element.content.Explain(&Refusal::part, keyword);
  return element.content.Explain(&Refusal::expected, expected);
}
template <class Record> bool ExplainObject(const BerElement& element) {
  element.content.Explain(&Refusal::owner, Description<Record>::heading.keyword + 1);
  element.content.Explain(&Refusal::part, "");
  return element.content.Explain(&Refusal::expected, "an attribute");
}

// Reads the attribute that the element's tag names. Skips one that the class does not have.
template <IsDescribed Record> bool DecodeAttribute(const BerElement& element, Record& record) {
  bool isRead = true;
  ForEachAttribute<Record>([&](const auto& attribute) {
    if (attribute.tag != element.tag.number) return;
    auto& field = record.*attribute.field;
    if constexpr (std::is_same_v<decltype(field), List<Item>&>) {
      isRead = DecodeItems(MemberClasses<Record>{}, element, field);
    } else {
      isRead = DecodeTaggedField(element, attribute.form, field);
    }
    if (!isRead)
      ExplainAttribute(element, attribute.keyword,
                       ExpectedFor<std::remove_cvref_t<decltype(field)>>());
  });
  return isRead;
}

// Attributes that are grouped under one tag.
template <IsDescribed Record> bool DecodeField(const BerElement& tagged, Record& field) {
  ListReader list(tagged.content);
  BerElement element;
  while (list.HasMore()) {
    if (!list.Next(element)) return false;
    if (element.tag.tagClass != TagClass::Context) return element.Refuse();
    if (!DecodeAttribute(element, field)) return false;
  }
  return true;
}

// ---- Objects ----

bool DecodeUniversal(const BerElement& element, Root& record) {
  const bool isReference = element.Is(kInteger) || element.Is(kSequence);
  return !isReference || Decode(element, record.Reference);
}

// An object's body: its own reference and its attributes, in any order.
template <IsDescribed Record> bool DecodeBody(BerReader reader, Record& record) {
  BerElement element;
  while (!reader.AtEnd()) {
    if (!reader.Next(element)) return false;
    const bool isRead =
        element.tag.tagClass == TagClass::Context
            ? DecodeAttribute(element, record)
            : element.tag.tagClass == TagClass::Universal && DecodeUniversal(element, record);
    if (!isRead) return element.Refuse();
  }
  return true;
}

template <class Record> bool DecodeObject(const BerElement& element, List<Item>& list) {
  auto record = NewRecord<Record>();
  if (!record) return element.Refuse();
  Record& object = *record;
  Item item(Description<Record>::heading.type, record.release());
  if (!DecodeBody(element.content, object)) return ExplainObject<Record>(element);
  return list.Append(std::move(item)) != nullptr || element.Refuse();
}

// Reads the object that the element's tag names; an object of another class is skipped.
template <class... Records>
bool DecodeItem(Classes<Records...> classes, const BerElement& element, List<Item>& list) {
  bool isRead = true;
  ForEachClass(classes, [&]<class Record>() {
    if (Description<Record>::heading.tag != element.tag.number) return;
    isRead = DecodeObject<Record>(element, list);
  });
  return isRead;
}

template <class... Records>
bool DecodeItems(Classes<Records...> classes, const BerElement& tagged, List<Item>& field) {
  List<Item> items;
  if (!items.Reserve(tagged.content.Count())) return tagged.Refuse();
  ListReader list(tagged.content);
  BerElement element;
  while (list.HasMore()) {
    if (!list.Next(element)) return false;
    if (element.tag.tagClass != TagClass::Context) return element.Refuse();
    if (!DecodeItem(classes, element, items)) return false;
  }
  field = std::move(items);
  return true;
}

// Stores the record in `group` before its contents are read, so that the caller has it even after a
// failure.
template <class Record> bool DecodeGroupBody(const BerElement& element, OwnedGroup& group) {
  auto record = NewRecord<Record>();
  if (!record) return element.Refuse();
  Record& body = *record;
  group = std::move(record);
  return DecodeBody(element.content, body) || ExplainObject<Record>(element);
}

bool DecodeFile(BerReader reader, OwnedGroup& group) {
  BerElement element;
  if (!reader.Next(element)) return false;
  if (element.Is(Context(Description<Application>::heading.tag))) {
    return DecodeGroupBody<Application>(element, group);
  }
  if (element.Is(Context(Description<Scene>::heading.tag))) {
    return DecodeGroupBody<Scene>(element, group);
  }
  return element.Refuse();
}

DecodeError ErrorOf(const Refusal& refusal, const std::uint8_t* begin) {
  const auto orNone = [](const char* text, const char* none) {
    return text == nullptr ? none : text;
  };
  return {static_cast<std::size_t>(refusal.place - begin), orNone(refusal.owner, ""),
          orNone(refusal.part, ""), orNone(refusal.expected, "an application or a scene")};
}

}  // namespace
}  // namespace ber

Status DecodeGroup(std::span<const std::uint8_t> bytes, OwnedGroup& group, DecodeError* error) {
  ber::Refusal refusal;
  group.reset();
  const bool isRead = ber::DecodeFile(ber::BerReader(bytes, refusal), group);
  if (isRead) return Status::Done;
  if (error != nullptr) *error = ber::ErrorOf(refusal, bytes.data());
  return Status::Refused;
}

}  // namespace korvel
