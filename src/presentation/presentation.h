// The doorway of the presentation, for the host's folder: the off-screen picture of the scene and
// its way to the engine window. What the core asks of the presentation is in platform/screen.h and
// platform/canvases.h. Worker thread only, but for the three functions of the screen that say
// otherwise.
#pragma once

#include <string_view>

#include "objects/status.h"

namespace korvel {

// ---- The screen: the last finished picture and the lock around it ----

// Engine thread, before it creates its window: makes the screen lock.
void OpenScreen();

// Engine thread, once its window is gone and the worker has ended.
void CloseScreen();

// Engine thread, between the two: paints the window from the last finished picture. Draws nothing
// while there is none. Takes a device context of the window, as the platform's handle.
void PaintWindow(void* deviceContext);

// ---- The picture ----

// Finds the folder for temporary files, starts GDI+ and makes the back buffer, opaque black, and
// the screen's picture, which is shown in `window` (the platform's handle; may be null). What
// cannot be made stays absent, and everything that draws then does nothing.
void OpenPresentation(void* window);

// Gives up the pictures and every cached image.
void ReleasePictures();

// Ends GDI+, after ReleasePictures. No canvas may be left.
void ClosePresentation();

// Fills the back buffer with opaque black.
void ClearSurface();

// Draws the text of a fixed screen ("Please Wait", "No MHEG5 Service") into the back buffer.
void DrawScreenText(std::string_view text);

// Makes the next Redraw paint.
void ResetRedrawCounter();

// Copies the back buffer to the window, unless the last copy was made within the same millisecond.
Status DeviceUpdate();

// Makes the next DeviceUpdate copy, whenever the last one was.
void DiscardUpdateStamp();

// Destroys the cached images, as a restart does.
void ClearImageCache();

}  // namespace korvel
