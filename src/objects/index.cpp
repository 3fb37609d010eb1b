// The number that makes hashes differ from process to process.
#include "objects/index.h"

#include <chrono>

namespace korvel {

// The time since the machine started, in the clock's units, spread over all bits.
std::uint64_t Hash::secret =
    (static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) *
     0x9E3779B97F4A7C15U) |
    1U;

}  // namespace korvel
