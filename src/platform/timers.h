// The one-shot timers of the engine window. Worker thread only.
#pragma once

#include <cstdint>

namespace korvel {

// Starts the one-shot timer `id` of the engine window, replacing a pending one; its expiry arrives
// as an outside event of type TimerFired. An expiry of the id that is queued already is dropped.
void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs);

// Stops the timer `id` and drops an expiry of it that is queued already.
void KillWindowTimer(std::uint32_t id);

}  // namespace korvel
