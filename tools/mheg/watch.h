// Waits for changes in a folder.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace mheg {

// Reports changes of files and folders below `folder` that happen after its construction.
class Watch {
 public:
  explicit Watch(const std::filesystem::path& folder);
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  // Waits for a change, and then until nothing has changed for 50 ms, because editors write a file
  // in several steps. Returns false if the system cannot watch the folder.
  [[nodiscard]] bool Wait();

  // The same without waiting, for a caller that polls: true if something has changed, and nothing
  // for 50 ms since.
  [[nodiscard]] bool HasChanged();

  // Whether the system cannot watch the folder. Changes are then no longer reported.
  [[nodiscard]] bool HasFailed() const { return hasFailed_; }

 private:
  enum class Result { Change, Timeout, Failure };
  // Waits for one change, at most `limitMs` milliseconds; negative: without a limit.
  Result WaitForOne(int limitMs);
  Result Fail();

  bool hasFailed_ = false;
  std::optional<std::chrono::steady_clock::time_point> lastChange_;  // for HasChanged
#ifdef _WIN32
  void* notification_;
#else
  int queue_;
#endif
};

}  // namespace mheg
