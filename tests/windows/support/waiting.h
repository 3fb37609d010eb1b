// Windows tests wait for a condition, with a limit, and never for a fixed time.
#pragma once

#include <chrono>
#include <functional>

namespace korvel::test {

inline constexpr std::chrono::milliseconds kWaitLimit{20'000};

// Checks the condition repeatedly and dispatches the calling thread's messages in between. Returns
// false if the limit passes first.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds limit = kWaitLimit);

}  // namespace korvel::test
