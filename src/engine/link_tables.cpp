// Adds links to the tables and removes them. An inactive link stays in its table; dispatch checks
// whether a link is active.
#include "engine/core.h"

#include "actions/actions.h"
#include "objects/messages.h"

namespace korvel {
namespace {

Status AddLink(Link& link, Scope context) {
  if (Prepare(ItemType::Link, link) == Change::Failure) return Status::Failure;
  if (link.InitiallyActive && Activate(ItemType::Link, link) == Change::Failure) {
    return Status::Failure;
  }
  LinkTable* table = TableOf(link.Condition.EventType);
  if (table == nullptr || table->Append({&link, context}) != nullptr) return Status::Done;
  Say(Message::NoMemoryForEvent);
  return Status::Failure;
}

}  // namespace

LinkTable* TableOf(EventType type) {
  switch (type) {
  case EventType::IsAvailable:
  case EventType::ContentAvailable:
  case EventType::IsDeleted:
  case EventType::IsRunning:
  case EventType::IsStopped:
  case EventType::AsynchStopped:
  case EventType::TokenMovedFrom:
  case EventType::TokenMovedTo:
  case EventType::HighlightOn:
  case EventType::HighlightOff:
  case EventType::TestEvent:
  case EventType::FirstItemPresented:
  case EventType::LastItemPresented:
  case EventType::HeadItems:
  case EventType::TailItems:
  case EventType::ItemSelected:
  case EventType::ItemDeselected:
  case EventType::EngineEvent: return &TheCore().stateTable;
  case EventType::UserInput:
  case EventType::AnchorFired:
  case EventType::TimerFired:
  case EventType::InteractionCompleted:
  case EventType::StreamEvent:
  case EventType::StreamPlaying:
  case EventType::StreamStopped:
  case EventType::CounterTrigger:
  case EventType::CursorEnter:
  case EventType::CursorLeave:
  case EventType::IsSelected:
  case EventType::IsDeselected:
  case EventType::EntryFieldFull: return &TheCore().inputTable;
  }
  return nullptr;
}

Status AddLinks(Group& group, Scope context) {
  for (Item& item : group.Items) {
    if (item.Type() != ItemType::Link) continue;
    if (!MayContinue() || AddLink(item.As<Link>(), context) == Status::Failure)
      return Status::Failure;
  }
  return Status::Done;
}

void RemoveLinks(const Group& group) {
  const auto belongsToGroup = [&group](const LinkTableEntry& entry) {
    return entry.waiting->owner == &group ||
           IsSameGroup(entry.waiting->Reference.GroupIdentifier.View(), NameOf(group));
  };
  TheCore().stateTable.RemoveAll(belongsToGroup);
  TheCore().inputTable.RemoveAll(belongsToGroup);
}

void ClearLinkTables() {
  TheCore().stateTable.Clear();
  TheCore().inputTable.Clear();
}

}  // namespace korvel
