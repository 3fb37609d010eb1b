// Raises events: collects the links that wait for an event and runs their effects before the call
// returns. All links are collected before the first one runs, so that links may change the table,
// other links or whole groups. A link whose group has ended in the meantime is skipped.
#include <algorithm>
#include <array>

#include "actions/actions.h"
#include "engine/core.h"
#include "objects/bounded_list.h"
#include "objects/limits.h"
#include "objects/observer.h"

namespace korvel {
namespace {

using LinkCollection = BoundedList<LinkTableEntry, kMostLinksOfEvent>;

enum class SceneName { AsStored, WithoutTilde };

// A link of a scene waits only while that scene is the current one.
bool IsInContext(const LinkTableEntry& entry, SceneName comparison) {
  if (entry.scope == Scope::ApplicationFirst) return true;
  const Scene* scene = CurrentScene();
  if (scene == nullptr) return false;
  const std::string_view linkGroup = entry.link->Reference.GroupIdentifier.View();
  if (comparison == SceneName::AsStored) return linkGroup == NameOf(*scene);
  return IsSameGroup(linkGroup, NameOf(*scene));
}

// Links are compared with booleans and integers. A link that waits for another kind never runs.
bool IsCompared(ValueKind kind) { return kind == ValueKind::Boolean || kind == ValueKind::Integer; }

// Collects the first links of a key that run: those that wait for this data and those that accept
// any, in the order of the table. `isSource` says whether a link waits for the event's source.
template <class Predicate>
LinkCollection Collect(LinkKey key, SceneName comparison, Predicate&& isSource) {
  LinkCollection collection;
  const LinkTable& table = TheCore().links;
  const auto* withData = IsCompared(key.data.kind) ? table.Find(key) : nullptr;
  key.data = {};
  const auto* withAnyData = table.Find(key);
  while ((withData != nullptr || withAnyData != nullptr) && MayContinue()) {
    const bool isAnyNext =
        withData == nullptr || (withAnyData != nullptr && withAnyData < withData);
    const auto*& next = isAnyNext ? withAnyData : withData;
    const LinkTableEntry& entry = next->value;
    next = table.Next(*next);
    if (!isSource(entry)) continue;
    if (!entry.link->RunningStatus) {
      ObserveSkippedLink(*entry.link, Reason::NotActive);
    } else if (!IsInContext(entry, comparison)) {
      ObserveSkippedLink(*entry.link, Reason::OtherScene);
    } else if (collection.IsFull()) {
      ObserveSkippedLink(*entry.link, Reason::TooManyLinks);
      break;
    } else {
      collection.Append(entry);
    }
  }
  return collection;
}

Status RunLink(const LinkTableEntry& entry) {
  Link& link = *entry.link;
  ObserveLink(link);
  return RunActions(entry.scope, {&link.LinkEffect, link.owner},
                    link.Reference.GroupIdentifier.View());
}

bool StopsDispatch(Status status) {
  return status == Status::Failure || status == Status::Replaced;
}

// Events of the user, of timers and of streams. The split is fixed; it differs from the standard's
// split into synchronous and asynchronous events.
constexpr std::array kInputEvents = {
    EventType::UserInput,     EventType::AnchorFired,          EventType::TimerFired,
    EventType::StreamEvent,   EventType::InteractionCompleted, EventType::StreamPlaying,
    EventType::StreamStopped, EventType::CounterTrigger,       EventType::CursorEnter,
    EventType::CursorLeave,   EventType::IsSelected,           EventType::IsDeselected,
    EventType::EntryFieldFull};

template <class Links> Status RunLinks(const Links& links) {
  const Busy busy;
  Status status = Status::Done;
  for (const LinkTableEntry& entry : links) {
    if (StopsDispatch(status)) {
      ObserveSkippedLink(*entry.link, Reason::Stopped);
    } else if (IsGone(*entry.link)) {
      ObserveSkippedLink(*entry.link, Reason::GroupEnded);
    } else {
      status = RunLink(entry);
    }
  }
  return status;
}

}  // namespace

Status RaiseEvent(std::string_view sourceGroup, std::int32_t sourceNumber, EventType type,
                  EventData data) {
  ObserveEvent(sourceGroup, sourceNumber, type, data);
  const LinkKey key{type, false, sourceNumber, data};
  const auto isSource = [&](const LinkTableEntry& entry) {
    return IsSameGroup(entry.link->Condition.EventSource.GroupIdentifier.View(), sourceGroup);
  };
  return RunLinks(Collect(key, SceneName::AsStored, isSource));
}

Status RaiseEvent(const Root& source, EventType type, EventData data) {
  return RaiseEvent(source.Reference.GroupIdentifier.View(), source.Reference.Number, type, data);
}

Status RaiseEventByType(EventType type, EventData data) {
  ObserveEvent(type, data);
  const auto isSource = [](const LinkTableEntry& /*entry*/) { return true; };
  return RunLinks(Collect({type, true, 0, data}, SceneName::WithoutTilde, isSource));
}

Status RaiseOutsideInput(std::int32_t sourceNumber, EventType type, std::int32_t value) {
  if (std::ranges::find(kInputEvents, type) == kInputEvents.end()) return Status::Done;
  List<LinkTableEntry> links;
  for (const auto& [key, entry, next, last] : TheCore().links) {
    if (!MayContinue()) return Status::Failure;
    const Link& link = *entry.link;
    const bool isMatch = !key.isAnySource && key.type == type && key.sourceNumber == sourceNumber &&
                         link.RunningStatus && link.Condition.EventData.Integer == value;
    if (isMatch && !links.Append(entry)) return Status::Failure;
  }
  return RunLinks(links);
}

}  // namespace korvel
