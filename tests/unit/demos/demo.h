// Fixture for tests of the demos. It serves a carousel built from a folder of examples/, presses
// keys, lets timers expire, and reads the texts of the scene.
#pragma once

#include <random>
#include <string>
#include <vector>

#include "support/engine_fixture.h"

namespace korvel::test {

// The names of all demos.
std::vector<std::string> Demos();

class DemoTest : public EngineTest {
 protected:
  // Serves the carousel as files of the host.
  void ServeDemo(const std::string& demo);
  // Serves and starts the carousel.
  void Play(const std::string& demo);

  // Presses keys. After each, there must be a scene, the screen must be unlocked, and no file may
  // be missing.
  void PressAll(std::initializer_list<std::int32_t> keys);
  // Lets one pending timer expire, with the same checks.
  void ExpireTimer(std::int32_t timer);
  void ExpectPlayable();

  [[nodiscard]] static std::string SceneName() { return NameOf(CurrentScene()); }
  // The text of a Text object of the running scene.
  [[nodiscard]] static std::string TextOf(std::int32_t number) {
    return TextIn(SceneName(), number);
  }
  [[nodiscard]] static std::string TextIn(const std::string& group, std::int32_t number) {
    return std::string(Find<Text>(number, group).TextData.View());
  }
  [[nodiscard]] static bool IsPending(std::uint32_t timer) {
    return TheHost().timers.count(timer) != 0;
  }
};

// Presses random keys, mixed with timer expiries.
class RandomKeys : public DemoTest {
 protected:
  // Presses `steps` keys in the running demo.
  void PressRandomKeys(int steps);

 private:
  std::mt19937 random_{20240607};
};

}  // namespace korvel::test
