// Lines about locks and window updates, for debugging the threads.
#pragma once

namespace korvel {

// Any thread: writes the line, as it stands, to the trace stream and flushes it if it is open. No
// part of the engine opens it.
void Trace(const char* line);

}  // namespace korvel
