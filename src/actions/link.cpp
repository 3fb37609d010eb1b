// Activating and deactivating links and resident programs.
#include "actions/behaviours.h"

namespace korvel {

// A link only changes its flag: no event tells of it.
Status ActivateTarget(const Arguments& arguments) noexcept {
  auto& target = arguments.Target.As<Ingredient>();
  return Activate(arguments.Target.Type, target) == Change::Failure ? Status::Failure
                                                                    : Status::Done;
}

Status DeactivateTarget(const Arguments& arguments) noexcept {
  auto& target = arguments.Target.As<Ingredient>();
  return Deactivate(arguments.Target.Type, target) == Change::Failure ? Status::Failure
                                                                      : Status::Done;
}

}  // namespace korvel
