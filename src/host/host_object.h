// The host object: the engine's reference to it and its exit callback. Reading broadcast files
// through it is declared in platform/files.h.
#pragma once

#include "korvel.h"

namespace korvel {

// Whether the object is there and has every function that the engine calls.
[[nodiscard]] bool IsUsable(const MHEG5Host* host);

// The thread that starts the engine: keeps the object, with a reference of the engine's own.
void StoreHostObject(MHEG5Host* host);

// The same thread: hands the exit callback to the stored object.
void GiveExitCallback();

// The worker at its end, or the engine thread when there is no worker: withdraws the exit callback
// and gives the reference back. Nobody finds the object any more from the start of this call on.
// Does nothing the second time.
void WithdrawHostObject();

}  // namespace korvel
