// The functions of the recording host object.
#include "windows/support/recording_host.h"

#include <algorithm>

namespace korvel::test {

struct RecordingHost::Functions {
  static RecordingHost& Self(MHEG5Host* host) { return *static_cast<RecordingHost*>(host); }

  static std::int32_t KORVEL_CALL QueryInterface(MHEG5Host* host, const void* /*interfaceId*/,
                                                 void** /*object*/) {
    Self(host).Record("QueryInterface");
    return -1;
  }
  static std::uint32_t KORVEL_CALL AddRef(MHEG5Host* host) {
    Self(host).Record("AddRef");
    return static_cast<std::uint32_t>(++Self(host).references_);
  }
  static std::uint32_t KORVEL_CALL Release(MHEG5Host* host) {
    Self(host).Record("Release");
    return static_cast<std::uint32_t>(--Self(host).references_);
  }
  static void KORVEL_CALL HostOwn(MHEG5Host* host) { Self(host).Record("HostOwn"); }
  static std::uint32_t KORVEL_CALL ReadFile(MHEG5Host* host, const char* path, void** data,
                                            std::uint32_t* size) {
    Self(host).Record(std::string("ReadFile ") + path);
    return Self(host).Read(path, data, size);
  }
  static void KORVEL_CALL FreeBuffer(MHEG5Host* host, void* data) {
    Self(host).Record("FreeBuffer");
    Self(host).Free(data);
  }
  static void KORVEL_CALL SetExitCallback(MHEG5Host* host, MHEG5ExitCallback callback,
                                          std::uintptr_t context) {
    Self(host).Record(callback == nullptr ? "SetExitCallback null" : "SetExitCallback");
    Self(host).exitCallback_ = callback;
    if (context != 0) Self(host).isMisused_ = true;
  }

  static constexpr MHEG5HostTable kTable = {QueryInterface, AddRef,  Release,  HostOwn,
                                            HostOwn,        HostOwn, ReadFile, FreeBuffer,
                                            HostOwn,        HostOwn, HostOwn,  SetExitCallback};
};

RecordingHost::RecordingHost() : MHEG5Host{&Functions::kTable} {}

void RecordingHost::Serve(const std::string& path, std::string bytes) {
  const std::lock_guard lock(mutex_);
  files_[path] = std::move(bytes);
}

void RecordingHost::SetResult(const std::string& path, std::uint32_t result) {
  const std::lock_guard lock(mutex_);
  results_[path] = result;
}

void RecordingHost::ClearResult(const std::string& path) {
  const std::lock_guard lock(mutex_);
  results_.erase(path);
}

std::vector<HostCall> RecordingHost::Calls() const {
  const std::lock_guard lock(mutex_);
  return calls_;
}

std::vector<std::string> RecordingHost::Names() const {
  std::vector<std::string> names;
  for (const HostCall& call : Calls()) names.push_back(call.name);
  return names;
}

int RecordingHost::CountOf(const std::string& name) const {
  const auto names = Names();
  return static_cast<int>(std::ranges::count(names, name));
}

int RecordingHost::HeldBuffers() const {
  const std::lock_guard lock(mutex_);
  return static_cast<int>(buffers_.size());
}

void RecordingHost::ForgetCalls() {
  const std::lock_guard lock(mutex_);
  calls_.clear();
}

void RecordingHost::Record(const std::string& name) {
  {
    const std::lock_guard lock(mutex_);
    calls_.push_back({name, GetCurrentThreadId(), std::chrono::steady_clock::now()});
  }
  if (onCall) onCall(name);
}

std::uint32_t RecordingHost::Read(const std::string& path, void** data, std::uint32_t* size) {
  const std::lock_guard lock(mutex_);
  if (path.empty() || data == nullptr) isMisused_ = true;
  if (size == nullptr) ++readsWithoutSize_;
  if (const auto result = results_.find(path); result != results_.end()) return result->second;
  const auto file = files_.find(path);
  if (file == files_.end()) return kNoSuchFile;
  char* buffer = new char[file->second.size()];
  std::ranges::copy(file->second, buffer);
  buffers_.insert(buffer);
  *data = buffer;
  if (size != nullptr) *size = static_cast<std::uint32_t>(file->second.size());
  return kMHEG5FileRead;
}

void RecordingHost::Free(void* data) {
  const std::lock_guard lock(mutex_);
  if (buffers_.erase(data) == 1) {
    delete[] static_cast<char*>(data);
  } else {
    isMisused_ = true;
  }
}

}  // namespace korvel::test
