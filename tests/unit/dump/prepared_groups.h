// Run-time and invalid values for dumps, which no decoder produces.
#pragma once

#include "objects/group.h"

namespace korvel {

// Sets the run-time values of the objects of tests/golden/dump/running.mheg and
// running_application.mheg.
void MakeRunning(Group& group);
void MakeRunningApplication(Application& application);

// Sets unknown numbers in every enumeration of tests/golden/dump/unknown.mheg, and adds objects of
// no class and actions that content cannot contain.
void MakeUnknown(Group& group);

}  // namespace korvel
