// The doorway of the presentation: the off-screen picture of the scene, its redraw from the display
// stack, the copy to the engine window, and the canvases of dynamic line art. Worker thread only,
// but for the three functions of the screen that say otherwise.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/status.h"

namespace korvel {

struct Canvas;

// The size of the scene in pixels; the picture has exactly this size and is shown 1:1.
inline constexpr std::int32_t kSceneWidth = 720;
inline constexpr std::int32_t kSceneHeight = 576;

// ---- The screen: the last finished picture and the lock around it ----

// Engine thread, before it creates its window: makes the screen lock.
void OpenScreen() noexcept;

// Engine thread, once its window is gone and the worker has ended.
void CloseScreen() noexcept;

// Engine thread, between the two: paints the window from the last finished picture. Draws nothing
// while there is none. Takes a device context of the window, as the platform's handle.
void PaintWindow(void* deviceContext) noexcept;

// ---- The picture ----

// Starts GDI+ and makes the back buffer, opaque black, and the screen's picture, which is shown in
// `window` (the platform's handle; may be null). What cannot be made stays absent, and everything
// that draws then does nothing.
void OpenPresentation(void* window) noexcept;

// Gives up the pictures and every cached image and ends GDI+. No canvas may be left.
void ClosePresentation() noexcept;

// Fills the back buffer with opaque black.
void ClearSurface() noexcept;

// Draws the text of a fixed screen ("Please Wait", "No MHEG5 Service") into the back buffer.
void DrawScreenText(std::string_view text) noexcept;

// A request to draw the scene again. Only the 1st, 6th, 11th ... request since the counter was
// reset paints; the others cost nothing, so that callers may ask freely. While a close is asked
// for, requests only count. Failure when an event raised while drawing asked to stop.
Status Redraw() noexcept;

// Makes the next Redraw paint.
void ResetRedrawCounter() noexcept;

// Copies the back buffer to the window, unless the last copy was made within the same millisecond.
Status DeviceUpdate() noexcept;

// Makes the next DeviceUpdate copy, whenever the last one was.
void DiscardUpdateStamp() noexcept;

// Destroys the cached images, as a restart does.
void ClearImageCache() noexcept;

// Gives a canvas back. Null is allowed.
void DestroyCanvas(Canvas* canvas) noexcept;

}  // namespace korvel
