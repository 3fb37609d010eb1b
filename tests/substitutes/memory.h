// Controls the substitute for the allocator in tests: it fails on request, and counts blocks.
#pragma once

#include <cstddef>

namespace korvel::test {

// Makes the n-th allocation from now on (1: the next one) return null, once. With 0, none fails.
void FailAllocation(std::size_t n);

// Whether an allocation has failed on purpose since FailAllocation was called.
bool HasFailedAllocation();

// Repeats `work`, failing its first allocation, then its second, until none has failed. Each time
// calls `check` with the result of `work` and whether an allocation has failed. Returns the number
// of failed allocations.
template <class Work, class Check>
std::size_t FailEachInTurn(const Work& work, const Check& check) {
  for (std::size_t n = 1;; ++n) {
    FailAllocation(n);
    auto result = work();
    const bool hasFailed = HasFailedAllocation();
    FailAllocation(0);
    check(result, hasFailed);
    if (!hasFailed) return n - 1;
  }
}

// Makes every allocation of more than `bytes` fail from now on.
void LimitBlocks(std::size_t bytes);

// The number of blocks that are currently allocated.
std::size_t LiveBlocks();

}  // namespace korvel::test
