// Starts, drives and closes the host's threads.
#include "windows/host/host_threads.h"

#include "host/threads.h"

namespace korvel::test {

HostThreads::HostThreads() {
  journal.Clear();
  substitutes.onStartEngine = nullptr;
  substitutes.onRaise = nullptr;
  substitutes.onLine = nullptr;
}

HostThreads::~HostThreads() { Close(); }

void HostThreads::StartWithoutWaiting() { ASSERT_EQ(RunMHEG5Window(&host, window.Handle()), 0U); }

void HostThreads::Start() {
  StartWithoutWaiting();
  // The first copy shows "Please Wait", the second one the result of the start.
  WaitForLine("DeviceUpdate", 2);
  ASSERT_TRUE(WaitUntil([] { return FindEngineWindow() != nullptr; }));
}

void HostThreads::Close() {
  ASSERT_TRUE(WaitUntil([] {
    ExitMHEG5();
    return FindEngineWindow() == nullptr;
  }));
  MHEG5WaitForClose();
}

void HostThreads::Post(UINT message, WPARAM wParam) {
  ASSERT_NE(PostMessageA(FindEngineWindow(), message, wParam, 0), 0);
}

void HostThreads::PostKeys(const std::vector<WPARAM>& virtualKeys) {
  for (const WPARAM key : virtualKeys) Post(WM_KEYDOWN, key);
}

void HostThreads::FinishPosted() {
  const int starts = journal.CountOf("StartEngine ");
  Post(kRestartAfterQuit);
  WaitForLine("StartEngine ", starts + 1);
}

void HostThreads::WaitForLine(const std::string& line, int count) {
  ASSERT_TRUE(WaitUntil([&] { return journal.CountOf(line) >= count; })) << line;
}

std::vector<std::string> HostThreads::WorkerLines() {
  auto lines = TheSubstitutes().journal.Lines();
  std::erase(lines, "PaintWindow");
  return lines;
}

std::vector<std::string> HostThreads::Raised() {
  const std::string raise = "Raise 0 ";
  std::vector<std::string> events;
  for (const std::string& line : TheSubstitutes().journal.Lines()) {
    if (line.starts_with(raise)) events.push_back(line.substr(raise.size()));
  }
  return events;
}

}  // namespace korvel::test
