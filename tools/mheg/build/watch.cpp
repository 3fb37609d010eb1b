// Linux watches single folders, so the watch adds every subfolder. Subfolders that are created
// later need a new watch.
#include "mheg/build/watch.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>
#endif

namespace mheg {
namespace {

namespace fs = std::filesystem;

constexpr int kCalmMs = 50;

}  // namespace

#ifdef _WIN32

Watch::Watch(const fs::path& folder)
    : notification_(FindFirstChangeNotificationW(
          folder.c_str(), TRUE,
          FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
              FILE_NOTIFY_CHANGE_LAST_WRITE)) {}

Watch::~Watch() {
  if (notification_ != INVALID_HANDLE_VALUE) FindCloseChangeNotification(notification_);
}

bool Watch::Wait() {
  if (notification_ == INVALID_HANDLE_VALUE) return false;
  for (DWORD limit = INFINITE;; limit = kCalmMs) {
    const DWORD result = WaitForSingleObject(notification_, limit);
    if (result == WAIT_TIMEOUT) return true;
    if (result != WAIT_OBJECT_0 || FindNextChangeNotification(notification_) == 0) return false;
  }
}

#else

Watch::Watch(const fs::path& folder) : queue_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  constexpr std::uint32_t kChanges = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM |
                                     IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ATTRIB |
                                     IN_ONLYDIR;
  isComplete_ = inotify_add_watch(queue_, folder.c_str(), kChanges) >= 0;
  std::error_code problem;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::follow_directory_symlink,
                                         problem);
  for (; !problem && entry != fs::end(entry); entry.increment(problem)) {
    std::error_code ignored;
    if (!entry->is_directory(ignored)) continue;
    const bool isAdded = inotify_add_watch(queue_, entry->path().c_str(), kChanges) >= 0;
    // A folder that has just been removed needs no watch.
    isComplete_ = isComplete_ && (isAdded || errno == ENOENT);
  }
}

Watch::~Watch() { close(queue_); }

bool Watch::Wait() {
  if (!isComplete_) return false;
  pollfd poll{queue_, POLLIN, 0};
  for (int limit = -1;; limit = kCalmMs) {
    const int count = ::poll(&poll, 1, limit);
    if (count == 0) return true;
    std::array<char, 4096> events;
    if (count < 0 || read(queue_, events.data(), events.size()) < 0) return false;
  }
}

#endif

}  // namespace mheg
