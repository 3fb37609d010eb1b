// The actions that every visible knows: its place in the stack, its position, box and palette. None
// of them changes anything while the visible is not available, but its position and box can be
// read.
#include "actions/answers.h"
#include "actions/behaviours.h"

namespace korvel {
namespace {

Visible& TargetOf(const Arguments& arguments) { return arguments.Target.As<Visible>(); }

// The object that a stacking action names besides its target; null when it is no ingredient.
const Ingredient* FindReference(const Arguments& arguments) {
  const FoundObject found = Find(arguments, arguments.Reference(0));
  return found.Type < ItemType::Link ? nullptr : &found.As<Ingredient>();
}

}  // namespace

Status BringTargetToFront(const Arguments& arguments) {
  return BringToFront(arguments.Target.Type, TargetOf(arguments));
}

Status SendTargetToBack(const Arguments& arguments) {
  return SendToBack(arguments.Target.Type, TargetOf(arguments));
}

Status PutTargetBefore(const Arguments& arguments) {
  const Ingredient* reference = FindReference(arguments);
  if (reference == nullptr) return Status::Refused;
  return PutBefore(arguments.Target.Type, TargetOf(arguments), *reference);
}

Status PutTargetBehind(const Arguments& arguments) {
  const Ingredient* reference = FindReference(arguments);
  if (reference == nullptr) return Status::Refused;
  return PutBehind(arguments.Target.Type, TargetOf(arguments), *reference);
}

Status SetPosition(const Arguments& arguments) {
  Visible& visible = TargetOf(arguments);
  if (!visible.AvailabilityStatus) return Status::Refused;
  visible.Position = {arguments.Integer(0), arguments.Integer(1)};
  return RedrawIfRunning(visible);
}

Status GetPosition(const Arguments& arguments) {
  const Position& position = TargetOf(arguments).Position;
  return AnswerPair(arguments, position.X, position.Y);
}

Status SetBoxSize(const Arguments& arguments) {
  Visible& visible = TargetOf(arguments);
  const BoxSize size{arguments.Integer(0), arguments.Integer(1)};
  if (!visible.AvailabilityStatus || size.Width < 0 || size.Height < 0) return Status::Refused;
  visible.BoxSize = size;
  return RedrawIfRunning(visible);
}

Status GetBoxSize(const Arguments& arguments) {
  const BoxSize& size = TargetOf(arguments).BoxSize;
  return AnswerPair(arguments, size.Width, size.Height);
}

Status SetPaletteRef(const Arguments& arguments) {
  Visible& visible = TargetOf(arguments);
  if (!visible.AvailabilityStatus) return Status::Refused;
  OptionalReference palette;
  palette.IsPresent = true;
  if (!Copy(arguments.Reference(0), palette.Reference)) return Status::Failure;
  visible.PaletteRef = std::move(palette);
  return RedrawIfRunning(visible);
}

}  // namespace korvel
