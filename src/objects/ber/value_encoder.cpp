// Writing values that are a choice of several types.
#include "objects/ber/value_encoder.h"

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

}  // namespace korvel::ber
