// The host object: the engine's reference to it and its exit callback. Reading broadcast files
// through it is declared in platform/files.h.
#pragma once

#include "korvel.h"

namespace korvel {

// Whether there is an object and it has every function that the engine calls.
[[nodiscard]] bool IsUsable(const MHEG5Host* host);

// The thread that starts the engine: stores the object, adds a reference to it, and sets its exit
// callback.
void KeepHostObject(MHEG5Host* host);

// The worker at its end, or the engine thread if there is no worker: withdraws the exit callback
// and releases the reference. No thread finds the object after the start of this call. Does nothing
// the second time.
void ReleaseHostObject();

}  // namespace korvel
