// The engine's reference to the host object, and the callback by which the host can close the
// engine through it.
#include "host/host_object.h"

#include "host/host_state.h"

namespace korvel {
namespace {

void KORVEL_CALL CloseOnExitCode(uint32_t code) {
  if (code == kMHEG5ExitCode) ExitMHEG5();
}

}  // namespace

void StoreHostObject(MHEG5Host* host) noexcept {
  hostState.hostObject = host;
  host->table->AddRef(host);
}

void GiveExitCallback() noexcept {
  MHEG5Host* host = hostState.hostObject;
  host->table->SetExitCallback(host, CloseOnExitCode, 0);
}

void WithdrawHostObject() noexcept {
  MHEG5Host* host = hostState.hostObject.exchange(nullptr);
  if (host == nullptr) return;
  host->table->SetExitCallback(host, nullptr, 0);
  host->table->Release(host);
}

}  // namespace korvel
