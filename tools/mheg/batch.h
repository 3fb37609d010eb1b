// Processes many files in parallel.
#pragma once

#include <cstddef>
#include <functional>

namespace mheg {

// Calls work(0) to work(count - 1), each once, on `jobs` threads (0: one per processor; at most
// 64), and returns when all have finished. After one second, a line on the terminal shows progress.
void RunBatch(std::size_t count, unsigned jobs, const std::function<void(std::size_t)>& work);

}  // namespace mheg
