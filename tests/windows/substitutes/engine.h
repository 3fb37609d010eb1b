// What tests may ask of the stand-in for the engine core: which groups run, which events were
// raised, and what a raise does.
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
  std::function<Status()> onRaise;  // when set, what the links of an event do, and their result
  int busy = 0;                     // how many hold ended groups back now
};

// The stand-in's state; a fixture resets it with `TheEngine() = {}`.
FakeEngine& TheEngine();

}  // namespace korvel::test
