// Tests the engine's window: its style, its contents, and its reaction to keys and timers.
#include <gmock/gmock.h>

#include <array>
#include <atomic>

#include "windows/library/engine_fixture.h"
#include "windows/support/imports.h"

namespace korvel::test {
namespace {

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kForeign = RGB(1, 254, 3);  // no scene here contains it

constexpr WPARAM kEnter = 13;

// A rectangle that covers the top left quarter of the scene.
std::string FilledRectangle(int number, const std::string& colour, const std::string& more = "") {
  return "{:Rectangle " + std::to_string(number) +
         " :OrigBoxSize 360 288 :OrigPosition 0 0 :OrigRefFillColour '" + colour + "' " + more +
         "} ";
}

std::string LinkOnKey(int number, int key, const std::string& actions) {
  return "{:Link " + std::to_string(number) + " :EventSource 0 :EventType UserInput :EventData " +
         std::to_string(key) + " :LinkEffect (" + actions + ")} ";
}

class EngineWindowTest : public Engine {
 protected:
  // Samples the area of the fixed screens' texts and counts pixels in their colour.
  [[nodiscard]] int CountTextPixels() const {
    int count = 0;
    HDC deviceContext = GetDC(engineWindow);
    for (int y = 50; y < 130; y += 2) {
      for (int x = 50; x < 500; x += 2) {
        if (GetPixel(deviceContext, x, y) == RGB(0, 255, 0)) ++count;
      }
    }
    ReleaseDC(engineWindow, deviceContext);
    return count;
  }
  // The x coordinate of the right end of those texts.
  [[nodiscard]] int RightEndOfText() const {
    HDC deviceContext = GetDC(engineWindow);
    int end = 0;
    for (int y = 50; y < 130; y += 2) {
      for (int x = end; x < 720; ++x) {
        if (GetPixel(deviceContext, x, y) == RGB(0, 255, 0)) end = x;
      }
    }
    ReleaseDC(engineWindow, deviceContext);
    return end;
  }
  // Fills the window with a colour that only a new copy of the picture removes. Repeats this until
  // the colour remains, because the window may be about to show a copy.
  void PaintOver(COLORREF colour) const {
    ASSERT_TRUE(WaitUntil([&] {
      HDC deviceContext = GetDC(engineWindow);
      HBRUSH brush = CreateSolidBrush(colour);
      const RECT area = {0, 0, 720, 576};
      FillRect(deviceContext, &area, brush);
      DeleteObject(brush);
      ReleaseDC(engineWindow, deviceContext);
      return Shown(100, 100) == colour;
    }));
  }
};

TEST_F(EngineWindowTest, has_the_fixed_title_style_and_position) {
  host.SetResult("a", kMHEG5FileNotYetAvailable);
  Start();
  std::array<char, 64> title{};
  GetWindowTextA(engineWindow, title.data(), static_cast<int>(title.size()));
  EXPECT_STREQ(title.data(), "MHEG5 Window");
  EXPECT_EQ(GetWindowLongPtrA(engineWindow, GWL_STYLE) & (WS_CAPTION | WS_SYSMENU),
            WS_CAPTION | WS_SYSMENU);
  EXPECT_EQ(GetWindowLongPtrA(engineWindow, GWL_STYLE) & (WS_THICKFRAME | WS_MAXIMIZEBOX), 0);
  EXPECT_EQ(GetWindow(engineWindow, GW_OWNER), nullptr);
  RECT outer;
  GetWindowRect(engineWindow, &outer);
  EXPECT_EQ(outer.left, 100);
  EXPECT_EQ(outer.top, 50);
  EXPECT_EQ(outer.right - outer.left, 726);
  EXPECT_EQ(outer.bottom - outer.top, 607);
  RECT client;
  GetClientRect(engineWindow, &client);
  EXPECT_EQ(client.right, 720);
  EXPECT_EQ(client.bottom, 576);
  EXPECT_NE(GetClassLongPtrA(engineWindow, GCLP_HICON), 0U);
  EXPECT_EQ(GetClassLongPtrA(engineWindow, GCLP_HBRBACKGROUND),
            reinterpret_cast<ULONG_PTR>(GetStockObject(BLACK_BRUSH)));
  EXPECT_EQ(GetClassLongPtrA(engineWindow, GCL_STYLE), CS_HREDRAW | CS_VREDRAW);
}

TEST_F(EngineWindowTest, shows_the_scene) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00"));
  Start();
  WaitForColour(100, 100, kRed);
  EXPECT_EQ(Shown(600, 400), kBlack);
}

TEST_F(EngineWindowTest, shows_please_wait_while_the_file_is_not_available) {
  host.SetResult("a", kMHEG5FileNotYetAvailable);
  Start();
  WaitForRead("a");
  EXPECT_TRUE(WaitUntil([this] { return CountTextPixels() > 50; }));
}

TEST_F(EngineWindowTest, keeps_the_picture_when_it_is_covered_and_uncovered) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00"));
  Start();
  WaitForColour(100, 100, kRed);
  for (int count = 0; count < 3; ++count) {
    PaintOver(kForeign);
    InvalidateRect(engineWindow, nullptr, TRUE);
    WaitForColour(100, 100, kRed);
    EXPECT_EQ(Shown(600, 400), kBlack);
    EXPECT_TRUE(WaitUntil([&] { return GetUpdateRect(engineWindow, nullptr, FALSE) == 0; }));
  }
}

TEST_F(EngineWindowTest, keeps_the_picture_when_it_is_hidden_and_shown) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00"));
  Start();
  WaitForColour(100, 100, kRed);
  ShowWindow(engineWindow, SW_HIDE);
  ShowWindow(engineWindow, SW_SHOW);
  UpdateWindow(engineWindow);
  WaitForColour(100, 100, kRed);
}

TEST_F(EngineWindowTest, copies_the_picture_again_after_an_unmapped_key) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00"));
  Start();
  WaitForColour(100, 100, kRed);
  for (const WPARAM key : {WPARAM{12}, WPARAM{'A'}, WPARAM{106}, WPARAM{VK_CONTROL}}) {
    PaintOver(kForeign);
    PressKey(key);
    WaitForColour(100, 100, kRed);
  }
}

TEST_F(EngineWindowTest, shows_what_a_key_has_changed) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00") +
             FilledRectangle(2, "=00=00=FF=00", ":InitiallyActive FALSE") +
             LinkOnKey(3, 15, ":Run(2)") + LinkOnKey(4, 100, ":Stop(2)"));
  Start();
  WaitForColour(100, 100, kRed);
  PressKey(kEnter);
  WaitForColour(100, 100, kBlue);
  PressKey('R');
  WaitForColour(100, 100, kRed);
}

// Each link also tries to read a file that does not exist; during that read the test captures a
// pixel of the window.
TEST_F(EngineWindowTest,
       paints_the_first_redraw_of_a_key_during_its_actions_and_of_a_timer_after_them) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00") +
             FilledRectangle(2, "=00=00=FF=00", ":InitiallyActive FALSE") +
             LinkOnKey(3, 15, ":Run(2) :TransitionTo((\"~/key\" 0))") +
             LinkOnKey(4, 100, ":Stop(2) :SetTimer((\"~/s\" 0) 9 20)") +
             "{:Link 5 :EventSource 0 :EventType TimerFired :EventData 9 :LinkEffect (:Run(2) "
             ":TransitionTo((\"~/timer\" 0)))}");
  std::atomic<COLORREF> insideKey = kForeign;
  std::atomic<COLORREF> insideTimer = kForeign;
  host.onCall = [&](const std::string& name) {
    if (name == "ReadFile key") insideKey = ShownPixel(FindEngineWindow(), 100, 100);
    if (name == "ReadFile timer") insideTimer = ShownPixel(FindEngineWindow(), 100, 100);
  };
  Start();
  WaitForColour(100, 100, kRed);
  PressKey(kEnter);
  EXPECT_TRUE(WaitUntil([&] { return insideKey != kForeign; }));
  EXPECT_EQ(insideKey, kBlue);
  PressKey('R');
  EXPECT_TRUE(WaitUntil([&] { return insideTimer != kForeign; }));
  EXPECT_EQ(insideTimer, kRed);
  WaitForColour(100, 100, kBlue);
}

TEST_F(EngineWindowTest, shows_the_scene_in_every_run_of_a_process) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00"));
  for (int run = 0; run < 3; ++run) {
    Start();
    WaitForColour(100, 100, kRed);
    Close();
  }
}

TEST_F(EngineWindowTest, shows_the_start_up_application_again_after_a_quit) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00") + LinkOnKey(2, 15, ":Quit((\"~/a\" 0))"));
  Start();
  WaitForColour(100, 100, kRed);
  PressKey(kEnter);
  WaitForRead("a", 2);
  WaitForRead("s", 2);
  WaitForColour(100, 100, kRed);
}

TEST_F(EngineWindowTest, shows_no_service_when_no_application_is_found) {
  Start();
  WaitForRead("startup", 2);
  EXPECT_TRUE(WaitUntil([this] { return CountTextPixels() > 50; }));
}

void WINAPI ReadStoppedWallClock(FILETIME* time) { *time = {0, 0x01DB'0000}; }

// A start-up file that is not a group fails so fast that both screens are usually shown within one
// tick of the wall clock. The test stops that clock so that it always happens.
TEST_F(EngineWindowTest, shows_no_service_at_once_when_the_start_up_file_is_broken) {
  host.SetResult("a", kMHEG5FileNotYetAvailable);
  Start();
  EXPECT_TRUE(WaitUntil([this] { return CountTextPixels() > 50; }));
  const int endOfPleaseWait = RightEndOfText();
  Close();
  host.ClearResult("a");
  host.Serve("a", "no group");
  const ReplacedImport hook(GetModuleHandleA("korvel.dll"), "GetSystemTimeAsFileTime",
                            ReadStoppedWallClock);
  ASSERT_TRUE(hook.IsInPlace());
  Start();
  EXPECT_TRUE(WaitUntil([&] { return RightEndOfText() > endOfPleaseWait; }));
  Close();
}

// The failed start has not changed the picture, so no text is visible after the next restart
// either.
TEST_F(EngineWindowTest, shows_no_text_when_the_start_after_a_quit_fails) {
  ServeScene(FilledRectangle(1, "=FF=00=00=00") + LinkOnKey(2, 15, ":Quit((\"~/a\" 0))"));
  Start();
  WaitForColour(100, 100, kRed);
  host.SetResult("a", kNoSuchFile);
  PressKey(kEnter);
  WaitForRead("startup", 2);
  host.ClearResult("a");
  Post(kRestartAfterQuit);
  WaitForRead("a", 4);
  WaitForColour(100, 100, kRed);
  EXPECT_EQ(CountTextPixels(), 0);
}

}  // namespace
}  // namespace korvel::test
