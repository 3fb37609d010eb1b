// The trace stream: lines about locks and window updates for whoever debugs the two threads. No
// part of the engine opens it, so that in normal operation nothing is written.
#pragma once

namespace korvel {

// Worker thread: deletes the trace file that an earlier run left in the current directory.
void DeleteOldTraceFile() noexcept;

}  // namespace korvel
