// Values that no decoder gives a record, for the dumps that show them.
#pragma once

#include "objects/group.h"

namespace korvel {

// What running gives the objects of tests/golden/dump/running.mheg and running_application.mheg.
void MakeRunning(Group& group);
void MakeRunningApplication(Application& application);

// Numbers without a word in every attribute of tests/golden/dump/unknown.mheg that has words,
// objects of no class, and actions that content cannot hold.
void MakeUnknown(Group& group);

}  // namespace korvel
