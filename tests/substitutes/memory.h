// What tests may ask of the allocator that stands in for the library's: failing on purpose, and
// counting.
#pragma once

#include <cstddef>

namespace korvel::test {

// Makes the n-th allocation from now on (1 is the next one) return null, once. 0 fails none.
void FailAllocation(std::size_t n);

// Whether an allocation has failed on purpose since FailAllocation was called.
bool HasFailedAllocation();

// Blocks that were allocated and not given back.
std::size_t LiveBlocks();

}  // namespace korvel::test
