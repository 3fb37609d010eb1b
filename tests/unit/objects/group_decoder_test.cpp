// Decoding applications and scenes: the file, the attributes of the group, and its list of items.
#include <gtest/gtest.h>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

// ---- The file ----

TEST(DecodeGroup, tag_0_is_an_application_and_tag_1_a_scene) {
  const Decoded application = Decode(ApplicationFile(""));
  ASSERT_TRUE(application.IsDone());
  EXPECT_TRUE(IsApplication(application.group));
  EXPECT_EQ(application.group->type, ItemType::Application);
  const Decoded scene = Decode(SceneFile(""));
  ASSERT_TRUE(scene.IsDone());
  EXPECT_FALSE(IsApplication(scene.group));
  EXPECT_EQ(scene.group->type, ItemType::Scene);
}

TEST(DecodeGroup, another_first_tag_is_refused_without_a_record) {
  const Bytes content = External("~/g", 0);
  for (const Bytes& file :
       {Holding(2, content), Holding(230, content), Sequence(content), Element(1, true, 0, content),
        Element(3, true, 0, content), Integer(0), ""s, "\xA0"s, "\xA0\x05"s}) {
    Decoded decoded = Decode(file);
    EXPECT_EQ(decoded.status, Status::Refused) << Hexadecimal(file);
    EXPECT_FALSE(decoded.group);
    EXPECT_FALSE(IsApplication(decoded.group));
    EXPECT_EQ(decoded.error.offset, 0U);
  }
}

TEST(DecodeGroup, a_refused_file_clears_the_output) {
  Decoded decoded = Decode(ApplicationFile(""));
  ASSERT_TRUE(decoded.group);
  EXPECT_EQ(DecodeGroup({}, decoded.group), Status::Refused);
  EXPECT_FALSE(decoded.group);
  EXPECT_FALSE(IsApplication(decoded.group));
}

TEST(DecodeGroup, a_failure_in_the_contents_returns_the_partial_record) {
  const std::size_t before = LiveBlocks();
  {
    const Decoded decoded =
        Decode(ApplicationFile(Primitive(4, "info") + Holding(3, Boolean(true))));
    EXPECT_EQ(decoded.status, Status::Refused);
    ASSERT_TRUE(decoded.group);
    EXPECT_TRUE(IsApplication(decoded.group));
    EXPECT_EQ(decoded.group->ObjectInformation.View(), "info");
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(DecodeGroup, bytes_after_the_group_are_ignored) {
  EXPECT_TRUE(Decode(ApplicationFile("") + "\xFF\xFF").IsDone());
}

TEST(DecodeGroup, the_error_offset_is_that_of_the_invalid_element) {
  const Bytes good = Primitive(4, "info");
  const Bytes file = SceneFile(good + Primitive(3, "\x01") + Holding(54, Integer(1)));
  // The INTEGER in place of a BOOLEAN is the last element of the file.
  EXPECT_EQ(Decode(file).error.offset, file.size() - Integer(1).size());
}

TEST(DecodeGroup, an_error_names_its_construct_and_what_was_expected) {
  struct Case {
    Bytes attributes;  // of a scene
    std::string owner;
    std::string part;
    std::string expected;
  };
  const auto items = [](const Bytes& elements) { return Holding(8, elements); };
  const Bytes tooLong = "\x80\x05"s;
  const char* const kEnds = "an element that ends within what encloses it";
  const Case cases[] = {
      {tooLong, "Scene", "", kEnds},
      {Holding(54, Integer(1)), "Scene", ":MovingCursor", "a BOOLEAN"},
      {Holding(51, Boolean(true)), "Scene", ":InputEventReg", "an INTEGER"},
      {Holding(52, Integer(1) + Boolean(true)), "Scene", ":SceneCS", "two INTEGERs"},
      {Holding(5, Null()), "Scene", ":OnStartUp", "actions"},
      {items(Integer(1)), "Scene", ":Items", "objects"},
      {items(tooLong), "Scene", ":Items", kEnds},
      {items(Holding(29, tooLong)), "Text", "", kEnds},
      {items(Holding(29, Holding(41, Null()))), "Text", ":TextColour",
       "an INTEGER or an OCTET STRING"},
      {items(Holding(29, Holding(87, Boolean(true)))), "Text", ":HJustification", "an ENUMERATED"},
      {items(Holding(29, Element(1, true, 41, Integer(1)))), "Text", "", "an attribute"},
      {items(Holding(20, Holding(62, Integer(1)))), "Link", "", kEnds},
      {items(Holding(20, Holding(62, Integer(1) + Null()))), "Link", "",
       "an event source, an event type and event data"},
      {items(Holding(20, Holding(63, Holding(207, Integer(1) + Boolean(true))))), "Link",
       "SetPosition", "a target and the action's values"},
      {items(Holding(21, Holding(92, Holding(96, Holding(100, Null()))))), "Video", ":Termination",
       "an ENUMERATED"},
      {items(Holding(21, Holding(92, Holding(96, tooLong)))), "Video", "", kEnds}};
  for (const Case& expected : cases) {
    const Decoded decoded = Decode(SceneFile(expected.attributes));
    EXPECT_FALSE(decoded.IsDone());
    EXPECT_EQ(decoded.error.owner, expected.owner) << Hexadecimal(expected.attributes);
    EXPECT_EQ(decoded.error.part, expected.part) << Hexadecimal(expected.attributes);
    EXPECT_EQ(decoded.error.expected, expected.expected) << Hexadecimal(expected.attributes);
  }
  const DecodeError none = Decode(Holding(2, "")).error;
  EXPECT_STREQ(none.owner, "");
  EXPECT_STREQ(none.expected, "an application or a scene");
}

// ---- Groups ----

TEST(DecodeApplication, with_only_a_reference_has_its_defaults_and_no_items) {
  const Decoded decoded = Decode(ApplicationFile(""));
  ASSERT_TRUE(decoded.IsDone());
  const Application& application = AsApplication(decoded.group);
  EXPECT_EQ(application.Reference.GroupIdentifier.View(), "~/g");
  EXPECT_EQ(application.Standard.JointIsoItuIdentifier, 2);
  EXPECT_EQ(application.Standard.MHEGStandardIdentifier, 19);
  EXPECT_EQ(application.StandardVersion, 1);
  EXPECT_FALSE(application.ObjectInformation.IsPresent());
  EXPECT_EQ(application.OriginalGroupCachePriority, 127);
  EXPECT_EQ(application.GroupCachePriority, 127);
  EXPECT_TRUE(application.Items.IsEmpty());
  EXPECT_TRUE(application.OnStartUp.IsEmpty());
  EXPECT_FALSE(application.AvailabilityStatus);
  EXPECT_FALSE(application.RunningStatus);
  EXPECT_EQ(application.LockCount, 0);
}

TEST(DecodeApplication, without_default_attributes_only_hooks_and_background_are_set) {
  const Decoded decoded = Decode(ApplicationFile(""));
  const DefaultAttributes& defaults = AsApplication(decoded.group).Defaults;
  for (const std::int32_t hook :
       {defaults.TextContentHook, defaults.InterchangedProgramContentHook,
        defaults.StreamContentHook, defaults.BitmapContentHook, defaults.LineArtContentHook}) {
    EXPECT_EQ(hook, -1);
  }
  EXPECT_EQ(defaults.BackgroundColour.Kind, ValueKind::Integer);
  EXPECT_EQ(defaults.BackgroundColour.Index, -1);
  EXPECT_EQ(defaults.TextColour.Kind, ValueKind::None);
  EXPECT_EQ(defaults.Font.Kind, ValueKind::None);
  EXPECT_FALSE(defaults.FontAttributes.IsPresent());
  EXPECT_EQ(defaults.ButtonRefColour.Kind, ValueKind::None);
  EXPECT_EQ(defaults.HighlightRefColour.Kind, ValueKind::None);
  EXPECT_EQ(defaults.SliderRefColour.Kind, ValueKind::None);
}

TEST(DecodeApplication, default_attributes_are_read_from_their_list) {
  const Bytes list = Primitive(38, "\x0A") + Holding(39, Integer(3)) + Primitive(40, "\x0B") +
                     Holding(41, Octets("\x01\x02\x03")) + Holding(42, Octets("rec://font")) +
                     Primitive(43, "plain.26.32.0") + Primitive(44, "\x01") +
                     Primitive(45, "\x02") + Primitive(46, "\x04") + Primitive(47, "\x05") +
                     Holding(48, Integer(6)) + Holding(49, Integer(7)) + Holding(50, Integer(8));
  for (const Bytes& attribute : {Holding(37, list), Holding(37, Sequence(list))}) {
    const Decoded decoded = Decode(ApplicationFile(attribute));
    ASSERT_TRUE(decoded.IsDone());
    const DefaultAttributes& defaults = AsApplication(decoded.group).Defaults;
    EXPECT_EQ(defaults.CharacterSet, 10);
    EXPECT_EQ(defaults.BackgroundColour.Index, 3);
    EXPECT_EQ(defaults.TextContentHook, 11);
    EXPECT_EQ(defaults.TextColour.Absolute.View(), "\x01\x02\x03");
    EXPECT_EQ(defaults.Font.Name.View(), "rec://font");
    EXPECT_EQ(defaults.FontAttributes.View(), "plain.26.32.0");
    EXPECT_EQ(defaults.InterchangedProgramContentHook, 1);
    EXPECT_EQ(defaults.StreamContentHook, 2);
    EXPECT_EQ(defaults.BitmapContentHook, 4);
    EXPECT_EQ(defaults.LineArtContentHook, 5);
    EXPECT_EQ(defaults.ButtonRefColour.Index, 6);
    EXPECT_EQ(defaults.HighlightRefColour.Index, 7);
    EXPECT_EQ(defaults.SliderRefColour.Index, 8);
  }
  EXPECT_FALSE(Decode(ApplicationFile(Holding(37, Boolean(true)))).IsDone());
}

TEST(DecodeGroupAttributes, each_tag_fills_its_field) {
  const Bytes actions = Holding(115, Integer(1));
  const Bytes attributes = Holding(2, Integer(1) + Integer(2)) + Primitive(3, "\x05") +
                           Primitive(4, "info") + Holding(5, actions) +
                           Holding(6, actions + actions) + Primitive(7, "\x21") +
                           Holding(35, actions) + Holding(36, actions + actions + actions);
  const Decoded decoded = Decode(ApplicationFile(attributes));
  ASSERT_TRUE(decoded.IsDone());
  const Application& application = AsApplication(decoded.group);
  EXPECT_EQ(application.Standard.JointIsoItuIdentifier, 1);
  EXPECT_EQ(application.Standard.MHEGStandardIdentifier, 2);
  EXPECT_EQ(application.StandardVersion, 5);
  EXPECT_EQ(application.ObjectInformation.View(), "info");
  EXPECT_EQ(application.OnStartUp.Size(), 1U);
  EXPECT_EQ(application.OnCloseDown.Size(), 2U);
  EXPECT_EQ(application.OnSpawnCloseDown.Size(), 1U);
  EXPECT_EQ(application.OnRestart.Size(), 3U);
}

TEST(DecodeGroupAttributes, tag_7_sets_the_original_cache_priority_only) {
  const Decoded decoded = Decode(SceneFile(Primitive(7, "\x21")));
  EXPECT_EQ(decoded.group->OriginalGroupCachePriority, 33);
  EXPECT_EQ(decoded.group->GroupCachePriority, 127);
}

TEST(DecodeScene, has_its_own_defaults_and_attributes) {
  const Decoded plain = Decode(SceneFile(""));
  EXPECT_EQ(AsScene(plain.group).Aspect.Width, 4);
  EXPECT_EQ(AsScene(plain.group).Aspect.Height, 3);
  EXPECT_FALSE(AsScene(plain.group).MovingCursor);
  EXPECT_EQ(AsScene(plain.group).InputEventReg, 0);
  const Bytes next = Holding(55, Sequence(Octets("~/one") + Integer(1)) +
                                     Sequence(Octets("~/two") + Integer(255)));
  const Decoded decoded =
      Decode(SceneFile(Primitive(51, "\x03") + Holding(53, Integer(16) + Integer(9)) + next));
  ASSERT_TRUE(decoded.IsDone());
  const Scene& scene = AsScene(decoded.group);
  EXPECT_EQ(scene.InputEventReg, 3);
  EXPECT_EQ(scene.Aspect.Width, 16);
  EXPECT_EQ(scene.Aspect.Height, 9);
  ASSERT_EQ(scene.NextScenes.Size(), 2U);
  EXPECT_EQ(scene.NextScenes.At(1)->SceneReference.View(), "~/two");
  EXPECT_EQ(scene.NextScenes.At(1)->Weight, 255);
}

TEST(DecodeScene, next_scenes_may_be_in_an_explicit_sequence) {
  const Bytes list = Sequence(Octets("~/one") + Integer(1));
  const Decoded decoded = Decode(SceneFile(Holding(55, Sequence(list))));
  ASSERT_TRUE(decoded.IsDone());
  EXPECT_EQ(AsScene(decoded.group).NextScenes.Size(), 1U);
}

TEST(DecodeScene, ignores_the_attributes_of_an_application) {
  EXPECT_TRUE(Decode(SceneFile(Primitive(35, "junk"))).IsDone());
  EXPECT_FALSE(Decode(ApplicationFile(Holding(35, Null()))).IsDone());
}

// ---- Items ----

TEST(DecodeItems, every_item_tag_creates_an_object_of_its_class) {
  constexpr int kTypesOfTags[] = {4,  29, 30, 28, 31, 32, 5,  6,  7,  8,  9,  3,  16,
                                  12, 24, 14, 13, 26, 27, 23, 15, 20, 21, 19, 10, 11};
  std::uint32_t tag = 9;
  for (const int type : kTypesOfTags) {
    const Decoded decoded = Decode(FileWithItems(Holding(tag, Integer(1))));
    ASSERT_TRUE(decoded.IsDone()) << tag;
    ASSERT_EQ(decoded.group->Items.Size(), 1U) << tag;
    EXPECT_EQ(decoded.group->Items.At(0)->Type(), static_cast<ItemType>(type)) << tag;
    ++tag;
  }
  EXPECT_EQ(tag, 35U);
}

TEST(DecodeItems, unknown_item_tags_are_skipped) {
  for (const std::uint32_t tag : {0U, 8U, 35U, 92U, 95U, 96U, 97U, 115U, 230U}) {
    const Decoded decoded =
        Decode(FileWithItems(Holding(tag, "\xFF\xFF") + Holding(29, Integer(3))));
    ASSERT_TRUE(decoded.IsDone()) << tag;
    ASSERT_EQ(decoded.group->Items.Size(), 1U) << tag;
    EXPECT_EQ(decoded.ItemAt<Text>(0).Reference.Number, 3);
  }
}

TEST(DecodeItems, keep_their_order_with_and_without_wrappers) {
  const Bytes one = Holding(29, Integer(1));
  const Bytes two = Holding(12, Integer(2));
  const Bytes three = Holding(20, Integer(3));
  for (const Bytes& items : {one + two + three, Sequence(one + two + three),
                             Sequence(one) + Sequence(Sequence(two) + three),
                             one + Sequence("") + Sequence(two) + three}) {
    const Decoded decoded = Decode(FileWithItems(items));
    ASSERT_TRUE(decoded.IsDone());
    ASSERT_EQ(decoded.group->Items.Size(), 3U);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(decoded.group->Items.At(i)->Record()->Reference.Number, static_cast<int>(i + 1));
    }
  }
}

TEST(DecodeItems, another_universal_type_in_the_list_is_refused) {
  for (const Bytes& other : {Integer(1), Null(), Octets("x"), Element(0, true, 17, "")}) {
    EXPECT_FALSE(Decode(FileWithItems(Holding(29, Integer(1)) + other)).IsDone());
  }
}

TEST(DecodeItems, a_failed_item_fails_the_group) {
  const std::size_t before = LiveBlocks();
  EXPECT_FALSE(Decode(FileWithItems(Holding(29, Integer(1)) + Holding(29, Holding(56, Integer(1)))))
                   .IsDone());
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(DecodeItems, rectangle_and_dynamic_line_art_are_read_as_line_art) {
  const Bytes attributes = Primitive(81, "\0"s) + Primitive(82, "\x03") + Primitive(83, "\x02") +
                           Holding(84, Octets("\x01\x02\x03")) + Holding(85, Integer(9));
  for (const std::uint32_t tag : {23U, 24U, 25U}) {
    const OneItem<LineArt> art(tag, attributes);
    ASSERT_TRUE(art.IsDone());
    EXPECT_FALSE(art->BorderedBoundingBox);
    EXPECT_EQ(art->OriginalLineWidth, 3);
    EXPECT_EQ(art->OriginalLineStyle, LineStyle{2});
    EXPECT_EQ(art->OriginalRefLineColour.Kind, ValueKind::OctetString);
    EXPECT_EQ(art->OriginalRefLineColour.Absolute.View(), "\x01\x02\x03");
    EXPECT_EQ(art->OriginalRefFillColour.Kind, ValueKind::Integer);
    EXPECT_EQ(art->OriginalRefFillColour.Index, 9);
  }
  const OneItem<Rectangle> rectangle(25, attributes);
  EXPECT_EQ(rectangle.decoded.group->Items.At(0)->Type(), ItemType::Rectangle);
}

}  // namespace
}  // namespace korvel::test
