// Every value of every action has a name for messages.
#include "mheg/parameter_names.h"

#include <gtest/gtest.h>

#include "objects/action_table.h"

namespace mheg {
namespace {

TEST(ParameterNames, each_value_of_an_action_in_content_has_a_name) {
  for (std::uint8_t number = 1; number <= korvel::kDecodedActionCount; ++number) {
    const korvel::ActionRow& row = *korvel::FindAction(number);
    EXPECT_EQ(ParameterNames(row.name).size(), row.parameterCount) << row.name;
  }
}

TEST(ParameterNames, an_unknown_action_has_no_names) {
  EXPECT_TRUE(ParameterNames("a point").empty());
}

}  // namespace
}  // namespace mheg
