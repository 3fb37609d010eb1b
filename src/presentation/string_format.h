// How GDI+ is to lay a text out in its box: where it lies, whether its lines are broken, and where
// tabs lead.
#pragma once

#include "presentation/gdi_plus.h"
#include "presentation/text.h"

namespace korvel {

// The format of a text that is drawn with so many dots per inch. False when it could not be made.
[[nodiscard]] bool MakeStringFormat(const TextDrawing& drawing, float resolution,
                                    StringFormatOwner& format);

}  // namespace korvel
