// The worker's loop over the queued messages, and the start of the content that it shares with the
// worker's beginning. Worker thread.
#pragma once

namespace korvel {

// Starts the engine from the start-up search and shows what it has drawn. False when no
// application could be started; the running flag is then the caller's to clear.
[[nodiscard]] bool StartAndShow() noexcept;

// Handles queued messages until a close has been handled.
void RunWorkerLoop() noexcept;

}  // namespace korvel
