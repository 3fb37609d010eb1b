// Processor time of the painting thread is what counts: what else the machine is doing must not
// cost parts of the picture. It is dear to ask for, so the clock is asked first.
#include "presentation/painting_time.h"

#include <windows.h>

#include "host/host.h"

namespace korvel {

namespace {

// A redraw is to end within a second, and the slowest single object, a picture of the largest size
// that is decoded in as many scans as it may have, takes nearly half of one.
constexpr std::uint64_t kLongestPaintingMs = 500;

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
  return GetTickCount64() - clockStartMs_ > kLongestPaintingMs &&
         ProcessorMs() - processorStartMs_ + waitedMs > kLongestPaintingMs;
}

bool WaitAMoment() noexcept {
  if (waitedMs >= kLongestWaitMs || IsClosing()) return false;
  PauseUnlessClosing(kMomentMs);
  waitedMs += kMomentMs;
  return true;
}

}  // namespace korvel
