// The engine reports that it has closed with a message to the host window. Every wait therefore
// dispatches messages and ends early when that message arrives.
#include "player/session.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "mheg/path_text.h"
#include "player/engine_watch.h"
#include "player/exit_status.h"
#include "player/stillness.h"

namespace player {
namespace {

using mheg::StepKind;

constexpr unsigned kWindowLimitMs = 20000;
constexpr unsigned kCloseLimitMs = 30000;
constexpr unsigned kCloseRetryMs = 100;  // a request is lost if there is no window yet
constexpr unsigned kPollMs = 10;
constexpr unsigned kMsPerSecond = 1000;

constexpr std::uint32_t kColourBits = 0xFFFFFF;

bool IsColour(const Picture& picture, const mheg::Pixel& pixel) {
  return pixel.x < kPictureWidth && pixel.y < kPictureHeight &&
         (picture.pixels[pixel.y * kPictureWidth + pixel.x] & kColourBits) == pixel.colour;
}

std::string NameOf(const mheg::Pixel& pixel) {
  std::array<char, 64> name{};
  std::snprintf(name.data(), name.size(), "#%06X at %u %u", static_cast<unsigned>(pixel.colour),
                pixel.x, pixel.y);
  return name.data();
}

bool ReportUnwritable(const std::filesystem::path& file) {
  std::fprintf(stderr, "korvel-player: cannot write %s\n", mheg::TextOf(file).c_str());
  return false;
}

int Fail(const char* problem) {
  std::fprintf(stderr, "korvel-player: %s\n", problem);
  return kRunFailed;
}

}  // namespace

Session::~Session() {
  if (hostWindow_ != nullptr) DestroyWindow(hostWindow_);
}

int Session::Run(MHEG5Host& host, const std::vector<mheg::Step>& steps) {
  if (!options_.record.empty()) record_.open(options_.record, std::ios::binary);
  if (!record_) {
    ReportUnwritable(options_.record);
    return kRunFailed;
  }
  if (options_.isWatching) folder_.emplace(options_.carousel);
  hostWindow_ = CreateWindowExA(0, "STATIC", "korvel-player", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                nullptr, nullptr);
  if (!WatchEngine()) return Fail("the engine cannot be watched");
  if (hostWindow_ == nullptr || !engine_.Start(host, hostWindow_)) {
    return Fail("the engine refuses to start");
  }
  PumpUntil(kWindowLimitMs, [&] { return (engineWindow_ = FindEngineWindow()) != nullptr; });
  StartToRecord();
  bool isDone = engineWindow_ != nullptr && RunSteps(steps);
  if (isDone && !options_.screenshot.empty() && !isCloseWanted_) {
    Pump(options_.waitMs);
    isDone = TakePicture(options_.screenshot);
    isCloseWanted_ = true;
  }
  if (isDone) RunUntilEnd(!options_.IsInteractive() && !options_.isWatching);
  const bool isRecorded = EndRecords();
  if (!Close()) return Fail("the engine does not close");
  if (!isDone) return Fail("the engine window did not last until the run was over");
  return hasFailed_ || !isRecorded ? kRunFailed : 0;
}

// Starts the picture series and the recording.
void Session::StartToRecord() {
  const ULONGLONG now = GetTickCount64();
  if (!options_.series.empty()) series_.emplace(options_.series, now);
  if (!options_.record.empty()) recording_.emplace(record_, now);
}

bool Session::EndRecords() {
  Observe();
  const ULONGLONG now = GetTickCount64();
  const bool isSeriesWritten = !series_ || series_->End(now) || ReportUnwritable(options_.series);
  if (recording_) recording_->End(now);
  const bool isRecordWritten = !recording_ || record_ || ReportUnwritable(options_.record);
  return isSeriesWritten && isRecordWritten;
}

// Runs until the user closes the window or the folder has been loaded again; with
// `isEndingWhenIdle`, also until nothing can happen any more.
void Session::RunUntilEnd(bool isEndingWhenIdle) {
  picture_ = {};
  Stillness stillness(PostMark(engineWindow_));
  while (!isCloseWanted_ && !isEngineClosed_) {
    Pump(kPollMs);
    if (folder_ && folder_->HasFailed()) {
      std::fprintf(stderr, "korvel-player: the folder cannot be watched\n");
      hasFailed_ = isCloseWanted_ = true;
    }
    if (IsReloadWanted() && LoadFiles(options_, reloaded_) == 0) isCloseWanted_ = true;
    if (isEndingWhenIdle && IsPictureFinal(stillness) && !HasTimer()) {
      std::fprintf(stderr,
                   "korvel-player: the script has no exit, and nothing can happen any more\n");
      isCloseWanted_ = true;
    }
  }
}

bool Session::IsReloadWanted() {
  if (TakeReloadRequest()) return true;
  if (!folder_ || !folder_->HasChanged()) return false;
  folder_.emplace(options_.carousel);
  return true;
}

// Dispatches messages until the condition is met. Returns false if the engine closes or the time
// runs out first.
template <typename Condition> bool Session::PumpUntil(unsigned limitMs, Condition isMet) {
  const ULONGLONG end = GetTickCount64() + limitMs;
  while (!isMet()) {
    const ULONGLONG now = GetTickCount64();
    if (isEngineClosed_ || now >= end) return false;
    const auto rest = static_cast<DWORD>(std::min<ULONGLONG>(end - now, kPollMs));
    MsgWaitForMultipleObjects(0, nullptr, FALSE, rest, QS_ALLINPUT);
    TakeMessages();
    Observe();
  }
  return true;
}

// Adds new keys to the recording, and the current picture to the series.
void Session::Observe() {
  for (const KeyPress& key : TakeKeys()) {
    if (recording_) recording_->Add(key);
  }
  const ULONGLONG now = GetTickCount64();
  Picture picture;
  if (!isEngineClosed_ && series_ && series_->IsDue(now) && Capture(engineWindow_, picture)) {
    series_->Add(std::move(picture), now);
  }
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

// Returns false if a step fails, for example because the engine has closed.
bool Session::RunSteps(const std::vector<mheg::Step>& steps) {
  if (!WatchWindow(engineWindow_)) return false;
  for (const mheg::Step& step : steps) {
    if (isEngineClosed_) return false;
    switch (step.kind) {
    case StepKind::Wait: Pump(step.number); break;
    case StepKind::Until:
      AwaitFinalPicture(NameOf(step.pixel), [&] { return IsColour(picture_, step.pixel); });
      break;
    case StepKind::Key: PressKey(step.number); break;
    case StepKind::Expose: WipeWindow(); break;
    case StepKind::Shot:
      AwaitFinalPicture("final picture for " + step.file, [] { return true; });
      if (!WritePicture(mheg::PathOf(step.file))) return false;
      break;
    case StepKind::Catch:
      CatchPicture(step.pixel);
      if (!WritePicture(mheg::PathOf(step.file))) return false;
      break;
    case StepKind::Expect: break;  // the state of the content is not visible to a host
    case StepKind::Exit: isCloseWanted_ = true; return true;
    }
  }
  return true;
}

// Waits until the condition is met. The first timeout fails the run; later steps then take their
// pictures without waiting.
template <typename Condition> void Session::Await(const std::string& wanted, Condition hasCome) {
  if (!hasFailed_ && (PumpUntil(options_.limitS * kMsPerSecond, hasCome) || isEngineClosed_))
    return;
  if (!hasFailed_) {
    std::fprintf(stderr, "korvel-player: no %s within the limit\n", wanted.c_str());
    hasFailed_ = true;
  }
  static_cast<void>(Capture(engineWindow_, picture_));
}

// Takes the first picture in which the pixel has its colour.
void Session::CatchPicture(const mheg::Pixel& pixel) {
  Await(NameOf(pixel),
        [&] { return Capture(engineWindow_, picture_) && IsColour(picture_, pixel); });
}

// Checks the condition only on final pictures, because a picture from before the pressed keys took
// effect might meet it too.
template <typename Condition>
void Session::AwaitFinalPicture(const std::string& wanted, Condition isMet) {
  picture_ = {};
  Stillness stillness(PostMark(engineWindow_));
  Await(wanted, [&] { return IsPictureFinal(stillness) && isMet(); });
}

// At the end of a round, compares the picture with the one before. Returns false until it is final.
bool Session::IsPictureFinal(Stillness& stillness) {
  if (!stillness.IsRoundOver(StateOfEngine(engineWindow_))) return false;
  Picture now;
  if (!Capture(engineWindow_, now)) return false;
  const bool isUnchanged = now == picture_;
  picture_ = std::move(now);
  return stillness.EndRound(isUnchanged, PostMark(engineWindow_));
}

// Fills the window with a colour that no scene should have, so that unpainted areas are visible.
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

bool Session::TakePicture(const std::filesystem::path& file) {
  return Capture(engineWindow_, picture_) && WritePicture(file);
}

bool Session::WritePicture(const std::filesystem::path& file) {
  return (!isEngineClosed_ && pictures_.Write(picture_, file)) || ReportUnwritable(file);
}

void Session::PressKey(unsigned virtualKey) const {
  constexpr LPARAM kPressedOnce = 1;
  constexpr LPARAM kReleased = static_cast<LPARAM>(0xC0000001);
  PostMessageA(engineWindow_, WM_KEYDOWN, virtualKey, kPressedOnce);
  PostMessageA(engineWindow_, WM_KEYUP, virtualKey, kReleased);
}

bool Session::Close() {
  for (unsigned waited = 0; !isEngineClosed_ && waited < kCloseLimitMs; waited += kCloseRetryMs) {
    engine_.RequestClose();
    Pump(kCloseRetryMs);
  }
  if (isEngineClosed_) engine_.WaitForClose();
  return isEngineClosed_;
}

}  // namespace player
