// A decoder of I-frames by which a scenario stops the clock of the library for good. The frame
// itself is white.
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "windows/support/imports.h"

namespace {

constexpr std::uint8_t kWhite = 235;
constexpr std::uint8_t kNoChroma = 128;

// Both are touched by the engine's worker thread only.
bool isStopped = false;
LARGE_INTEGER stopTime;

BOOL WINAPI ReadStoppedClock(LARGE_INTEGER* time) {
  *time = stopTime;
  return TRUE;
}

// Stops the clock by which the library measures elapsed time, a millisecond after its last value,
// so that everything happens within one millisecond.
void StopClock() {
  LARGE_INTEGER ticksPerSecond;
  QueryPerformanceFrequency(&ticksPerSecond);
  QueryPerformanceCounter(&stopTime);
  stopTime.QuadPart += ticksPerSecond.QuadPart / 1000;
  static korvel::test::ReplacedImport* const stopped = new korvel::test::ReplacedImport(
      GetModuleHandleA("korvel.dll"), "QueryPerformanceCounter", ReadStoppedClock);
  isStopped = stopped->IsInPlace();
}

// The engine gives a decoder up after each frame; the function in place of the clock must stay.
void StayLoaded() {
  HMODULE library = nullptr;
  GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                     reinterpret_cast<const char*>(&StayLoaded), &library);
}

}  // namespace

extern "C" int Decode(const char* path, std::uint8_t** buffer, int /*one*/) {
  std::uint8_t header[7] = {};
  if (std::FILE* file = std::fopen(path, "rb"); file != nullptr) {
    if (std::fread(header, 1, sizeof header, file) != sizeof header) header[4] = 0;
    std::fclose(file);
  }
  const int width = header[4] * 16 + header[5] / 16;
  const int height = header[5] % 16 * 256 + header[6];
  std::fill_n(*buffer, width * height, kWhite);
  std::fill_n(*buffer + width * height, width * height / 2, kNoChroma);
  if (!isStopped) {
    StayLoaded();
    StopClock();
  }
  return 0;
}
