// Memory running out at the first, second, third ... allocation, until none fails: every operation
// then says so, and nothing is left behind.
#include <gtest/gtest.h>

#include <functional>

#include "objects/ber/ber.h"
#include "objects/equality.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"
#include "support/sample_groups.h"

namespace korvel::test {
namespace {

// Calls `operation` with the n-th allocation failing, for each n until none fails; it must be Done
// exactly then.
std::size_t FailEachAllocation(Status failure, const std::function<Status()>& operation) {
  for (std::size_t n = 1;; ++n) {
    const std::size_t before = LiveBlocks();
    FailAllocation(n);
    const Status status = operation();
    const bool hasFailed = HasFailedAllocation();
    FailAllocation(0);
    EXPECT_EQ(status, hasFailed ? failure : Status::Done) << n;
    EXPECT_EQ(LiveBlocks(), before) << n;
    if (!hasFailed) return n - 1;
    if (testing::Test::HasFailure()) return n;
  }
}

TEST(MemoryFailure, decoding_is_refused_and_leaves_nothing_behind) {
  const Bytes file = Encode(*MakeCompleteGroup(ItemType::Application));
  const std::size_t failures =
      FailEachAllocation(Status::Refused, [&file] { return Decode(file).status; });
  EXPECT_GT(failures, 300U);
}

TEST(MemoryFailure, a_group_record_that_cannot_be_made_leaves_no_record) {
  FailAllocation(1);
  const Decoded decoded = Decode(ApplicationFile(""));
  FailAllocation(0);
  EXPECT_EQ(decoded.status, Status::Refused);
  EXPECT_FALSE(decoded.group);
}

TEST(MemoryFailure, writing_is_refused_and_leaves_the_bytes_untouched) {
  const OwnedGroup group = MakeCompleteGroup(ItemType::Scene);
  const std::size_t failures = FailEachAllocation(Status::Refused, [&group] {
    OctetString bytes;
    const Status status = EncodeGroup(*group, bytes);
    EXPECT_EQ(bytes.IsPresent(), status == Status::Done);
    return status;
  });
  EXPECT_GT(failures, 3U);
}

}  // namespace
}  // namespace korvel::test
