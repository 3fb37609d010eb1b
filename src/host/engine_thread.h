// The engine thread: it owns the engine window and its message loop, and makes the worker, which
// does everything else.
#pragma once

namespace korvel {

// The thread that starts the engine: makes the engine thread, which waits at the start gate.
// False, with nothing kept, when that cannot be done.
[[nodiscard]] bool CreateEngineThread() noexcept;

// The same thread, when the host object and window are stored: lets the engine thread begin.
void OpenStartGate() noexcept;

}  // namespace korvel
