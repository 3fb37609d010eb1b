// Comparisons by kind, and deep copies. Each copy is completed before it changes the target, so a
// failure changes nothing.
#include "objects/values.h"

#include <utility>

namespace korvel {

bool GenericValue::operator==(const GenericValue& other) const {
  if (Kind != other.Kind) return false;
  switch (Kind) {
  case ValueKind::None: return true;
  case ValueKind::Boolean: return Boolean == other.Boolean;
  case ValueKind::Integer: return Integer == other.Integer;
  case ValueKind::OctetString:
  case ValueKind::ContentReference: return Octets == other.Octets;
  case ValueKind::ObjectReference:
  case ValueKind::IndirectReference: return Reference == other.Reference;
  }
  return false;
}

bool ColourValue::operator==(const ColourValue& other) const {
  if (Kind != other.Kind || Kind == ValueKind::None) return Kind == other.Kind;
  return Kind == ValueKind::Integer ? Index == other.Index : Absolute == other.Absolute;
}

bool FontBody::operator==(const FontBody& other) const {
  if (Kind != other.Kind || Kind == ValueKind::None) return Kind == other.Kind;
  return Kind == ValueKind::OctetString ? Name == other.Name : Reference == other.Reference;
}

bool Copy(const ObjectReference& from, ObjectReference& to) {
  if (!to.GroupIdentifier.CopyFrom(from.GroupIdentifier)) return false;
  to.Number = from.Number;
  return true;
}

bool Copy(const OptionalReference& from, OptionalReference& to) {
  if (!Copy(from.Reference, to.Reference)) return false;
  to.IsPresent = from.IsPresent;
  return true;
}

bool Copy(const ColourValue& from, ColourValue& to) {
  if (!to.Absolute.CopyFrom(from.Absolute)) return false;
  to.Kind = from.Kind;
  to.Index = from.Index;
  return true;
}

bool Copy(const FontBody& from, FontBody& to) {
  FontBody copy;
  copy.Kind = from.Kind;
  if (!copy.Name.CopyFrom(from.Name) || !Copy(from.Reference, copy.Reference)) return false;
  to = std::move(copy);
  return true;
}

bool Copy(const ContentReference& from, ContentReference& to) {
  return to.Path.CopyFrom(from.Path);
}

bool Copy(const ContentBody& from, ContentBody& to) {
  if (!to.Data.CopyFrom(from.Data)) return false;
  to.IsReferenced = from.IsReferenced;
  to.Size = from.Size;
  to.CachePriority = from.CachePriority;
  return true;
}

bool Copy(const GenericValue& from, GenericValue& to) {
  GenericValue copy;
  copy.Kind = from.Kind;
  copy.Boolean = from.Boolean;
  copy.Integer = from.Integer;
  if (!copy.Octets.CopyFrom(from.Octets) || !Copy(from.Reference, copy.Reference)) return false;
  to = std::move(copy);
  return true;
}

}  // namespace korvel
