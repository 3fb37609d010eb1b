// Tests the hook on the engine window's thread, which reports the keys that the window receives.
#include "player/engine_watch.h"

#include <gtest/gtest.h>

namespace player::test {

class EngineWatchTest : public testing::Test {
 protected:
  EngineWatchTest()
      : window_(CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                                nullptr)) {
    EXPECT_TRUE(WatchWindow(window_));
    static_cast<void>(TakeKeys());
    static_cast<void>(TakeReloadRequest());
  }
  ~EngineWatchTest() override { DestroyWindow(window_); }

  void Press(WPARAM virtualKey) {
    PostMessageA(window_, WM_KEYDOWN, virtualKey, 1);
    PostMessageA(window_, WM_KEYUP, virtualKey, 1);
    MSG message = {};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessageA(&message);
  }

 private:
  HWND window_;
};

TEST_F(EngineWatchTest, keys_are_taken_once_in_order_with_their_times) {
  const ULONGLONG before = GetTickCount64();
  Press('R');
  Press(VK_DOWN);
  const std::vector<KeyPress> keys = TakeKeys();
  ASSERT_EQ(keys.size(), 2U);
  EXPECT_EQ(keys[0].virtualKey, 82U);
  EXPECT_EQ(keys[1].virtualKey, 40U);
  EXPECT_GE(keys[0].time, before);
  EXPECT_LE(keys[1].time, GetTickCount64());
  EXPECT_TRUE(TakeKeys().empty());
}

TEST_F(EngineWatchTest, f5_requests_one_reload) {
  EXPECT_FALSE(TakeReloadRequest());
  Press('R');
  EXPECT_FALSE(TakeReloadRequest());
  Press(VK_F5);
  EXPECT_TRUE(TakeReloadRequest());
  EXPECT_FALSE(TakeReloadRequest());
}

}  // namespace player::test
