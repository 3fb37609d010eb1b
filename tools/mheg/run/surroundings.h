// The surroundings of the engine core without a window: files in memory, a virtual clock with
// timers, and a local time that starts at a chosen date. Time advances only during waits: of the
// script, of the engine, and for files.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "mheg/carousel_files.h"
#include "platform/running.h"

namespace mheg {

struct PendingTimer {
  std::uint64_t due = 0;    // in virtual time, like Surroundings::now
  std::uint64_t order = 0;  // timers that are due at the same time expire in the order of setting
};

struct Surroundings {
  CarouselFiles files;
  std::uint64_t now = 0;        // the virtual time, in milliseconds since the start
  std::uint32_t latencyMs = 0;  // the virtual time that reading a file takes
  std::chrono::sys_seconds localTimeAtStart;

  bool isPlaying = false;  // the engine runs; its messages are collected
  bool mayRun = true;
  bool isClosing = false;
  std::optional<korvel::RestartReason> restart;  // requested, not yet carried out

  std::map<std::uint32_t, PendingTimer> timers;
  std::uint64_t timersSet = 0;
  std::vector<std::string> messages;  // printed by the engine, without their line ends
};

// The only instance in the process.
[[nodiscard]] Surroundings& TheSurroundings();

// The number of the pending timer that expires next, if it is due at `limit` or earlier.
[[nodiscard]] std::optional<std::uint32_t> NextTimer(std::uint64_t limit);

}  // namespace mheg
