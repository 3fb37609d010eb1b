// The watchdog's thread. It ends the process without cleaning up, because the threads that hang may
// hold any lock.
#include "windows/support/watchdog.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

namespace korvel::test {
namespace {

constexpr UINT kFailed = 1;

}  // namespace

Watchdog::Watchdog(std::chrono::seconds limit, Details details)
    : details_(std::move(details)), thread_([this, limit] { Watch(limit); }) {}

Watchdog::~Watchdog() {
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void Watchdog::Watch(std::chrono::seconds limit) {
  std::unique_lock lock(mutex_);
  if (changed_.wait_for(lock, limit, [this] { return isOver_; })) return;
  const auto* test = testing::UnitTest::GetInstance()->current_test_info();
  std::printf("%s.%s hangs %s\n", test->test_suite_name(), test->name(),
              details_ ? details_().c_str() : "");
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), kFailed);
}

}  // namespace korvel::test
