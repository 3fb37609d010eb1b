// The engine's reference to the host object, the callback by which the host can close the engine,
// and reading broadcast files: calls the host object again while it reports that the file is not
// yet available.
#include "host/host_object.h"

#include <cstddef>
#include <cstdint>

#include "host/host_state.h"
#include "platform/files.h"
#include "platform/running.h"

namespace korvel {
namespace {

// Hosts are compiled apart from this library and may be in other languages, so the places of the
// functions never change.
constexpr std::size_t Slot(std::size_t offset) { return offset / sizeof(void*); }
static_assert(sizeof(MHEG5HostTable) == 12 * sizeof(void*));
static_assert(Slot(offsetof(MHEG5HostTable, AddRef)) == 1);
static_assert(Slot(offsetof(MHEG5HostTable, Release)) == 2);
static_assert(Slot(offsetof(MHEG5HostTable, ReadFile)) == 6);
static_assert(Slot(offsetof(MHEG5HostTable, FreeBuffer)) == 7);
static_assert(Slot(offsetof(MHEG5HostTable, SetExitCallback)) == 11);

void KORVEL_CALL CloseOnExitCode(uint32_t code) {
  if (code == kMHEG5ExitCode) ExitMHEG5();
}

// The pause after the host has reported that the file is not yet available.
constexpr std::uint32_t kRetryPeriodMs = 500;

// Calls the host until its result is final. True if the host has stored a buffer, which the caller
// must release.
bool AskHost(MHEG5Host* host, const char* path, void** data, std::uint32_t* size) {
  while (MayRun()) {
    const std::uint32_t answer = host->table->ReadFile(host, path, data, size);
    if (answer != kMHEG5FileNotYetAvailable) return answer == kMHEG5FileRead;
    PauseUnlessClosing(kRetryPeriodMs);
  }
  return false;
}

}  // namespace

bool IsUsable(const MHEG5Host* host) {
  if (host == nullptr || host->table == nullptr) return false;
  const MHEG5HostTable& table = *host->table;
  return table.AddRef != nullptr && table.Release != nullptr && table.ReadFile != nullptr &&
         table.FreeBuffer != nullptr && table.SetExitCallback != nullptr;
}

void KeepHostObject(MHEG5Host* host) {
  hostState.hostObject = host;
  host->table->AddRef(host);
  host->table->SetExitCallback(host, CloseOnExitCode, 0);
}

void ReleaseHostObject() {
  MHEG5Host* host = hostState.hostObject.exchange(nullptr);
  if (host == nullptr) return;
  host->table->SetExitCallback(host, nullptr, 0);
  host->table->Release(host);
}

bool FetchFile(std::string_view path, OctetString* bytes) {
  OctetString terminatedPath;
  MHEG5Host* host = hostState.hostObject;
  if (host == nullptr || !terminatedPath.Assign(path)) return false;
  if (terminatedPath.TextView().empty()) return false;

  void* data = nullptr;
  std::uint32_t size = 0;
  if (!AskHost(host, terminatedPath.Text(), &data, bytes == nullptr ? nullptr : &size)) {
    return false;
  }
  // A host that reports bytes without their address has not read the file.
  const bool isReadable = data != nullptr || size == 0;
  const bool isFetched =
      bytes == nullptr || (isReadable && bytes->Assign({static_cast<const char*>(data), size}));
  host->table->FreeBuffer(host, data);
  return isFetched;
}

}  // namespace korvel
