// Scenes of any size, and the engine that runs them. The platform and the presentation are the
// substitutes of the tests: files are in memory, and a redraw is only counted.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/engine.h"
#include "objects/ownership.h"
#include "workload.h"

namespace bench {

inline constexpr std::string_view kScene = "~/s";

// A scene "~/s" with items in the textual notation. The reader accepts at most 64 KB, so the items
// are read in parts.
[[nodiscard]] korvel::OwnedGroup SceneOf(const std::vector<std::string>& items);

// The BER form of a group.
[[nodiscard]] std::string BytesOf(const korvel::Group& group);

// Starts an application without items and enters the scene.
void EnterScene(const korvel::Group& scene);
inline void EnterScene(const std::vector<std::string>& items) { EnterScene(*SceneOf(items)); }

// An object of the scene.
[[nodiscard]] korvel::FoundObject ObjectOf(std::int32_t number);
template <class Record> [[nodiscard]] Record& Object(std::int32_t number) {
  return ObjectOf(number).As<Record>();
}

// A link that never fires: it only holds an action list, which RunEffect runs.
[[nodiscard]] std::string ActionHolder(int number, const std::string& actions);

// Runs the effect of a link of the scene, as a key that fires the link does.
[[nodiscard]] Work RunEffect(int number, double units);

// Items in the textual notation.
[[nodiscard]] std::string IntegerVariable(int number);
[[nodiscard]] std::string Rectangle(int number, std::string_view attributes = "");
[[nodiscard]] std::string LinkOn(int number, int source, const std::string& event,
                                 const std::string& effect);

}  // namespace bench
