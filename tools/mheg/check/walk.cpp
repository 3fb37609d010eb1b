// Walks a group's attributes as the class tables list them.
#include "mheg/check/walk.h"

#include <utility>

namespace mheg {
namespace {

using namespace korvel;

// Fields of all other types contain nothing to visit.
template <class Field> void WalkField(const Field& /*field*/, GroupVisitor& /*visitor*/) {}

void WalkField(const ObjectReference& reference, GroupVisitor& visitor);
void WalkField(const OptionalReference& reference, GroupVisitor& visitor);
void WalkField(const FontBody& font, GroupVisitor& visitor);
void WalkField(const ContentReference& content, GroupVisitor& visitor);
void WalkField(const ContentBody& content, GroupVisitor& visitor);
void WalkField(const GenericValue& value, GroupVisitor& visitor);
void WalkField(const ColourValue& colour, GroupVisitor& visitor);
void WalkField(const OctetString& value, GroupVisitor& visitor);
void WalkField(const ElementaryAction& action, GroupVisitor& visitor);
void WalkField(const ActionSlot& slot, GroupVisitor& visitor);
void WalkField(const Item& item, GroupVisitor& visitor);

template <class Entry> void WalkField(const List<Entry>& list, GroupVisitor& visitor);

template <IsSequence Record> void WalkField(const Record& record, GroupVisitor& visitor) {
  ForEachElement<Record>([&](const auto& element) { WalkField(record.*element.field, visitor); });
}
template <class Entry> void WalkField(const List<Entry>& list, GroupVisitor& visitor) {
  for (const Entry& entry : list) WalkField(entry, visitor);
}

void WalkField(const ObjectReference& reference, GroupVisitor& visitor) {
  visitor.VisitReference(reference);
}
void WalkField(const OptionalReference& reference, GroupVisitor& visitor) {
  if (reference.IsPresent) visitor.VisitReference(reference.Reference);
}
void WalkField(const FontBody& font, GroupVisitor& visitor) {
  if (font.Kind == ValueKind::ObjectReference) visitor.VisitReference(font.Reference);
}
void WalkField(const ContentReference& content, GroupVisitor& visitor) {
  visitor.VisitContentPath(content.Path);
}
void WalkField(const ContentBody& content, GroupVisitor& visitor) {
  if (content.IsReferenced) visitor.VisitContentPath(content.Data);
}
void WalkField(const GenericValue& value, GroupVisitor& visitor) {
  if (IsReference(value)) visitor.VisitReference(value.Reference);
  if (value.Kind == ValueKind::ContentReference) visitor.VisitContentPath(value.Octets);
}
void WalkField(const ColourValue& colour, GroupVisitor& visitor) { visitor.VisitColour(colour); }
void WalkField(const OctetString& value, GroupVisitor& visitor) { visitor.VisitString(value); }
void WalkField(const ElementaryAction& action, GroupVisitor& visitor) {
  ++visitor.currentAction;
  visitor.VisitAction(action);
  WalkField(action.Target, visitor);
  WalkField(action.Parameters, visitor);
}
void WalkField(const ActionSlot& slot, GroupVisitor& visitor) { WalkField(slot.Actions, visitor); }

template <class Record> void WalkAttributes(const Record& record, GroupVisitor& visitor) {
  ForEachWrittenAttribute<Record>(
      [&visitor](const char* keyword, const Form& /*form*/, const auto& field) {
        visitor.currentKeyword = keyword;
        visitor.currentAction = -1;
        WalkField(field, visitor);
      },
      record);
}

void WalkField(const Item& item, GroupVisitor& visitor) {
  const std::int32_t outerObject =
      std::exchange(visitor.currentObject, item.Record()->Reference.Number);
  const ItemType outerType = std::exchange(visitor.currentClass, item.Type());
  visitor.currentKeyword = "";
  visitor.currentAction = -1;
  visitor.VisitObject(item.Type(), *item.Record());
  VisitIngredientClass(item.Type(),
                       [&]<class Record>() { WalkAttributes<Record>(item.As<Record>(), visitor); });
  visitor.currentObject = outerObject;
  visitor.currentClass = outerType;
}

}  // namespace

void Walk(const Group& group, GroupVisitor& visitor) {
  visitor.currentObject = group.Reference.Number;
  visitor.currentClass = group.type;
  VisitGroup(group, [&visitor](const auto& record) { WalkAttributes(record, visitor); });
}

}  // namespace mheg
