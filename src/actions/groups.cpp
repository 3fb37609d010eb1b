// The actions on applications and scenes: replacing them, locking the screen, and setting their
// values.
#include "actions/behaviours.h"

namespace korvel {
namespace {

// The group name in the target of Launch, Spawn or TransitionTo: the group identifier of a direct
// target, or the value of the octet string variable that an indirect target names. False if there
// is no such name.
bool ReadGroupName(const ReferenceContext& context, const GenericValue& target, OctetString& name) {
  if (!IsIndirect(target)) {
    const OctetString& group = target.Reference.GroupIdentifier;
    return name.Assign(group.IsPresent() ? group.View() : context.groupName);
  }
  const FoundObject variable = Find(context, target.Reference);
  return variable.type == ItemType::OctetStringVariable &&
         name.Assign(variable.As<OctetStringVariable>().Value.View());
}

// Spawn and TransitionTo also accept an object reference variable, as other actions do.
bool ReadGroupNameOrReference(const ReferenceContext& context, const GenericValue& target,
                              OctetString& name) {
  if (ReadGroupName(context, target, name)) return true;
  if (!IsIndirect(target)) return false;
  const FoundObject variable = Find(context, target.Reference);
  return variable.type == ItemType::ObjectRefVariable &&
         name.Assign(variable.As<ObjectRefVariable>().Value.GroupIdentifier.View());
}

}  // namespace

Status LaunchTarget(const Arguments& arguments, const GenericValue& target) {
  // A variable of another class gives the empty name, which no file has.
  OctetString name;
  static_cast<void>(ReadGroupName(arguments, target, name));
  ++CurrentGenerations().application;
  // The list ends even if the launch was refused.
  return Launch(name.View()) == Status::Failure ? Status::Failure : Status::Replaced;
}

Status SpawnTarget(const Arguments& arguments, const GenericValue& target) {
  OctetString name;
  if (!ReadGroupNameOrReference(arguments, target, name)) return Refuse(Reason::NoName);
  const Status status = Spawn(name.View());
  return status == Status::Done ? Status::Replaced : status;
}

Status TransitionToTarget(const Arguments& arguments, const GenericValue& target) {
  OctetString name;
  if (!ReadGroupNameOrReference(arguments, target, name)) return Refuse(Reason::NoName);
  ++CurrentGenerations().scene;
  return TransitionTo(name.View());
}

Status QuitApplication() {
  const Status status = Quit();
  return status == Status::Done ? Status::Replaced : status;
}

Status LockScreen(const Arguments& arguments) {
  ++arguments.target.As<Application>().LockCount;
  return Status::Done;
}

Status UnlockScreen(const Arguments& arguments) {
  std::int32_t& lockCount = arguments.target.As<Application>().LockCount;
  if (lockCount == 0) return Status::Done;
  --lockCount;
  return lockCount == 0 ? RequestRedraw() : Status::Done;
}

Status SetCachePriority(const Arguments& arguments) {
  arguments.target.As<Group>().GroupCachePriority = arguments.Integer(0);
  return Status::Done;
}

Status SetGroupTimer(const Arguments& arguments) {
  const std::int32_t value = arguments.IsPresent(1) ? arguments.Integer(1) : kNoTimerValue;
  return SetTimer(arguments.target.As<Group>(), arguments.Integer(0), value, arguments.Boolean(2));
}

Status SetInputRegister(const Arguments& arguments) {
  auto& scene = arguments.target.As<Scene>();
  if (!scene.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  scene.InputEventReg = arguments.Integer(0);
  return Status::Done;
}

Status SendEvent(const Arguments& arguments) {
  EventData data;
  if (const GenericValue* given = arguments.given->At(2); given != nullptr) {
    GenericValue value;
    if (!ReadValue(arguments, *given, ContentLoading::Fetch, value)) {
      return Refuse(Reason::UnreadableParameter, 3);
    }
    data.kind = value.Kind;
    data.value =
        value.Kind == ValueKind::Boolean ? static_cast<std::int32_t>(value.Boolean) : value.Integer;
  }
  const ObjectReference& source = arguments.Reference(0);
  const OctetString& group = source.GroupIdentifier;
  const Status status =
      RaiseEvent(group.IsPresent() ? group.View() : arguments.groupName, source.Number,
                 static_cast<EventType>(arguments.Integer(1)), data);
  return status == Status::Failure ? status : Status::Done;
}

}  // namespace korvel
