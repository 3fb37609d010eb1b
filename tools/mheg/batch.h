// Works on many files at once and reports in their order, so that a run prints the same with any
// number of jobs.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace mheg {

// What came of one file: the lines to report, and whether it was good.
struct Outcome {
  std::vector<std::string> messages;
  bool isGood = true;
};

// Calls work(0) to work(count - 1) on so many threads (0: one a processor), prints the messages on
// standard error and returns whether all were good. On a terminal a line shows the progress of a
// run that takes over a second.
[[nodiscard]] bool RunBatch(std::size_t count, unsigned jobs,
                            const std::function<Outcome(std::size_t)>& work);

}  // namespace mheg
