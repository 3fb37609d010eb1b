// Every operation is run with its n-th allocation failing, for each n until none fails. It must
// report the failure and leak nothing.
#include <gtest/gtest.h>

#include <functional>

#include "objects/ber/ber.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"
#include "support/sample_groups.h"

namespace korvel::test {
namespace {

// Calls `operation` with the n-th allocation failing, for each n until none fails. It must return
// `failure` when an allocation failed and Done otherwise. Returns the number of failures.
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

TEST(MemoryFailure, decoding_is_refused_and_leaks_nothing) {
  const Bytes file = Encode(*MakeCompleteGroup(ItemType::Application));
  const std::size_t failures =
      FailEachAllocation(Status::Refused, [&file] { return Decode(file).status; });
  EXPECT_GT(failures, 300U);
}

TEST(MemoryFailure, without_memory_for_the_group_no_record_is_returned) {
  FailAllocation(1);
  const Decoded decoded = Decode(ApplicationFile(""));
  FailAllocation(0);
  EXPECT_EQ(decoded.status, Status::Refused);
  EXPECT_FALSE(decoded.group);
}

TEST(MemoryFailure, writing_is_refused_and_does_not_change_the_output) {
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
