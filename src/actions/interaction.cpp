// The highlight and the interaction of entry fields, hyper texts and sliders. One interaction is in
// progress at a time in the whole engine; keys go to it first.
#include "actions/interaction.h"

#include <utility>

#include "actions/answers.h"
#include "actions/behaviours.h"
#include "actions/class_variables.h"
#include "actions/lifecycle.h"

namespace korvel {
namespace {

// What the three classes share. Only for the classes that the actions of this file accept.
Interactible& InteractibleOf(const FoundObject& object) noexcept {
  switch (object.Type) {
  case ItemType::EntryField: return object.As<EntryField>();
  case ItemType::HyperText: return object.As<HyperText>();
  default: return object.As<Slider>();
  }
}

bool IsKept(const OptionalReference& kept, const Ingredient& object) noexcept {
  return kept.IsPresent && kept.Reference.Number == object.Reference.Number &&
         kept.Reference.GroupIdentifier.View() == object.Reference.GroupIdentifier.View();
}

Status Keep(const Ingredient& object, OptionalReference& kept) noexcept {
  ObjectReference reference;
  if (!Copy(object.Reference, reference)) return Status::Failure;
  kept.Reference = std::move(reference);
  kept.IsPresent = true;
  return Status::Done;
}

Status SwitchHighlightOn(Ingredient& object) noexcept {
  const Status status = RaiseFrom(object, EventType::HighlightOn);
  if (status != Status::Done) return status;
  return Keep(object, CurrentClassVariables().HighlightedObject);
}

Status SwitchHighlightOff(Ingredient& object) noexcept {
  const Status status = RaiseFrom(object, EventType::HighlightOff);
  if (status != Status::Done) return status;
  OptionalReference& kept = CurrentClassVariables().HighlightedObject;
  if (IsKept(kept, object)) kept = {};
  return Status::Done;
}

}  // namespace

Status SetHighlightStatus(const Arguments& arguments) noexcept {
  auto& object = arguments.Target.As<Ingredient>();
  Interactible& interactible = InteractibleOf(arguments.Target);
  const bool isOn = arguments.Boolean(0);
  if (!object.AvailabilityStatus || interactible.HighlightStatus == isOn) return Status::Refused;
  interactible.HighlightStatus = isOn;
  return isOn ? SwitchHighlightOn(object) : SwitchHighlightOff(object);
}

Status GetHighlightStatus(const Arguments& arguments) noexcept {
  if (!arguments.Target.Object->AvailabilityStatus) return Status::Refused;
  return AnswerBoolean(arguments, 0, InteractibleOf(arguments.Target).HighlightStatus);
}

// Only the viewer ends an interaction, or the object's own stop: setting false does nothing.
Status SetInteractionStatus(const Arguments& arguments) noexcept {
  auto& object = arguments.Target.As<Ingredient>();
  OptionalReference& inProgress = CurrentClassVariables().InteractingObject;
  const bool canStart = object.AvailabilityStatus && object.RunningStatus && !inProgress.IsPresent;
  if (!arguments.Boolean(0) || !canStart) return Status::Refused;
  if (Keep(object, inProgress) == Status::Failure) return Status::Failure;
  CurrentClassVariables().chosenAnchor = 0;
  InteractibleOf(arguments.Target).InteractionStatus = true;
  return Status::Done;
}

Status GetInteractionStatus(const Arguments& arguments) noexcept {
  if (!arguments.Target.Object->AvailabilityStatus) return Status::Refused;
  return AnswerBoolean(arguments, 0, InteractibleOf(arguments.Target).InteractionStatus);
}

Status EndInteraction(Ingredient& object, Interactible& interactible) noexcept {
  if (!interactible.InteractionStatus) return Status::Done;
  interactible.InteractionStatus = false;
  OptionalReference& inProgress = CurrentClassVariables().InteractingObject;
  if (IsKept(inProgress, object)) inProgress = {};
  return RaiseFrom(object, EventType::InteractionCompleted);
}

bool TakeInteractionKey(std::int32_t key, Status& result) noexcept {
  const OptionalReference& inProgress = CurrentClassVariables().InteractingObject;
  if (!inProgress.IsPresent) return false;
  const FoundObject object =
      FindObject(Scope::ApplicationFirst, inProgress.Reference.GroupIdentifier.View(),
                 inProgress.Reference.Number);
  if (!object || !object.Object->RunningStatus) return false;
  switch (object.Type) {
  case ItemType::EntryField: return TakeKey(object.As<EntryField>(), key, result);
  case ItemType::HyperText: return TakeKey(object.As<HyperText>(), key, result);
  case ItemType::Slider: return TakeKey(object.As<Slider>(), key, result);
  default: return false;
  }
}

}  // namespace korvel
