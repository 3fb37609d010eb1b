// Events from outside the content: keys, filtered by the scene's input event register, and
// timer expiries.

#include "actions/actions.h"
#include "engine/core.h"
#include "objects/observer.h"

namespace korvel {
namespace {

// Raises the engine event of a key, if it has one, before the scene can receive the key.
Status RaiseEngineEvent(std::int32_t key) {
  if (key == keys::kText) {
    return RaiseEventByType(EventType::EngineEvent, EventData::Integer(engineEvents::kTextKey));
  }
  if (RaisesOwnEngineEvent(key)) {
    return RaiseEventByType(EventType::EngineEvent, EventData::Integer(key));
  }
  return Status::Done;
}

Status RaiseUserInput(std::int32_t key) {
  if (RaiseEngineEvent(key) == Status::Failure) return Status::Failure;
  Status taken = Status::Done;
  if (TakeInteractionKey(key, taken)) {
    ObserveReason(Reason::KeyTaken, 0);
    return taken;
  }
  // The engine event may have replaced the scene.
  const Scene* scene = CurrentScene();
  const std::int32_t inputRegister =
      scene == nullptr ? kRegisterWithoutScene : scene->InputEventReg;
  if (IsKeyBlocked(inputRegister, key)) {
    ObserveReason(Reason::KeyBlocked, inputRegister);
    return Status::Blocked;
  }
  return RaiseEventByType(EventType::UserInput, EventData::Integer(key));
}

Status RaiseTimerFired(std::int32_t id) {
  ObjectReference owner;
  if (!RemoveFiredTimer(id, owner)) return Refuse(Reason::UnknownTimer, id);
  return RaiseEvent(owner.GroupIdentifier.View(), owner.Number, EventType::TimerFired,
                    EventData::Integer(id));
}

}  // namespace

Status RaiseOutsideEvent(std::int32_t sourceNumber, EventType type, std::int32_t value) {
  const Busy busy;
  if (type == EventType::TimerFired) return RaiseTimerFired(value);
  if (type == EventType::UserInput) return RaiseUserInput(value);
  return RaiseOutsideInput(sourceNumber, type, value);
}

}  // namespace korvel
