// Rectangles: the bordered rectangle over the object's box.
#include "presentation/drawings.h"
#include "presentation/line.h"
#include "presentation/surface.h"

namespace korvel {

Status Draw(const Rectangle& rectangle) noexcept {
  DrawBorderedRectangle(SurfaceGraphics(), BoxOf(rectangle), LineAttributesOf(rectangle),
                        FillColourOf(rectangle));
  return Status::Done;
}

}  // namespace korvel
