// Works on many files at once.
#pragma once

#include <cstddef>
#include <functional>

namespace mheg {

// Calls work(0) to work(count - 1), each once, on `jobs` threads (0: one a processor) but no more
// than 64, and returns when all are done. On a terminal a line shows the progress of a run that
// takes over a second.
void RunBatch(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& work);

}  // namespace mheg
