// The interface of the allocator's stand-in for tests: it can fail on request, and counts blocks.
#pragma once

#include <cstddef>

namespace korvel::test {

// Makes the n-th allocation from now on (1 is the next one) return null, once. 0 lets all succeed.
void FailAllocation(std::size_t n);

// Whether an allocation has failed on purpose since FailAllocation was called.
bool HasFailedAllocation();

// The number of blocks that were allocated and not released.
std::size_t LiveBlocks();

}  // namespace korvel::test
