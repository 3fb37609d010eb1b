// The one way to read a broadcast file: the host object's reading function, asked again while the
// host has not received the file yet.
#include <cstdint>

#include "host/host.h"
#include "host/host_state.h"

namespace korvel {
namespace {

// How long the host is left alone after it has answered that the file is not there yet.
constexpr std::uint32_t kRetryPeriodMs = 500;

// Asks until the host knows. True when it has stored a buffer, which is then to be given back.
bool AskHost(MHEG5Host* host, const char* path, void** data, std::uint32_t* size) noexcept {
  while (MayRun()) {
    const std::uint32_t answer = host->table->ReadFile(host, path, data, size);
    if (answer != kMHEG5FileNotYetAvailable) return answer == kMHEG5FileRead;
    PauseUnlessClosing(kRetryPeriodMs);
  }
  return false;
}

}  // namespace

Status FetchFile(std::string_view path, OctetString* bytes) noexcept {
  OctetString terminatedPath;
  MHEG5Host* host = hostState.hostObject;
  if (host == nullptr || !terminatedPath.Assign(path)) return Status::Refused;
  if (terminatedPath.TextView().empty()) return Status::Refused;

  void* data = nullptr;
  std::uint32_t size = 0;
  if (!AskHost(host, terminatedPath.Text(), &data, &size)) return Status::Refused;
  // A host that reports bytes without saying where they are has not read the file.
  const bool isReadable = data != nullptr || size == 0;
  const bool isTaken =
      bytes == nullptr || (isReadable && bytes->Assign({static_cast<const char*>(data), size}));
  host->table->FreeBuffer(host, data);
  return isTaken ? Status::Done : Status::Refused;
}

}  // namespace korvel
