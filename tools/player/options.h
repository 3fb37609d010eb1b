// The command line of the host application. Every mistake results in one line on standard error and
// an exit status.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace player {

struct Options {
  std::filesystem::path carousel;    // folder of source files or of broadcast files
  std::filesystem::path script;      // empty: no script
  std::filesystem::path record;      // script to write the pressed keys to; empty: none
  std::filesystem::path screenshot;  // empty: no screenshot at the end
  std::filesystem::path series;      // folder for a picture after each change; empty: none
  unsigned waitMs = 1500;            // milliseconds before the screenshot
  unsigned limitS = 30;              // seconds that a step waits for a picture
  std::uint32_t latencyMs = 0;       // how long reading a file takes
  std::uint32_t notYet = 0;          // how often each file is not yet available
  std::vector<std::string> missing;  // files that the engine does not find
  bool isWatching = false;           // load the folder again after each change
  bool isVerbose = false;            // log each file read

  // Whether the user presses the keys and ends the run.
  [[nodiscard]] bool IsInteractive() const { return script.empty() && screenshot.empty(); }
};

// The help on the keyboard, for the user.
inline constexpr const char* kKeyboardHelp =
    "Keys: arrows, Enter (OK), Escape (Cancel), 0 to 9, R, G, Y and B (colours), T (Text), I "
    "(Info)\n"
    "F5 loads the folder again. Close the window to end.\n";

// Reads the arguments, without the name of the program, into `options`. Returns the exit status if
// the program must end: 0 after help or the version was requested, 2 after a mistake, which it
// reports.
[[nodiscard]] std::optional<int> ReadCommandLine(const std::vector<std::string>& arguments,
                                                 Options& options);

}  // namespace player
