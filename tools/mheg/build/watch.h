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

 private:
#ifdef _WIN32
  void* notification_;
#else
  int queue_;
  bool isComplete_ = true;  // all folders are watched
#endif
};

}  // namespace mheg
