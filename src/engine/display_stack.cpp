// The display stack: the running application's ordered list of the visibles to be drawn,
// bottom-most first; and the requests to draw it. Entries borrow their visibles; a visible is in
// the stack at most once, because every function that enters it removes it first.

#include "engine/core.h"
#include "objects/messages.h"
#include "platform/screen.h"

namespace korvel {
namespace {

auto IsEntry(ItemType kind, const Ingredient& visible) {
  return [kind, &visible](const StackedVisible& entry) {
    return entry.visible == &visible && (kind == ItemType::None || entry.kind == kind);
  };
}

Status Inserted(const StackedVisible* entry, Message message) {
  if (entry != nullptr) {
    ++entry->visible->stackEntries;
    return Status::Done;
  }
  Say(message);
  return Status::Failure;
}

void Removed(const StackedVisible& entry) { --entry.visible->stackEntries; }

// The 0-based place of the first entry of a visible, or the number of entries when it has none.
std::size_t PlaceOf(const Application& application, const Ingredient& visible) {
  std::size_t place = 0;
  for (const StackedVisible& entry : application.DisplayStack) {
    if (entry.visible == &visible) break;
    ++place;
  }
  return place;
}

bool IsInStack(const Ingredient& visible) {
  const Application* application = CurrentApplication();
  return application != nullptr && StackContains(*application, ItemType::None, visible);
}

// The first step of each stacking action: removes the visible, which must be available and in the
// stack under its class.
bool Lift(ItemType kind, const Visible& visible) {
  Application* application = CurrentApplication();
  return application != nullptr && visible.AvailabilityStatus &&
         RemoveFromStack(*application, kind, visible);
}

// The last step.
Status RedrawIfRunning(Status status, const Visible& visible) {
  if (status == Status::Failure || !visible.RunningStatus) return status;
  return RequestRedraw() == Status::Failure ? Status::Failure : status;
}

}  // namespace

Status RequestRedraw() {
  if (TheCore().redrawHolds > 0) return Status::Done;
  return Redraw() == Status::Failure ? Status::Failure : Status::Done;
}

HeldRedraws::HeldRedraws() { ++TheCore().redrawHolds; }

HeldRedraws::~HeldRedraws() { --TheCore().redrawHolds; }

Status AppendOnTop(Application& application, ItemType kind, Ingredient& visible) {
  return Inserted(application.DisplayStack.Append({kind, &visible}),
                  Message::NoMemoryForDisplayStack);
}

Status InsertAtPosition(Application& application, std::int32_t position, ItemType kind,
                        Ingredient& visible) {
  const auto place = position < 1 ? std::size_t{0} : static_cast<std::size_t>(position - 1);
  return Inserted(application.DisplayStack.InsertAt(place, {kind, &visible}),
                  Message::NoMemoryForDisplayStack);
}

bool EntryAtPosition(const Application& application, std::int32_t position, StackedVisible& entry) {
  if (position < 1) return false;
  const auto* found = application.DisplayStack.At(static_cast<std::size_t>(position - 1));
  if (found != nullptr) entry = *found;
  return found != nullptr;
}

bool RemoveTop(Application& application, StackedVisible& entry) {
  List<StackedVisible>& stack = application.DisplayStack;
  if (stack.IsEmpty()) return false;
  entry = *stack.Last();
  Removed(entry);
  stack.Truncate(stack.Size() - 1);
  return true;
}

bool RemoveFromStack(Application& application, ItemType kind, const Ingredient& visible) {
  StackedVisible entry;
  const bool isRemoved = visible.stackEntries > 0 &&
                         application.DisplayStack.RemoveFirst(IsEntry(kind, visible), &entry);
  if (isRemoved) Removed(entry);
  return isRemoved;
}

bool StackContains(const Application& application, ItemType kind, const Ingredient& visible) {
  if (kind == ItemType::None || visible.stackEntries == 0) return visible.stackEntries > 0;
  const auto isEntry = IsEntry(kind, visible);
  for (const StackedVisible& entry : application.DisplayStack) {
    if (isEntry(entry)) return true;
  }
  return false;
}

Status InsertAtBottom(Application& application, ItemType kind, Ingredient& visible) {
  return Inserted(application.DisplayStack.InsertAt(0, {kind, &visible}),
                  Message::NoMemoryForDisplayStackItem);
}

Status InsertBelow(Application& application, ItemType kind, Ingredient& visible,
                   const Ingredient& reference) {
  const std::size_t place = PlaceOf(application, reference);
  return Inserted(application.DisplayStack.InsertAt(place, {kind, &visible}),
                  Message::NoMemoryForDisplayStackItem);
}

Status InsertAbove(Application& application, ItemType kind, Ingredient& visible,
                   const Ingredient& reference) {
  if (!StackContains(application, ItemType::None, reference)) return Status::Refused;
  const std::size_t place = PlaceOf(application, reference) + 1;
  return Inserted(application.DisplayStack.InsertAt(place, {kind, &visible}),
                  Message::NoMemoryForDisplayStackItem);
}

void RemoveGroupFromStack(Application& application, const Group& group) {
  application.DisplayStack.RemoveAll([&group](const StackedVisible& entry) {
    const bool isOfGroup = entry.visible->owner == &group;
    if (isOfGroup) Removed(entry);
    return isOfGroup;
  });
}

void ClearStack(Application& application) {
  for (const StackedVisible& entry : application.DisplayStack) Removed(entry);
  application.DisplayStack.Clear();
}

Status BringToFront(ItemType kind, Visible& visible) {
  if (!Lift(kind, visible)) return Status::Refused;
  return RedrawIfRunning(AppendOnTop(*CurrentApplication(), kind, visible), visible);
}

Status SendToBack(ItemType kind, Visible& visible) {
  if (!Lift(kind, visible)) return Status::Refused;
  return RedrawIfRunning(InsertAtBottom(*CurrentApplication(), kind, visible), visible);
}

Status PutBefore(ItemType kind, Visible& visible, const Ingredient& reference) {
  // A visible that is its own reference could not be found after its removal.
  if (&visible == &reference || !IsInStack(reference) || !Lift(kind, visible)) {
    return Status::Refused;
  }
  return RedrawIfRunning(InsertAbove(*CurrentApplication(), kind, visible, reference), visible);
}

Status PutBehind(ItemType kind, Visible& visible, const Ingredient& reference) {
  if (!IsInStack(reference) || !Lift(kind, visible)) return Status::Refused;
  return RedrawIfRunning(InsertBelow(*CurrentApplication(), kind, visible, reference), visible);
}

}  // namespace korvel
