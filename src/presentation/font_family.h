// The font family that all text is drawn in.
#pragma once

#include "presentation/gdi_plus.h"

namespace korvel {

// "Trebuchet MS", or what comes nearest to it: there is always some text to see. False only when
// no font is installed at all.
[[nodiscard]] bool FindFontFamily(FontFamilyOwner& family);

}  // namespace korvel
