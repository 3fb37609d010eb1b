// The painting of a picture into its box: its scale, its tiling and its transparency.
#pragma once

#include "objects/status.h"
#include "objects/visibles.h"
#include "presentation/gdi_plus.h"

namespace korvel {

struct PicturePlacement {
  korvel::Position Position;
  korvel::BoxSize BoxSize;
  std::int32_t Transparency = 0;  // per cent
  bool Tiling = false;
  korvel::BoxSize ScaledSize{kNotScaled, kNotScaled};  // of the whole picture
};

// Paints the picture from the box's top-left corner on, cut to the box. Refused when there is no
// picture in it; Done when it is drawn, and when the box or the scale leaves nothing to draw.
Status PaintPicture(Gdiplus::GpImage* image, const PicturePlacement& placement);

}  // namespace korvel
