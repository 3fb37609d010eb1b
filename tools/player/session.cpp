// The engine tells of its close by a message to the host window, so every wait serves messages and
// ends early when that one has come.
#include "player/session.h"

#include <algorithm>
#include <cstdio>

#include "player/exit_status.h"

namespace player {
namespace {

constexpr unsigned kWindowLimitMs = 20000;
constexpr unsigned kCloseLimitMs = 30000;
constexpr unsigned kCloseAgainMs = 100;  // a request made before there is a window is lost
constexpr unsigned kLookAgainMs = 10;

int Fail(const char* problem) {
  std::fprintf(stderr, "korvel-player: %s\n", problem);
  return kRunFailed;
}

}  // namespace

Session::~Session() {
  if (hostWindow_ != nullptr) DestroyWindow(hostWindow_);
}

int Session::Run(MHEG5Host& host, const std::vector<Step>& steps, const Options& options) {
  hostWindow_ = CreateWindowExA(0, "STATIC", "korvel-player", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                nullptr, nullptr);
  if (hostWindow_ == nullptr || !engine_.Start(host, hostWindow_)) {
    return Fail("the engine refuses to start");
  }
  PumpUntil(kWindowLimitMs, [&] { return (engineWindow_ = FindEngineWindow()) != nullptr; });
  bool isDone = engineWindow_ != nullptr && RunSteps(steps);
  if (isDone && !options.screenshot.empty() && !isCloseWanted_) {
    Pump(options.waitMs);
    isDone = TakeShot(options.screenshot);
    isCloseWanted_ = true;
  }
  while (isDone && !isCloseWanted_ && !isEngineClosed_) Pump(kCloseLimitMs);
  if (!Close()) return Fail("the engine does not close");
  return isDone ? 0 : Fail("the engine window did not last until the run was over");
}

// Serves messages until the condition is met (true), or the engine has closed or the time is over.
template <typename Condition>
bool Session::PumpUntil(unsigned limitMs, Condition isMet) {
  const ULONGLONG end = GetTickCount64() + limitMs;
  while (!isMet()) {
    const ULONGLONG now = GetTickCount64();
    if (isEngineClosed_ || now >= end) return false;
    const auto rest = static_cast<DWORD>(std::min<ULONGLONG>(end - now, kLookAgainMs));
    MsgWaitForMultipleObjects(0, nullptr, FALSE, rest, QS_ALLINPUT);
    TakeMessages();
  }
  return true;
}

void Session::Pump(unsigned milliseconds) {
  PumpUntil(milliseconds, [] { return false; });
}

void Session::TakeMessages() {
  MSG message = {};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.hwnd == hostWindow_ && message.message == kMHEG5ClosedMessage) {
      isEngineClosed_ = true;
    }
    DispatchMessageA(&message);
  }
}

// False when a step could not be carried out, which the engine's end before it makes so.
bool Session::RunSteps(const std::vector<Step>& steps) {
  for (const Step& step : steps) {
    if (isEngineClosed_) return false;
    switch (step.kind) {
    case StepKind::Wait: Pump(step.number); break;
    case StepKind::Key: PressKey(step.number); break;
    case StepKind::Shot:
      if (!TakeShot(step.file)) return false;
      break;
    case StepKind::Exit: isCloseWanted_ = true; return true;
    }
  }
  return true;
}

bool Session::TakeShot(const std::filesystem::path& file) {
  if (!isEngineClosed_ && pictures_.Write(engineWindow_, file)) return true;
  std::fprintf(stderr, "korvel-player: cannot write %s\n", file.string().c_str());
  return false;
}

void Session::PressKey(unsigned virtualKey) const {
  constexpr LPARAM kPressedOnce = 1;
  constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001);
  PostMessageA(engineWindow_, WM_KEYDOWN, virtualKey, kPressedOnce);
  PostMessageA(engineWindow_, WM_KEYUP, virtualKey, kReleased);
}

bool Session::Close() {
  for (unsigned waited = 0; !isEngineClosed_ && waited < kCloseLimitMs; waited += kCloseAgainMs) {
    engine_.RequestClose();
    Pump(kCloseAgainMs);
  }
  if (isEngineClosed_) engine_.WaitForClose();
  return isEngineClosed_;
}

}  // namespace player
