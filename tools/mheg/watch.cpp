// Linux can only watch single folders, so the constructor adds every subfolder. A subfolder that is
// created later is not watched; that needs a new Watch.
#include "mheg/watch.h"

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

// Changes that follow each other within this time belong together.
constexpr int kQuietMs = 50;

}  // namespace

#ifdef _WIN32

Watch::Watch(const fs::path& folder)
    : notification_(FindFirstChangeNotificationW(
          folder.c_str(), TRUE,
          FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE |
              FILE_NOTIFY_CHANGE_LAST_WRITE)) {
  hasFailed_ = notification_ == INVALID_HANDLE_VALUE;
}

Watch::~Watch() {
  if (notification_ != INVALID_HANDLE_VALUE) FindCloseChangeNotification(notification_);
}

Watch::Result Watch::WaitForOne(int limitMs) {
  if (hasFailed_) return Result::Failure;
  const DWORD limit = limitMs < 0 ? INFINITE : static_cast<DWORD>(limitMs);
  const DWORD result = WaitForSingleObject(notification_, limit);
  if (result == WAIT_TIMEOUT) return Result::Timeout;
  const bool isChange = result == WAIT_OBJECT_0 && FindNextChangeNotification(notification_) != 0;
  return isChange ? Result::Change : Fail();
}

#else

Watch::Watch(const fs::path& folder) : queue_(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  constexpr std::uint32_t kChanges = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM |
                                     IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ATTRIB |
                                     IN_ONLYDIR;
  hasFailed_ = inotify_add_watch(queue_, folder.c_str(), kChanges) < 0;
  std::error_code problem;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::follow_directory_symlink,
                                         problem);
  for (; !problem && entry != fs::end(entry); entry.increment(problem)) {
    std::error_code ignored;
    if (!entry->is_directory(ignored)) continue;
    const bool isAdded = inotify_add_watch(queue_, entry->path().c_str(), kChanges) >= 0;
    // A folder that has been removed in the meantime needs no watch.
    if (!isAdded && errno != ENOENT) hasFailed_ = true;
  }
}

Watch::~Watch() { close(queue_); }

Watch::Result Watch::WaitForOne(int limitMs) {
  if (hasFailed_) return Result::Failure;
  pollfd poll{queue_, POLLIN, 0};
  const int count = ::poll(&poll, 1, limitMs);
  if (count == 0) return Result::Timeout;
  std::array<char, 4096> events;
  if (count < 0 || read(queue_, events.data(), events.size()) < 0) return Fail();
  return Result::Change;
}

#endif

Watch::Result Watch::Fail() {
  hasFailed_ = true;
  return Result::Failure;
}

bool Watch::HasChanged() {
  const auto now = std::chrono::steady_clock::now();
  const Result result = WaitForOne(0);
  if (result == Result::Change) lastChange_ = now;
  return result == Result::Timeout && lastChange_ &&
         now - *lastChange_ >= std::chrono::milliseconds(kQuietMs);
}

bool Watch::Wait() {
  Result result = WaitForOne(-1);
  while (result == Result::Change) result = WaitForOne(kQuietMs);
  return result == Result::Timeout;
}

}  // namespace mheg
