// Prints the display stack.
#pragma once

#include "mheg/run/trace_line.h"

namespace mheg {

// Prints the display stack of the running application from bottom to top: the class, number, group,
// status, box and text of each visible. The JSON form has one object per line.
void PrintSceneGraph(TraceForm form);

}  // namespace mheg
