// The allocator of the tests: the C heap, with a count of live blocks and one failure on request.
#include "memory.h"

#include <cstdint>
#include <cstdlib>

#include "objects/memory.h"

namespace korvel {
namespace {

std::size_t allocationsUntilFailure = 0;
bool hasFailed = false;
std::size_t liveBlocks = 0;
std::size_t largestBlock = SIZE_MAX;

}  // namespace

void* AllocateZeroed(std::size_t bytes) {
  if (allocationsUntilFailure > 0 && --allocationsUntilFailure == 0) {
    hasFailed = true;
    return nullptr;
  }
  if (bytes > largestBlock) return nullptr;
  void* block = std::calloc(1, bytes == 0 ? 1 : bytes);
  if (block != nullptr) ++liveBlocks;
  return block;
}

void ReleaseMemory(void* block) {
  if (block != nullptr) --liveBlocks;
  std::free(block);
}

namespace test {

void FailAllocation(std::size_t n) {
  allocationsUntilFailure = n;
  hasFailed = false;
}

bool HasFailedAllocation() { return hasFailed; }

void LimitBlocks(std::size_t bytes) { largestBlock = bytes; }

std::size_t LiveBlocks() { return liveBlocks; }

}  // namespace test
}  // namespace korvel
