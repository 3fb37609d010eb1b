// How the Windows tests wait: for a condition, with a limit, and never for a fixed time.
#pragma once

#include <chrono>
#include <functional>

namespace korvel::test {

inline constexpr std::chrono::milliseconds kWaitLimit{20'000};

// Looks at the condition again and again, while the calling thread's windows get their messages.
// False when the limit has passed first.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds limit = kWaitLimit);

}  // namespace korvel::test
