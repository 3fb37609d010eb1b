// Tests the four exported functions and the engine's calls of the host object.
#include <gmock/gmock.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "windows/library/engine_fixture.h"
#include "windows/support/imports.h"

namespace korvel::test {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

class Boundary : public Engine {
 protected:
  // Starts with a host that never supplies the start-up application, so that the worker keeps
  // requesting it.
  void StartWaitingForFile() {
    host.SetResult("a", kMHEG5FileNotYetAvailable);
    Start();
    WaitForRead("a");
  }
  void WaitForClosed(int closes = 1) {
    ASSERT_TRUE(WaitUntil([&] { return window.Closes() == closes; }));
  }
};

TEST_F(Boundary, a_start_without_a_host_object_fails) {
  const int threads = CountThreads();
  EXPECT_EQ(library.run(nullptr, window.Handle()), 1U);
  EXPECT_EQ(CountThreads(), threads);
  EXPECT_EQ(FindEngineWindow(), nullptr);
}

TEST_F(Boundary, a_start_without_a_function_table_fails) {
  const int threads = CountThreads();
  MHEG5Host other = {nullptr};
  EXPECT_EQ(library.run(&other, window.Handle()), 1U);
  EXPECT_EQ(CountThreads(), threads);
  StartWaitingForFile();
}

TEST_F(Boundary, a_start_without_a_function_that_the_engine_calls_fails) {
  using Removal = void (*)(MHEG5HostTable&);
  constexpr Removal kRemovals[] = {[](MHEG5HostTable& table) { table.AddRef = nullptr; },
                                   [](MHEG5HostTable& table) { table.Release = nullptr; },
                                   [](MHEG5HostTable& table) { table.ReadFile = nullptr; },
                                   [](MHEG5HostTable& table) { table.FreeBuffer = nullptr; },
                                   [](MHEG5HostTable& table) { table.SetExitCallback = nullptr; }};
  const int threads = CountThreads();
  for (const Removal remove : kRemovals) {
    RecordingHost other;
    MHEG5HostTable table = *other.table;
    remove(table);
    other.table = &table;
    ASSERT_EQ(library.run(&other, window.Handle()), 1U);
    EXPECT_TRUE(other.Calls().empty());
    EXPECT_EQ(CountThreads(), threads);
  }
  StartWaitingForFile();
}

TEST_F(Boundary, a_start_without_the_functions_that_the_engine_never_calls_is_accepted) {
  MHEG5HostTable table = *host.table;
  table.QueryInterface = nullptr;
  table.HostOwn3 = table.HostOwn4 = table.HostOwn5 = nullptr;
  table.HostOwn8 = table.HostOwn9 = table.HostOwn10 = nullptr;
  host.table = &table;
  StartWaitingForFile();
  Close();
}

TEST_F(Boundary, a_second_start_fails_while_an_engine_exists) {
  StartWaitingForFile();
  RecordingHost other;
  EXPECT_EQ(library.run(&other, window.Handle()), 1U);
  EXPECT_TRUE(other.Calls().empty());
}

TEST_F(Boundary, a_start_fails_while_the_engine_is_closing) {
  std::atomic<bool> mayReturn = false;
  host.onCall = [&](const std::string& name) {
    if (name == "ReadFile a") static_cast<void>(WaitUntil([&] { return mayReturn.load(); }));
  };
  Start();
  WaitForRead("a");
  library.exit();
  RecordingHost other;
  EXPECT_EQ(library.run(&other, window.Handle()), 1U);
  EXPECT_TRUE(other.Calls().empty());
  mayReturn = true;
  WaitForClosed();
}

TEST_F(Boundary, the_other_functions_do_nothing_before_a_start) {
  const int threads = CountThreads();
  EXPECT_EQ(library.exit(), 0U);
  EXPECT_EQ(library.reStart(), 0U);
  EXPECT_EQ(library.waitForClose(), 0U);
  EXPECT_EQ(CountThreads(), threads);
  EXPECT_EQ(FindEngineWindow(), nullptr);
  MSG message;
  EXPECT_EQ(PeekMessageA(&message, nullptr, WM_CLOSE, WM_CLOSE, PM_REMOVE), 0);
}

TEST_F(Boundary, only_the_exit_code_closes_through_the_callback) {
  StartWaitingForFile();
  const MHEG5ExitCallback callback = host.ExitCallback();
  ASSERT_NE(callback, nullptr);
  for (const int code : {0, 999, 1001, -1}) callback(static_cast<std::uint32_t>(code));
  const int reads = ReadsOf("a");
  WaitForRead("a", reads + 2);
  EXPECT_EQ(window.Closes(), 0);
  callback(kMHEG5ExitCode);
  WaitForClosed();
}

TEST_F(Boundary, a_file_that_is_not_available_yet_is_requested_until_the_close) {
  StartWaitingForFile();
  WaitForRead("a", 4);
  library.exit();
  WaitForClosed();
  const auto calls = host.Calls();
  std::vector<HostCall> reads;
  for (const HostCall& call : calls) {
    if (call.name == "ReadFile a") reads.push_back(call);
  }
  EXPECT_LE(reads.size(), 5U);
  for (std::size_t index = 1; index < reads.size(); ++index) {
    EXPECT_GE(reads[index].time - reads[index - 1].time, 480ms);
  }
  EXPECT_EQ(ReadsOf("startup"), 0) << "the first name has not failed yet";
}

TEST_F(Boundary, the_host_object_is_retained_and_released_in_order) {
  host.Serve("a", "no group");
  std::atomic<int> closesBeforeRelease = -1;
  host.onCall = [&](const std::string& name) {
    if (name == "Release") closesBeforeRelease = window.Closes();
  };
  Start();
  WaitForRead("a");
  library.exit();
  WaitForClosed();
  EXPECT_THAT(host.Names(), ElementsAre("AddRef", "SetExitCallback", "ReadFile a", "FreeBuffer",
                                        "SetExitCallback null", "Release"));
  EXPECT_EQ(closesBeforeRelease, 0);
  EXPECT_EQ(window.UnexpectedMessages(), 0);
}

TEST_F(Boundary, the_host_object_is_called_on_the_documented_threads) {
  host.Serve("a", "no group");
  Start();
  WaitForRead("a");
  Close();
  const auto calls = host.Calls();
  ASSERT_EQ(calls.size(), 6U);
  const DWORD own = GetCurrentThreadId();
  const DWORD worker = calls[2].thread;
  EXPECT_NE(worker, own);
  for (std::size_t index = 0; index < calls.size(); ++index) {
    EXPECT_EQ(calls[index].thread, index < 2 ? own : worker) << calls[index].name;
  }
}

TEST_F(Boundary, only_successful_reads_release_a_buffer) {
  ServeScene("");
  host.Serve("startup", "never read");
  Start();
  WaitForRead("s");
  ASSERT_TRUE(WaitUntil([this] { return host.CountOf("FreeBuffer") == 2; }));
  Close();
  EXPECT_EQ(host.CountOf("FreeBuffer"), 2);
}

TEST_F(Boundary, missing_start_up_files_are_read_twice) {
  Start();
  WaitForRead("startup", 2);
  Close();
  const auto calls = host.Calls();
  ASSERT_GE(calls.size(), 6U);
  EXPECT_EQ(ReadsOf("a"), 2);
  EXPECT_EQ(ReadsOf("startup"), 2);
  EXPECT_GE(calls[4].time - calls[3].time, 480ms) << "the pause between the passes";
}

TEST_F(Boundary, a_missing_host_window_is_accepted) {
  host.SetResult("a", kMHEG5FileNotYetAvailable);
  ASSERT_EQ(library.run(&host, nullptr), 0U);
  WaitForWindow();
  Close();
  EXPECT_EQ(window.Closes(), 0);
}

TEST_F(Boundary, the_engine_starts_again_from_the_handler_of_the_closed_message) {
  constexpr int kCycles = 100;
  host.SetResult("a", kNoSuchFile);
  host.SetResult("startup", kNoSuchFile);
  int failedStarts = 0;
  window.onClosed = [&] {
    if (window.Closes() < kCycles && library.run(&host, window.Handle()) != 0) ++failedStarts;
  };
  ASSERT_EQ(library.run(&host, window.Handle()), 0U);
  EXPECT_TRUE(WaitUntil(
      [&] {
        library.exit();
        return window.Closes() == kCycles || failedStarts > 0;
      },
      100s));
  EXPECT_EQ(failedStarts, 0);
  EXPECT_EQ(host.CountOf("AddRef"), kCycles);
}

TEST_F(Boundary, a_restart_request_closes_the_engine_as_an_exit_does) {
  StartWaitingForFile();
  EXPECT_EQ(library.reStart(), 0U);
  WaitForClosed();
  EXPECT_EQ(library.waitForClose(), 0U);
  EXPECT_EQ(library.run(&host, window.Handle()), 0U);
  WaitForWindow();
}

TEST_F(Boundary, waiting_for_the_close_inside_a_host_function_returns_at_once) {
  std::atomic<int> returned = 0;
  host.onCall = [&](const std::string& name) {
    if (name == "HostOwn") return;
    if (library.waitForClose() == 0) ++returned;
  };
  host.Serve("a", "no group");
  Start();
  WaitForRead("a");
  library.exit();
  WaitForClosed();
  EXPECT_EQ(returned, 6) << "once for each call of the host object";
}

TEST_F(Boundary, the_functions_may_be_called_from_inside_the_start) {
  host.SetResult("a", kMHEG5FileNotYetAvailable);
  host.onCall = [&](const std::string& name) {
    if (name != "AddRef" && name != "SetExitCallback") return;
    RecordingHost other;
    EXPECT_EQ(library.run(&other, window.Handle()), 1U);
    EXPECT_EQ(library.exit(), 0U);
  };
  Start();
  WaitForRead("a", 2);
}

TEST_F(Boundary, waiting_for_the_close_handles_messages_sent_to_the_waiting_thread) {
  StartWaitingForFile();
  std::atomic<bool> isHandled = false;
  host.onCall = [&](const std::string& name) {
    if (name != "SetExitCallback null") return;
    SendMessageA(window.Handle(), WM_NULL, 0, 0);
    isHandled = true;
  };
  library.exit();
  EXPECT_EQ(library.waitForClose(), 0U);
  EXPECT_TRUE(isHandled);
  EXPECT_EQ(host.HeldReferences(), 0);
  EXPECT_EQ(window.Closes(), 0) << "the posted message is still in the queue";
  WaitForClosed();
}

std::atomic<bool> isAnswered;

// A message is new to the system's waits only until its thread has looked at its queue.
TEST_F(Boundary, waiting_for_the_close_answers_sent_messages_that_the_thread_has_already_seen) {
  StartWaitingForFile();
  isAnswered = false;
  host.onCall = [this](const std::string& name) {
    if (name != "SetExitCallback null") return;
    SendMessageA(window.Handle(), WM_NULL, 0, 0);
    isAnswered = true;
  };
  library.exit();
  const ULONGLONG end = GetTickCount64() + kWaitLimit.count();
  while ((HIWORD(GetQueueStatus(QS_SENDMESSAGE)) & QS_SENDMESSAGE) == 0) {
    ASSERT_LT(GetTickCount64(), end);
    Sleep(1);
  }
  EXPECT_EQ(library.waitForClose(), 0U);
  EXPECT_TRUE(isAnswered);
  WaitForClosed();
}

std::atomic<int> createdThreads;
std::atomic<int> threadsWhenShown;

HANDLE WINAPI CountThread(SECURITY_ATTRIBUTES* attributes, SIZE_T stackBytes,
                          LPTHREAD_START_ROUTINE start, void* context, DWORD flags, DWORD* id) {
  ++createdThreads;
  return CreateThread(attributes, stackBytes, start, context, flags, id);
}

BOOL WINAPI NoteThreads(HWND window, int command) {
  const BOOL wasVisible = ShowWindow(window, command);
  threadsWhenShown = createdThreads.load();
  return wasVisible;
}

// The first painting of a window erases it, and with it what the worker has painted before.
TEST_F(Boundary, the_window_is_shown_before_the_worker_exists) {
  createdThreads = threadsWhenShown = 0;
  const HMODULE module = GetModuleHandleA("korvel.dll");
  const ReplacedImport threads(module, "CreateThread", CountThread);
  const ReplacedImport shown(module, "ShowWindow", NoteThreads);
  ASSERT_TRUE(threads.IsInPlace() && shown.IsInPlace());
  StartWaitingForFile();
  Close();
  EXPECT_EQ(threadsWhenShown, 1) << "the engine thread";
  EXPECT_EQ(createdThreads, 2);
}

BOOL WINAPI CloseWhileShowing(HWND window, int command) {
  SendMessageA(window, WM_CLOSE, 0, 0);
  return ShowWindow(window, command);
}

TEST_F(Boundary, a_close_that_is_sent_while_the_window_is_shown_ends_the_start) {
  createdThreads = 0;
  const HMODULE module = GetModuleHandleA("korvel.dll");
  const ReplacedImport threads(module, "CreateThread", CountThread);
  const ReplacedImport shown(module, "ShowWindow", CloseWhileShowing);
  ASSERT_TRUE(threads.IsInPlace() && shown.IsInPlace());
  EXPECT_EQ(library.run(&host, window.Handle()), 0U);
  WaitForClosed();
  EXPECT_EQ(createdThreads, 1) << "no worker";
  EXPECT_EQ(host.CountOf("ReadFile a"), 0);
  EXPECT_EQ(host.HeldReferences(), 0);
}

std::atomic<bool> hasPostedToItself;

BOOL WINAPI RestartThenDestroyWindow(HWND window) {
  TheLibrary().reStart();
  MSG message;
  HWND const none = reinterpret_cast<HWND>(-1);  // finds the messages that belong to no window
  hasPostedToItself = PeekMessageA(&message, none, WM_CLOSE, WM_CLOSE, PM_NOREMOVE) != 0;
  return DestroyWindow(window);
}

TEST_F(Boundary, a_restart_request_during_the_close_posts_nothing_to_its_caller) {
  StartWaitingForFile();
  hasPostedToItself = true;
  const ReplacedImport hook(GetModuleHandleA("korvel.dll"), "DestroyWindow",
                            RestartThenDestroyWindow);
  ASSERT_TRUE(hook.IsInPlace());
  Close();
  EXPECT_FALSE(hasPostedToItself);
}

TEST_F(Boundary, every_waiting_thread_returns_when_the_engine_has_closed) {
  StartWaitingForFile();
  std::atomic<int> returned = 0;
  std::vector<std::thread> waiters;
  for (int count = 0; count < 4; ++count) {
    waiters.emplace_back([&] {
      library.waitForClose();
      if (host.HeldReferences() == 0 && FindEngineWindow() == nullptr) ++returned;
    });
  }
  library.exit();
  for (std::thread& waiter : waiters) waiter.join();
  EXPECT_EQ(returned, 4);
}

// A thread that has ended can still be opened by its id while any handle to it exists.
TEST_F(Boundary, no_handle_of_the_threads_is_left_when_the_host_never_waits) {
  StartWaitingForFile();
  const DWORD engineThread = GetWindowThreadProcessId(engineWindow, nullptr);
  const DWORD worker = host.Calls().back().thread;
  const auto canBeOpened = [](DWORD id) {
    HANDLE thread = OpenThread(SYNCHRONIZE, FALSE, id);
    if (thread != nullptr) CloseHandle(thread);
    return thread != nullptr;
  };
  EXPECT_TRUE(canBeOpened(engineThread));
  EXPECT_TRUE(canBeOpened(worker));
  library.exit();
  WaitForClosed();
  EXPECT_TRUE(WaitUntil([&] { return !canBeOpened(worker); }));
  EXPECT_TRUE(WaitUntil([&] { return !canBeOpened(engineThread); }));
}

// Loads a copy of the library under another name, so that this test holds its only reference.
TEST_F(Boundary, the_library_may_be_unloaded_in_the_handler_of_the_closed_message) {
  constexpr const char* kCopy = "korvel_unloaded.dll";
  ASSERT_NE(CopyFileA("korvel.dll", kCopy, FALSE), 0);
  for (int run = 1; run <= 5; ++run) {
    const HMODULE module = LoadLibraryA(kCopy);
    ASSERT_NE(module, nullptr);
    const Library copy = FindFunctions(module);
    window.onClosed = [module] { FreeLibrary(module); };
    ASSERT_EQ(copy.run(&host, window.Handle()), 0U);
    WaitForWindow();
    copy.exit();
    WaitForClosed(run);
    EXPECT_TRUE(WaitUntil([&] { return GetModuleHandleA(kCopy) == nullptr; }));
  }
  DeleteFileA(kCopy);
}

TEST(BoundaryDeathTest, the_process_may_end_while_the_engine_runs) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  constexpr int kExitStatus = 7;
  EXPECT_EXIT(
      {
        RecordingHost host;
        host.SetResult("a", kMHEG5FileNotYetAvailable);
        TheLibrary().run(&host, nullptr);
        static_cast<void>(WaitUntil([&] { return host.CountOf("ReadFile a") > 0; }));
        std::exit(kExitStatus);
      },
      testing::ExitedWithCode(kExitStatus), "");
}

TEST_F(Boundary, the_engine_runs_on_two_threads_of_its_own_and_ends_both) {
  for (int run = 0; run < 3; ++run) {
    const int reads = ReadsOf("a");
    host.SetResult("a", kMHEG5FileNotYetAvailable);
    Start();
    WaitForRead("a", reads + 1);
    const int threads = CountThreads();
    Close();
    EXPECT_TRUE(WaitUntil([&] { return CountThreads() == threads - 2; })) << CountThreads();
  }
}

}  // namespace
}  // namespace korvel::test
