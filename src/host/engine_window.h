// The engine window: its class, its making, and its end together with the worker. Engine thread.
#pragma once

#include <windows.h>

namespace korvel {

[[nodiscard]] bool RegisterEngineWindowClass() noexcept;
void UnregisterEngineWindowClass() noexcept;

// Makes the window, hidden, and keeps its handle as the engine window.
[[nodiscard]] bool CreateEngineWindow() noexcept;

void ShowEngineWindow() noexcept;

// Has the worker end if there is one, waits for it, and destroys the window if it is still there.
void EndWorkerAndWindow() noexcept;

}  // namespace korvel
