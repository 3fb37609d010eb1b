// An I-frame decoder that stops the library's clock permanently, for a scenario. Its frames are
// white.
#include <windows.h>

#include <cstdint>

#include "decoders/frame.h"
#include "windows/support/imports.h"

namespace {

constexpr std::uint8_t kWhite = 235;
constexpr std::uint8_t kNoChroma = 128;

// Only the engine's worker thread uses these.
bool isStopped = false;
LARGE_INTEGER stopTime;

BOOL WINAPI ReadStoppedClock(LARGE_INTEGER* time) {
  *time = stopTime;
  return TRUE;
}

// Stops the library's clock for elapsed time one millisecond after its last value, so that all
// later events happen within the same millisecond.
void StopClock() {
  LARGE_INTEGER ticksPerSecond;
  QueryPerformanceFrequency(&ticksPerSecond);
  QueryPerformanceCounter(&stopTime);
  stopTime.QuadPart += ticksPerSecond.QuadPart / 1000;
  static korvel::test::ReplacedImport* const stopped = new korvel::test::ReplacedImport(
      GetModuleHandleA("korvel.dll"), "QueryPerformanceCounter", ReadStoppedClock);
  isStopped = stopped->IsInPlace();
}

// Keeps this library loaded after the engine releases it, because the library contains the
// replacement of the clock.
void StayLoaded() {
  HMODULE library = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<const char*>(&StayLoaded), &library);
}

}  // namespace

extern "C" int Decode(const char* path, std::uint8_t** buffer, int /*one*/) {
  korvel::test::FillPlanes(korvel::test::PlaneSizesInFile(path), kWhite, kNoChroma, kNoChroma,
                           *buffer);
  if (!isStopped) {
    StayLoaded();
    StopClock();
  }
  return 0;
}
