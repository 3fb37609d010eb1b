// Tests that provoke hangs have a short limit of their own, so that a hang is reported with its
// details and does not use up the time of the whole run.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace korvel::test {

class Watchdog {
 public:
  // Ends the process with a failure if the object still exists after the limit. It then prints the
  // current test's name and the result of `details`, which runs on the watchdog's own thread.
  using Details = std::function<std::string()>;
  explicit Watchdog(std::chrono::seconds limit, Details details = nullptr);
  ~Watchdog();
  Watchdog(const Watchdog&) = delete;
  Watchdog& operator=(const Watchdog&) = delete;

 private:
  void Watch(std::chrono::seconds limit);

  Details details_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool isOver_ = false;
  std::thread thread_;
};

}  // namespace korvel::test
