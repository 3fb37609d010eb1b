// Raises events: collects the links that wait for an event and runs their effects before the call
// returns. All links are collected before the first one runs, so that links may change the tables,
// other links or whole groups. A link whose group has ended in the meantime is skipped.
#include "actions/actions.h"
#include "engine/core.h"
#include "objects/bounded_list.h"
#include "objects/limits.h"

namespace korvel {
namespace {

struct CollectedLink {
  Link* collected = nullptr;
  Group* owner = nullptr;
  Scope context = Scope::SceneFirst;
};

using LinkCollection = BoundedList<CollectedLink, kMostLinksOfEvent>;

bool MatchesData(const GenericValue& waitedFor, EventData data) {
  if (waitedFor.Kind == ValueKind::None) return true;
  if (waitedFor.Kind != data.kind) return false;
  if (data.kind == ValueKind::Integer) return waitedFor.Integer == data.value;
  if (data.kind == ValueKind::Boolean) return waitedFor.Boolean == (data.value != 0);
  return false;
}

bool MatchesEvent(const Link& link, EventType type, EventData data) {
  return link.Condition.EventType == type && MatchesData(link.Condition.EventData, data) &&
         link.RunningStatus;
}

bool MatchesSource(const LinkCondition& condition, std::string_view sourceGroup,
                   std::int32_t sourceNumber) {
  return condition.EventSource.Number == sourceNumber &&
         IsSameGroup(condition.EventSource.GroupIdentifier.View(), sourceGroup);
}

enum class SceneName { AsStored, WithoutTilde };

// A link of a scene waits only while that scene is the current one.
bool IsInContext(const LinkTableEntry& entry, SceneName comparison) {
  if (entry.context == Scope::ApplicationFirst) return true;
  const Scene* scene = CurrentScene();
  if (scene == nullptr) return false;
  const std::string_view linkGroup = entry.waiting->Reference.GroupIdentifier.View();
  if (comparison == SceneName::AsStored) return linkGroup == NameOf(*scene);
  return IsSameGroup(linkGroup, NameOf(*scene));
}

template <class Predicate> LinkCollection Collect(EventType type, Predicate&& waits) {
  LinkCollection collection;
  const LinkTable* table = TableOf(type);
  if (table == nullptr) return collection;
  for (const LinkTableEntry& entry : *table) {
    if (collection.IsFull() || !MayContinue()) break;
    if (!waits(entry)) continue;
    collection.Append({entry.waiting, entry.waiting->owner, entry.context});
  }
  return collection;
}

Status RunLink(const CollectedLink& link) {
  const ActionHolder effect{&link.collected->LinkEffect, link.owner};
  return RunActions(link.context, effect, link.collected->Reference.GroupIdentifier.View());
}

bool StopsDispatch(Status status) {
  return status == Status::Failure || status == Status::Replaced;
}

template <class Links> Status RunLinks(const Links& links) {
  const Busy busy;
  Status status = Status::Done;
  for (const CollectedLink& link : links) {
    if (IsGone(*link.owner)) continue;
    status = RunLink(link);
    if (StopsDispatch(status)) break;
  }
  return status;
}

}  // namespace

Status RaiseEvent(std::string_view sourceGroup, std::int32_t sourceNumber, EventType type,
                  EventData data) {
  const LinkCollection collection = Collect(type, [&](const LinkTableEntry& entry) {
    return MatchesSource(entry.waiting->Condition, sourceGroup, sourceNumber) &&
           MatchesEvent(*entry.waiting, type, data) && IsInContext(entry, SceneName::AsStored);
  });
  return RunLinks(collection);
}

Status RaiseEvent(const Root& source, EventType type, EventData data) {
  return RaiseEvent(source.Reference.GroupIdentifier.View(), source.Reference.Number, type, data);
}

Status RaiseEventByType(EventType type, EventData data) {
  const LinkCollection collection = Collect(type, [&](const LinkTableEntry& entry) {
    return MatchesEvent(*entry.waiting, type, data) && IsInContext(entry, SceneName::WithoutTilde);
  });
  return RunLinks(collection);
}

Status RaiseOutsideInput(std::int32_t sourceNumber, EventType type, std::int32_t value) {
  Sequence<CollectedLink> links;
  for (const LinkTableEntry& entry : TheCore().inputTable) {
    if (!MayContinue()) return Status::Failure;
    Link& link = *entry.waiting;
    if (!link.RunningStatus || link.Condition.EventSource.Number != sourceNumber ||
        link.Condition.EventType != type || link.Condition.EventData.Integer != value) {
      continue;
    }
    if (!links.Append({&link, link.owner, entry.context})) return Status::Failure;
  }
  return RunLinks(links);
}

}  // namespace korvel
