// Each value is built separately and then moved into its field, so that a refused element changes
// nothing and a repeated attribute releases the value that it replaces.
#include "objects/ber/value_decoder.h"

#include <utility>

namespace korvel::ber {
namespace {

constexpr bool IsContentNumber(Tag tag) {
  return tag == kContentSize || tag == kContentCachePriority;
}

// The path is followed by the size and the cache priority. Each may be plain, under its own tag, or
// missing.
bool DecodeReferencedContent(const BerElement& sequence, ContentBody& content) {
  BerReader reader = sequence.content.Knowing(IsContentNumber);
  BerElement element;
  if (!reader.Next(element) || !Decode(element, content.Data)) return false;
  content.IsReferenced = true;
  std::int32_t* plain = &content.Size;
  while (!reader.AtEnd()) {
    if (!reader.Next(element)) return false;
    if (IsContentNumber(element.tag)) {
      plain = element.Is(kContentSize) ? &content.Size : &content.CachePriority;
      if (!Untag(element, kInteger, element)) return false;
    }
    if (plain == nullptr || !Decode(element, NumberType::Integer, *plain)) return element.Refuse();
    plain = plain == &content.Size ? &content.CachePriority : nullptr;
  }
  return true;
}

bool DecodeIndirect(const BerElement& element, GenericValue& value) {
  BerElement reference;
  GenericValue indirect;
  indirect.Kind = ValueKind::IndirectReference;
  if (!UntagReference(element, reference) || !Decode(reference, indirect.Reference)) return false;
  value = std::move(indirect);
  return true;
}

// The kind of an element without an announcing tag at a place that allows these kinds.
ValueKind KindOf(const BerElement& element, KindSet kinds) {
  const auto allows = [kinds](ValueKind kind) { return (kinds & SetOfKinds(kind)) != 0; };
  const bool isNumber = element.Is(kInteger) || element.Is(kEnumerated);
  if (isNumber && allows(ValueKind::Integer)) return ValueKind::Integer;
  const bool isReference = element.Is(kInteger) || element.Is(kSequence);
  if (isReference && allows(ValueKind::ObjectReference)) return ValueKind::ObjectReference;
  if (element.Is(kBoolean) && allows(ValueKind::Boolean)) return ValueKind::Boolean;
  if (element.Is(kOctetString) && allows(ValueKind::OctetString)) return ValueKind::OctetString;
  const bool isContent = element.Is(kContentReference);
  return isContent && allows(ValueKind::ContentReference) ? ValueKind::ContentReference
                                                          : ValueKind::None;
}

bool DecodeContentPath(const BerElement& element, OctetString& path) {
  BerElement octets;
  return Untag(element, kOctetString, octets) && Decode(octets, path);
}

bool DecodeDirect(const BerElement& element, KindSet kinds, GenericValue& value) {
  GenericValue direct;
  direct.Kind = KindOf(element, kinds);
  bool isRead = false;
  switch (direct.Kind) {
  case ValueKind::None:
    isRead = element.Is(kNull) && (kinds & SetOfKinds(ValueKind::None)) != 0;
    break;
  case ValueKind::Boolean: isRead = Decode(element, direct.Boolean); break;
  case ValueKind::Integer: isRead = Decode(element, NumberType::Enumerated, direct.Integer); break;
  case ValueKind::OctetString: isRead = Decode(element, direct.Octets); break;
  case ValueKind::ObjectReference: isRead = Decode(element, direct.Reference); break;
  case ValueKind::ContentReference: isRead = DecodeContentPath(element, direct.Octets); break;
  case ValueKind::IndirectReference: break;
  }
  if (!isRead) return element.Refuse();
  value = std::move(direct);
  return true;
}

Tag TypeOf(ValueKind kind) {
  if (kind == ValueKind::Boolean) return kBoolean;
  if (kind == ValueKind::Integer) return kInteger;
  return kind == ValueKind::ContentReference ? kContentReference : kOctetString;
}

}  // namespace

bool Untag(const BerElement& tagged, Tag implied, BerElement& value) {
  if (tagged.isConstructed) return tagged.content.Only(value);
  value = tagged;
  value.tag = implied;
  return true;
}

bool UntagReference(const BerElement& tagged, BerElement& value) {
  if (!IsExternalReference(tagged)) return Untag(tagged, kInteger, value);
  value = tagged;
  value.tag = kSequence;
  return true;
}

bool IsExternalReference(const BerElement& element) {
  return element.isConstructed && element.content.Knowing(IsValueTag).NextIs(kOctetString);
}

bool Decode(const BerElement& element, NumberType type, std::int32_t& value) {
  const bool isEnumerated = element.Is(kEnumerated) && type == NumberType::Enumerated;
  if (!element.Is(kInteger) && !isEnumerated) return element.Refuse();
  value = element.Integer();
  return true;
}

bool Decode(const BerElement& element, bool& value) {
  if (!element.Is(kBoolean) || element.Length() != 1) return element.Refuse();
  value = element.FirstByte() != 0;
  return true;
}

bool Decode(const BerElement& element, OctetString& value) {
  if (!element.Is(kOctetString) || !value.Assign(element.Bytes())) return element.Refuse();
  return true;
}

bool Decode(const BerElement& element, ObjectReference& value) {
  ObjectReference reference;
  if (element.Is(kInteger)) {
    reference.Number = element.Integer();
  } else if (element.Is(kSequence)) {
    BerReader reader = element.content.Knowing(NoTag);
    BerElement group;
    BerElement number;
    if (!reader.Next(group) || !Decode(group, reference.GroupIdentifier)) return false;
    if (!reader.Only(number)) return false;
    if (!Decode(number, NumberType::Integer, reference.Number)) return false;
  }
  value = std::move(reference);
  return true;
}

bool Decode(const BerElement& element, ColourValue& value) {
  ColourValue colour;
  colour.Kind = element.Is(kInteger) ? ValueKind::Integer : ValueKind::OctetString;
  const bool isRead = element.Is(kInteger) ? Decode(element, NumberType::Integer, colour.Index)
                                           : Decode(element, colour.Absolute);
  if (!isRead) return false;
  value = std::move(colour);
  return true;
}

bool Decode(const BerElement& element, FontBody& value) {
  FontBody font;
  const bool isReference = element.Is(kInteger) || element.Is(kSequence);
  font.Kind = isReference ? ValueKind::ObjectReference : ValueKind::OctetString;
  const bool isRead = isReference ? Decode(element, font.Reference) : Decode(element, font.Name);
  if (!isRead) return false;
  value = std::move(font);
  return true;
}

bool Decode(const BerElement& element, ContentBody& value) {
  ContentBody content;
  const bool isRead = element.Is(kSequence) ? DecodeReferencedContent(element, content)
                                            : Decode(element, content.Data);
  if (!isRead) return false;
  value = std::move(content);
  return true;
}

bool DecodeGeneric(const BerElement& element, KindSet kinds, GenericValue& value) {
  if (element.Is(kIndirectReference)) return DecodeIndirect(element, value);
  const ValueKind announced = AnnouncedKind(element.tag);
  if (announced == ValueKind::None) return DecodeDirect(element, kinds, value);
  if ((kinds & SetOfKinds(announced)) == 0) return element.Refuse();
  BerElement inner;
  const bool isUntagged = announced == ValueKind::ObjectReference
                              ? UntagReference(element, inner)
                              : Untag(element, TypeOf(announced), inner);
  if (!isUntagged) return false;
  if (inner.Is(kIndirectReference)) return DecodeIndirect(inner, value);
  return DecodeDirect(inner, kinds & SetOfKinds(announced, ValueKind::None), value);
}

}  // namespace korvel::ber
