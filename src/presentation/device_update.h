// The finished picture: the copy of the back buffer that the window is painted from. Opened and
// closed with the presentation, on the worker thread.
#pragma once

namespace korvel {

// Makes room for the picture; it is shown in `window`, which may be null.
void OpenPicture(void* window);

// Gives the picture up; the window is no longer painted from it.
void ClosePicture();

}  // namespace korvel
