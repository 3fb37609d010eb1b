// What comes in from outside the content: keys, filtered by the scene's input event register, and
// timer expiries.
#include "engine/outside_events.h"

#include <cstdio>

#include "actions/actions.h"
#include "engine/core.h"
#include "engine/timers.h"

namespace korvel {
namespace {

// The key numbers of UserInput that the rules below speak of.
constexpr std::int32_t kFirstArrow = 1;
constexpr std::int32_t kFirstDigit = 5;
constexpr std::int32_t kLastDigit = 14;
constexpr std::int32_t kSelect = 15;
constexpr std::int32_t kCancel = 16;
constexpr std::int32_t kFirstOther = 17;
constexpr std::int32_t kLastOther = 99;
constexpr std::int32_t kRed = 100;
constexpr std::int32_t kBlue = 103;
constexpr std::int32_t kText = 104;

// The register of a scene that has not been reached yet: only Cancel, the colours and Text get
// through.
constexpr std::int32_t kRegisterWithoutScene = 3;

// The value that the Text key's engine event carries instead of its key number.
constexpr std::int32_t kTextEngineEvent = 4;

constexpr bool IsWithin(std::int32_t key, std::int32_t first, std::int32_t last) {
  return key >= first && key <= last;
}

bool IsBlocked(std::int32_t inputRegister, std::int32_t key) {
  const bool isOutsideAll = IsWithin(key, kFirstOther, kLastOther) || key > kText;
  switch (inputRegister) {
  case 3: return isOutsideAll || IsWithin(key, kFirstArrow, kSelect);
  case 4: return isOutsideAll;
  case 5: return isOutsideAll || IsWithin(key, kFirstDigit, kLastDigit);
  default: return false;
  }
}

// The keys that the engine itself reports, before the scene may see them.
Status RaiseEngineEvent(std::int32_t key) {
  if (key == kText) {
    return RaiseEventByType(EventType::EngineEvent, EventData::Integer(kTextEngineEvent));
  }
  if (key == kCancel || IsWithin(key, kRed, kBlue)) {
    return RaiseEventByType(EventType::EngineEvent, EventData::Integer(key));
  }
  return Status::Done;
}

Status RaiseUserInput(std::int32_t key) {
  if (RaiseEngineEvent(key) == Status::Failure) return Status::Failure;
  Status taken = Status::Done;
  if (TakeInteractionKey(key, taken)) return taken;
  // The scene is asked for only now: the engine event may have replaced it.
  const Scene* scene = CurrentScene();
  const std::int32_t inputRegister =
      scene == nullptr ? kRegisterWithoutScene : scene->InputEventReg;
  if (IsBlocked(inputRegister, key)) return Status::Blocked;
  return RaiseEventByType(EventType::UserInput, EventData::Integer(key));
}

Status RaiseTimerFired(std::int32_t id) {
  ObjectReference owner;
  if (TakeFiredTimer(id, owner) != Status::Done) return Status::Refused;
  const std::string_view ownerName = owner.GroupIdentifier.View();
  const Scene* scene = CurrentScene();
  if (scene == nullptr || WithoutTilde(ownerName) != WithoutTilde(NameOf(*scene))) {
    return Status::Refused;
  }
  return RaiseEvent(ownerName, owner.Number, EventType::TimerFired, EventData::Integer(id));
}

}  // namespace

Status RaiseOutsideEvent(std::int32_t sourceNumber, EventType type, std::int32_t value) {
  const Busy busy;
  if (type == EventType::TimerFired) return RaiseTimerFired(value);
  if (type == EventType::UserInput) return RaiseUserInput(value);
  return RaiseOutsideInput(sourceNumber, type, value);
}

}  // namespace korvel
