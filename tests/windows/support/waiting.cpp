// Waits while the calling thread's messages are dispatched.
#include "windows/support/waiting.h"

#include <windows.h>

namespace korvel::test {
namespace {

constexpr DWORD kPollPeriodMs = 2;

void DispatchWaitingMessages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageA(&message);
}

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  for (;;) {
    DispatchWaitingMessages();
    if (condition()) return true;
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(kPollPeriodMs);
  }
}

}  // namespace korvel::test
