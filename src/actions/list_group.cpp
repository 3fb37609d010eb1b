// The items of list groups: adding and removing them, scrolling, and the events of a change.
#include <algorithm>
#include <utility>

#include "actions/behaviours.h"

namespace korvel {
namespace {

ListGroup& TargetOf(const Arguments& arguments) { return arguments.target.As<ListGroup>(); }

// The values that the four events of a list change report.
struct Outline {
  bool isFirstPresented = false;
  bool isLastPresented = false;
  std::int32_t headItems = 0;
  std::int32_t tailItems = 0;
};

Outline OutlineOf(ListGroup& group) {
  const std::int32_t count = ItemCount(group);
  const std::int32_t first = EffectiveFirstItem(group);
  Outline outline;
  if (count > 0) {
    outline.isFirstPresented = ItemAt(group, 1)->IsPresented;
    outline.isLastPresented = group.ItemList.Last()->IsPresented;
  }
  if (first < 1) {
    outline.tailItems = count;
  } else if (first > count) {
    outline.headItems = count;
  } else {
    outline.headItems = first - 1;
    outline.tailItems = count - first;
  }
  return outline;
}

// Raises the events for the differences, in their fixed order.
Status RaiseDifferences(const ListGroup& group, const Outline& before, const Outline& after) {
  const auto raise = [&group](bool isDifferent, EventType type, EventData data) {
    return isDifferent ? RaiseFrom(group, type, data) : Status::Done;
  };
  Status status = raise(before.isFirstPresented != after.isFirstPresented,
                        EventType::FirstItemPresented, EventData::Boolean(after.isFirstPresented));
  if (status != Status::Done) return status;
  status = raise(before.isLastPresented != after.isLastPresented, EventType::LastItemPresented,
                 EventData::Boolean(after.isLastPresented));
  if (status != Status::Done) return status;
  status = raise(before.headItems != after.headItems, EventType::HeadItems,
                 EventData::Integer(after.headItems));
  if (status != Status::Done) return status;
  return raise(before.tailItems != after.tailItems, EventType::TailItems,
               EventData::Integer(after.tailItems));
}

// Lays the changed list out and raises the events for the differences from `before`.
Status FinishChange(ListGroup& group, const Outline& before) {
  const Status status = LayOut(group);
  if (status != Status::Done) return status;
  return RaiseDifferences(group, before, OutlineOf(group));
}

// Makes a list item for an object. False if the object is not a visible or is already in the list,
// or if memory runs out.
bool MakeItem(const ListGroup& group, const FoundObject& object, ListItem& item) {
  return IsVisibleClass(object.type) && PlaceOf(group, object.object->Reference) == 0 &&
         Copy(object.object->Reference, item.AVisible);
}

}  // namespace

Status AddItem(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  const std::int32_t place = arguments.Integer(0);
  ListItem item;
  const bool isPlace = place >= 1 && place <= ItemCount(group) + 1;
  if (!group.RunningStatus || !isPlace ||
      !MakeItem(group, Find(arguments, arguments.Reference(1)), item)) {
    return Status::Refused;
  }
  const Outline before = OutlineOf(group);
  const auto index = static_cast<std::size_t>(place) - 1;
  if (group.ItemList.InsertAt(index, std::move(item)) == nullptr) return Status::Failure;
  return FinishChange(group, before);
}

Status DelItem(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  ObjectReference object;
  if (!Copy(arguments.Reference(0), object)) return Status::Failure;
  if (!object.GroupIdentifier.IsPresent() && !object.GroupIdentifier.Assign(arguments.groupName)) {
    return Status::Failure;
  }
  ListItem* item = ItemAt(group, PlaceOf(group, object));
  if (item == nullptr) return Status::Refused;
  const Outline before = OutlineOf(group);
  Withdraw(group, *item);
  group.ItemList.RemoveFirst([item](const ListItem& other) { return &other == item; });
  return FinishChange(group, before);
}

// Unlike SetFirstItem it raises none of the events of a list change.
Status ScrollItems(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  group.FirstItem = static_cast<std::int32_t>(static_cast<std::uint32_t>(group.FirstItem) +
                                              static_cast<std::uint32_t>(arguments.Integer(0)));
  return LayOut(group);
}

Status SetFirstItem(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  const Outline before = OutlineOf(group);
  group.FirstItem = arguments.Integer(0);
  return FinishChange(group, before);
}

// A number outside the cells means the first or the last one.
Status SetCellPosition(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  const std::int32_t cells = CellCount(group);
  if (cells == 0) return Status::Refused;
  const std::int32_t cell = std::clamp(arguments.Integer(0), 1, cells);
  *group.Positions.At(static_cast<std::size_t>(cell) - 1) = {arguments.Integer(1),
                                                             arguments.Integer(2)};
  return group.RunningStatus ? LayOut(group) : Status::Done;
}

Status GetCellItem(const Arguments& arguments) {
  ListGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  const Status status = AnswerReference(arguments, 1, {});
  const std::int32_t cells = CellCount(group);
  if (status != Status::Done || cells == 0) return status;
  const std::int32_t cell = std::clamp(arguments.Integer(0), 1, cells);
  const ListItem* item = ItemAt(group, ItemInCell(group, cell));
  return item == nullptr ? Status::Done : AnswerReference(arguments, 1, item->AVisible);
}

Status GetFirstItem(const Arguments& arguments) {
  const ListGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  return AnswerInteger(arguments, 0, group.FirstItem);
}

Status GetListSize(const Arguments& arguments) {
  const ListGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  return AnswerInteger(arguments, 0, ItemCount(group));
}

}  // namespace korvel
