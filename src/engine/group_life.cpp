// The start and the end of groups. Every call that can run actions may end the group that is being
// started or ended; its memory is kept, and `life.isDead` is set.

#include <utility>

#include "actions/actions.h"
#include "engine/core.h"
#include "objects/ber/ber.h"
#include "objects/observer.h"
#include "platform/clocks.h"

namespace korvel {
namespace {

Status ActivateInitially(Group& group) {
  for (const Item& item : group.Items) {
    if (!item.Record()->InitiallyActive) continue;
    if (!MayContinue()) return Status::Failure;
    const Status status = RunIngredient(item.Type(), *item.Record());
    if (status == Status::Failure) return status;
    if (IsGone(group)) return Status::Replaced;
  }
  return Status::Done;
}

Status RunOnStartUp(Group& group, Scope scope) {
  return RunActions(scope, {&group.OnStartUp, &group}, NameOf(group));
}

// Raises an event of the group itself. Replaced if the group ends.
Status RaiseOf(Group& group, EventType type) {
  if (RaiseEvent(group, type) == Status::Failure) return Status::Failure;
  return IsGone(group) ? Status::Replaced : Status::Done;
}

Status PrepareGroup(Group& group) {
  group.AvailabilityStatus = true;
  const Status status = RaiseOf(group, EventType::IsAvailable);
  return status == Status::Done ? RaiseOf(group, EventType::ContentAvailable) : status;
}

// OnStartUp runs after the group's links have been added. An application continues even if its
// OnStartUp replaces the scene.
Status ActivateGroup(Group& group, Scope scope) {
  if (group.RunningStatus) return Status::Done;
  group.RunningStatus = true;
  if (RunOnStartUp(group, scope) == Status::Failure) return Status::Failure;
  return IsGone(group) ? Status::Replaced : RaiseOf(group, EventType::IsRunning);
}

Status StartItemsAndGroup(Group& group, Scope scope) {
  Status status = AddLinks(group, scope);
  if (status == Status::Done) status = ActivateInitially(group);
  if (status == Status::Done) status = PrepareGroup(group);
  if (status == Status::Done) status = ActivateGroup(group, scope);
  return status;
}

// Removes everything that the group owns from the engine's state and marks the group as ended. The
// caller has removed its links. Its memory is kept until no operation that may use it runs.
void MoveToEnded(Group& group) {
  Core& core = TheCore();
  group.AvailabilityStatus = false;
  group.RunningStatus = false;
  CancelAllTimers(group);
  if (core.application != nullptr) RemoveGroupFromStack(*core.application, group);
  ForgetGroup(group);
  if (core.application == &group) core.application = nullptr;
  if (core.scene == &group) core.scene = nullptr;
  group.life = {true, true};
  group.nextEnded = core.ended;
  core.ended = &group;
  ObserveGroupEnd(group);
}

// Makes the group the current one of its kind.
template <class Record> Record& Adopt(OwnedGroup&& owned, Record*& current) {
  current = static_cast<Record*>(owned.release());
  Group& group = *current;
  for (const Item& item : group.Items) {
    item.Record()->owner = &group;
    if (item.Type() != ItemType::Stream) continue;
    for (const Item& component : item.As<Stream>().Multiplex) component.Record()->owner = &group;
  }
  ObserveGroupStart(group);
  return *current;
}

}  // namespace

Status StartApplication(Application& application) {
  if (CompleteReferences(NameOf(application), application) != Status::Done) return Status::Failure;
  // OnStartUp first runs before the links are added, so that no link of the application sees its
  // events.
  const Status status = RunOnStartUp(application, Scope::ApplicationFirst);
  if (status == Status::Failure || status == Status::Replaced) return status;
  if (IsGone(application)) return Status::Replaced;
  return StartItemsAndGroup(application, Scope::ApplicationFirst);
}

Status StartScene(Scene& scene) {
  if (CompleteReferences(NameOf(scene), scene) != Status::Done) return Status::Failure;
  TheCore().sceneStartTime = MillisecondsSinceProcessStart();
  const Status status = StartItemsAndGroup(scene, Scope::SceneFirst);
  return status == Status::Failure ? status : Status::Done;
}

Status EndGroup(Group* group) {
  if (group == nullptr) return Status::Done;
  // A link that waits for its IsDeleted is replacing it: it must leave the engine's state before
  // its successor starts.
  if (std::exchange(group->life.isDying, true)) {
    MoveToEnded(*group);
    return Status::Done;
  }
  const Busy busy;
  RemoveLinks(*group);
  const bool isStopped = RaiseEvent(*group, EventType::IsDeleted) == Status::Failure;
  if (IsGone(*group)) return isStopped ? Status::Failure : Status::Replaced;
  if (isStopped) {
    group->life.isDying = false;
    return Status::Failure;
  }
  MoveToEnded(*group);
  return Status::Done;
}

Status EndScene() { return EndGroup(CurrentScene()); }

Status EndRunningGroups() {
  const Status status = EndScene();
  return status == Status::Done ? EndGroup(CurrentApplication()) : status;
}

void EndRunningGroupsSilently() {
  Core& core = TheCore();
  core.links.Clear();
  if (core.scene != nullptr) MoveToEnded(*core.scene);
  if (core.application != nullptr) MoveToEnded(*core.application);
}

Application& AdoptApplication(OwnedGroup&& group) {
  return Adopt(std::move(group), TheCore().application);
}

Scene& AdoptScene(OwnedGroup&& group) { return Adopt(std::move(group), TheCore().scene); }

}  // namespace korvel
