// A host object for tests: it serves files from memory or returns results that a test has set, and
// records every call of the engine.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "korvel.h"

namespace korvel::test {

// ReadFile's result for a file that does not exist and will not appear later.
inline constexpr std::uint32_t kNoSuchFile = 2;

// One call by the engine: the function with its argument, the thread, and the time.
struct HostCall {
  std::string name;  // "AddRef", "Release", "ReadFile a", "FreeBuffer", "SetExitCallback", ...
  DWORD thread = 0;
  std::chrono::steady_clock::time_point time;
};

class RecordingHost : public MHEG5Host {
 public:
  RecordingHost();
  RecordingHost(const RecordingHost&) = delete;
  RecordingHost& operator=(const RecordingHost&) = delete;
  ~RecordingHost() = default;

  // Any thread may call these, even while the engine runs. After Serve, reads of the path succeed
  // with these bytes, unless SetResult makes them return another result. Reads of all other paths
  // return kNoSuchFile.
  void Serve(const std::string& path, std::string bytes);
  void SetResult(const std::string& path, std::uint32_t result);
  void ClearResult(const std::string& path);

  // Runs at the beginning of every call by the engine. Set it before the engine starts.
  std::function<void(const std::string& name)> onCall;

  [[nodiscard]] std::vector<HostCall> Calls() const;
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] int CountOf(const std::string& name) const;
  // Removes the records of all calls so far.
  void ForgetCalls();

  // The numbers of references and of buffers that the engine holds.
  [[nodiscard]] int HeldReferences() const { return references_; }
  [[nodiscard]] int HeldBuffers() const;
  // The number of reads without a size pointer, which only check that the file exists.
  [[nodiscard]] int ReadsWithoutSize() const { return readsWithoutSize_; }
  // Whether the engine has released an unknown buffer or passed wrong arguments.
  [[nodiscard]] bool IsMisused() const { return isMisused_; }
  // The current exit callback; null before the engine sets it and after the engine clears it.
  [[nodiscard]] MHEG5ExitCallback ExitCallback() const { return exitCallback_; }

 private:
  struct Functions;

  void Record(const std::string& name);
  std::uint32_t Read(const std::string& path, void** data, std::uint32_t* size);
  void Free(void* data);

  mutable std::mutex mutex_;
  std::map<std::string, std::string> files_;
  std::map<std::string, std::uint32_t> results_;
  std::vector<HostCall> calls_;
  std::set<void*> buffers_;
  std::atomic<int> references_ = 0;
  std::atomic<int> readsWithoutSize_ = 0;
  std::atomic<bool> isMisused_ = false;
  std::atomic<MHEG5ExitCallback> exitCallback_ = nullptr;
};

}  // namespace korvel::test
