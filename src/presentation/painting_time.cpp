// Processor time of the painting thread is what counts: what else the machine is doing must not
// cost parts of the picture. It is dear to ask for, so the clock is asked first.
#include "presentation/painting_time.h"

#include <windows.h>

#include "host/host.h"
#include "presentation/picture_limits.h"

namespace korvel {

namespace {

// A redraw is to end within a second, and the slowest single object that is not looked at before it
// is drawn, a text, takes a fifth of one.
constexpr std::uint64_t kLongestPaintingMs = 500;

constexpr std::uint64_t kNsPerMs = 1'000'000;

// Others hold a file for as long as they take to decode a picture, seldom longer than this.
constexpr std::uint32_t kMomentMs = 10;
constexpr std::uint32_t kLongestWaitMs = 200;

constexpr std::uint64_t kFileTimesPerMs = 10'000;

std::uint32_t waitedMs = 0;  // by the painting that is going on

std::uint64_t MillisecondsOf(const FILETIME& time) noexcept {
  return ((std::uint64_t{time.dwHighDateTime} << 32) + time.dwLowDateTime) / kFileTimesPerMs;
}

// 0 when the platform does not tell: the time is then never over.
std::uint64_t ProcessorMs() noexcept {
  FILETIME created{};
  FILETIME ended{};
  FILETIME inKernel{};
  FILETIME inProgram{};
  if (GetThreadTimes(GetCurrentThread(), &created, &ended, &inKernel, &inProgram) == FALSE) {
    return 0;
  }
  return MillisecondsOf(inKernel) + MillisecondsOf(inProgram);
}

}  // namespace

PaintingTime::PaintingTime() noexcept
    : clockStartMs_(GetTickCount64()), processorStartMs_(ProcessorMs()) {
  waitedMs = 0;
}

bool PaintingTime::IsOver() const noexcept {
  return GetTickCount64() - clockStartMs_ > kLongestPaintingMs && TakenMs() > kLongestPaintingMs;
}

std::uint64_t PaintingTime::LeftNs() const noexcept {
  const std::uint64_t takenNs = TakenMs() * kNsPerMs;
  return takenNs < kLongestPicturesNs ? kLongestPicturesNs - takenNs : 0;
}

std::uint64_t PaintingTime::TakenMs() const noexcept {
  return ProcessorMs() - processorStartMs_ + waitedMs;
}

bool WaitAMoment() noexcept {
  if (waitedMs >= kLongestWaitMs || IsClosing()) return false;
  PauseUnlessClosing(kMomentMs);
  waitedMs += kMomentMs;
  return true;
}

}  // namespace korvel
