// The functions of the host object. A missing file will not appear later, so ReadFile reports a
// failure; only files that exist can be "not yet available", as the option --not-yet requests.
#include "player/host_object.h"

#include <algorithm>
#include <cstdio>
#include <new>

namespace player {
namespace {

constexpr std::uint32_t kNoSuchFile = 2;
constexpr std::int32_t kNoInterface = static_cast<std::int32_t>(0x80004002);

HostObject& Self(MHEG5Host* host) { return *static_cast<HostObject*>(host); }

std::int32_t KORVEL_CALL QueryInterface(MHEG5Host* /*host*/, const void* /*interfaceId*/,
                                        void** object) {
  *object = nullptr;
  return kNoInterface;
}

std::uint32_t KORVEL_CALL AddRef(MHEG5Host* host) { return ++Self(host).references; }

std::uint32_t KORVEL_CALL Release(MHEG5Host* host) { return --Self(host).references; }

void KORVEL_CALL HostOwn(MHEG5Host* /*host*/) {}

void LogRead(const HostObject& self, const char* path, const char* outcome) {
  if (self.options.isVerbose) std::fprintf(stderr, "read %s: %s\n", path, outcome);
}

std::uint32_t KORVEL_CALL ReadFile(MHEG5Host* host, const char* path, void** data,
                                   std::uint32_t* size) {
  HostObject& self = Self(host);
  Sleep(self.options.latencyMs);
  const mheg::CarouselFile* file = self.files.Find(path);
  if (file == nullptr) {
    LogRead(self, path, "no such file");
    return kNoSuchFile;
  }
  if (self.requests[path]++ < self.options.notYet) {
    LogRead(self, path, "not yet available");
    return kMHEG5FileNotYetAvailable;
  }
  const std::string& bytes = file->bytes;
  LogRead(self, path, (std::to_string(bytes.size()) + " bytes").c_str());
  char* const buffer = new (std::nothrow) char[bytes.size()];
  if (buffer == nullptr) return kNoSuchFile;
  std::ranges::copy(bytes, buffer);
  *data = buffer;
  if (size != nullptr) *size = static_cast<std::uint32_t>(bytes.size());
  ++self.buffers;
  return kMHEG5FileRead;
}

void KORVEL_CALL FreeBuffer(MHEG5Host* host, void* data) {
  delete[] static_cast<char*>(data);
  --Self(host).buffers;
}

// The player closes the engine with ExitMHEG5 and does not need the callback.
void KORVEL_CALL SetExitCallback(MHEG5Host* /*host*/, MHEG5ExitCallback /*callback*/,
                                 std::uintptr_t /*context*/) {}

constexpr MHEG5HostTable kTable = {
    QueryInterface, AddRef,     Release, HostOwn, HostOwn, HostOwn,
    ReadFile,       FreeBuffer, HostOwn, HostOwn, HostOwn, SetExitCallback,
};

}  // namespace

HostObject::HostObject(const mheg::CarouselFiles& broadcast, const Options& commandLine)
    : MHEG5Host{&kTable}, files(broadcast), options(commandLine) {}

}  // namespace player
