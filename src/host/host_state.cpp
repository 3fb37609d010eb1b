// The one instance of the record, the engine running flag, the request to close, and the trace. The
// flag changes with restarts; the request lasts until the engine has ended, and overrides the flag.
#include "host/host_state.h"

#include "platform/running.h"

namespace korvel {
namespace {

constinit std::FILE* traceStream = nullptr;

}  // namespace

constinit HostState hostState;

void AllowRunning() { hostState.isRunning = true; }

void StopRunning() { hostState.isRunning = false; }

void StopForClose() {
  hostState.isClosing = true;
  StopRunning();
}

bool MayRun() { return hostState.isRunning && !hostState.isClosing; }

bool IsClosing() { return hostState.isClosing; }

void PauseUnlessClosing(std::uint32_t milliseconds) {
  if (!IsClosing()) Sleep(milliseconds);
}

void SetTraceStream(std::FILE* stream) { traceStream = stream; }

void Trace(const char* line) {
  if (traceStream == nullptr) return;
  std::fputs(line, traceStream);
  std::fflush(traceStream);
}

}  // namespace korvel
