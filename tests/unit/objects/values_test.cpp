// Deep copies of values: nothing is shared, and nothing changes when a copy runs out of memory.
#include "objects/values.h"

#include <gtest/gtest.h>

#include "substitutes/memory.h"

namespace korvel::test {
namespace {

ObjectReference MakeReference() {
  ObjectReference reference;
  reference.Number = 5;
  EXPECT_TRUE(reference.GroupIdentifier.Assign("~/g"));
  return reference;
}

GenericValue MakeValue() {
  GenericValue value;
  value.Kind = ValueKind::IndirectReference;
  EXPECT_TRUE(value.Octets.Assign("bytes"));
  value.Reference = MakeReference();
  return value;
}

// Copies with each allocation failing in turn. The target must stay unchanged each time.
template <class T> void ExpectCopyIsDeepAndSafe(const T& value) {
  const std::size_t before = LiveBlocks();
  {
    T target{};
    const T untouched{};
    FailEachInTurn([&] { return Copy(value, target); },
                   [&](bool isCopied, bool hasFailed) {
                     EXPECT_EQ(isCopied, !hasFailed);
                     EXPECT_TRUE(target == (hasFailed ? untouched : value));
                   });
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(Values, reference_copies_are_deep) { ExpectCopyIsDeepAndSafe(MakeReference()); }

TEST(Values, optional_reference_copies_are_deep) {
  OptionalReference value;
  value.IsPresent = true;
  value.Reference = MakeReference();
  ExpectCopyIsDeepAndSafe(value);
}

TEST(Values, generic_value_copies_are_deep) { ExpectCopyIsDeepAndSafe(MakeValue()); }

TEST(Values, colour_copies_are_deep) {
  ColourValue value;
  value.Kind = ValueKind::OctetString;
  ASSERT_TRUE(value.Absolute.Assign("\x10\x20\x30"));
  ExpectCopyIsDeepAndSafe(value);
}

TEST(Values, font_copies_are_deep) {
  FontBody value;
  value.Kind = ValueKind::ObjectReference;
  value.Reference = MakeReference();
  ExpectCopyIsDeepAndSafe(value);
}

TEST(Values, content_copies_are_deep) {
  ContentBody value;
  ASSERT_TRUE(value.Data.Assign("/picture.png"));
  value.IsReferenced = true;
  value.Size = 12;
  ExpectCopyIsDeepAndSafe(value);
  ContentReference path;
  ASSERT_TRUE(path.Path.Assign("/picture.png"));
  ExpectCopyIsDeepAndSafe(path);
}

TEST(Values, a_copy_outlives_its_original) {
  GenericValue copy;
  {
    const GenericValue original = MakeValue();
    ASSERT_TRUE(Copy(original, copy));
  }
  EXPECT_EQ(copy.Reference.GroupIdentifier.View(), "~/g");
  ASSERT_TRUE(Copy(copy, copy));
  EXPECT_EQ(copy.Reference.GroupIdentifier.View(), "~/g");
}

}  // namespace
}  // namespace korvel::test
