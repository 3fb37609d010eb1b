// Tests that a close request, whenever it arrives, is handled before all other queued work and is
// never undone. Also tests when the window paints.
#include <gmock/gmock.h>

#include <atomic>
#include <memory>
#include <optional>
#include <thread>

#include "host/host_state.h"
#include "host/threads.h"
#include "platform/running.h"
#include "presentation/presentation.h"
#include "windows/host/host_threads.h"

namespace korvel::test {
namespace {

constexpr WPARAM kEnter = 13;

class Closing : public HostThreads {};

bool IsStartAccepted() {
  const StateLocked locked;
  return hostState.phase == Phase::Idle;
}

// Polls without pausing, so that it returns while the engine thread is probably still in its last
// calls.
void SpinUntilStartIsAccepted() {
  const ULONGLONG end = GetTickCount64() + kWaitLimit.count();
  while (!IsStartAccepted()) ASSERT_LT(GetTickCount64(), end);
}

TEST_F(Closing, overtakes_a_hundred_queued_keys) {
  Start();
  std::atomic<bool> isFirstKeyHandled = false;
  substitutes.onRaise = [&isFirstKeyHandled](std::int32_t) {
    isFirstKeyHandled = true;
    EXPECT_TRUE(WaitUntil(IsClosing));
  };
  PostKeys({kEnter});
  EXPECT_TRUE(WaitUntil([&isFirstKeyHandled] { return isFirstKeyHandled.load(); }));
  for (int count = 0; count < 100; ++count) PostKeys({kEnter});
  Post(WM_CLOSE);
  WaitForLine("CloseDown");
  Close();
  EXPECT_EQ(Raised().size(), 1U);
  EXPECT_EQ(journal.CountOf("BeginWork"), 3) << "for the start, the first key and the close";
}

TEST_F(Closing, drops_a_restart_that_is_queued_after_it) {
  Start();
  substitutes.onRaise = [](std::int32_t) {
    PostMessageA(FindEngineWindow(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil(IsClosing));
    SendMessageA(FindEngineWindow(), kRestartAfterTune, 0, 0);
    SendMessageA(FindEngineWindow(), kRestartAfterQuit, 0, 0);
  };
  PostKeys({kEnter});
  EXPECT_TRUE(WaitUntil([this] { return window.Closes() == 1; }));
  EXPECT_EQ(journal.CountOf("StartEngine "), 1);
  EXPECT_EQ(journal.CountOf("CloseDown"), 1);
}

TEST_F(Closing, before_the_worker_sets_the_running_flag_is_not_undone) {
  bool mayRun = true;
  substitutes.onLine = [](const std::string& line) {
    if (line == "OpenPresentation") ExitMHEG5();
  };
  substitutes.onStartEngine = [&] {
    mayRun = MayRun();
    return Status::Refused;
  };
  StartWithoutWaiting();
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  EXPECT_FALSE(mayRun);
}

// A successful start sets the running flag, even if a close has just cleared it. The engine must
// close all the same.
class ClosingDuringStart : public Closing {
 protected:
  void CloseInNextStart() {
    substitutes.onStartEngine = [] {
      PostMessageA(FindEngineWindow(), WM_CLOSE, 0, 0);
      EXPECT_TRUE(WaitUntil(IsClosing));
      return Status::Done;
    };
    substitutes.onLine = [this](const std::string& line) {
      if (line == "CloseDown") mayRunAfterwards = MayRun();
    };
  }
  void ExpectClose() {
    EXPECT_TRUE(WaitUntil([this] { return window.Closes() == 1; }));
    EXPECT_EQ(mayRunAfterwards, false);
  }

  std::optional<bool> mayRunAfterwards;
};

TEST_F(ClosingDuringStart, is_not_undone_by_the_success_of_the_first_start) {
  CloseInNextStart();
  StartWithoutWaiting();
  ExpectClose();
}

TEST_F(ClosingDuringStart, is_not_undone_by_the_success_of_a_restart) {
  Start();
  CloseInNextStart();
  Post(kRestartAfterQuit);
  ExpectClose();
}

TEST_F(Closing, paints_the_window_for_the_worker_while_it_waits_for_the_worker) {
  Start();
  bool isPainted = false;
  substitutes.onLine = [&](const std::string& line) {
    if (line != "CloseDown") return;
    const HWND engineWindow = FindEngineWindow();
    InvalidateRect(engineWindow, nullptr, FALSE);
    isPainted = UpdateWindow(engineWindow) != 0;
  };
  Post(WM_CLOSE);
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  EXPECT_TRUE(isPainted);
  EXPECT_EQ(journal.CountOf("CloseScreen"), 1);
}

TEST_F(Closing, is_not_repeated_by_a_second_request_while_the_first_waits) {
  Start();
  substitutes.onLine = [](const std::string& line) {
    if (line == "CloseDown") SendMessageA(FindEngineWindow(), WM_CLOSE, 0, 0);
  };
  Post(WM_CLOSE);
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  EXPECT_EQ(journal.CountOf("CloseDown"), 1);
  EXPECT_EQ(host.CountOf("Release"), 1);
}

TEST_F(Closing, happens_in_order_when_a_quit_message_ends_the_loop) {
  Start();
  PostThreadMessageA(GetWindowThreadProcessId(FindEngineWindow(), nullptr), WM_QUIT, 0, 0);
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  EXPECT_EQ(journal.CountOf("CloseDown"), 1);
  EXPECT_EQ(FindEngineWindow(), nullptr);
  EXPECT_EQ(host.HeldReferences(), 0);
  MHEG5WaitForClose();
  journal.Clear();
  Start();
}

TEST_F(Closing, releases_the_host_when_the_window_cannot_be_created) {
  WNDCLASSA taken = {};
  taken.lpfnWndProc = DefWindowProcA;
  taken.hInstance = GetModuleHandleA(nullptr);
  taken.lpszClassName = "MHEG5 Window";
  ASSERT_NE(RegisterClassA(&taken), 0);
  StartWithoutWaiting();
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  MHEG5WaitForClose();
  EXPECT_EQ(journal.CountOf("OpenPresentation"), 0);
  EXPECT_THAT(host.Names(),
              testing::ElementsAre("AddRef", "SetExitCallback", "SetExitCallback null", "Release"));
  UnregisterClassA("MHEG5 Window", taken.hInstance);
  Start();
}

TEST_F(Closing, through_the_window_needs_no_request_from_the_host) {
  Start();
  Post(WM_SYSCOMMAND, SC_CLOSE);
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  EXPECT_EQ(host.HeldReferences(), 0);
  EXPECT_EQ(ExitMHEG5(), 0U);
  EXPECT_EQ(MHEG5WaitForClose(), 0U);
}

// A late wait is a call of MHEG5WaitForClose when the next start would already be accepted. After
// it the host may end the process, which under Wine can crash if a thread is still ending.
TEST_F(Closing, lets_a_late_wait_return_only_after_the_thread_has_ended) {
  for (int round = 0; round < 20; ++round) {
    journal.Clear();
    Start();
    HANDLE thread =
        OpenThread(SYNCHRONIZE, FALSE, GetWindowThreadProcessId(FindEngineWindow(), nullptr));
    ExitMHEG5();
    SpinUntilStartIsAccepted();
    MHEG5WaitForClose();
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_OBJECT_0);
    CloseHandle(thread);
  }
}

// The system reuses the ids of ended threads.
TEST_F(Closing, lets_a_late_wait_return_if_another_thread_has_the_id) {
  Start();
  Close();
  std::atomic<bool> mayEnd = false;
  std::atomic<DWORD> otherId = 0;
  std::thread other([&] {
    otherId = GetCurrentThreadId();
    EXPECT_TRUE(WaitUntil([&] { return mayEnd.load(); }));
  });
  EXPECT_TRUE(WaitUntil([&] { return otherId != 0; }));
  {
    const StateLocked locked;
    hostState.lastThread.id = otherId;
  }
  std::atomic<bool> hasReturned = false;
  std::thread waiter([&] {
    MHEG5WaitForClose();
    hasReturned = true;
  });
  EXPECT_TRUE(WaitUntil([&] { return hasReturned.load(); }, std::chrono::seconds(5)));
  mayEnd = true;
  other.join();
  waiter.join();
}

TEST_F(Closing, skips_later_pauses) {
  Start();
  std::chrono::milliseconds paused{0};
  substitutes.onRaise = [&](std::int32_t) {
    ExitMHEG5();
    const auto start = std::chrono::steady_clock::now();
    PauseUnlessClosing(5000);
    paused = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - start);
  };
  PostKeys({kEnter});
  EXPECT_TRUE(WaitUntil([&] { return window.Closes() == 1; }));
  EXPECT_LT(paused.count(), 1000);
}

// The worker updates the window before, while and after the engine thread waits for the worker.
// Each engine receives several close requests, as from an impatient viewer.
TEST_F(Closing, never_hangs_while_the_worker_updates_the_window) {
  constexpr int kEngines = 250;
  constexpr int kRequests = 1000;
  int requests = 0;
  substitutes.onStartEngine = [] {
    const HWND engineWindow = FindEngineWindow();
    for (int afterwards = 0; afterwards < 3; afterwards += IsClosing() ? 1 : 0) {
      InvalidateRect(engineWindow, nullptr, FALSE);
      UpdateWindow(engineWindow);
    }
    return Status::Done;
  };
  window.onClosed = [this] {
    if (window.Closes() < kEngines) StartWithoutWaiting();
  };
  StartWithoutWaiting();
  EXPECT_TRUE(WaitUntil(
      [&] {
        const HWND engineWindow = FindEngineWindow();
        for (int request = 0; engineWindow != nullptr && request < 4; ++request) {
          if (PostMessageA(engineWindow, WM_CLOSE, 0, 0) != 0) ++requests;
        }
        return window.Closes() == kEngines;
      },
      std::chrono::seconds(100)));
  EXPECT_GE(requests, kRequests);
  EXPECT_EQ(host.HeldReferences(), 0);
}

class Painting : public HostThreads {};

TEST_F(Painting, shows_the_last_picture_while_the_engine_may_run) {
  Start();
  journal.Clear();
  InvalidateRect(FindEngineWindow(), nullptr, TRUE);
  WaitForLine("PaintWindow");
}

TEST_F(Painting, shows_nothing_while_the_running_flag_is_clear) {
  substitutes.onStartEngine = [] { return Status::Refused; };
  Start();
  EXPECT_FALSE(MayRun());
  journal.Clear();
  const HWND engineWindow = FindEngineWindow();
  InvalidateRect(engineWindow, nullptr, TRUE);
  EXPECT_TRUE(WaitUntil([&] { return GetUpdateRect(engineWindow, nullptr, FALSE) == 0; }));
  EXPECT_EQ(journal.CountOf("PaintWindow"), 0);
}

TEST_F(Painting, happens_once_for_each_exposure) {
  Start();
  const HWND engineWindow = FindEngineWindow();
  EXPECT_TRUE(WaitUntil([&] { return GetUpdateRect(engineWindow, nullptr, FALSE) == 0; }));
  // Returns after the painting that validated the window.
  SendMessageA(engineWindow, WM_NULL, 0, 0);
  journal.Clear();
  InvalidateRect(engineWindow, nullptr, TRUE);
  WaitForLine("PaintWindow");
  FinishPosted();
  EXPECT_EQ(journal.CountOf("PaintWindow"), 1);
}

TEST_F(Painting, an_exposure_during_a_painting_is_painted_too) {
  Start();
  const HWND engineWindow = FindEngineWindow();
  EXPECT_TRUE(WaitUntil([&] { return GetUpdateRect(engineWindow, nullptr, FALSE) == 0; }));
  SendMessageA(engineWindow, WM_NULL, 0, 0);
  journal.Clear();
  const auto remaining = std::make_shared<std::atomic<int>>(2);
  substitutes.onLine = [remaining, engineWindow](const std::string& line) {
    if (line == "PaintWindow" && (*remaining)-- > 0) InvalidateRect(engineWindow, nullptr, TRUE);
  };
  InvalidateRect(engineWindow, nullptr, TRUE);
  WaitForLine("PaintWindow", 3);
}

}  // namespace
}  // namespace korvel::test
