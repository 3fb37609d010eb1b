// Waits for changes in a folder.
#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace mheg {

// Notices every change of a file or folder below `folder` from its construction on.
class Watch {
 public:
  explicit Watch(const std::filesystem::path& folder);
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  // Waits until something has changed, and then until nothing has changed for a moment, because
  // editors write a file in several steps. Returns false if the system cannot watch the folder.
  [[nodiscard]] bool Wait();

  // The same without waiting, for a caller that asks repeatedly: true once something has changed
  // and a moment without changes has passed.
  [[nodiscard]] bool HasChanged();

  // Whether the system cannot watch the folder. There are no more changes then.
  [[nodiscard]] bool HasFailed() const { return hasFailed_; }

 private:
  enum class Result { Change, Timeout, Failure };
  // Waits for one change, `limitMs` milliseconds at most; without limit if that is negative.
  Result WaitForOne(int limitMs);
  Result Fail();

  bool hasFailed_ = false;
  std::optional<std::chrono::steady_clock::time_point> lastChange_;  // that HasChanged has seen
#ifdef _WIN32
  void* notification_;
#else
  int queue_;
#endif
};

}  // namespace mheg
