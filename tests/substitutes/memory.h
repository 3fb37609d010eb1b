// Controls the substitute for the allocator in tests: it fails on request, and counts blocks.
#pragma once

#include <cstddef>

namespace korvel::test {

// Makes the n-th allocation from now on (1: the next one) return null, once. With 0, none fails.
void FailAllocation(std::size_t n);

// Whether an allocation has failed on purpose since FailAllocation was called.
bool HasFailedAllocation();

// Makes every allocation of more than `bytes` fail from now on.
void LimitBlocks(std::size_t bytes);

// The number of blocks that are allocated now.
std::size_t LiveBlocks();

}  // namespace korvel::test
