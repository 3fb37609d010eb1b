// Starts and closes the engine while its threads are delayed at every lock, post and wait.
// KORVEL_CYCLES sets another number of cycles; a long run also needs a longer KORVEL_WINE_LIMIT.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "windows/library/hostile_fixture.h"
#include "windows/support/delays.h"
#include "windows/support/seeded_random.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t kCycles = 60;

int Cycles() { return static_cast<int>(NumberFromEnvironment("KORVEL_CYCLES", kCycles)); }

// A timer that sets itself again, a key that reads the other scene, and one that restarts.
std::string BusyScene(const std::string& other) {
  return R"(
    {:Rectangle 1 :OrigBoxSize 200 200 :OrigLineWidth 0 :OrigRefFillColour '=FF=00=00=00'}
    {:Link 2 :EventSource 0 :EventType IsRunning :LinkEffect (:SetTimer(0 1 10))}
    {:Link 3 :EventSource 0 :EventType TimerFired :EventData 1
      :LinkEffect (:BringToFront(1) :SetTimer(0 1 10))}
    {:Link 4 :EventSource 0 :EventType UserInput :EventData 15
      :LinkEffect (:TransitionTo(("~/)" +
         other + R"(" 0)))}
    {:Link 5 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (:SetTimer(0 1) :Quit(("~/a" 0)))})";
}

// Wine does not count the handles of a process, but the table index of a new handle rises if
// others leak. Creates several, because some fill gaps in the table.
std::uintptr_t HighestNewHandle() {
  std::array<HANDLE, 16> events{};
  for (HANDLE& event : events) event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
  for (HANDLE event : events) CloseHandle(event);
  return reinterpret_cast<std::uintptr_t>(*std::ranges::max_element(events)) / 4;
}

// The functions of a copy of the library, which this program can unload. Null while it is not
// loaded.
Library copy;

std::string CopyPath() {
  std::array<char, MAX_PATH> folder{};
  GetTempPathA(MAX_PATH, folder.data());
  return folder.data() + ("korvel_delayed_" + std::to_string(GetCurrentProcessId()) + ".dll");
}

class DelayedCycles : public HostileHost {
 protected:
  DelayedCycles() : HostileHost(copy, 60s + Cycles() * 2s, [this] { return Describe(); }) {
    CopyFileA("korvel.dll", path.c_str(), FALSE);
    Load();
    ServeScene(BusyScene("other"));
    ServeScene("other", BusyScene("s"));
  }
  ~DelayedCycles() override {
    Close();
    Unload();
    copy = TheLibrary();  // for the base class, which closes the engine
    DeleteFileA(path.c_str());
  }

  void Load() {
    module = LoadLibraryA(path.c_str());
    copy = FindFunctions(module);
    if (module != nullptr) delays.emplace(module, seed + static_cast<std::uint32_t>(cycle));
  }
  // A host may unload the library as soon as MHEG5WaitForClose has returned.
  void Unload() {
    if (module == nullptr) return;
    delays.reset();
    FreeLibrary(module);
    module = nullptr;
  }

  void Run() {
    const Watchdog watchdog(30s, [this] { return Describe(); });
    ++cycle;
    if (random.OneIn(5)) {
      host.SetResult("s", kMHEG5FileNotYetAvailable);
    } else {
      host.ClearResult("s");
    }
    // A wait in the handler begins while the engine's thread is in its last calls.
    window.onClosed = [this, isWaiting = random.OneIn(2)] {
      if (isWaiting) library.waitForClose();
    };
    ASSERT_EQ(library.run(&host, window.Handle()), 0U);
    for (int count = random.Between(0, 12); count > 0; --count) Disturb();
    ASSERT_TRUE(WaitUntil([this] {
      FindEngineThread();
      RequestClose();
      return window.Closes() == cycle;
    }));
    ASSERT_EQ(library.waitForClose(), 0U);
    ASSERT_TRUE(HasEngineThreadEnded());
    ASSERT_TRUE(WaitUntil([] { return true; })) << "dispatches a second notification, if any";
    ASSERT_EQ(window.Closes(), cycle);
    ASSERT_EQ(host.HeldReferences(), 0);
    ASSERT_EQ(host.HeldBuffers(), 0);
    ASSERT_EQ(FindEngineWindow(), nullptr);
  }
  // Opens the engine's thread once its window exists.
  void FindEngineThread() {
    HWND found = engineThread == nullptr ? FindEngineWindow() : nullptr;
    if (found == nullptr) return;
    engineThread = OpenThread(SYNCHRONIZE, FALSE, GetWindowThreadProcessId(found, nullptr));
  }
  // Whether that thread has ended. Also true if the window closed before it could be found.
  [[nodiscard]] bool HasEngineThreadEnded() {
    if (engineThread == nullptr) return true;
    const bool hasEnded = WaitForSingleObject(engineThread, 0) == WAIT_OBJECT_0;
    CloseHandle(std::exchange(engineThread, nullptr));
    return hasEnded;
  }
  // Does one random thing that does not close the engine.
  void Disturb() {
    engineWindow = FindEngineWindow();
    switch (random.Between(1, 7)) {
    case 1: PostMessageA(engineWindow, WM_KEYDOWN, VK_RETURN, 0); return;
    case 2: PostMessageA(engineWindow, WM_KEYDOWN, 'R', 0); return;
    case 3: PostMessageA(engineWindow, WM_TIMER, 77, 0); return;
    case 4:
      if (engineWindow != nullptr) InvalidateRect(engineWindow, nullptr, TRUE);
      return;
    case 5: EXPECT_EQ(library.run(&host, window.Handle()), 1U); return;
    default: Sleep(static_cast<DWORD>(random.Between(0, 40)));
    }
  }
  void RequestClose() {
    switch (random.Between(1, 4)) {
    case 1: library.exit(); return;
    case 2: library.reStart(); return;
    case 3: PostMessageA(FindEngineWindow(), WM_CLOSE, 0, 0); return;
    default:
      if (const MHEG5ExitCallback callback = host.ExitCallback(); callback != nullptr) {
        callback(kMHEG5ExitCode);
      }
    }
  }
  std::string Describe() const {
    return "in cycle " + std::to_string(cycle) + " with seed " + std::to_string(seed);
  }

  const std::string path = CopyPath();
  const std::uint32_t seed = Seed(7);
  SeededRandom random{seed};
  int cycle = 0;
  HMODULE module = nullptr;
  HANDLE engineThread = nullptr;  // owned
  std::optional<Delays> delays;
};

TEST_F(DelayedCycles, report_every_close_once_and_leak_nothing) {
  constexpr int kWarmUp = 10;
  constexpr int kUnloadPeriod = 20;
  constexpr std::uintptr_t kFewHandles = 8;
  SCOPED_TRACE("seed " + std::to_string(seed));
  ASSERT_TRUE(delays.has_value() && delays->AreInPlace());
  int threads = 0;
  std::uintptr_t handles = 0;
  while (cycle < Cycles() && !HasFailure()) {
    Run();
    EXPECT_FALSE(HasFailure()) << "in cycle " << cycle;
    if (cycle == kWarmUp) {
      threads = CountThreads();
      handles = HighestNewHandle();
    }
    if (cycle % kUnloadPeriod != 0) continue;
    EXPECT_GT(Delays::Count(), 0);
    Unload();
    EXPECT_EQ(GetModuleHandleA(path.c_str()), nullptr) << "after cycle " << cycle;
    Load();
  }
  ASSERT_FALSE(HasFailure());
  EXPECT_EQ(host.CountOf("AddRef"), cycle);
  EXPECT_EQ(host.CountOf("Release"), cycle);
  EXPECT_EQ(window.UnexpectedMessages(), 0);
  EXPECT_TRUE(WaitUntil([&] { return CountThreads() == threads; })) << CountThreads();
  EXPECT_LE(HighestNewHandle(), handles + kFewHandles);
}

}  // namespace
}  // namespace korvel::test
