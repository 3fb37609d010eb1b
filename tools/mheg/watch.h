// Waits for changes in a folder.
#pragma once

#include <filesystem>

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

  // The same without waiting for the first change: false if nothing has changed yet.
  [[nodiscard]] bool HasChanged();

 private:
  enum class Result { Change, Timeout, Failure };
  // Waits for one change, `limitMs` milliseconds at most; without limit if that is negative.
  Result WaitForOne(int limitMs);

#ifdef _WIN32
  void* notification_;
#else
  int queue_;
  bool isComplete_ = true;  // all folders are watched
#endif
};

}  // namespace mheg
