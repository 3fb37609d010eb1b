// Raises events, requests redraws and writes variables for all behaviours.
#include "actions/behaviours.h"
#include "objects/messages.h"

#include <utility>

namespace korvel {
namespace {

// The variable that a parameter names, or null if it is not of the class.
template <class Variable>
Variable* FindVariable(const Arguments& arguments, std::size_t place, ItemType type) {
  const FoundObject found = Find(arguments, arguments.Reference(place));
  return found.type == type ? &found.As<Variable>() : nullptr;
}

IntegerVariable* FindInteger(const Arguments& arguments, std::size_t place) {
  return FindVariable<IntegerVariable>(arguments, place, ItemType::IntegerVariable);
}

}  // namespace

Status RaiseFrom(const Ingredient& object, EventType type, EventData data) {
  if (RaiseEvent(object, type, data) == Status::Failure) return Status::Failure;
  return IsGone(object) ? Status::Replaced : Status::Done;
}

Status RaiseEngineEvent(std::int32_t number) {
  const Application* application = CurrentApplication();
  if (application == nullptr) return Status::Refused;
  const Status status =
      RaiseEvent(*application, EventType::EngineEvent, EventData::Integer(number));
  return status == Status::Failure ? Status::Failure : Status::Done;
}

Status RedrawIfRunning(const Ingredient& object) {
  if (!object.RunningStatus) return Status::Done;
  if (RequestRedraw() == Status::Failure) return Status::Failure;
  return IsGone(object) ? Status::Replaced : Status::Done;
}

Status AnswerBoolean(const Arguments& arguments, std::size_t place, bool value) {
  auto* variable = FindVariable<BooleanVariable>(arguments, place, ItemType::BooleanVariable);
  return variable == nullptr ? Status::Refused : SetValue(*variable, value);
}

Status AnswerInteger(const Arguments& arguments, std::size_t place, std::int32_t value) {
  IntegerVariable* variable = FindInteger(arguments, place);
  return variable == nullptr ? Status::Refused : SetValue(*variable, value);
}

Status AnswerOctets(const Arguments& arguments, std::size_t place, std::string_view value,
                    Message message) {
  auto* variable =
      FindVariable<OctetStringVariable>(arguments, place, ItemType::OctetStringVariable);
  if (variable == nullptr) return Status::Refused;
  OctetString copy;
  if (!copy.Assign(value)) {
    Say(message);
    return Status::Failure;
  }
  return SetValue(*variable, std::move(copy));
}

Status AnswerReference(const Arguments& arguments, std::size_t place,
                       const ObjectReference& value) {
  auto* variable = FindVariable<ObjectRefVariable>(arguments, place, ItemType::ObjectRefVariable);
  if (variable == nullptr) return Status::Refused;
  ObjectReference copy;
  if (!Copy(value, copy)) return Status::Failure;
  return SetValue(*variable, std::move(copy));
}

Status AnswerPair(const Arguments& arguments, std::int32_t first, std::int32_t second) {
  IntegerVariable* const one = FindInteger(arguments, 0);
  IntegerVariable* const other = FindInteger(arguments, 1);
  if (one == nullptr || other == nullptr) return Status::Refused;
  const Status firstStatus = SetValue(*one, first);
  const Status secondStatus = SetValue(*other, second);
  return firstStatus == Status::Done ? secondStatus : firstStatus;
}

}  // namespace korvel
