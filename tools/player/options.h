// What the command line of the host application asks for. Reading it is CLI11's work; this page
// names the options and turns every mistake into one line and an exit status.
#pragma once

#include <filesystem>
#include <optional>

namespace player {

struct Options {
  std::filesystem::path carousel;
  std::filesystem::path script;      // empty: no script
  std::filesystem::path screenshot;  // empty: no screenshot at the end
  unsigned waitMs = 1500;            // before that screenshot
  unsigned limitS = 30;              // of each wait of the script for a picture
  bool isVerbose = false;            // log each file read
};

// Reads the command line into `options`. Returns the status to exit with where the program has
// nothing more to do: 0 after help was asked for, 2 after a mistake, which it reports.
[[nodiscard]] std::optional<int> ReadCommandLine(int count, const char* const* arguments,
                                                 Options& options);

}  // namespace player
