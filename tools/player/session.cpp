// The engine tells of its close by a message to the host window, so every wait serves messages and
// ends early when that one has come.
#include "player/session.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "player/exit_status.h"

namespace player {
namespace {

constexpr unsigned kWindowLimitMs = 20000;
constexpr unsigned kCloseLimitMs = 30000;
constexpr unsigned kCloseAgainMs = 100;  // a request made before there is a window is lost
constexpr unsigned kLookAgainMs = 10;
constexpr unsigned kPictureLimitMs = 10000;
// A scene may be shown piece by piece while it starts; this long it does not pause.
constexpr unsigned kStillMs = 100;

constexpr std::uint32_t kColourBits = 0xFFFFFF;

bool IsColour(const Picture& picture, const Pixel& pixel) {
  const auto width = static_cast<unsigned>(picture.width);
  const auto height = static_cast<unsigned>(picture.height);
  return pixel.x < width && pixel.y < height &&
         (picture.pixels[pixel.y * width + pixel.x] & kColourBits) == pixel.colour;
}

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
  if (!isDone) return Fail("the engine window did not last until the run was over");
  return isLost_ ? kRunFailed : 0;
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
    case StepKind::Until: AwaitPixel(step.pixel); break;
    case StepKind::UntilChanged: AwaitChange(); break;
    case StepKind::Key: PressKey(step.number); break;
    case StepKind::Expose: WipeWindow(); break;
    case StepKind::Shot:
      if (!TakeShot(step.file)) return false;
      break;
    case StepKind::Exit: isCloseWanted_ = true; return true;
    }
  }
  return true;
}

// Waits until the condition is met by a picture that stays as it is. Once something has not come,
// the run is lost: it takes its other pictures without waiting.
template <typename Condition>
void Session::Await(const char* wanted, Condition isMet) {
  Picture seen;
  ULONGLONG seenSince = 0;
  const bool hasCome = PumpUntil(isLost_ ? 0 : kPictureLimitMs, [&] {
    Picture now;
    if (!Capture(engineWindow_, now)) return false;
    if (now != seen) {
      seen = std::move(now);
      seenSince = GetTickCount64();
    }
    return isMet(seen) && GetTickCount64() - seenSince >= kStillMs;
  });
  if (hasCome || isLost_) return;
  isLost_ = true;
  std::fprintf(stderr, "korvel-player: %s has not come\n", wanted);
}

void Session::AwaitPixel(const Pixel& pixel) {
  std::array<char, 64> wanted{};
  std::snprintf(wanted.data(), wanted.size(), "#%06X at %u %u", static_cast<unsigned>(pixel.colour),
                pixel.x, pixel.y);
  Await(wanted.data(), [&](const Picture& seen) { return IsColour(seen, pixel); });
}

void Session::AwaitChange() {
  Await("another picture", [this](const Picture& seen) { return seen != lastShot_; });
}

// Leaves a colour that no scene should have, so that it is seen whether the window is painted.
void Session::WipeWindow() const {
  constexpr COLORREF kMagenta = RGB(255, 0, 255);
  RECT client = {};
  GetClientRect(engineWindow_, &client);
  const HDC deviceContext = GetDC(engineWindow_);
  const HBRUSH brush = CreateSolidBrush(kMagenta);
  FillRect(deviceContext, &client, brush);
  DeleteObject(brush);
  ReleaseDC(engineWindow_, deviceContext);
  InvalidateRect(engineWindow_, nullptr, TRUE);
}

bool Session::TakeShot(const std::filesystem::path& file) {
  if (!isEngineClosed_ && Capture(engineWindow_, lastShot_) && pictures_.Write(lastShot_, file)) {
    return true;
  }
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
