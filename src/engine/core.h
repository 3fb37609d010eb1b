// The engine core's own state, one record: which groups run, the links that wait, what has ended
// and waits for its release. Private to the engine folder.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "engine/engine.h"
#include "engine/resident_programs.h"
#include "objects/list.h"
#include "objects/ownership.h"

namespace korvel {

// A link that waits for its event.
struct LinkTableEntry {
  Link* Waiting = nullptr;
  Scope Context = Scope::SceneFirst;  // ApplicationFirst when the link belongs to the application
};
using LinkTable = List<LinkTableEntry>;

// The names of the applications that spawned the current one, the last on top.
struct ApplicationStack {
  static constexpr std::size_t kCapacity = 5;
  std::array<OctetString, kCapacity> Names;
  std::size_t Count = 0;
};

struct PersistentEntry {
  OctetString Name;
  OctetString Data;
};

struct Core {
  Application* application = nullptr;  // owned here while they run
  Scene* scene = nullptr;
  Group* ended = nullptr;  // ended groups, chained by nextEnded, owned until released

  ApplicationStack applicationStack;
  OctetString currentDirectory;
  std::uint32_t sceneStartTime = 0;  // milliseconds since the process started
  Generations generations;

  LinkTable stateTable;
  LinkTable inputTable;

  List<PersistentEntry> persistentStore;
  std::uint32_t random = 0;
  ProgramSettings programSettings;

  // How much is at work on the call stack, and what the work at hand may still cost.
  std::uint32_t busyCount = 0;
  std::uint32_t nestingLevel = 0;
  std::uint32_t actionsLeft = 0;
  // Milliseconds since the process started. From then on nothing is added to what may be used.
  std::optional<std::uint32_t> closeNoticedAt;
  bool isOverLimit = false;  // said once; everything unwinds until the work at hand is done
  std::uint32_t redrawHolds = 0;
};

[[nodiscard]] Core& TheCore();

// The name of a group: its own group identifier as decoded; empty when it has none.
[[nodiscard]] inline std::string_view NameOf(const Group& group) {
  return group.Reference.GroupIdentifier.View();
}

// Releases every ended group, unless something that may still hold one is at work.
void ReleaseEndedGroups();

}  // namespace korvel
