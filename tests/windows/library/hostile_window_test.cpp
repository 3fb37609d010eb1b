// Tests interference with the two windows by a host, a viewer or another program: the host's window
// is destroyed, and the engine's window is moved, hidden, disabled, given another parent, destroyed
// and flooded with messages.
#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <thread>

#include "windows/library/hostile_fixture.h"
#include "windows/support/seeded_random.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

class HostileWindow : public HostileHost {
 protected:
  void StartWithLamp() {
    ServeScene(kLamp);
    Start();
    WaitForLamp();
  }
  [[nodiscard]] DWORD EngineThread() const {
    return GetWindowThreadProcessId(engineWindow, nullptr);
  }
  // Checks that the engine has closed in order, without a request from the host, and can start
  // again.
  void ExpectClosed() {
    WaitForClosed();
    library.waitForClose();
    EXPECT_EQ(FindEngineWindow(), nullptr);
    EXPECT_EQ(host.CountOf("Release"), 1);
    StartWithLamp();
    ExpectWorkingScene();
  }
};

// ---- The host's window ----

class DestroyedHostWindow : public HostileWindow {
 protected:
  // Starts an engine that notifies a window of its own.
  void StartWithOwnWindow() {
    ServeScene(kLamp);
    ASSERT_EQ(library.run(&host, ownWindow->Handle()), 0U);
  }
  void ExpectCloseAndNewStart() {
    Close();
    EXPECT_EQ(window.Closes(), 0);
    StartWithLamp();
    ExpectWorkingScene();
    Close();
    EXPECT_TRUE(WaitUntil([this] { return window.Closes() == 1; }));
  }

  std::optional<HostWindow> ownWindow{std::in_place};
};

TEST_F(DestroyedHostWindow, during_the_start_does_not_affect_the_engine) {
  StartWithOwnWindow();
  ownWindow.reset();
  WaitForWindow();
  WaitForLamp();
  ExpectCloseAndNewStart();
}

TEST_F(DestroyedHostWindow, while_the_scene_runs_does_not_affect_the_engine) {
  StartWithOwnWindow();
  WaitForWindow();
  WaitForLamp();
  ownWindow.reset();
  ExpectWorkingScene();
  ExpectCloseAndNewStart();
}

TEST_F(DestroyedHostWindow, during_the_close_does_not_affect_the_engine) {
  StartWithOwnWindow();
  WaitForWindow();
  library.exit();
  ownWindow.reset();
  ExpectCloseAndNewStart();
}

// Programs that embed the engine's window make it a child of one of their windows. The system then
// destroys it with its parent.
TEST_F(DestroyedHostWindow, that_is_the_parent_of_the_engine_window_closes_the_engine) {
  StartWithLamp();
  HWND parent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 800, 700,
                                nullptr, nullptr, nullptr, nullptr);
  SetWindowLongPtrA(engineWindow, GWL_STYLE, WS_CHILD | WS_VISIBLE);
  ASSERT_NE(SetParent(engineWindow, parent), nullptr);
  EXPECT_TRUE(IsWindowResponding());
  ExpectWorkingScene();
  EXPECT_NE(DestroyWindow(parent), 0);
  ExpectClosed();
}

// ---- The engine's window ----

TEST_F(HostileWindow, moved_minimised_hidden_and_disabled_keeps_working) {
  StartWithLamp();
  SetWindowPos(engineWindow, nullptr, -2000, 3000, 10, 10, SWP_NOZORDER);
  ShowWindow(engineWindow, SW_MINIMIZE);
  ShowWindow(engineWindow, SW_HIDE);
  EnableWindow(engineWindow, FALSE);
  EXPECT_TRUE(IsWindowResponding());
  for (int count = 0; count < 10; ++count) PressKey('R');
  EnableWindow(engineWindow, TRUE);
  ShowWindow(engineWindow, SW_RESTORE);
  SetWindowPos(engineWindow, nullptr, 100, 50, 726, 607, SWP_NOZORDER);
  ExpectWorkingScene();
}

class ChangedWindow : public HostileWindow, public testing::WithParamInterface<const char*> {
 protected:
  void Change() const {
    const std::string change = GetParam();
    if (change == "moved_away") SetWindowPos(engineWindow, nullptr, -9000, 9000, 0, 0, 0);
    if (change == "minimised") ShowWindow(engineWindow, SW_MINIMIZE);
    if (change == "hidden") ShowWindow(engineWindow, SW_HIDE);
    if (change == "disabled") EnableWindow(engineWindow, FALSE);
  }
};

INSTANTIATE_TEST_SUITE_P(, ChangedWindow,
                         testing::Values("moved_away", "minimised", "hidden", "disabled"),
                         [](const auto& change) { return std::string(change.param); });

TEST_P(ChangedWindow, still_closes) {
  StartWithLamp();
  Change();
  library.exit();
  ExpectClosed();
}

// The system's own loops for moving the window and for its menu receive all messages of the thread,
// including the one that ends the engine's loop.
class ModalLoop : public HostileWindow, public testing::WithParamInterface<WPARAM> {};

INSTANTIATE_TEST_SUITE_P(, ModalLoop, testing::Values(SC_MOVE, SC_KEYMENU, SC_MOUSEMENU),
                         [](const auto& command) {
                           switch (command.param) {
                           case SC_MOVE: return "moving";
                           case SC_KEYMENU: return "menu_by_key";
                           default: return "menu_by_mouse";
                           }
                         });

TEST_P(ModalLoop, of_the_window_does_not_prevent_the_close) {
  StartWithLamp();
  Post(WM_SYSCOMMAND, GetParam());
  EXPECT_TRUE(IsWindowResponding());
  library.exit();
  ExpectClosed();
}

TEST_F(HostileWindow, closed_twice_closes_once) {
  StartWithLamp();
  Post(WM_CLOSE);
  Post(WM_CLOSE);
  ExpectClosed();
}

TEST_F(HostileWindow, with_a_posted_quit_message_closes) {
  StartWithLamp();
  Post(WM_QUIT);
  ExpectClosed();
}

TEST_F(HostileWindow, whose_thread_receives_a_quit_message_closes) {
  StartWithLamp();
  PostThreadMessageA(EngineThread(), WM_QUIT, 0, 0);
  ExpectClosed();
}

TEST_F(HostileWindow, that_another_thread_reports_destroyed_closes) {
  StartWithLamp();
  SendMessageA(engineWindow, WM_DESTROY, 0, 0);
  ExpectClosed();
}

// ---- Floods ----

// Any message that a program may send by mistake. Excludes those with a defined effect (closing,
// restarting, setting a timer) and those that carry pointers.
struct ForeignMessage {
  UINT number;
  WPARAM wParam;
};

ForeignMessage AnyMessage(SeededRandom& random) {
  switch (random.Between(1, 4)) {
  case 1: return {WM_PAINT, 0};
  case 2: return {WM_TIMER, static_cast<WPARAM>(random.Between(100, INT_MAX))};
  case 3: return {WM_KEYDOWN, static_cast<WPARAM>(random.Between(0, 255))};
  default:
    return {static_cast<UINT>(random.Between(WM_USER, 0x7FFF)),
            static_cast<WPARAM>(random.Between(INT_MIN, INT_MAX))};
  }
}

// Posts and sends messages to a window from a thread of its own, until the object is destroyed.
class Flood {
 public:
  Flood(HWND window, std::uint32_t seed)
      : thread_([this, window, seed] {
          SeededRandom random(seed);
          while (!isOver_) {
            const ForeignMessage message = AnyMessage(random);
            if (random.OneIn(2)) {
              PostMessageA(window, message.number, message.wParam, 0);
            } else {
              SendMessageTimeoutA(window, message.number, message.wParam, 0, SMTO_NORMAL, 1000,
                                  nullptr);
            }
            ++count_;
          }
        }) {}
  ~Flood() {
    isOver_ = true;
    thread_.join();
  }
  Flood(const Flood&) = delete;
  Flood& operator=(const Flood&) = delete;

  [[nodiscard]] int Count() const { return count_; }

 private:
  std::atomic<bool> isOver_ = false;
  std::atomic<int> count_ = 0;
  std::thread thread_;
};

class FloodedWindow : public HostileWindow {
 protected:
  const std::uint32_t seed = Seed(3);
};

TEST_F(FloodedWindow, works_afterwards) {
  constexpr int kMessages = 400;
  SCOPED_TRACE("seed " + std::to_string(seed));
  StartWithLamp();
  SeededRandom random(seed);
  for (int count = 0; count < kMessages; ++count) {
    const ForeignMessage message = AnyMessage(random);
    if (random.OneIn(2)) {
      Post(message.number, message.wParam);
    } else {
      SendMessageA(engineWindow, message.number, message.wParam, 0);
    }
  }
  EXPECT_TRUE(IsWindowResponding());
  // The keys may have left Ctrl and Alt down.
  Post(WM_KILLFOCUS);
  ExpectWorkingScene();
}

TEST_F(FloodedWindow, closes_during_the_flood) {
  constexpr int kMessages = 500;
  SCOPED_TRACE("seed " + std::to_string(seed));
  StartWithLamp();
  {
    const Flood first(engineWindow, seed);
    const Flood second(engineWindow, seed + 1);
    ASSERT_TRUE(WaitUntil([&] { return first.Count() + second.Count() > kMessages; }));
    library.exit();
    WaitForClosed();
    library.waitForClose();
  }
  ExpectClosed();
}

}  // namespace
}  // namespace korvel::test
