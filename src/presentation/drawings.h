// How each visible class looks: one function per class, each in the file of its class, drawing a
// running object into the back buffer. Done, or Refused when the picture to draw is missing.
// Without a back buffer nothing is drawn. Only the redraw calls them.
#pragma once

#include "objects/status.h"
#include "objects/visibles.h"

namespace korvel {

// Sets the object's content hook from the application's when it has none.
Status Draw(Bitmap& bitmap);
Status Draw(const Rectangle& rectangle);
Status Draw(const DynamicLineArt& lineArt);
// HyperText looks the same.
Status Draw(const Text& text);
Status Draw(const EntryField& entryField);
Status Draw(const Slider& slider);
Status Draw(const Video& video);

// Ends the presentation of a video that runs no longer. There is nothing to end: what is not drawn
// again is gone.
Status StopVideo(const Video& video);

}  // namespace korvel
