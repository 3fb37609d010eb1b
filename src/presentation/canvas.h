// What a canvas is made of: a picture of its own, transparent where nothing was drawn.
#pragma once

#include <cstdint>

#include "presentation/gdi_plus.h"

namespace korvel {

// The picture goes after the graphics that draws on it.
struct Canvas {
  BitmapOwner Picture;
  GraphicsOwner Graphics;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  // The drawable area, from the top-left corner.
  std::int32_t ClipWidth = 0;
  std::int32_t ClipHeight = 0;
};

}  // namespace korvel
