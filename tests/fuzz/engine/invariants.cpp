// Visits all objects of the running groups and compares the engine's state with them.
#include "invariants.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "actions/behaviours.h"
#include "engine/core.h"
#include "objects/limits.h"
#include "platform/running.h"
#include "substitutes/host.h"

namespace korvel::test {
namespace {

struct LivingObject {
  FoundObject object;
  Group* group = nullptr;
  std::uint32_t entries = 0;  // in the display stack
};

// Every ingredient of the running groups, by its address. A pointer in the engine's state is only
// looked up here, never followed: it may be wrong and point to a released ingredient.
using LivingObjects = std::unordered_map<const Root*, LivingObject>;

void AddObjects(const List<Item>& items, Group& group, LivingObjects& objects) {
  for (const Item& item : items) {
    objects[item.Record()] = {{item.Type(), item.Record()}, &group};
    if (item.Type() == ItemType::Stream) AddObjects(item.As<Stream>().Multiplex, group, objects);
  }
}

std::vector<Group*> LivingGroups() {
  std::vector<Group*> groups;
  if (CurrentScene() != nullptr) groups.push_back(CurrentScene());
  if (CurrentApplication() != nullptr) groups.push_back(CurrentApplication());
  return groups;
}

void RequireOf(const LivingObject& living, bool holds, const char* rule) {
  if (holds) return;
  const ObjectReference& reference = living.object.object->Reference;
  std::fprintf(stderr, "class %u, object %s %d: ", static_cast<unsigned>(living.object.type),
               reference.GroupIdentifier.Text(), reference.Number);
  Require(false, rule);
}

LivingObjects Collect() {
  LivingObjects objects;
  for (Group* group : LivingGroups()) {
    Require(!group->life.isDead, "a current group has not ended");
    AddObjects(group->Items, *group, objects);
  }
  return objects;
}

void CheckLinks(const LivingObjects& objects) {
  for (const auto& entry : TheCore().links) {
    const auto link = objects.find(entry.value.link);
    Require(link != objects.end(), "a link in the table belongs to a living group");
    Require(link->second.object.type == ItemType::Link, "only links are in the table");
    const Scope scope =
        link->second.group == CurrentScene() ? Scope::SceneFirst : Scope::ApplicationFirst;
    Require(entry.value.scope == scope, "a link has the scope of its group");
  }
}

void CheckDisplayStack(LivingObjects& objects) {
  if (const Application* application = CurrentApplication(); application != nullptr) {
    for (const StackedVisible& entry : application->DisplayStack) {
      const auto visible = objects.find(entry.visible);
      Require(visible != objects.end(), "a stacked visible belongs to a living group");
      RequireOf(visible->second, visible->second.object.type == entry.kind,
                "a stack entry has the visible's class");
      Require(IsVisibleClass(entry.kind), "only visibles are stacked");
      RequireOf(visible->second, ++visible->second.entries == 1, "a visible is stacked once");
    }
  }
  for (const auto& [address, living] : objects) {
    RequireOf(living, living.object.As<Ingredient>().stackEntries == living.entries,
              "a visible counts its stack entries");
    RequireOf(living, living.object.As<Ingredient>().owner == living.group,
              "an object knows its group");
  }
}

void CheckClassVariables(const LivingObjects& objects) {
  const ClassVariables& variables = CurrentClassVariables();
  if (const FoundObject& inProgress = variables.interactingObject) {
    const auto object = objects.find(inProgress.object);
    Require(object != objects.end(), "an interacting object is living");
    RequireOf(object->second, object->second.object.type == inProgress.type,
              "an interacting object has its class");
  }
  for (const auto& [address, living] : objects) {
    const Interactible* interactible = InteractibleOf(living.object);
    if (interactible == nullptr) continue;
    const bool isInProgress = variables.interactingObject.object == address;
    RequireOf(living, interactible->InteractionStatus == isInProgress,
              "one interaction is in progress");
  }
}

void CheckStatuses(const LivingObjects& objects) {
  for (const auto& [address, living] : objects) {
    const bool isRunning = living.object.object->RunningStatus;
    // Activate accepts links and programs that are not available.
    constexpr ClassSet activated = kPrograms | SetOf(ItemType::Link);
    const bool mayRun =
        living.object.object->AvailabilityStatus || Contains(activated, living.object.type);
    RequireOf(living, mayRun || !isRunning, "a running object is available");
    if (IsVisibleClass(living.object.type)) {
      RequireOf(living, !isRunning || living.entries == 1, "a running visible is stacked");
    }
  }
  const FoundObject& interacting = CurrentClassVariables().interactingObject;
  Require(!interacting || interacting.object->RunningStatus, "an interacting object runs");
}

// The application and the scene share platform timers of the same id, so one group may replace or
// kill the other's.
void CheckTimers() {
  if (TheHost().isClosing) return;
  const auto& platform = TheHost().timers;
  const auto& killed = TheHost().killedTimers;
  std::vector<std::uint32_t> pending;
  for (Group* group : LivingGroups()) {
    const std::size_t first = pending.size();
    for (const Timer& timer : group->Timers) {
      const auto id = static_cast<std::uint32_t>(timer.id);
      Require(std::find(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end(), id) ==
                  pending.end(),
              "a group has one timer of an id");
      pending.push_back(id);
      Require(platform.contains(id) || group == CurrentApplication() ||
                  std::find(killed.begin(), killed.end(), id) != killed.end(),
              "a pending timer of a scene is pending on the platform");
    }
  }
  for (const auto& [id, period] : platform) {
    Require(period <= kLongestPeriodMs, "a period is not too long for the platform");
    Require(std::find(pending.begin(), pending.end(), id) != pending.end(),
            "a pending platform timer belongs to a group");
  }
}

using FirstObjects = std::map<std::pair<std::string_view, std::int32_t>, const Root*>;

// Adds the objects. Of several with the same name and number, adds only the first, because a search
// never finds the others.
void AddFirst(const List<Item>& items, FirstObjects& objects) {
  for (const Item& item : items) {
    const ObjectReference& reference = item.Record()->Reference;
    if (item.Type() <= ItemType::SwitchButton) {
      objects.try_emplace({WithoutTilde(reference.GroupIdentifier.View()), reference.Number},
                          item.Record());
    }
    if (item.Type() == ItemType::Stream) AddFirst(item.As<Stream>().Multiplex, objects);
  }
}

void CheckIndex() {
  FirstObjects objects;
  if (const Group* application = CurrentApplication(); application != nullptr) {
    objects.try_emplace({WithoutTilde(NameOf(*application)), 0}, application);
  }
  if (const Group* scene = CurrentScene(); scene != nullptr) {
    objects.try_emplace({WithoutTilde(NameOf(*scene)), 0}, scene);
  }
  for (const Group* group : LivingGroups()) AddFirst(group->Items, objects);
  for (const auto& [name, object] : objects) {
    const std::string_view group = object->Reference.GroupIdentifier.View();
    // A pending close ends searches early, and this search may itself cause the close, because it
    // calls IsClosing.
    const FoundObject found = FindObject(Scope::SceneFirst, group, name.second);
    Require(found.object == object || IsClosing(), "the index finds the same object as a walk");
  }
}

}  // namespace

void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "violated: %s\n", rule);
  std::abort();
}

void CheckNesting() {
  Require(TheCore().nestingLevel <= kMostLevels, "action lists and events nest to the limit only");
}

void CheckRegisters() {
  LivingObjects objects = Collect();
  CheckLinks(objects);
  CheckDisplayStack(objects);
  CheckClassVariables(objects);
}

void CheckState() {
  const Core& core = TheCore();
  Require(core.busyCount == 0 && core.nestingLevel == 0, "no action or event is in progress");
  Require(core.redrawHolds == 0, "no redraw is held");
  Require(core.applicationStack.Size() <= kMostSpawnedApplications,
          "the number of waiting applications is within its limit");
  LivingObjects objects = Collect();
  CheckLinks(objects);
  CheckDisplayStack(objects);
  CheckClassVariables(objects);
  CheckStatuses(objects);
  CheckTimers();
  CheckIndex();
}

}  // namespace korvel::test
