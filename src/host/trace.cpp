// The trace stream and its file of old.
#include "host/trace.h"

#include <windows.h>

#include "platform/running.h"

namespace korvel {
namespace {

// Null in normal operation.
constinit std::FILE* traceStream = nullptr;

}  // namespace

void SetTraceStream(std::FILE* stream) { traceStream = stream; }

void Trace(const char* line) {
  if (traceStream == nullptr) return;
  std::fputs(line, traceStream);
  std::fflush(traceStream);
}

void DeleteOldTraceFile() { DeleteFileA("debug.txt"); }

}  // namespace korvel
