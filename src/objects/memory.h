// The one allocator of the engine. All heap memory comes from here, so that it is always
// zero-filled, callers can handle failures, and tests can link an allocator that fails or counts.
#pragma once

#include <cstddef>

namespace korvel {

// A zero-filled block aligned for any record, or null. A size of 0 also returns a block.
[[nodiscard]] void* AllocateZeroed(std::size_t bytes);

// Releases a block. Null is allowed.
void ReleaseMemory(void* block);

}  // namespace korvel
