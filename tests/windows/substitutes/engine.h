// Controls the substitute for the engine core: the running groups, the raised events, and the
// effect of an event.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "engine/engine.h"

namespace korvel::test {

struct RaisedEvent {
  std::string group;
  std::int32_t number = 0;
  EventType type{};
  EventData data;
};

struct FakeEngine {
  Application* application = nullptr;
  Scene* scene = nullptr;
  std::vector<RaisedEvent> raised;
  std::function<Status()> onRaise;  // if set, the effect of an event's links, and its result
  int busy = 0;                     // number of Busy objects now, which keep ended groups alive
};

// The substitute's state; a fixture resets it with `TheEngine() = {}`.
FakeEngine& TheEngine();

}  // namespace korvel::test
