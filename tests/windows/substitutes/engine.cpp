// Replaces the engine functions that the presentation calls.
#include "windows/substitutes/engine.h"

namespace korvel {

using test::TheEngine;

Application* CurrentApplication() { return TheEngine().application; }

Scene* CurrentScene() { return TheEngine().scene; }

Status RaiseEvent(const Root& source, EventType type, EventData data) {
  const ObjectReference& reference = source.Reference;
  TheEngine().raised.push_back(
      {std::string(reference.GroupIdentifier.View()), reference.Number, type, data});
  return TheEngine().onRaise ? TheEngine().onRaise() : Status::Done;
}

Busy::Busy() { ++TheEngine().busy; }

Busy::~Busy() { --TheEngine().busy; }

namespace test {

FakeEngine& TheEngine() {
  static FakeEngine engine;
  return engine;
}

}  // namespace test
}  // namespace korvel
