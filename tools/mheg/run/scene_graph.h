// Prints what is on the display stack.
#pragma once

#include "mheg/run/trace_line.h"

namespace mheg {

// Prints the display stack of the running application, bottom to top: for each visible its class,
// number, group, status, box and text. The JSON form has one object per line.
void PrintSceneGraph(TraceForm form);

}  // namespace mheg
