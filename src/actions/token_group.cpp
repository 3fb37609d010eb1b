// Token groups: running and stopping members, moving the token, and calling the action slots at its
// position. A list group moves its token in the same way.

#include "actions/behaviours.h"
#include "objects/messages.h"

namespace korvel {
namespace {

TokenGroup& TargetOf(const Arguments& arguments) { return arguments.target.As<TokenGroup>(); }

// The value at a 1-based place; null outside the list.
template <class T> const T* AtPlace(const List<T>& list, std::int32_t place) {
  return place < 1 ? nullptr : list.At(static_cast<std::size_t>(place) - 1);
}

Status MoveTokenTo(TokenGroup& group, std::int32_t position) {
  if (position == group.TokenPosition) return Refuse(Reason::SamePosition);
  const Status status =
      RaiseFrom(group, EventType::TokenMovedFrom, EventData::Integer(group.TokenPosition));
  if (status != Status::Done) return status;
  group.TokenPosition = position;
  return RaiseFrom(group, EventType::TokenMovedTo, EventData::Integer(position));
}

// Runs or stops the members in order. Replaced if the group that owns them ends.
template <class Handle> Status ForMembers(TokenGroup& group, Handle&& handle) {
  for (const TokenGroupItem& item : group.TokenGroupItems) {
    if (!MayContinue()) return Status::Failure;
    const FoundObject member = Find(ContextOf(group), item.AVisible);
    const Status status = handle(member);
    if (status == Status::Failure) return status;
    if (IsGone(group)) return Status::Replaced;
  }
  return Status::Done;
}

}  // namespace

Change ActivateTokenGroup(TokenGroup& group) {
  const Status status = ForMembers(group, [](const FoundObject& member) {
    if (IsVisibleClass(member.type)) return RunIngredient(member.type, member.As<Ingredient>());
    Say(Message::TokenGroupActivationError);
    return Status::Done;
  });
  if (status != Status::Done) return ChangeOf(status);
  if (group.RunningStatus)
    return Change::Nothing;  // a link that waits for a member's event has run it
  group.RunningStatus = true;
  return ChangeOf(
      RaiseFrom(group, EventType::TokenMovedTo, EventData::Integer(group.TokenPosition)));
}

// A link that waits for these events may run the group again; the members are then not stopped.
Change DeactivateTokenGroup(TokenGroup& group) {
  group.RunningStatus = false;
  Status status =
      RaiseFrom(group, EventType::TokenMovedFrom, EventData::Integer(group.TokenPosition));
  if (status != Status::Done) return ChangeOf(status);
  status = ForMembers(group, [&group](const FoundObject& member) {
    if (group.RunningStatus || !IsVisibleClass(member.type)) return Status::Done;
    return StopIngredient(member.type, member.As<Ingredient>());
  });
  const bool isRunAgain = status == Status::Done && group.RunningStatus;
  return isRunAgain ? Change::Nothing : ChangeOf(status);
}

Status Move(const Arguments& arguments) {
  TokenGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  const Movement* movement = AtPlace(group.MovementTable, arguments.Integer(0));
  if (movement == nullptr) {
    Say(Message::MovementIdentifierError);
    return Refuse(Reason::NoSuchPosition, arguments.Integer(0));
  }
  if (group.TokenPosition < 1) return Refuse(Reason::NoSuchPosition, group.TokenPosition);
  const std::int32_t* position = AtPlace(movement->Targets, group.TokenPosition);
  if (position == nullptr) {
    Say(Message::ElementError);
    return Status::Failure;
  }
  return MoveTokenTo(group, *position);
}

// The position may be outside the members.
Status MoveTo(const Arguments& arguments) {
  TokenGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  return MoveTokenTo(group, arguments.Integer(0));
}

Status GetTokenPosition(const Arguments& arguments) {
  const TokenGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  return AnswerInteger(arguments, 0, group.TokenPosition);
}

Status CallActionSlot(const Arguments& arguments) {
  const TokenGroup& group = TargetOf(arguments);
  if (!group.RunningStatus) return Refuse(Reason::NotRunning);
  const List<ActionSlot>* slots = &group.NoTokenActionSlots;
  if (group.TokenPosition > 0) {
    const TokenGroupItem* member = AtPlace(group.TokenGroupItems, group.TokenPosition);
    if (member == nullptr) {
      Say(Message::TokenGroupItemError);
      return Status::Failure;
    }
    slots = &member->ActionSlots;
  }
  const std::int32_t index = arguments.Integer(0);
  const ActionSlot* slot = AtPlace(*slots, index < 1 ? 1 : index);
  if (slot == nullptr || slot->IsNull) return Refuse(Reason::NoSuchPosition, index);
  const ReferenceContext context = ContextOf(group);
  return RunActions(context.scope, {&slot->Actions, group.owner}, context.groupName);
}

}  // namespace korvel
