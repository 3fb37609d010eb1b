// The engine thread's side of the window timers; the worker's side is in the doorway.
#pragma once

#include <windows.h>

#include <cstdint>

namespace korvel {

enum class ExpiryUse { Queued, Dropped };

// Engine thread: the timer `id` has expired. Every timer of the engine fires once.
void TakeTimerExpiry(HWND window, std::uint32_t id, ExpiryUse use) noexcept;

// Engine thread: sets a timer that the platform has refused to set from the worker.
void SetRequestedTimer(HWND window, std::uint32_t id, std::uint32_t periodMs) noexcept;

}  // namespace korvel
