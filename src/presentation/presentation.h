// The doorway of the presentation, for the host's folder: the off-screen picture of the scene and
// its copy in the engine window. The core's requests to the presentation are in platform/screen.h
// and platform/canvases.h. Worker thread only, except the three functions of the screen.
#pragma once

#include <string_view>

namespace korvel {

// ---- The screen: the last finished picture and the lock around it ----

// Engine thread, before it creates its window: creates the screen lock.
void OpenScreen();

// Engine thread, after its window is gone and the worker has ended: deletes the lock.
void CloseScreen();

// Engine thread, between OpenScreen and CloseScreen: paints the window from the last finished
// picture, if there is one. `deviceContext` is the platform's handle of a device context of the
// window.
void PaintWindow(void* deviceContext);

// ---- The picture ----

// Finds the folder for temporary files, starts GDI+, and creates the back buffer, opaque black, and
// the screen's picture, which is shown in `window` (the platform's handle; may be null). If the
// back buffer cannot be created, everything that draws does nothing.
void OpenPresentation(void* window);

// Releases the pictures and every cached image.
void ReleasePictures();

// Ends GDI+, after ReleasePictures and after every canvas has been destroyed.
void ClosePresentation();

// Fills the back buffer with opaque black.
void ClearSurface();

// Draws the text of a fixed screen ("Please Wait", "No MHEG5 Service") into the back buffer.
void DrawScreenText(std::string_view text);

// Makes the next Redraw paint.
void ResetRedrawCounter();

// Copies the back buffer to the window, unless the last copy was made in the same millisecond.
void DeviceUpdate();

// Makes the next DeviceUpdate copy even in the same millisecond.
void DiscardUpdateStamp();

// Destroys the cached images, as a restart does.
void ClearImageCache();

}  // namespace korvel
