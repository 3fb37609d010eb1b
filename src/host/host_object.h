// The host object: the engine's reference to it and its exit callback. Reading broadcast files
// through it is declared in platform/files.h.
#pragma once

#include "korvel.h"

namespace korvel {

// Whether `host` is not null and has every function that the engine calls.
[[nodiscard]] bool IsUsable(const MHEG5Host* host);

// On the thread that starts the engine: stores the object, adds a reference to it, and sets its
// exit callback.
void KeepHostObject(MHEG5Host* host);

// On the worker at its end, or on the engine thread if there is no worker: clears the exit callback
// and releases the reference. No thread can get the object once this call has begun. A second call
// does nothing.
void ReleaseHostObject();

}  // namespace korvel
