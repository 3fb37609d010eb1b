// Replaces the module's imports with functions that pause and call the original.
#include "windows/support/delays.h"

#include <algorithm>
#include <atomic>

namespace korvel::test {
namespace {

std::atomic<std::uint64_t> state;
std::atomic<int> pauses;

// The next number of a sequence that all threads share (SplitMix64).
std::uint64_t NextNumber() {
  std::uint64_t number = state += 0x9E37'79B9'7F4A'7C15;
  number = (number ^ number >> 30U) * 0xBF58'476D'1CE4'E5B9;
  number = (number ^ number >> 27U) * 0x94D0'49BB'1331'11EB;
  return number ^ number >> 31U;
}

void MaybePause() {
  const std::uint64_t number = NextNumber();
  if (number % 4 != 0) return;
  ++pauses;
  Sleep(static_cast<DWORD>(number / 4 % 4));
}

struct PauseAround {
  PauseAround() { MaybePause(); }
  ~PauseAround() { MaybePause(); }
  PauseAround(const PauseAround&) = delete;
  PauseAround& operator=(const PauseAround&) = delete;
};

template <std::size_t kSize> struct Name {
  char text[kSize];
  consteval Name(const char (&name)[kSize]) { std::ranges::copy(name, text); }
};

template <Name kName, class Result, class... Arguments> struct Delayed {
  static inline Result(WINAPI* original)(Arguments...);
  static Result WINAPI Call(Arguments... arguments) {
    const PauseAround pause;
    return original(arguments...);
  }
};

template <Name kName, class Result, class... Arguments>
void Delay(std::deque<ReplacedImport>& imports, HMODULE module,
           Result(WINAPI* function)(Arguments...)) {
  using Replacement = Delayed<kName, Result, Arguments...>;
  Replacement::original = function;
  imports.emplace_back(module, kName.text, Replacement::Call);
}

}  // namespace

Delays::Delays(HMODULE module, std::uint32_t seed) {
  state = seed;
  pauses = 0;
  const auto delay = [&]<Name kName>(auto* function) { Delay<kName>(imports_, module, function); };
  // Locks.
  delay.operator()<"AcquireSRWLockExclusive">(AcquireSRWLockExclusive);
  delay.operator()<"ReleaseSRWLockExclusive">(ReleaseSRWLockExclusive);
  delay.operator()<"InitializeCriticalSection">(InitializeCriticalSection);
  delay.operator()<"EnterCriticalSection">(EnterCriticalSection);
  delay.operator()<"LeaveCriticalSection">(LeaveCriticalSection);
  delay.operator()<"DeleteCriticalSection">(DeleteCriticalSection);
  // Threads and waits.
  delay.operator()<"CreateThread">(CreateThread);
  delay.operator()<"OpenThread">(OpenThread);
  delay.operator()<"DuplicateHandle">(DuplicateHandle);
  delay.operator()<"CreateEventA">(CreateEventA);
  delay.operator()<"SetEvent">(SetEvent);
  delay.operator()<"CloseHandle">(CloseHandle);
  delay.operator()<"WaitForSingleObject">(WaitForSingleObject);
  delay.operator()<"MsgWaitForMultipleObjectsEx">(MsgWaitForMultipleObjectsEx);
  delay.operator()<"Sleep">(Sleep);
  delay.operator()<"FreeLibraryAndExitThread">(FreeLibraryAndExitThread);
  // Messages.
  delay.operator()<"GetMessageA">(GetMessageA);
  delay.operator()<"PeekMessageA">(PeekMessageA);
  delay.operator()<"PostMessageA">(PostMessageA);
  delay.operator()<"SendMessageA">(SendMessageA);
  delay.operator()<"PostQuitMessage">(PostQuitMessage);
  delay.operator()<"SetTimer">(SetTimer);
  delay.operator()<"KillTimer">(KillTimer);
  // The window.
  delay.operator()<"RegisterClassExA">(RegisterClassExA);
  delay.operator()<"UnregisterClassA">(UnregisterClassA);
  delay.operator()<"CreateWindowExA">(CreateWindowExA);
  delay.operator()<"ShowWindow">(ShowWindow);
  delay.operator()<"UpdateWindow">(UpdateWindow);
  delay.operator()<"DestroyWindow">(DestroyWindow);
  delay.operator()<"GetDC">(GetDC);
  delay.operator()<"ReleaseDC">(ReleaseDC);
}

bool Delays::AreInPlace() const {
  return std::ranges::all_of(imports_, &ReplacedImport::IsInPlace);
}

int Delays::Count() { return pauses; }

}  // namespace korvel::test
