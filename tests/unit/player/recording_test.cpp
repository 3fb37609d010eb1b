// Recording keys as a script.
#include "player/recording.h"

#include <gtest/gtest.h>

#include <sstream>

#include "mheg/script.h"

namespace {

TEST(Recording, lists_each_key_after_its_delay_and_ends_with_exit) {
  std::ostringstream script;
  player::Recording recording(script, 1000);
  recording.Add({40, 1250});
  recording.Add({'R', 1250});
  recording.Add({105, 3000});
  recording.End(3010);
  EXPECT_EQ(script.str(), "wait 250\nkey Down\nwait 0\nkey Red\nwait 1750\nkey Keypad 9\n"
                          "wait 10\nexit\n");
}

TEST(Recording, skips_keys_that_content_does_not_receive) {
  std::ostringstream script;
  player::Recording recording(script, 0);
  recording.Add({116, 10});
  recording.Add({13, 30});
  EXPECT_EQ(script.str(), "wait 30\nkey OK\n");
}

TEST(Recording, is_a_script_that_presses_the_same_keys) {
  std::ostringstream script;
  player::Recording recording(script, 0);
  const unsigned keys[] = {13, 27, 37, 38, 39, 40, '0', '9', 'B', 'G', 'I', 'R', 'T', 'Y', 96, 105};
  for (unsigned key : keys) recording.Add({key, 0});
  std::istringstream text(script.str());
  std::vector<mheg::Step> steps;
  std::string problem;
  ASSERT_TRUE(mheg::ReadScript(text, steps, problem)) << problem;
  std::vector<unsigned> pressed;
  for (const mheg::Step& step : steps) {
    if (step.kind == mheg::StepKind::Key) pressed.push_back(step.number);
  }
  EXPECT_EQ(pressed, std::vector<unsigned>(std::begin(keys), std::end(keys)));
}

}  // namespace
