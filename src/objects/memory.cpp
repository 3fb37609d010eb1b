// The allocator of the product, which uses the C heap. Tests link a counting allocator instead.
#include "objects/memory.h"

#include <cstdlib>

namespace korvel {

void* AllocateZeroed(std::size_t bytes) { return std::calloc(1, bytes == 0 ? 1 : bytes); }

void ReleaseMemory(void* block) { std::free(block); }

}  // namespace korvel
