// The fixture for tests of hosts that misbehave: a time limit, and a scene that shows whether the
// engine still works.
#pragma once

#include "windows/library/engine_fixture.h"
#include "windows/support/watchdog.h"

namespace korvel::test {

// The items of a scene with a red square, the lamp. Enter turns it green, and R red again.
inline constexpr const char* kLamp = R"(
    {:Rectangle 1 :OrigBoxSize 200 200 :OrigLineWidth 0 :OrigRefFillColour '=FF=00=00=00'}
    {:Link 2 :EventSource 0 :EventType UserInput :EventData 15
      :LinkEffect (:SetFillColour(1 :NewAbsoluteColour '=00=FF=00=00'))}
    {:Link 3 :EventSource 0 :EventType UserInput :EventData 100
      :LinkEffect (:SetFillColour(1 :NewAbsoluteColour '=FF=00=00=00'))})";

class HostileHost : protected Watchdog, public Engine {
 protected:
  explicit HostileHost(std::chrono::seconds limit = std::chrono::seconds(60),
                       Details details = nullptr)
      : Watchdog(limit, std::move(details)) {}
  HostileHost(const Library& played, std::chrono::seconds limit, Details details)
      : Watchdog(limit, std::move(details)), Engine(played) {}

  // Waits until the scene with the lamp is shown.
  void WaitForLamp() const { WaitForColour(100, 100, RGB(255, 0, 0)); }
  // Checks that keys, content, drawing and the window work, in the scene with the lamp.
  void ExpectWorkingScene() const;
  void WaitForClosed(int closes = 1) {
    ASSERT_TRUE(WaitUntil([&] { return window.Closes() == closes; })) << window.Closes();
  }
  // Calls every exported function and the exit callback, from inside one of the engine's calls.
  // Expects the start to fail.
  void CallEverything() const;
  // Whether the thread of the engine window handles a message within two seconds.
  [[nodiscard]] bool IsWindowResponding() const;
};

}  // namespace korvel::test
