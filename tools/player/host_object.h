// The object through which the engine reads the broadcast: a carousel folder with the table of
// functions that korvel.h describes. It counts what the engine holds, so that a run can be checked.
#pragma once

#include <atomic>

#include "korvel.h"
#include "player/carousel.h"

namespace player {

// Outlives the engine that uses it, and is on the stack of the program, so a count of 0 frees
// nothing. The engine calls it on a thread of its own.
struct HostObject : MHEG5Host {
  HostObject(const Carousel& files, bool isLoggingReads);
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;
  ~HostObject() = default;

  // Whether the engine has released every reference and every buffer.
  [[nodiscard]] bool IsGivenBack() const { return references == 1 && buffers == 0; }

  const Carousel& carousel;
  const bool isVerbose;
  std::atomic<std::uint32_t> references = 1;
  std::atomic<std::uint32_t> buffers = 0;
};

}  // namespace player
