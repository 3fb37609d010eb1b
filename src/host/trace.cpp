// The trace stream and its file of old.
#include "host/trace.h"

#include <windows.h>

#include <cstdio>

#include "host/host.h"

namespace korvel {
namespace {

// Null in normal operation; whoever debugs the threads sets it.
constinit std::FILE* traceStream = nullptr;

}  // namespace

void Trace(const char* line) noexcept {
  if (traceStream == nullptr) return;
  std::fputs(line, traceStream);
  std::fflush(traceStream);
}

void DeleteOldTraceFile() noexcept { DeleteFileA("debug.txt"); }

}  // namespace korvel
