// Random keys reach every group of a demo, and never end or lock it.
#include <algorithm>

#include "unit/demos/demo.h"

namespace korvel::test {
namespace {

class EachDemo : public RandomKeys, public testing::WithParamInterface<std::string> {};

TEST_P(EachDemo, random_keys_never_end_or_lock_it) {
  TheHost().localTime = {2024, 12, 31, 0, 0, 0};  // any valid date, for the clock
  ASSERT_NO_FATAL_FAILURE(Play(GetParam()));
  PressRandomKeys(6000);
  EXPECT_EQ(Printed().find_first_not_of("0123456789\n"), std::string::npos)
      << "the engine prints only the lengths of texts";
  for (const auto& [name, bytes] : TheHost().files) {
    // A file with a dot in its name is content, not a group.
    if (name.find('.') != std::string::npos) continue;
    EXPECT_NE(std::ranges::count(TheHost().fetched, name), 0) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(RandomKeys, EachDemo, testing::ValuesIn(Demos()),
                         [](const auto& demo) { return demo.param; });

}  // namespace
}  // namespace korvel::test
