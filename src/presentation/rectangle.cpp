// Rectangles: the bordered rectangle over the object's box.
#include "engine/engine.h"
#include "presentation/drawings.h"
#include "presentation/line.h"
#include "presentation/state.h"

namespace korvel {

Status Draw(const Rectangle& rectangle) {
  DrawBorderedRectangle(State().graphics, BoxOf(rectangle), LineAttributesOf(rectangle),
                        FillColourOf(rectangle, CurrentGroups()));
  return Status::Done;
}

}  // namespace korvel
