// The growable array of plain values.
#include "objects/sequence.h"

#include <gtest/gtest.h>

#include "substitutes/memory.h"

namespace korvel::test {
namespace {

TEST(Sequence, keeps_its_values_while_it_grows) {
  Sequence<int> row;
  for (int i = 0; i < 1000; ++i) ASSERT_TRUE(row.Append(i));
  EXPECT_EQ(row.Size(), 1000U);
  for (std::size_t i = 0; i < row.Size(); ++i) EXPECT_EQ(row[i], static_cast<int>(i));
}

TEST(Sequence, is_unchanged_when_it_cannot_grow) {
  const std::size_t before = LiveBlocks();
  {
    Sequence<int> row;
    FailAllocation(1);
    EXPECT_FALSE(row.Append(1));
    EXPECT_TRUE(row.IsEmpty());
    int count = 0;
    FailAllocation(2);  // the first buffer is allocated, the next larger one is not
    while (row.Append(count)) ++count;
    EXPECT_TRUE(HasFailedAllocation());
    EXPECT_EQ(row.Size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) EXPECT_EQ(row[static_cast<std::size_t>(i)], i);
  }
  EXPECT_EQ(LiveBlocks(), before);
}

}  // namespace
}  // namespace korvel::test
