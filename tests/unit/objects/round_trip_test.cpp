// Encoded groups are decoded as the same group, and an independent reader accepts them as BER.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>
#include <string>
#include <utility>

#include "objects/objects.h"
#include "support/ber_bytes.h"
#include "support/sample_groups.h"

namespace korvel::test {
namespace {

void ExpectRoundTrip(const Group& group) {
  const Bytes bytes = Encode(group);
  ASSERT_FALSE(bytes.empty());
  const Decoded decoded = Decode(bytes);
  ASSERT_TRUE(decoded.IsDone()) << "at " << decoded.error.offset;
  EXPECT_TRUE(group == *decoded.group);
  EXPECT_EQ(Encode(*decoded.group), bytes);
}

TEST(RoundTrip, lengths_take_as_few_bytes_as_possible) {
  const std::pair<std::size_t, std::string_view> cases[] = {
      {127, "\x7F"}, {128, "\x81\x80"}, {255, "\x81\xFF"}, {300, "\x82\x01\x2C"}};
  for (const auto& [length, header] : cases) {
    Scene scene;
    const std::string text(length, 'x');
    ASSERT_TRUE(scene.ObjectInformation.Assign(text));
    const Bytes file = Encode(scene);
    const std::size_t begin = file.find(text);
    ASSERT_NE(begin, std::string::npos);
    EXPECT_EQ(file.substr(begin - header.size(), header.size()), header) << length;
  }
}

TEST(RoundTrip, integers_take_as_few_bytes_as_possible) {
  const auto sizeWith = [](std::int32_t value) {
    Scene scene;
    Item item = Item::New(ItemType::IntegerVariable);
    item.As<IntegerVariable>().OriginalValue = value;
    EXPECT_NE(scene.Items.Append(std::move(item)), nullptr);
    return Encode(scene).size();
  };
  const std::pair<std::int32_t, std::size_t> cases[] = {
      {1, 1},      {63, 1},      {64, 1},      {127, 1},      {-1, 1},        {-128, 1},
      {128, 2},    {16383, 2},   {32767, 2},   {-129, 2},     {-32768, 2},    {32768, 3},
      {-32769, 3}, {8388607, 3}, {8388608, 4}, {-8388609, 4}, {2147483647, 4}};
  for (const auto& [value, bytes] : cases) {
    EXPECT_EQ(sizeWith(value) - sizeWith(1), bytes - 1) << value;
  }
}

TEST(RoundTrip, complete_application_reads_back_equal) {
  ExpectRoundTrip(*MakeCompleteGroup(ItemType::Application));
}

TEST(RoundTrip, complete_scene_reads_back_equal) {
  ExpectRoundTrip(*MakeCompleteGroup(ItemType::Scene));
}

TEST(RoundTrip, random_groups_read_back_equal) {
  for (std::uint32_t seed = 0; seed < kEnoughRandomGroups; ++seed) {
    SCOPED_TRACE(seed);
    ExpectRoundTrip(*MakeRandomGroup(seed));
    if (HasFatalFailure()) return;
  }
}

TEST(RoundTrip, sample_has_every_item_class_and_every_action) {
  const OwnedGroup group = MakeCompleteGroup(ItemType::Application);
  std::set<ItemType> types;
  for (const Item& item : group->Items) types.insert(item.Type());
  EXPECT_EQ(types.size(), 26U);
  std::set<int> actions;
  for (const ElementaryAction& action : group->OnStartUp) actions.insert(action.ActionType);
  EXPECT_EQ(actions.size(), 110U);
}

TEST(RoundTrip, a_changed_attribute_makes_groups_differ) {
  const OwnedGroup one = MakeCompleteGroup(ItemType::Scene);
  OwnedGroup other = MakeCompleteGroup(ItemType::Scene);
  EXPECT_TRUE(*one == *other);
  AsScene(other).Items.At(25)->As<ListGroup>().MultipleSelection ^= true;
  EXPECT_FALSE(*one == *other);
}

TEST(Writer, attributes_with_default_values_are_omitted) {
  OwnedGroup group(NewRecord<Scene>().release());
  ASSERT_TRUE(group->Reference.GroupIdentifier.Assign("~/g"));
  EXPECT_EQ(Encode(*group), SceneFile(""));
}

TEST(Writer, required_attributes_are_always_written) {
  OwnedGroup group(NewRecord<Scene>().release());
  ASSERT_TRUE(group->Reference.GroupIdentifier.Assign("~/g"));
  ASSERT_NE(group->Items.Append(Item::New(ItemType::BooleanVariable)), nullptr);
  const Bytes variable = Integer(0) + Holding(67, Boolean(false));
  EXPECT_EQ(Encode(*group), SceneFile(Holding(8, Holding(15, variable))));
}

TEST(Writer, extension_actions_cannot_be_written) {
  OwnedGroup group(NewRecord<Scene>().release());
  ElementaryAction action;
  action.ActionType = 111;
  ASSERT_NE(group->OnStartUp.Append(std::move(action)), nullptr);
  EXPECT_EQ(Encode(*group), "");
}

// The output of openssl for the bytes. If openssl rejects them, the test fails and the result is
// empty.
std::string ParseWithOpenssl(const Bytes& bytes, const std::string& name) {
  const std::string path = testing::TempDir() + name + ".ber";
  std::ofstream(path, std::ios::binary) << bytes;
  const std::string command = "timeout 20 openssl asn1parse -inform DER -in '" + path + "' 2>&1";
  std::string text;
  FILE* output = popen(command.c_str(), "r");
  if (output == nullptr) return {};
  for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) text += static_cast<char>(c);
  const int status = pclose(output);
  std::remove(path.c_str());
  if (status != 0) ADD_FAILURE() << text;
  return status == 0 ? text : std::string{};
}

TEST(IndependentReader, accepts_every_class_and_every_action) {
  const OwnedGroup group = MakeCompleteGroup(ItemType::Application);
  const std::string text = ParseWithOpenssl(Encode(*group), "complete_application");
  for (int tag = 9; tag <= 34; ++tag) {
    EXPECT_NE(text.find("cont [ " + std::to_string(tag) + " ]"), std::string::npos) << tag;
  }
  for (int tag = 115; tag <= 224; ++tag) {
    EXPECT_NE(text.find("cont [ " + std::to_string(tag) + " ]"), std::string::npos) << tag;
  }
}

TEST(IndependentReader, accepts_a_complete_scene_and_random_groups) {
  const OwnedGroup scene = MakeCompleteGroup(ItemType::Scene);
  EXPECT_NE(ParseWithOpenssl(Encode(*scene), "complete_scene"), "");
  for (std::uint32_t seed = 0; seed < 20; ++seed) {
    const OwnedGroup group = MakeRandomGroup(seed);
    EXPECT_NE(ParseWithOpenssl(Encode(*group), "random" + std::to_string(seed)), "") << seed;
  }
}

}  // namespace
}  // namespace korvel::test
