// Compares values by kind, and records through the class tables.
#include "objects/equality.h"

namespace korvel {

bool IsSame(const OctetString& one, const OctetString& other) {
  return one.IsPresent() == other.IsPresent() && one.View() == other.View();
}

bool IsSame(const ObjectReference& one, const ObjectReference& other) {
  return one.Number == other.Number && IsSame(one.GroupIdentifier, other.GroupIdentifier);
}

bool IsSame(const OptionalReference& one, const OptionalReference& other) {
  return one.IsPresent == other.IsPresent &&
         (!one.IsPresent || IsSame(one.Reference, other.Reference));
}

bool IsSame(const GenericValue& one, const GenericValue& other) {
  if (one.Kind != other.Kind) return false;
  switch (one.Kind) {
  case ValueKind::None: return true;
  case ValueKind::Boolean: return one.Boolean == other.Boolean;
  case ValueKind::Integer: return one.Integer == other.Integer;
  case ValueKind::OctetString:
  case ValueKind::ContentReference: return IsSame(one.Octets, other.Octets);
  case ValueKind::ObjectReference:
  case ValueKind::IndirectReference: return IsSame(one.Reference, other.Reference);
  }
  return false;
}

bool IsSame(const ColourValue& one, const ColourValue& other) {
  if (one.Kind != other.Kind) return false;
  if (one.Kind == ValueKind::Integer) return one.Index == other.Index;
  return one.Kind == ValueKind::None || IsSame(one.Absolute, other.Absolute);
}

bool IsSame(const FontBody& one, const FontBody& other) {
  if (one.Kind != other.Kind) return false;
  if (one.Kind == ValueKind::OctetString) return IsSame(one.Name, other.Name);
  return one.Kind == ValueKind::None || IsSame(one.Reference, other.Reference);
}

bool IsSame(const ContentReference& one, const ContentReference& other) {
  return IsSame(one.Path, other.Path);
}

bool IsSame(const ContentBody& one, const ContentBody& other) {
  return IsSame(one.Data, other.Data) && one.IsReferenced == other.IsReferenced &&
         one.Size == other.Size && one.CachePriority == other.CachePriority;
}

bool IsSame(const ElementaryAction& one, const ElementaryAction& other) {
  return one.ActionType == other.ActionType && IsSame(one.Target, other.Target) &&
         IsSame(one.Parameters, other.Parameters);
}

bool IsSame(const ActionSlot& one, const ActionSlot& other) {
  return one.IsNull == other.IsNull && IsSame(one.Actions, other.Actions);
}

bool IsSame(const Movement& one, const Movement& other) {
  return IsSame(one.Targets, other.Targets);
}

bool IsSame(const Item& one, const Item& other) {
  if (one.Type() != other.Type()) return false;
  bool isSame = false;
  VisitIngredientClass(one.Type(), [&]<class Record>() {
    const auto& record = one.As<Record>();
    const auto& otherRecord = other.As<Record>();
    isSame =
        IsSame(record.Reference, otherRecord.Reference) && HasSameAttributes(record, otherRecord);
  });
  return isSame;
}

bool IsSame(const Group& one, const Group& other) {
  if (one.type != other.type || !IsSame(one.Reference, other.Reference)) return false;
  if (one.type == ItemType::Application) {
    return HasSameAttributes(static_cast<const Application&>(one),
                             static_cast<const Application&>(other));
  }
  return HasSameAttributes(static_cast<const Scene&>(one), static_cast<const Scene&>(other));
}

}  // namespace korvel
