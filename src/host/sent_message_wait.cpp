// A wait that answers sent messages only.
#include "host/sent_message_wait.h"

namespace korvel {
namespace {

// Looking for a message is what has the sent ones answered. Of the posted ones none is asked for.
void AnswerSentMessages() noexcept {
  MSG message;
  PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

}  // namespace

void WaitAnsweringSentMessages(HANDLE object, DWORD limitMs) noexcept {
  const ULONGLONG start = GetTickCount64();
  for (DWORD remaining = limitMs;;) {
    if (MsgWaitForMultipleObjects(1, &object, FALSE, remaining, QS_SENDMESSAGE) !=
        WAIT_OBJECT_0 + 1) {
      return;
    }
    AnswerSentMessages();
    if (limitMs == INFINITE) continue;
    const ULONGLONG passed = GetTickCount64() - start;
    if (passed >= limitMs) return;
    remaining = limitMs - static_cast<DWORD>(passed);
  }
}

}  // namespace korvel
