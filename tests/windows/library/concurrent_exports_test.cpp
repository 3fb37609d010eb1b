// Tests several threads that call the exported functions at the same time, in any order. There is
// never more than one engine, every start reports its close exactly once, and nothing hangs.
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>

#include "windows/library/hostile_fixture.h"
#include "windows/support/delays.h"
#include "windows/support/seeded_random.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kThreads = 4;

class ConcurrentExports : public HostileHost {
 protected:
  ConcurrentExports() : HostileHost(60s, [this] { return Describe(); }) {
    ServeScene(kLamp);
    host.onCall = [this](const std::string& name) {
      if (name == "AddRef" && host.HeldReferences() != 0) hasTwoEngines = true;
    };
  }

  // Runs the threads. The calling thread handles the messages of the host window, and requests a
  // close from time to time, because all the others may be waiting for one.
  void CallFromAllThreads(int steps) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < kThreads; ++index) {
      threads.emplace_back([this, index, steps] { CallAtRandom(index, steps); });
    }
    auto nextClose = std::chrono::steady_clock::now();
    EXPECT_TRUE(WaitUntil(
        [&] {
          const auto now = std::chrono::steady_clock::now();
          if (now > nextClose) {
            library.exit();
            nextClose = now + 150ms;
          }
          return finished == kThreads;
        },
        100s));
    for (std::thread& thread : threads) thread.join();
    // A request is lost while the engine has no window yet, so this repeats it.
    EXPECT_TRUE(WaitUntil([this] {
      library.exit();
      return host.HeldReferences() == 0;
    }));
    Close();
    EXPECT_TRUE(WaitUntil([] { return true; })) << "dispatches the last messages";
    EXPECT_GT(starts, 0);
    EXPECT_FALSE(hasTwoEngines);
    EXPECT_EQ(window.Closes(), expectedCloses);
    EXPECT_EQ(window.UnexpectedMessages(), 0);
    for (const char* name : {"AddRef", "Release", "SetExitCallback", "SetExitCallback null"}) {
      EXPECT_EQ(host.CountOf(name), starts) << name;
    }
  }

  const std::uint32_t seed = Seed(5);
  std::atomic<int> starts = 0;

 private:
  void CallAtRandom(std::size_t index, int steps) {
    SeededRandom random(seed + static_cast<std::uint32_t>(index));
    for (int step = 0; step < steps; ++step) {
      Sleep(static_cast<DWORD>(random.OneIn(4) ? random.Between(0, 100) : 0));
      CallOne(random.Between(1, 9), calls.at(index));
    }
    calls.at(index) = "nothing";
    ++finished;
  }
  void CallOne(int choice, std::atomic<const char*>& call) {
    HWND current = FindEngineWindow();
    switch (choice) {
    case 1:
    case 2:
      call = "RunMHEG5Window";
      if (library.run(&host, window.Handle()) == 0) ++starts, ++expectedCloses;
      return;
    case 3:
      call = "RunMHEG5Window without a window";
      if (library.run(&host, nullptr) == 0) ++starts;
      return;
    case 4:
      call = "ExitMHEG5";
      EXPECT_EQ(library.exit(), 0U);
      return;
    case 5:
      call = "MHEG5ReStart";
      EXPECT_EQ(library.reStart(), 0U);
      return;
    case 6:
      call = "MHEG5WaitForClose";
      EXPECT_EQ(library.waitForClose(), 0U);
      return;
    case 7:
      call = "the exit callback";
      if (const MHEG5ExitCallback callback = host.ExitCallback(); callback != nullptr) {
        callback(kMHEG5ExitCode);
      }
      return;
    case 8:
      call = "a posted message";
      PostMessageA(current, starts % 2 == 0 ? WM_CLOSE : WM_KEYDOWN, VK_RETURN, 0);
      return;
    default:
      call = "a sent message";
      SendMessageTimeoutA(current, WM_PAINT, 0, 0, SMTO_NORMAL, 1000, nullptr);
    }
  }
  std::string Describe() const {
    std::string text = "with seed " + std::to_string(seed) + "; the threads call";
    for (const std::atomic<const char*>& call : calls) text += std::string(" ") + call.load() + ";";
    return text;
  }

  std::array<std::atomic<const char*>, kThreads> calls = {"nothing", "nothing", "nothing",
                                                          "nothing"};
  std::atomic<std::size_t> finished = 0;
  std::atomic<int> expectedCloses = 0;
  std::atomic<bool> hasTwoEngines = false;
};

TEST_F(ConcurrentExports, run_one_engine_and_report_every_close_once) { CallFromAllThreads(300); }

TEST_F(ConcurrentExports, of_delayed_threads_run_one_engine_and_report_every_close_once) {
  const Delays delays(GetModuleHandleA("korvel.dll"), seed);
  ASSERT_TRUE(delays.AreInPlace());
  CallFromAllThreads(150);
}

// All threads start an engine at the same moment; only one start succeeds.
TEST_F(ConcurrentExports, start_one_engine_when_all_threads_start_one) {
  constexpr int kRounds = 10;
  for (int round = 1; round <= kRounds; ++round) {
    std::atomic<bool> mayStart = false;
    std::atomic<int> accepted = 0;
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < kThreads; ++index) {
      threads.emplace_back([&] {
        while (!mayStart) std::this_thread::yield();
        if (library.run(&host, window.Handle()) == 0) ++accepted;
      });
    }
    mayStart = true;
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(accepted, 1);
    WaitForWindow();
    library.exit();
    WaitForClosed(round);
    library.waitForClose();
  }
}

}  // namespace
}  // namespace korvel::test
