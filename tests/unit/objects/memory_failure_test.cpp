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

// Calls `operation` with each of its allocations failing in turn. It must return Refused if one
// failed and Done otherwise. Returns the number of failures.
std::size_t FailEachAllocation(const std::function<Status()>& operation) {
  const std::size_t before = LiveBlocks();
  return FailEachInTurn(operation, [before](Status status, bool hasFailed) {
    EXPECT_EQ(status, hasFailed ? Status::Refused : Status::Done);
    EXPECT_EQ(LiveBlocks(), before);
  });
}

TEST(MemoryFailure, decoding_is_refused_and_leaks_nothing) {
  const Bytes file = Encode(*MakeCompleteGroup(ItemType::Application));
  const std::size_t failures = FailEachAllocation([&file] { return Decode(file).status; });
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
  const std::size_t failures = FailEachAllocation([&group] {
    OctetString bytes;
    const Status status = EncodeGroup(*group, bytes);
    EXPECT_EQ(bytes.IsPresent(), status == Status::Done);
    return status;
  });
  EXPECT_GT(failures, 3U);
}

}  // namespace
}  // namespace korvel::test
