// Tests host objects whose reads fail, lie, block, take long, or call the engine back. The engine
// must work with the next good file, and must close exactly once.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

#include "support/text_content.h"
#include "windows/library/hostile_fixture.h"
#include "windows/support/seeded_random.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

// The key G reads the next scene.
constexpr const char* kNextScene =
    R"({:Link 9 :EventSource 0 :EventType UserInput :EventData 101
        :LinkEffect (:TransitionTo(("~/next" 0)))})";
constexpr WPARAM kNextSceneKey = 'G';

class HostileReads : public HostileHost {
 protected:
  void ServeLamp() { ServeScene(std::string(kLamp) + kNextScene); }
  void StartWithLamp() {
    ServeLamp();
    Start();
    WaitForLamp();
  }
  // Makes all reads of `path` wait inside the host until `isReleased` is set. Call before Start.
  void BlockReadsOf(const std::string& path) {
    host.onCall = [this, path](const std::string& name) {
      if (name != "ReadFile " + path) return;
      isBlocked = true;
      static_cast<void>(WaitUntil([this] { return isReleased.load(); }, 60s));
    };
  }
  void WaitUntilBlocked() {
    ASSERT_TRUE(WaitUntil([this] { return isBlocked.load(); }));
  }

  std::atomic<bool> isBlocked = false;
  std::atomic<bool> isReleased = false;
};

TEST_F(HostileReads, that_block_delay_the_close_but_nothing_else) {
  ServeLamp();
  BlockReadsOf("s");
  Start();
  WaitUntilBlocked();
  EXPECT_TRUE(IsWindowResponding());
  for (int count = 0; count < 50; ++count) PressKey(VK_RETURN);
  InvalidateRect(engineWindow, nullptr, TRUE);
  EXPECT_TRUE(WaitUntil([this] { return GetUpdateRect(engineWindow, nullptr, FALSE) == 0; }));

  EXPECT_EQ(library.exit(), 0U);
  EXPECT_EQ(library.reStart(), 0U);
  std::atomic<bool> hasWaited = false;
  std::thread waiter([&] {
    library.waitForClose();
    hasWaited = true;
  });
  EXPECT_TRUE(IsWindowResponding());
  EXPECT_EQ(library.run(&host, window.Handle()), 1U);
  EXPECT_FALSE(WaitUntil([&] { return window.Closes() > 0 || hasWaited; }, 300ms));
  EXPECT_TRUE(IsWindowResponding()) << "while it waits for the worker";
  EXPECT_NE(SendMessageTimeoutA(engineWindow, WM_CLOSE, 0, 0, SMTO_NORMAL, 2000, nullptr), 0);
  EXPECT_EQ(FindEngineWindow(), engineWindow);

  isReleased = true;
  WaitForClosed();
  waiter.join();
  EXPECT_EQ(host.HeldReferences(), 0);
  EXPECT_EQ(host.HeldBuffers(), 0);
}

TEST_F(HostileReads, that_take_long_delay_the_close_by_one_call) {
  ServeLamp();
  host.onCall = [this](const std::string& name) {
    if (!name.starts_with("ReadFile")) return;
    isBlocked = true;
    Sleep(1000);
  };
  Start();
  WaitUntilBlocked();
  const int reads = host.CountOf("ReadFile a");
  library.exit();
  WaitForClosed();
  EXPECT_EQ(host.CountOf("ReadFile a"), reads);
  EXPECT_EQ(ReadsOf("s"), 0) << "no file is read once a close was requested";
}

TEST_F(HostileReads, with_random_results_never_stop_the_engine) {
  constexpr int kReads = 5;
  const std::uint32_t seed = Seed(1);
  SCOPED_TRACE("seed " + std::to_string(seed));
  SeededRandom random(seed);
  StartWithLamp();
  for (int read = 0; read < kReads; ++read) {
    if (random.OneIn(3)) {
      const int reads = ReadsOf("next");
      host.SetResult("next", kMHEG5FileNotYetAvailable);
      PressKey(kNextSceneKey);
      WaitForRead("next", reads + 1);
      host.SetResult("next", kNoSuchFile);
    } else {
      host.SetResult("next", static_cast<std::uint32_t>(random.Between(2, INT_MAX)));
      PressKey(kNextSceneKey);
    }
    ExpectWorkingScene();
  }
  EXPECT_GE(ReadsOf("next"), kReads);
  host.ClearResult("next");
  ServeScene("next", kLamp);
  const int buffers = host.CountOf("FreeBuffer");
  PressKey(kNextSceneKey);
  ASSERT_TRUE(WaitUntil([&] { return host.CountOf("FreeBuffer") > buffers; }));
  ExpectWorkingScene();
}

// Only the last file contains the next scene, followed by surplus bytes.
TEST_F(HostileReads, of_another_file_each_time_never_stop_the_engine) {
  StartWithLamp();
  const std::string scene = CompileScene("next", kLamp);
  const std::vector<std::string> files = {
      "",
      std::string(1, '\0'),
      "no group",
      std::string(1'000'000, '\xFF'),
      std::string(1'000'000, '\0'),
      CompileText(R"({:Application ("~/next" 0)})"),
      scene.substr(0, scene.size() / 2),
      scene + scene,
  };
  std::atomic<std::size_t> nextFile = 0;
  host.onCall = [&](const std::string& name) {
    if (name == "ReadFile next") host.Serve("next", files.at(nextFile++ % files.size()));
  };
  for (std::size_t file = 0; file < files.size(); ++file) {
    PressKey(kNextSceneKey);
    WaitForRead("next", static_cast<int>(file) + 1);
    ASSERT_TRUE(IsWindowResponding());
  }
  Post(kRestartAfterQuit);
  WaitForRead("s", 2);
  WaitForLamp();
  ExpectWorkingScene();
}

TEST_F(HostileReads, of_zero_bytes_count_as_files_without_a_group) {
  host.Serve("a", "");
  Start();
  ASSERT_TRUE(WaitUntil([this] { return host.CountOf("FreeBuffer") == 1; }));
  EXPECT_TRUE(IsWindowResponding());
  Close();
  EXPECT_EQ(ReadsOf("a"), 1);
  StartWithLamp();
  ExpectWorkingScene();
}

// A host whose reads succeed and store a size, but no address, until `isTruthful` is set.
class LyingHost {
 public:
  explicit LyingHost(RecordingHost& host) : table_(*host.table) {
    original = host.table;
    reads = frees = 0;
    table_.ReadFile = ReadFile;
    table_.FreeBuffer = FreeBuffer;
    host.table = &table_;
  }

  static inline std::uint32_t storedSize = 0;
  static inline std::atomic<int> reads;
  static inline std::atomic<int> frees;
  static inline std::atomic<bool> isTruthful = false;

 private:
  static std::uint32_t KORVEL_CALL ReadFile(MHEG5Host* host, const char* path, void** data,
                                            std::uint32_t* size) {
    if (isTruthful) return original->ReadFile(host, path, data, size);
    ++reads;
    *data = nullptr;
    if (size != nullptr) *size = storedSize;
    return kMHEG5FileRead;
  }
  static void KORVEL_CALL FreeBuffer(MHEG5Host* host, void* data) {
    if (isTruthful) return original->FreeBuffer(host, data);
    ++frees;
    EXPECT_EQ(data, nullptr);
  }

  static inline const MHEG5HostTable* original = nullptr;
  MHEG5HostTable table_;
};

class SizesOfHostileReads : public HostileReads,
                            public testing::WithParamInterface<std::uint32_t> {};

INSTANTIATE_TEST_SUITE_P(, SizesOfHostileReads,
                         testing::Values(1U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU));

TEST_P(SizesOfHostileReads, without_an_address_count_as_missing_files) {
  LyingHost lyingHost(host);
  LyingHost::isTruthful = false;
  LyingHost::storedSize = GetParam();
  Start();
  ASSERT_TRUE(WaitUntil([] { return LyingHost::frees == 4; })) << "two names, read twice each";
  EXPECT_EQ(LyingHost::reads, 4);
  EXPECT_TRUE(IsWindowResponding());
  ServeLamp();
  LyingHost::isTruthful = true;
  Post(kRestartAfterQuit);
  WaitForLamp();
  ExpectWorkingScene();
  Close();
  host.table = RecordingHost().table;
}

// ---- Calls of the exported functions from inside a call of the host ----

class CallsInsideTheHost : public HostileReads, public testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(, CallsInsideTheHost,
                         testing::Values("ReadFile a", "ReadFile s", "FreeBuffer",
                                         "SetExitCallback null", "Release"),
                         [](const auto& call) {
                           std::string name = call.param;
                           std::ranges::replace(name, ' ', '_');
                           return name;
                         });

TEST_P(CallsInsideTheHost, of_every_function_close_the_engine_once) {
  ServeLamp();
  std::atomic<int> calls = 0;
  host.onCall = [&](const std::string& name) {
    if (name != GetParam()) return;
    CallEverything();
    ++calls;
  };
  ASSERT_EQ(library.run(&host, window.Handle()), 0U);
  WaitForRead("a");
  ASSERT_TRUE(WaitUntil([this] {
    library.exit();
    return window.Closes() > 0;
  }));
  library.waitForClose();
  EXPECT_GT(calls, 0);
  EXPECT_EQ(window.Closes(), 1);
  EXPECT_EQ(host.CountOf("Release"), 1);
  host.onCall = nullptr;
  StartWithLamp();
  ExpectWorkingScene();
}

// Programs that embed the engine's window subclass it.
WNDPROC engineProcedure = nullptr;
std::function<void()> onForeignMessage;
constexpr UINT kForeignMessage = WM_APP - 1;

LRESULT CALLBACK SubclassProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == kForeignMessage) {
    onForeignMessage();
    return 1;
  }
  return CallWindowProcA(engineProcedure, window, message, wParam, lParam);
}

class CallsInsideAHandler : public HostileReads {};

TEST_F(CallsInsideAHandler, of_a_message_to_the_engine_window_close_the_engine_once) {
  StartWithLamp();
  engineProcedure = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
      engineWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SubclassProcedure)));
  onForeignMessage = [this] { CallEverything(); };
  EXPECT_EQ(SendMessageA(engineWindow, kForeignMessage, 0, 0), 1);
  WaitForClosed();
  library.waitForClose();
  EXPECT_EQ(host.CountOf("Release"), 1);
  StartWithLamp();
  ExpectWorkingScene();
}

TEST_F(CallsInsideAHandler, of_the_closed_message_never_hang) {
  constexpr int kCycles = 20;
  ServeLamp();
  int failedStarts = 0;
  window.onClosed = [&] {
    library.exit();
    library.reStart();
    library.waitForClose();
    if (window.Closes() == kCycles) return;
    failedStarts += static_cast<int>(library.run(&host, window.Handle()));
    library.reStart();
    library.exit();
  };
  ASSERT_EQ(library.run(&host, window.Handle()), 0U);
  ASSERT_TRUE(WaitUntil([&] {
    library.exit();
    return window.Closes() == kCycles || failedStarts > 0;
  }));
  EXPECT_EQ(failedStarts, 0);
  EXPECT_EQ(host.CountOf("AddRef"), kCycles);
  EXPECT_EQ(host.CountOf("Release"), kCycles);
}

}  // namespace
}  // namespace korvel::test
