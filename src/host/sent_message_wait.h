// The wait for a thread that may itself be sending messages to the waiting thread's windows.
#pragma once

#include <windows.h>

namespace korvel {

// Waits until the object is signalled or the limit (INFINITE: none) has passed. Messages that
// other threads send to the caller's windows are answered meanwhile, so that a sender and a waiter
// never wait for each other; posted messages stay in the queue. Any thread.
void WaitAnsweringSentMessages(HANDLE object, DWORD limitMs) noexcept;

}  // namespace korvel
