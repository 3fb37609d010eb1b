// Substitutes for the platform functions in native tests.
#include "host.h"

#include "platform/clocks.h"
#include "platform/files.h"
#include "platform/running.h"
#include "presentation/presentation.h"

namespace korvel {

using test::TheHost;

bool FetchFile(std::string_view path, OctetString* bytes) {
  TheHost().fetched.emplace_back(path);
  if (TheHost().onFetch) TheHost().onFetch();
  if (path.empty() || !MayRun()) return false;
  const auto file = TheHost().files.find(std::string(path));
  if (file == TheHost().files.end()) return false;
  return bytes == nullptr || bytes->Assign(file->second);
}

bool MayRun() { return TheHost().mayRun && !IsClosing(); }

bool IsClosing() {
  std::uint32_t& checks = TheHost().checksUntilClose;
  if (checks > 0 && --checks == 0) TheHost().isClosing = true;
  return TheHost().isClosing;
}

void PauseUnlessClosing(std::uint32_t milliseconds) {
  if (IsClosing()) return;
  TheHost().pausedMs += milliseconds;
  if (TheHost().onPause) TheHost().onPause();
}

void SetWindowTimer(std::uint32_t id, std::uint32_t periodMs) { TheHost().timers[id] = periodMs; }

void KillWindowTimer(std::uint32_t id) {
  TheHost().timers.erase(id);
  TheHost().killedTimers.push_back(id);
}

void RequestRestart(RestartReason reason) {
  ClearSurface();
  TheHost().mayRun = false;
  TheHost().restarts.push_back(reason);
}

std::uint32_t MillisecondsSinceProcessStart() {
  return TheHost().milliseconds += TheHost().millisecondsPerReading;
}

std::uint32_t SecondsNow() { return TheHost().seconds; }

bool GetLocalClock(LocalTime& now) {
  if (TheHost().hasLocalTime) now = TheHost().localTime;
  return TheHost().hasLocalTime;
}

void Trace(const char* line) { TheHost().traced.emplace_back(line); }

namespace test {

FakeHost& TheHost() {
  static FakeHost host;
  return host;
}

}  // namespace test
}  // namespace korvel
