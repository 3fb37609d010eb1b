// The layout of list groups, and their activation. Items are identified by reference and looked up
// at each use: the object may belong to a scene that has ended, and is then skipped.
#include "actions/behaviours.h"

#include <algorithm>

namespace korvel {
namespace {

// The item in the first cell. A first item below 1 means item 1.
std::int32_t StartItem(const ListGroup& group) { return std::max(EffectiveFirstItem(group), 1); }

// Puts an item's visible into a cell.
Status Place(ListGroup& group, ListItem& item, const Position& cell) {
  item.IsPresented = true;
  const FoundObject found = Find(ContextOf(group), item.AVisible);
  if (!IsVisibleClass(found.type)) return Status::Done;
  auto& visible = found.As<Visible>();
  if (Prepare(found.type, visible) == Change::Failure) return Status::Failure;
  if (IsGone(group)) return Status::Replaced;
  if (IsGone(visible)) return Status::Done;
  visible.Position = cell;
  visible.RunningStatus = true;
  const Application* application = CurrentApplication();
  const bool isEntered =
      application != nullptr && StackContains(*application, ItemType::None, visible);
  if (isEntered) return Status::Done;
  const Status status = EnterDisplayStack(found.type, visible);
  return status == Status::Failure ? status : Status::Done;
}

Status WithdrawUnplaced(ListGroup& group) {
  const std::int32_t count = ItemCount(group);
  const std::int32_t cells = CellCount(group);
  std::int32_t cell = 1 - StartItem(group);  // the cell of item 1, counted from 0; may be negative
  for (ListItem& item : group.ItemList) {
    if (!MayContinue()) return Status::Failure;
    const std::int32_t wrapped = cell < 0 && group.WrapAround ? cell + count : cell;
    if (wrapped < 0 || wrapped >= cells) Withdraw(group, item);
    ++cell;
  }
  return Status::Done;
}

// The list is read again for each cell: preparing a visible may run actions that change it.
Status PlaceItems(ListGroup& group) {
  std::int32_t cell = 1;
  for (const Position& position : group.Positions) {
    if (!MayContinue()) return Status::Failure;
    ListItem* item = ItemAt(group, ItemInCell(group, cell++));
    if (item == nullptr) continue;
    const Status status = Place(group, *item, position);
    if (status != Status::Done) return status;
  }
  return Status::Done;
}

}  // namespace

std::int32_t ItemCount(const ListGroup& group) {
  return static_cast<std::int32_t>(group.ItemList.Size());
}

std::int32_t CellCount(const ListGroup& group) {
  return static_cast<std::int32_t>(group.Positions.Size());
}

ListItem* ItemAt(ListGroup& group, std::int32_t place) {
  return place < 1 ? nullptr : group.ItemList.At(static_cast<std::size_t>(place) - 1);
}

std::int32_t PlaceOf(const ListGroup& group, const ObjectReference& object) {
  std::int32_t place = 0;
  for (const ListItem& item : group.ItemList) {
    ++place;
    if (item.AVisible.Number == object.Number &&
        IsSameGroup(item.AVisible.GroupIdentifier.View(), object.GroupIdentifier.View())) {
      return place;
    }
  }
  return 0;
}

std::int32_t EffectiveFirstItem(const ListGroup& group) {
  const std::int32_t count = ItemCount(group);
  if (!group.WrapAround || count == 0) return group.FirstItem;
  const std::int32_t first = group.FirstItem % count;
  return first == 0 ? count : first;
}

std::int32_t ItemInCell(const ListGroup& group, std::int32_t cell) {
  const std::int32_t count = ItemCount(group);
  if (cell < 1 || cell > count) return 0;
  const std::int64_t place = std::int64_t{StartItem(group)} + cell - 1;
  if (place <= count) return static_cast<std::int32_t>(place);
  return group.WrapAround ? static_cast<std::int32_t>(place - count) : 0;
}

Status LayOut(ListGroup& group) {
  if (group.Positions.IsEmpty()) return Status::Done;
  {
    const HeldRedraws held;
    Status status = WithdrawUnplaced(group);
    if (status == Status::Done) status = PlaceItems(group);
    if (status != Status::Done) return status;
  }
  return RedrawIfRunning(group);
}

void Withdraw(const ListGroup& group, ListItem& item) {
  item.IsPresented = false;
  const FoundObject found = Find(ContextOf(group), item.AVisible);
  if (!IsVisibleClass(found.type)) return;
  StopSilently(found.type, found.As<Ingredient>());
  LeaveDisplayStack(found.type, found.As<Ingredient>());
}

Change ActivateListGroup(ListGroup& group) {
  group.RunningStatus = true;
  const Status status = LayOut(group);
  if (status != Status::Done) return ChangeOf(status);
  return ChangeOf(
      RaiseFrom(group, EventType::TokenMovedTo, EventData::Integer(group.TokenPosition)));
}

Change DeactivateListGroup(ListGroup& group) {
  group.RunningStatus = false;
  const Status status =
      RaiseFrom(group, EventType::TokenMovedFrom, EventData::Integer(group.TokenPosition));
  if (status != Status::Done) return ChangeOf(status);
  if (group.RunningStatus)
    return Change::Nothing;  // a link that waits for the event has run it again
  for (ListItem& item : group.ItemList) {
    if (!MayContinue()) return Change::Failure;
    Withdraw(group, item);
  }
  return ChangeOf(RequestRedraw());
}

}  // namespace korvel
