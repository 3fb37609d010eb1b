// Worker threads take the next file's index from a shared counter. The calling thread shows
// progress until they have finished.
#include "mheg/batch.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>
#include <vector>

#include "mheg/message.h"

namespace mheg {
namespace {

class Batch {
 public:
  Batch(std::size_t count, const std::function<void(std::size_t)>& work)
      : work_(work), count_(count) {}

  void Run(std::size_t jobs) {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < jobs; ++i) threads.emplace_back([this] { ProcessFiles(); });
    ShowProgress();
  }

 private:
  void ProcessFiles() {
    for (std::size_t index = NextIndex(); index < count_; index = NextIndex()) {
      work_(index);
      const std::lock_guard lock(guard_);
      ++finished_;
      change_.notify_one();
    }
  }
  std::size_t NextIndex() {
    const std::lock_guard lock(guard_);
    return next_++;
  }

  void ShowProgress() {
    constexpr auto kDelay = std::chrono::seconds(1);
    constexpr auto kInterval = std::chrono::milliseconds(100);
    const bool isShown = IsTerminal(stderr);
    int width = 0;  // of the progress line, including its carriage return
    std::unique_lock lock(guard_);
    change_.wait_for(lock, kDelay, [this] { return finished_ == count_; });
    while (finished_ < count_) {
      if (isShown) width = std::fprintf(stderr, "\r%zu of %zu files", finished_, count_);
      change_.wait_for(lock, kInterval, [this] { return finished_ == count_; });
    }
    // Overwrites the line with blanks, because not every console supports an escape sequence.
    if (width > 0) std::fprintf(stderr, "\r%*s\r", width - 1, "");
  }

  const std::function<void(std::size_t)>& work_;
  std::size_t count_;
  std::mutex guard_;  // protects next_ and finished_
  std::condition_variable change_;
  std::size_t next_ = 0;
  std::size_t finished_ = 0;
};

}  // namespace

void RunBatch(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& work) {
  constexpr unsigned kMostThreads = 64;
  const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
  const unsigned threads = std::min(jobs == 0 ? processors : jobs, kMostThreads);
  Batch(count, work).Run(std::min<std::size_t>(threads, count));
}

}  // namespace mheg
