// Activating and deactivating links and resident programs. No event tells of it.
#include "actions/behaviours.h"

namespace korvel {

// A program is called, without parameters; a link waits for its event from now on.
Status ActivateTarget(const Arguments& arguments) {
  auto& target = arguments.Target.As<Ingredient>();
  if (Activate(arguments.Target.Type, target) != Change::Changed) return Status::Refused;
  if (arguments.Target.Type != ItemType::ResidentProgram) return Status::Done;
  return RunResidentProgram(arguments.Target.As<ResidentProgram>().Name.View(), {},
                            arguments.groupName);
}

Status DeactivateTarget(const Arguments& arguments) {
  auto& target = arguments.Target.As<Ingredient>();
  return Deactivate(arguments.Target.Type, target) == Change::Changed ? Status::Done
                                                                      : Status::Refused;
}

}  // namespace korvel
