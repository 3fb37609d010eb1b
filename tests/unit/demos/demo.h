// The ground that the tests of the demos stand on: the carousel that was made of a folder of
// examples/ is served, keys are pressed, timers expire, and what texts say can be asked.
#pragma once

#include <string>

#include "support/engine_fixture.h"

namespace korvel::test {

class DemoTest : public EngineTest {
 protected:
  // Serves the carousel, as files of the host.
  void ServeDemo(const std::string& demo);
  // The same, and starts it.
  void Play(const std::string& demo);

  // Presses keys, each of which has to leave the engine with a scene and an unlocked screen.
  void PressAll(std::initializer_list<std::int32_t> keys);
  // Lets one pending timer expire; the same is asked of it.
  void Ring(std::int32_t timer);
  void ExpectWhole();

  [[nodiscard]] static std::string SceneName() { return NameOf(CurrentScene()); }
  // What a text of the running scene says.
  [[nodiscard]] static std::string Says(std::int32_t number) { return SaidBy(SceneName(), number); }
  [[nodiscard]] static std::string SaidBy(const std::string& group, std::int32_t number) {
    return std::string(Find<Text>(number, group).TextData.View());
  }
  [[nodiscard]] static bool IsPending(std::uint32_t timer) {
    return TheHost().timers.count(timer) != 0;
  }
};

// Anything that a viewer may do, and time that passes: `steps` random keys and expiries.
class AnyKeys : public DemoTest {
 protected:
  void PressAnyKeys(const std::string& demo, int steps);
};

}  // namespace korvel::test
