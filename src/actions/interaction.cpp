// The highlight and the interaction of entry fields, hyper texts and sliders. One interaction is in
// progress at a time in the whole engine; keys go to it first.

#include "actions/behaviours.h"
#include "objects/ownership.h"

namespace korvel {
namespace {

NeverDestroyed<ClassVariables> classVariables;

// The target of an action of this file, which accepts those three classes only.
Interactible& TargetOf(const Arguments& arguments) { return *InteractibleOf(arguments.target); }

}  // namespace

ClassVariables& CurrentClassVariables() { return classVariables.value; }

void ForgetGroup(const Group& group) {
  FoundObject& inProgress = CurrentClassVariables().interactingObject;
  if (inProgress && inProgress.As<Ingredient>().owner == &group) inProgress = {};
}

Interactible* InteractibleOf(const FoundObject& object) {
  switch (object.type) {
  case ItemType::EntryField: return &object.As<EntryField>();
  case ItemType::HyperText: return &object.As<HyperText>();
  case ItemType::Slider: return &object.As<Slider>();
  default: return nullptr;
  }
}

Status SetHighlightStatus(const Arguments& arguments) {
  const auto& object = arguments.target.As<Ingredient>();
  Interactible& interactible = TargetOf(arguments);
  const bool isOn = arguments.Boolean(0);
  if (!object.AvailabilityStatus || interactible.HighlightStatus == isOn) return Status::Refused;
  interactible.HighlightStatus = isOn;
  return RaiseFrom(object, isOn ? EventType::HighlightOn : EventType::HighlightOff);
}

Status GetHighlightStatus(const Arguments& arguments) {
  if (!arguments.target.object->AvailabilityStatus) return Refuse(Reason::NotAvailable);
  return AnswerBoolean(arguments, 0, TargetOf(arguments).HighlightStatus);
}

// An interaction ends only when the viewer completes it or the object stops; setting false does
// nothing.
Status SetInteractionStatus(const Arguments& arguments) {
  const auto& object = arguments.target.As<Ingredient>();
  FoundObject& inProgress = CurrentClassVariables().interactingObject;
  const bool canStart = object.AvailabilityStatus && object.RunningStatus && !inProgress;
  if (!arguments.Boolean(0)) return Status::Refused;
  if (!canStart) return Refuse(Reason::InteractionBusy);
  inProgress = arguments.target;
  CurrentClassVariables().chosenAnchor = 0;
  TargetOf(arguments).InteractionStatus = true;
  return Status::Done;
}

Status GetInteractionStatus(const Arguments& arguments) {
  if (!arguments.target.object->AvailabilityStatus) return Refuse(Reason::NotAvailable);
  return AnswerBoolean(arguments, 0, TargetOf(arguments).InteractionStatus);
}

void ForgetInteraction(const Ingredient& object, Interactible& interactible) {
  interactible.InteractionStatus = false;
  FoundObject& inProgress = CurrentClassVariables().interactingObject;
  if (inProgress.object == &object) inProgress = {};
}

Status EndInteraction(Ingredient& object, Interactible& interactible) {
  if (!interactible.InteractionStatus) return Status::Done;
  ForgetInteraction(object, interactible);
  return RaiseFrom(object, EventType::InteractionCompleted);
}

void ClearInteraction(const FoundObject& object) {
  Interactible* interactible = InteractibleOf(object);
  if (interactible == nullptr) return;
  interactible->HighlightStatus = false;
  ForgetInteraction(object.As<Ingredient>(), *interactible);
}

bool TakeInteractionKey(std::int32_t key, Status& result) {
  const FoundObject object = CurrentClassVariables().interactingObject;
  if (!object || !object.object->RunningStatus) return false;
  switch (object.type) {
  case ItemType::EntryField: return TakeKey(object.As<EntryField>(), key, result);
  case ItemType::HyperText: return TakeKey(object.As<HyperText>(), key, result);
  case ItemType::Slider: return TakeKey(object.As<Slider>(), key, result);
  default: return false;
  }
}

}  // namespace korvel
