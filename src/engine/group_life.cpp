// The start and the end of groups. Every call that can run actions may end the very group at hand;
// the group's memory stays, and its life record says so.
#include "engine/group_life.h"

#include "engine/core.h"
#include "engine/link_tables.h"
#include "engine/timers.h"
#include "host/host.h"
#include "objects/ber/ber.h"

namespace korvel {
namespace {

struct ItemToStart {
  ItemType Type;
  Ingredient* Record;
};

Status ActivateInitially(Group& group) noexcept {
  Sequence<ItemToStart> items;
  for (const Item& item : group.Items) {
    if (!item.Record()->InitiallyActive) continue;
    if (!items.Append({item.Type(), item.Record()})) return Status::Failure;
  }
  for (const ItemToStart& item : items) {
    const Status status = RunIngredient(item.Type, *item.Record);
    if (status == Status::Failure) return status;
    if (IsGone(group)) return Status::Replaced;
  }
  return Status::Done;
}

Status RunOnStartUp(Group& group, Scope scope) noexcept {
  return RunActions(scope, {&group.OnStartUp, &group}, -1, NameOf(group));
}

// Raises an event of the group itself. Done as long as the group is there to go on with.
Status RaiseOf(Group& group, EventType type) noexcept {
  if (RaiseEvent(group, type) == Status::Failure) return Status::Failure;
  return IsGone(group) ? Status::Replaced : Status::Done;
}

Status PrepareGroup(Group& group) noexcept {
  group.AvailabilityStatus = true;
  const Status status = RaiseOf(group, EventType::IsAvailable);
  return status == Status::Done ? RaiseOf(group, EventType::ContentAvailable) : status;
}

// The group's OnStartUp runs with its links in place. An application whose scene was replaced by it
// goes on.
Status ActivateGroup(Group& group, Scope scope) noexcept {
  if (group.RunningStatus) return Status::Done;
  group.RunningStatus = true;
  if (RunOnStartUp(group, scope) == Status::Failure) return Status::Failure;
  return IsGone(group) ? Status::Replaced : RaiseOf(group, EventType::IsRunning);
}

Status StartItemsAndGroup(Group& group, Scope scope) noexcept {
  Status status = AddLinks(group, scope);
  if (status == Status::Done) status = ActivateInitially(group);
  if (status == Status::Done) status = PrepareGroup(group);
  if (status == Status::Done) status = ActivateGroup(group, scope);
  return status;
}

bool IsCurrent(const Group& group) noexcept {
  return TheCore().scene == &group || TheCore().application == &group;
}

// Takes everything of the group out of the registers of the engine and marks it ended. Its memory
// stays until nothing that may still hold a part of it runs.
void Bury(Group& group) noexcept {
  Core& core = TheCore();
  RemoveLinks(group);
  group.AvailabilityStatus = false;
  group.RunningStatus = false;
  CancelAllTimers(group);
  if (core.application != nullptr) {
    core.application->DisplayStack.RemoveAll(
        [&group](const StackedVisible& entry) { return entry.Visible->owner == &group; });
  }
  ForgetGroup(group);
  if (core.application == &group) core.application = nullptr;
  if (core.scene == &group) core.scene = nullptr;
  group.life = {true, true};
  group.nextEnded = core.ended;
  core.ended = &group;
}

void Adopt(Group& group) noexcept {
  for (const Item& item : group.Items) {
    item.Record()->owner = &group;
    if (item.Type() != ItemType::Stream) continue;
    for (const Item& component : item.As<Stream>().Multiplex) component.Record()->owner = &group;
  }
}

}  // namespace

Status StartApplication(Application& application) noexcept {
  if (CompleteReferences(NameOf(application), application) != Status::Done) return Status::Failure;
  // This first run comes before the links: nothing of the application sees its events yet.
  const Status status = RunOnStartUp(application, Scope::ApplicationFirst);
  if (status == Status::Failure || status == Status::Replaced) return status;
  if (IsGone(application)) return Status::Replaced;
  return StartItemsAndGroup(application, Scope::ApplicationFirst);
}

Status StartScene(Scene& scene) noexcept {
  if (CompleteReferences(NameOf(scene), scene) != Status::Done) return Status::Failure;
  TheCore().sceneStartTime = MillisecondsSinceProcessStart();
  const Status status = StartItemsAndGroup(scene, Scope::SceneFirst);
  return status == Status::Failure ? status : Status::Done;
}

Status EndGroup(Group& group) noexcept {
  if (group.life.isDying) return Status::Done;
  const Busy busy;
  group.life.isDying = true;
  RemoveLinks(group);
  const bool isStopped = RaiseEvent(group, EventType::IsDeleted) == Status::Failure;
  // A link may have ended everything meanwhile, and left this group to us as it is ending already.
  const bool isSuperseded = !IsCurrent(group);
  if (isStopped && !isSuperseded) {
    group.life.isDying = false;
    return Status::Failure;
  }
  const bool wasAvailable = group.AvailabilityStatus;
  Bury(group);
  if (isStopped) return Status::Failure;
  if (isSuperseded) return Status::Replaced;
  return wasAvailable ? Status::Done : Status::Refused;
}

Status EndScene() noexcept {
  Scene* scene = CurrentScene();
  if (scene == nullptr) return Status::Done;
  const Status status = EndGroup(*scene);
  if (status == Status::Failure || status == Status::Replaced) return status;
  // A scene that was ending already has not been buried yet, but makes room for the next one.
  if (CurrentScene() == scene) TheCore().scene = nullptr;
  return CurrentScene() == nullptr ? Status::Done : Status::Replaced;
}

Status EndRunningGroups() noexcept {
  Application* application = CurrentApplication();
  const Status status = EndScene();
  if (status != Status::Done) return status;
  if (CurrentApplication() != application) return Status::Replaced;
  if (application == nullptr) return Status::Done;
  if (EndGroup(*application) == Status::Failure) return Status::Failure;
  if (CurrentApplication() == application) TheCore().application = nullptr;
  return CurrentApplication() == nullptr ? Status::Done : Status::Replaced;
}

void BuryRunningGroups() noexcept {
  Core& core = TheCore();
  if (core.scene != nullptr) Bury(*core.scene);
  if (core.application != nullptr) Bury(*core.application);
}

Application& AdoptApplication(OwnedGroup&& group) noexcept {
  auto* application = static_cast<Application*>(group.Release());
  Adopt(*application);
  TheCore().application = application;
  return *application;
}

Scene& AdoptScene(OwnedGroup&& group) noexcept {
  auto* scene = static_cast<Scene*>(group.Release());
  Adopt(*scene);
  TheCore().scene = scene;
  return *scene;
}

}  // namespace korvel
