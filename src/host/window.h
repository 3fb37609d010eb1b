// The engine window as the presentation needs it. Apart from the doorway of the platform because
// only the folder that paints has a use for a window's handle.
#pragma once

namespace korvel {

// Any thread: the handle of the engine window, as the platform's handle; null before the window
// is made and once its end has begun.
[[nodiscard]] void* EngineWindow() noexcept;

}  // namespace korvel
