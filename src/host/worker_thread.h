// The worker thread: it starts the engine and does every piece of MHEG-5 work, one at a time.
#pragma once

namespace korvel {

// Engine thread: makes the worker, which begins at once. False when that cannot be done.
[[nodiscard]] bool CreateWorker();

}  // namespace korvel
