// Raises events, requests redraws and writes variables for all behaviours.
#include "actions/behaviours.h"
#include "objects/class_tables.h"
#include "objects/messages.h"

#include <utility>

namespace korvel {
namespace {

// The variable that a parameter names, or null if it is not of the class.
template <class Variable> Variable* FindVariable(const Arguments& arguments, std::size_t place) {
  const FoundObject found = Find(arguments, arguments.Reference(place));
  if (found.type == Description<Variable>::heading.type) return &found.As<Variable>();
  ObserveReason(Reason::NoAnswerVariable, static_cast<std::int32_t>(place) + 1);
  return nullptr;
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
  auto* variable = FindVariable<BooleanVariable>(arguments, place);
  return variable == nullptr ? Status::Refused : SetValue(*variable, value);
}

Status AnswerInteger(const Arguments& arguments, std::size_t place, std::int32_t value) {
  auto* variable = FindVariable<IntegerVariable>(arguments, place);
  return variable == nullptr ? Status::Refused : SetValue(*variable, value);
}

Status AnswerOctets(const Arguments& arguments, std::size_t place, std::string_view value,
                    Message message) {
  auto* variable = FindVariable<OctetStringVariable>(arguments, place);
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
  auto* variable = FindVariable<ObjectRefVariable>(arguments, place);
  if (variable == nullptr) return Status::Refused;
  ObjectReference copy;
  if (!Copy(value, copy)) return Status::Failure;
  return SetValue(*variable, std::move(copy));
}

Status AnswerPair(const Arguments& arguments, std::int32_t first, std::int32_t second) {
  auto* const one = FindVariable<IntegerVariable>(arguments, 0);
  auto* const other = FindVariable<IntegerVariable>(arguments, 1);
  if (one == nullptr || other == nullptr) return Status::Refused;
  const Status firstStatus = SetValue(*one, first);
  const Status secondStatus = SetValue(*other, second);
  return firstStatus == Status::Done ? secondStatus : firstStatus;
}

}  // namespace korvel
