// Controls the substitute for the platform in tests: files in memory, a clock that tests set, and a
// record of the engine's requests.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/clocks.h"
#include "platform/running.h"

namespace korvel::test {

struct FakeHost {
  std::map<std::string, std::string> files;
  bool mayRun = true;
  bool isClosing = false;
  std::uint32_t checksUntilClose =
      0;  // which call of IsClosing requests a close (1: next; 0: none)
  std::uint32_t milliseconds = 0;
  std::uint32_t millisecondsPerReading = 0;  // added to the clock by each reading
  std::uint32_t seconds = 0;
  LocalTime localTime;
  bool hasLocalTime = true;

  std::function<void()> onPause;  // called in each pause
  std::function<void()> onFetch;  // called before each file is read

  std::vector<std::string> fetched;               // every requested path, found or not
  std::uint32_t pausedMs = 0;                     // the sum of all pauses
  std::map<std::uint32_t, std::uint32_t> timers;  // pending platform timers: id and period
  std::vector<std::uint32_t> killedTimers;
  std::vector<RestartReason> restarts;
  std::vector<std::string> traced;
};

// The substitute's state; a fixture resets it with `TheHost() = {}`.
FakeHost& TheHost();

}  // namespace korvel::test
