// Draws the visible classes: one function per class draws a running object into the back buffer.
// Without a back buffer nothing is drawn. Only the redraw calls these functions.
#pragma once

#include "objects/visibles.h"

namespace korvel {

// False if the picture to draw is missing. A box without area needs no picture.
// The first function sets the object's content hook from the application's if it has none.
[[nodiscard]] bool Draw(Bitmap& bitmap);
[[nodiscard]] bool Draw(const Video& video);

void Draw(const Rectangle& rectangle);
void Draw(const DynamicLineArt& lineArt);
// HyperText looks the same.
void Draw(const Text& text);
void Draw(const EntryField& entryField);
void Draw(const Slider& slider);

}  // namespace korvel
