// The new colour that an action gives an object.
#pragma once

#include "actions/parameters.h"

namespace korvel {

// Reads the colour that stands as the action's first parameter: an index or an absolute colour,
// given directly or held by an integer or octet string variable. Refused, with `colour` untouched,
// when it is neither.
Status ReadColour(const Arguments& arguments, ColourValue& colour);

}  // namespace korvel
