// A batch processes each file exactly once, with any number of threads.
#include "mheg/batch.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace mheg {
namespace {

TEST(Batch, processes_each_entry_once_with_any_number_of_jobs) {
  for (const unsigned jobs : {0U, 1U, 2U, 3U, 200U}) {
    std::vector<std::atomic<int>> calls(100);
    RunBatch(calls.size(), jobs, [&calls](std::size_t index) { ++calls[index]; });
    for (const std::atomic<int>& count : calls) EXPECT_EQ(count, 1) << jobs;
  }
}

// More threads would not be faster, and the tool would end if the system failed to start one.
TEST(Batch, uses_at_most_64_threads) {
  std::mutex guard;
  std::set<std::thread::id> threads;
  RunBatch(1000, 4000000000U, [&](std::size_t /*index*/) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const std::lock_guard lock(guard);
    threads.insert(std::this_thread::get_id());
  });
  EXPECT_LE(threads.size(), 64U);
}

TEST(Batch, without_entries_returns_immediately) {
  RunBatch(0, 0, [](std::size_t /*index*/) { ADD_FAILURE(); });
}

}  // namespace
}  // namespace mheg
