// Checks that the engine still works, and calls the exported functions.
#include "windows/library/hostile_fixture.h"

namespace korvel::test {

void HostileHost::ExpectWorkingScene() const {
  PressKey(VK_RETURN);
  WaitForColour(100, 100, RGB(0, 255, 0));
  PressKey('R');
  WaitForLamp();
}

void HostileHost::CallEverything() const {
  RecordingHost other;
  EXPECT_EQ(library.run(&other, nullptr), 1U);
  EXPECT_TRUE(other.Calls().empty());
  EXPECT_EQ(library.exit(), 0U);
  EXPECT_EQ(library.reStart(), 0U);
  const MHEG5ExitCallback callback = host.ExitCallback();
  if (callback != nullptr) callback(kMHEG5ExitCode);
  EXPECT_EQ(library.waitForClose(), 0U);
}

bool HostileHost::IsWindowResponding() const {
  constexpr UINT kLimitMs = 2000;
  return SendMessageTimeoutA(engineWindow, WM_NULL, 0, 0, SMTO_NORMAL, kLimitMs, nullptr) != 0;
}

}  // namespace korvel::test
