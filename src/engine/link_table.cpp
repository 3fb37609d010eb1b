// Adds links to the table and removes them. An inactive link stays in the table; dispatch checks
// whether a link is active.
#include "engine/core.h"

#include "actions/actions.h"
#include "objects/messages.h"

namespace korvel {
namespace {

constexpr bool IsKnown(EventType type) {
  return type >= EventType::IsAvailable && type <= EventType::EngineEvent;
}

EventData DataOf(const LinkCondition& condition) {
  const GenericValue& data = condition.EventData;
  switch (data.Kind) {
  case ValueKind::Boolean: return EventData::Boolean(data.Boolean);
  case ValueKind::Integer: return EventData::Integer(data.Integer);
  default: return {data.Kind, 0};
  }
}

Status AddLink(Link& link, Scope scope) {
  if (Prepare(ItemType::Link, link) == Change::Failure) return Status::Failure;
  if (link.InitiallyActive) link.RunningStatus = true;
  const LinkCondition& condition = link.Condition;
  if (!IsKnown(condition.EventType)) return Status::Done;
  LinkTable& table = TheCore().links;
  const EventData data = DataOf(condition);
  const LinkKey withSource{condition.EventType, false, condition.EventSource.Number, data};
  const LinkKey anySource{condition.EventType, true, 0, data};
  if (table.Add(withSource, {&link, scope}) && table.Add(anySource, {&link, scope})) {
    return Status::Done;
  }
  table.RemoveAll([&link](const LinkTableEntry& entry) { return entry.link == &link; });
  Say(Message::NoMemoryForEvent);
  return Status::Failure;
}

}  // namespace

Status AddLinks(Group& group, Scope scope) {
  for (Item& item : group.Items) {
    if (item.Type() != ItemType::Link) continue;
    if (!MayContinue() || AddLink(item.As<Link>(), scope) == Status::Failure)
      return Status::Failure;
  }
  return Status::Done;
}

void RemoveLinks(const Group& group) {
  const auto belongsToGroup = [&group](const LinkTableEntry& entry) {
    return entry.link->owner == &group ||
           IsSameGroup(entry.link->Reference.GroupIdentifier.View(), NameOf(group));
  };
  TheCore().links.RemoveAll(belongsToGroup);
}

}  // namespace korvel
