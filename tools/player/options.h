// The command line of the host application. Every mistake results in one line on standard error and
// an exit status.
#pragma once

#include <filesystem>
#include <optional>

namespace player {

struct Options {
  std::filesystem::path carousel;
  std::filesystem::path script;      // empty: no script
  std::filesystem::path screenshot;  // empty: no screenshot at the end
  unsigned waitMs = 1500;            // milliseconds before that screenshot
  unsigned limitS = 30;              // seconds that each step waits for a picture
  bool isVerbose = false;            // log each file read
};

// Reads the command line into `options`. Returns the exit status if the program must end: 0 after
// help was requested, 2 after a mistake, which it reports.
[[nodiscard]] std::optional<int> ReadCommandLine(int count, const char* const* arguments,
                                                 Options& options);

}  // namespace player
