// Starts the engine many times and closes it at random moments. Nothing may hang or leak.
#include <gtest/gtest.h>

#include <random>

#include "windows/library/engine_fixture.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

// A scene with a timer that causes redraws and sets itself again.
constexpr const char* kBusyScene = R"(
    {:Rectangle 1 :OrigBoxSize 700 500 :OrigRefFillColour '=FF=00=00=00'}
    {:Text 2 :OrigContent "busy" :OrigBoxSize 700 500}
    {:Link 3 :EventSource 0 :EventType IsRunning :LinkEffect (:SetTimer(0 1 10))}
    {:Link 4 :EventSource 0 :EventType TimerFired :EventData 1
      :LinkEffect (:BringToFront(1) :BringToFront(2) :SetTimer(0 1 10))}
    {:Link 5 :EventSource 0 :EventType UserInput
      :LinkEffect (:SendToBack(2) :BringToFront(2) :SendToBack(1) :BringToFront(1))})";

class Cycles : public Engine {
 protected:
  // Waits for the window and the delay, requests the close, and waits until the engine has closed.
  void CloseAfter(std::chrono::milliseconds delay) {
    const auto moment = std::chrono::steady_clock::now() + delay;
    ASSERT_TRUE(WaitUntil([&] {
      engineWindow = FindEngineWindow();
      return engineWindow != nullptr && std::chrono::steady_clock::now() >= moment;
    }));
    RequestClose();
    ASSERT_TRUE(WaitUntil([this] { return window.Closes() == cycle; }))
        << "after " << delay.count();
    library.waitForClose();
    EXPECT_EQ(host.HeldReferences(), 0);
    EXPECT_EQ(host.HeldBuffers(), 0);
  }
  // Counts while the engine's two threads run and subtracts them, because they may still exist for
  // a moment after the close.
  int CountThreadsWithoutEngine() {
    ++cycle;
    Start();
    WaitForRead("s");
    const int threads = CountThreads() - 2;
    CloseAfter(0ms);
    return threads;
  }
  // Requests the close in one of the four ways, in turn. A window that is not visible yet may still
  // be under construction; the library then ignores requests, so the message goes to the window.
  void RequestClose() {
    switch (IsWindowVisible(engineWindow) != 0 ? cycle % 4 : 2) {
    case 0: library.exit(); break;
    case 1: library.reStart(); break;
    case 2: Post(WM_CLOSE); break;
    default: host.ExitCallback()(kMHEG5ExitCode); break;
    }
  }
  std::chrono::milliseconds Random(int from, int to) {
    return std::chrono::milliseconds(std::uniform_int_distribution(from, to)(random));
  }

  int cycle = 0;
  std::mt19937 random{20240607};
};

TEST_F(Cycles, two_hundred_with_closes_at_random_moments_leak_nothing) {
  constexpr int kCycles = 200;
  ServeScene(kBusyScene);
  const int threads = CountThreadsWithoutEngine();
  while (cycle < kCycles && !HasFailure()) {
    ++cycle;
    // In every fifth cycle the file is not available yet, so that the close happens during a retry.
    if (cycle % 5 == 0) {
      host.SetResult("s", kMHEG5FileNotYetAvailable);
    } else {
      host.ClearResult("s");
    }
    ASSERT_EQ(library.run(&host, window.Handle()), 0U) << cycle;
    CloseAfter(cycle % 2 == 0 ? Random(0, 50) : Random(0, 250));
  }
  EXPECT_EQ(window.Closes(), kCycles);
  EXPECT_EQ(host.CountOf("AddRef"), kCycles);
  EXPECT_EQ(host.CountOf("Release"), kCycles);
  EXPECT_EQ(window.UnexpectedMessages(), 0);
  EXPECT_TRUE(WaitUntil([&] { return CountThreads() == threads; })) << CountThreads();
}

TEST_F(Cycles, closing_in_the_middle_of_a_key_never_hangs) {
  constexpr int kCycles = 50;
  ServeScene(kBusyScene);
  while (cycle < kCycles && !HasFailure()) {
    ++cycle;
    Start();
    WaitForRead("s", cycle);
    for (int count = 0; count < 30; ++count) PressKey(VK_RETURN);
    CloseAfter(Random(0, 30));
  }
  EXPECT_EQ(window.Closes(), kCycles);
}

}  // namespace
}  // namespace korvel::test
