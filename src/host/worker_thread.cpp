// The worker thread from the opening of the presentation to the release of the host object. What
// it does in between, message by message, stands in the worker loop.
#include "host/worker_thread.h"

#include <windows.h>

#include "engine/engine.h"
#include "host/host_object.h"
#include "host/host_state.h"
#include "host/message_queues.h"
#include "host/running_state.h"
#include "host/trace.h"
#include "host/worker_loop.h"
#include "presentation/presentation.h"

namespace korvel {
namespace {

void ShowScreenText(std::string_view text) noexcept {
  ClearSurface();
  DrawScreenText(text);
  static_cast<void>(DeviceUpdate());
}

void OpenWorker() noexcept {
  hostState.workerThreadId = GetCurrentThreadId();
  OpenPresentation(hostState.engineWindow);
  DeleteOldTraceFile();
  EmptyPersistentStore();
  AllowRunning();
}

void StartFirstTime() noexcept {
  ShowScreenText("Please Wait");
  if (StartAndShow()) return;
  StopRunning();
  ShowScreenText("No MHEG5 Service");
}

// Canvases and images go before GDI+ does.
void CloseWorker() noexcept {
  DrainMessageQueues();
  DiscardUpdateStamp();
  ResetEngine();
  ClosePresentation();
  WithdrawHostObject();
  hostState.workerThreadId = 0;
}

DWORD WINAPI WorkerThread(void*) {
  OpenWorker();
  StartFirstTime();
  RunWorkerLoop();
  CloseWorker();
  return 0;
}

}  // namespace

bool CreateWorker() noexcept {
  hostState.window.worker = CreateThread(nullptr, 0, WorkerThread, nullptr, 0, nullptr);
  return hostState.window.worker != nullptr;
}

}  // namespace korvel
