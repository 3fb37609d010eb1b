// Ingredients coming to life and going: activation and deactivation, the Run, Stop and Preload
// actions with the events that report them, and the two status queries.
#include "actions/lifecycle.h"

#include "actions/answers.h"
#include "actions/behaviours.h"

namespace korvel {
namespace {

Change ActivateVisible(ItemType type, Ingredient& visible) {
  if (EnterDisplayStack(type, visible) == Status::Failure) return Change::Failure;
  visible.RunningStatus = true;
  return ChangeOf(RequestRedraw());
}

Change DeactivateVisible(ItemType type, Ingredient& visible) {
  visible.RunningStatus = false;
  LeaveDisplayStack(type, visible);
  if (RequestRedraw() == Status::Failure) return Change::Failure;
  if (IsGone(visible)) return Change::Changed;
  Interactible* interactible = InteractibleOf({type, &visible});
  return interactible == nullptr ? Change::Changed
                                 : ChangeOf(EndInteraction(visible, *interactible));
}

Status StartProgram(ItemType type, Program& program) {
  if (!program.InitiallyAvailable) return Status::Done;
  return Prepare(type, program) == Change::Failure ? Status::Failure : Status::Done;
}

}  // namespace

bool IsVisibleClass(ItemType type) { return Contains(kVisibles | kButtons, type); }

Status EnterDisplayStack(ItemType type, Ingredient& visible) {
  Application* application = CurrentApplication();
  if (application == nullptr) return Status::Refused;
  // One that was stopped silently, by a transition, still has its entry.
  LeaveDisplayStack(type, visible);
  return AppendOnTop(*application, type, visible);
}

void LeaveDisplayStack(ItemType type, Ingredient& visible) {
  Application* application = CurrentApplication();
  if (application == nullptr) return;
  (void)RemoveFromStack(*application, type, visible);  // not being there is as good
}

Change Activate(ItemType type, Ingredient& ingredient) {
  if (ingredient.RunningStatus) return Change::Nothing;
  switch (type) {
  case ItemType::Stream: return ActivateStream(static_cast<Stream&>(ingredient));
  case ItemType::TokenGroup: return ActivateTokenGroup(static_cast<TokenGroup&>(ingredient));
  case ItemType::ListGroup: return ActivateListGroup(static_cast<ListGroup&>(ingredient));
  default: break;
  }
  if (IsVisibleClass(type)) return ActivateVisible(type, ingredient);
  ingredient.RunningStatus = true;
  return Change::Changed;
}

Change Deactivate(ItemType type, Ingredient& ingredient) {
  if (!ingredient.RunningStatus) return Change::Nothing;
  switch (type) {
  case ItemType::Stream: return DeactivateStream(static_cast<Stream&>(ingredient));
  case ItemType::TokenGroup: return DeactivateTokenGroup(static_cast<TokenGroup&>(ingredient));
  case ItemType::ListGroup: return DeactivateListGroup(static_cast<ListGroup&>(ingredient));
  default: break;
  }
  if (IsVisibleClass(type)) return DeactivateVisible(type, ingredient);
  ingredient.RunningStatus = false;
  return Change::Changed;
}

Status RunIngredient(ItemType type, Ingredient& ingredient) {
  // A group's start makes programs available; they run when they are called.
  if (Contains(kPrograms, type)) {
    return StartProgram(type, static_cast<Program&>(ingredient));
  }
  if (Prepare(type, ingredient) == Change::Failure) return Status::Failure;
  if (IsGone(ingredient)) return Status::Replaced;
  const Change change = Activate(type, ingredient);
  if (change == Change::Failure) return Status::Failure;
  if (IsGone(ingredient)) return Status::Replaced;
  if (change == Change::Nothing || type == ItemType::Link) return Status::Done;
  return RaiseFrom(ingredient, EventType::IsRunning);
}

Status StopIngredient(ItemType type, Ingredient& ingredient) {
  const Change change = Deactivate(type, ingredient);
  if (change == Change::Failure) return Status::Failure;
  if (IsGone(ingredient)) return Status::Replaced;
  return change == Change::Changed ? RaiseFrom(ingredient, EventType::IsStopped) : Status::Done;
}

Status PreloadTarget(const Arguments& arguments) {
  auto& target = arguments.Target.As<Ingredient>();
  const Change change = Prepare(arguments.Target.Type, target);
  if (change == Change::Failure) return Status::Failure;
  if (IsGone(target)) return Status::Replaced;
  if (change == Change::Nothing) return Status::Done;
  const Status status = RaiseFrom(target, EventType::IsAvailable);
  return status == Status::Done ? RaiseFrom(target, EventType::ContentAvailable) : status;
}

Status RunTarget(const Arguments& arguments) {
  return RunIngredient(arguments.Target.Type, arguments.Target.As<Ingredient>());
}

Status StopTarget(const Arguments& arguments) {
  return StopIngredient(arguments.Target.Type, arguments.Target.As<Ingredient>());
}

Status GetAvailabilityStatus(const Arguments& arguments) {
  return AnswerBoolean(arguments, 0, arguments.Target.Object->AvailabilityStatus);
}

Status GetRunningStatus(const Arguments& arguments) {
  return AnswerBoolean(arguments, 0, arguments.Target.Object->RunningStatus);
}

}  // namespace korvel
