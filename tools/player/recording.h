// Writes the keys that are pressed during a run, with their times, as a script. Portable.
#pragma once

#include <cstdint>
#include <ostream>

namespace player {

struct KeyPress {
  unsigned virtualKey = 0;
  std::uint64_t time = 0;  // in milliseconds
};

class Recording {
 public:
  // The recording begins at the time `start`. Each key is written immediately, so that the steps of
  // an interrupted run are not lost. Borrows the stream.
  Recording(std::ostream& script, std::uint64_t start) : script_(script), last_(start) {}

  // Keys that have no name have no effect on content and are skipped.
  void Add(const KeyPress& press);

  // Adds the time since the last key, and the exit.
  void End(std::uint64_t time);

 private:
  void WriteWait(std::uint64_t time);

  std::ostream& script_;
  std::uint64_t last_;
};

}  // namespace player
