// BER and text are equivalent: any group survives the conversion from BER to text and back.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "objects/ber/ber.h"
#include "support/sample_groups.h"
#include "textual/textual.h"

namespace korvel {
namespace {

constexpr std::uint32_t kGroups = test::kEnoughRandomGroups;

OwnedGroup Decode(const OctetString& bytes) {
  OwnedGroup group;
  const auto* begin = reinterpret_cast<const std::uint8_t*>(bytes.Text());
  EXPECT_EQ(DecodeGroup({begin, bytes.Length()}, group), Status::Done);
  return group;
}

OwnedGroup Read(const OctetString& text) {
  OwnedGroup group;
  EXPECT_EQ(ReadTextGroup(text.View(), group), TextResult::Done) << text.View();
  return group;
}

TEST(RoundTrip, bytes_survive_conversion_to_text_and_back) {
  for (std::uint32_t seed = 0; seed < kGroups && !testing::Test::HasFailure(); ++seed) {
    OctetString bytes;
    ASSERT_EQ(EncodeGroup(*test::MakeRandomGroup(seed).get(), bytes), Status::Done);
    const OwnedGroup decoded = Decode(bytes);
    OctetString text;
    ASSERT_EQ(WriteTextGroup(*decoded, text), Status::Done);
    if (text.Length() > kMaxTextSize) continue;
    const OwnedGroup read = Read(text);
    ASSERT_TRUE(read);
    EXPECT_TRUE(*decoded == *read) << "seed " << seed << "\n" << text.View();
    OctetString bytesAgain;
    ASSERT_EQ(EncodeGroup(*read, bytesAgain), Status::Done);
    EXPECT_EQ(bytes.View(), bytesAgain.View()) << "seed " << seed << "\n" << text.View();
  }
}

TEST(RoundTrip, text_survives_reading_and_writing) {
  for (std::uint32_t seed = 0; seed < kGroups && !testing::Test::HasFailure(); ++seed) {
    OctetString text;
    ASSERT_EQ(WriteTextGroup(*test::MakeRandomGroup(seed).get(), text), Status::Done);
    if (text.Length() > kMaxTextSize) continue;
    OctetString textAgain;
    ASSERT_EQ(WriteTextGroup(*Read(text), textAgain), Status::Done);
    EXPECT_EQ(text.View(), textAgain.View()) << "seed " << seed;
  }
}

TEST(RoundTrip, random_groups_rarely_exceed_the_text_limit_and_have_both_classes) {
  int tooLong = 0;
  int applications = 0;
  for (std::uint32_t seed = 0; seed < kGroups; ++seed) {
    const OwnedGroup group = test::MakeRandomGroup(seed);
    applications += IsApplication(group) ? 1 : 0;
    OctetString text;
    ASSERT_EQ(WriteTextGroup(*group, text), Status::Done);
    tooLong += text.Length() > kMaxTextSize ? 1 : 0;
  }
  EXPECT_LT(tooLong, 10);
  EXPECT_GT(applications, 500);
  EXPECT_LT(applications, 1000);
}

}  // namespace
}  // namespace korvel
