// The state and the functions that the files of the engine core share. Private to this folder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "engine/engine.h"
#include "engine/resident_programs.h"
#include "objects/bounded_list.h"
#include "objects/index.h"
#include "objects/limits.h"
#include "objects/list.h"
#include "objects/ownership.h"

namespace korvel {

// A link that waits for its event.
struct LinkTableEntry {
  Link* link = nullptr;
  Scope scope = Scope::SceneFirst;  // ApplicationFirst when the link belongs to the application
};

// The event that a link waits for: its type, its source (the object with that number, or any
// source) and its data. Data of kind None accepts any data.
struct LinkKey {
  EventType type{};
  bool isAnySource = false;
  std::int32_t sourceNumber = 0;
  EventData data;

  bool operator==(const LinkKey&) const = default;
};
[[nodiscard]] inline std::uint32_t HashOf(const LinkKey& key) {
  return Hash()
      .Add(static_cast<std::uint32_t>(key.type) * 2 + (key.isAnySource ? 1 : 0))
      .Add(static_cast<std::uint32_t>(key.sourceNumber))
      .Add(static_cast<std::uint32_t>(key.data.kind))
      .Add(static_cast<std::uint32_t>(key.data.value))
      .Result();
}

// All waiting links, in the order in which they run: those of the application first, and those of a
// group in the order of its items. Each link has two entries: one with its source, and one with any
// source, for events that are raised without one.
using LinkTable = Index<LinkKey, LinkTableEntry>;

// The names of the applications that spawned the current one, the last on top.
using ApplicationStack = BoundedList<OctetString, kMostSpawnedApplications>;

struct PersistentEntry {
  OctetString name;
  OctetString data;
};

struct Core {
  Application* application = nullptr;  // owned here while they run
  Scene* scene = nullptr;
  Group* ended = nullptr;  // ended groups, chained by nextEnded, owned until released

  ApplicationStack applicationStack;
  OctetString currentDirectory;
  std::uint32_t sceneStartTime = 0;  // milliseconds since the process started
  Generations generations;

  LinkTable links;

  List<PersistentEntry> persistentStore;
  std::uint32_t random = 0;
  ProgramSettings programSettings;

  // Operations on the call stack, and the actions that the current work may still run.
  std::uint32_t busyCount = 0;
  std::uint32_t nestingLevel = 0;
  std::uint32_t actionsLeft = 0;
  // When the engine noticed the pending close, in milliseconds since the process started. From then
  // on, new work adds nothing to actionsLeft.
  std::optional<std::uint32_t> closeNoticedAt;
  bool isOverLimit = false;  // a limit was exceeded and reported; the current work unwinds
  std::uint32_t redrawHolds = 0;
};

[[nodiscard]] Core& TheCore();

// The name of a group: its own group identifier as decoded; empty when it has none.
[[nodiscard]] inline std::string_view NameOf(const Group& group) {
  return group.Reference.GroupIdentifier.View();
}

// ---- core.cpp ----

// Releases every ended group, unless an operation that may use one is running.
void ReleaseEndedGroups();

// ---- group_files.cpp: group names as file names ----

// Reads the start-up application. Without a path, tries the names "a" and "startup". With a path,
// tries the path itself, then both names in the directory of that path, then both names alone.
// Tries everything twice, with a pause after each pass.
[[nodiscard]] bool FetchStartUp(std::string_view path, OctetString& bytes);

// Set the current directory after a Launch or a Spawn of the name; the rules differ. False if
// memory runs out.
[[nodiscard]] bool SetDirectoryOfLaunched(std::string_view groupName);
[[nodiscard]] bool SetDirectoryOfSpawned(std::string_view groupName);

// ---- lookup.cpp ----

// Adds the objects of a decoded group to its index, so that FindObject finds them. False if memory
// or, during a close, time runs out.
[[nodiscard]] bool IndexObjects(Group& group);

// ---- group_life.cpp: how a decoded group starts and a running group ends ----

// Starts the application that has just become current: completes its references, runs OnStartUp for
// the first time, and starts its links, its items and the application itself. Failure if a step
// fails; Replaced if the first OnStartUp or the items replace the running groups.
Status StartApplication(Application& application);

// Starts the scene that has just become current: completes its references, and starts its links,
// its items and the scene itself. Failure if a step fails; otherwise Done, even if the scene was
// replaced.
Status StartScene(Scene& scene);

// Ends a running group, unless it is null: removes its links, raises IsDeleted, removes everything
// that it owns from the engine's state, and keeps its memory until no operation runs. Failure if a
// link that waits for IsDeleted fails; unless that link replaced the group, it keeps running
// without its links. Replaced if such a link replaces the group, which then leaves the engine's
// state before its successor starts.
Status EndGroup(Group* group);

// Ends the scene, then the application; stops at the first Failure or Replaced and returns it.
Status EndRunningGroups();

// Ends only the scene.
Status EndScene();

// Ends the running groups without events and messages, and clears the link table.
void EndRunningGroupsSilently();

// Makes a decoded group the current one of its kind, after the current one has ended.
Application& AdoptApplication(OwnedGroup&& group);
Scene& AdoptScene(OwnedGroup&& group);

// ---- link_table.cpp ----

// Prepares the group's links, activates those that are initially active, and enters all of them in
// the table. A link with an unknown event type is not entered and never fires.
Status AddLinks(Group& group, Scope scope);

// Removes the links of a group from the table: those that have its group identifier, and those that
// it holds under another one.
void RemoveLinks(const Group& group);

// ---- events.cpp ----

// Handles the rare outside events that are neither keys nor timers: runs every active link that
// waits for this source number, type and value, without a limit on their number. Links that wait
// for an event of the engine's own, such as IsRunning, do not run.
Status RaiseOutsideInput(std::int32_t sourceNumber, EventType type, std::int32_t value);

// ---- timers.cpp ----

// Removes the record of a timer that has fired from the current scene's list and returns its owner.
// False when no scene runs or the scene has no such timer; a timer of the application is never
// found.
[[nodiscard]] bool RemoveFiredTimer(std::int32_t id, ObjectReference& owner);

// Kills every pending timer of a group that ends.
void CancelAllTimers(const Group& group);

}  // namespace korvel
