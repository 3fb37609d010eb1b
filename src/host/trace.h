// The trace stream: lines about locks and window updates for whoever debugs the two threads. No
// part of the engine opens it, so that in normal operation nothing is written.
#pragma once

#include <cstdio>

namespace korvel {

// Opens the trace: lines go to `stream`, borrowed until another one or null is set. For whoever
// debugs the threads, before the engine starts.
void SetTraceStream(std::FILE* stream);

// Worker thread: deletes the trace file that an earlier run left in the current directory.
void DeleteOldTraceFile();

}  // namespace korvel
