// Selects the items of list groups. Every event may change the list, so items are identified by
// reference, and their places are recomputed for each event.
#include "actions/behaviours.h"

namespace korvel {
namespace {

ListGroup& TargetOf(const Arguments& arguments) { return arguments.target.As<ListGroup>(); }

// The item at an action's index, or null. In a list that wraps around, an index above the size
// continues from the start, 0 and multiples of the size mean the last item, and other negative
// indexes mean the first.
ListItem* IndexedItem(ListGroup& group, std::int32_t index) {
  const std::int32_t count = ItemCount(group);
  if (count == 0) return nullptr;
  if (!group.WrapAround) return ItemAt(group, index);
  const std::int32_t place = index % count;
  if (place == 0) return ItemAt(group, count);
  return ItemAt(group, place < 0 ? 1 : place);
}

// The item at the index in the action's first parameter; null if the group is not running.
ListItem* TargetItem(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  return group.RunningStatus ? IndexedItem(group, arguments.Integer(0)) : nullptr;
}

// The item that holds the token: the target of Select and Deselect.
ListItem* TokenItem(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  return group.RunningStatus ? ItemAt(group, group.TokenPosition) : nullptr;
}

// Refused if there is no item, or if it is not selected.
Status DeselectListItem(ListGroup& group, ListItem* item) {
  if (item == nullptr || !item->IsSelected) return Status::Refused;
  item->IsSelected = false;
  return RaiseFrom(group, EventType::ItemDeselected,
                   EventData::Integer(PlaceOf(group, item->AVisible)));
}

// The references of all selected items, in their order. False if memory or, during a close, time
// runs out.
bool CollectSelected(const ListGroup& group, List<ObjectReference>& selected) {
  for (const ListItem& item : group.ItemList) {
    ObjectReference reference;
    if (!MayContinue()) return false;
    if (!item.IsSelected) continue;
    if (!Copy(item.AVisible, reference)) return false;
    if (selected.Append(std::move(reference)) == nullptr) return false;
  }
  return true;
}

Status DeselectAll(ListGroup& group, const List<ObjectReference>& selected) {
  for (const ObjectReference& reference : selected) {
    if (!MayContinue()) return Status::Failure;
    const Status status = DeselectListItem(group, ItemAt(group, PlaceOf(group, reference)));
    if (status == Status::Failure || status == Status::Replaced) return status;
  }
  return Status::Done;
}

Status SelectListItem(ListGroup& group, ListItem* item) {
  if (item == nullptr || item->IsSelected) return Status::Refused;
  ObjectReference chosen;
  List<ObjectReference> others;
  if (!Copy(item->AVisible, chosen) || !CollectSelected(group, others)) return Status::Failure;
  item->IsSelected = true;
  if (!group.MultipleSelection) {
    const Status status = DeselectAll(group, others);
    if (status != Status::Done) return status;
  }
  const std::int32_t place = PlaceOf(group, chosen);
  if (place == 0) return Status::Done;  // a link that waits for ItemDeselected has removed it
  return RaiseFrom(group, EventType::ItemSelected, EventData::Integer(place));
}

}  // namespace

Status Select(const Arguments& arguments) {
  return SelectListItem(TargetOf(arguments), TokenItem(arguments));
}

Status Deselect(const Arguments& arguments) {
  return DeselectListItem(TargetOf(arguments), TokenItem(arguments));
}

Status SelectItem(const Arguments& arguments) {
  return SelectListItem(TargetOf(arguments), TargetItem(arguments));
}

Status DeselectItem(const Arguments& arguments) {
  return DeselectListItem(TargetOf(arguments), TargetItem(arguments));
}

Status ToggleItem(const Arguments& arguments) {
  ListItem* item = TargetItem(arguments);
  ListGroup& group = TargetOf(arguments);
  const bool isSelected = item != nullptr && item->IsSelected;
  return isSelected ? DeselectListItem(group, item) : SelectListItem(group, item);
}

Status GetItemStatus(const Arguments& arguments) {
  const ListItem* item = TargetItem(arguments);
  return item == nullptr ? Status::Refused : AnswerBoolean(arguments, 1, item->IsSelected);
}

Status GetListItem(const Arguments& arguments) {
  const ListItem* item = TargetItem(arguments);
  return item == nullptr ? Status::Refused : AnswerReference(arguments, 1, item->AVisible);
}

}  // namespace korvel
