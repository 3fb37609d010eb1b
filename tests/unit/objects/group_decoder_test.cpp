// Groups and ingredients from their bytes: which tag fills which field, and what is passed over or
// refused.
#include <gtest/gtest.h>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

// An application or scene whose items list holds these elements.
Bytes FileWithItems(const Bytes& items) { return SceneFile(Holding(8, items)); }

// The first item of a scene that holds an object of that tag with these attributes.
template <class Record>
struct OneItem {
  OneItem(std::uint32_t tag, const Bytes& attributes)
      : decoded(Decode(FileWithItems(Holding(tag, Integer(7) + attributes)))) {}
  [[nodiscard]] bool IsDone() const { return decoded.IsDone(); }
  [[nodiscard]] const Record& operator*() const { return decoded.ItemAt<Record>(0); }
  const Record* operator->() const { return &**this; }
  Decoded decoded;
};

bool IsNotSet(const ColourValue& colour) {
  return colour.Kind == ValueKind::Integer && colour.Index == -1;
}

// ---- The file ----

TEST(DecodeGroup, tag_0_is_an_application_and_tag_1_a_scene) {
  const Decoded application = Decode(ApplicationFile(""));
  ASSERT_TRUE(application.IsDone());
  EXPECT_TRUE(application.isApplication);
  EXPECT_EQ(application.group->Type, ItemType::Application);
  const Decoded scene = Decode(SceneFile(""));
  ASSERT_TRUE(scene.IsDone());
  EXPECT_FALSE(scene.isApplication);
  EXPECT_EQ(scene.group->Type, ItemType::Scene);
}

TEST(DecodeGroup, another_first_tag_is_refused_without_a_record) {
  const Bytes content = External("~/g", 0);
  for (const Bytes& file :
       {Holding(2, content), Holding(230, content), Sequence(content), Element(1, true, 0, content),
        Element(3, true, 0, content), Integer(0), ""s, "\xA0"s, "\xA0\x05"s}) {
    Decoded decoded = Decode(file);
    EXPECT_EQ(decoded.status, Status::Refused) << Hexadecimal(file);
    EXPECT_FALSE(decoded.group);
    EXPECT_FALSE(decoded.isApplication);
    EXPECT_EQ(decoded.errorOffset, 0U);
  }
}

TEST(DecodeGroup, a_refused_file_replaces_what_the_caller_held) {
  Decoded decoded = Decode(ApplicationFile(""));
  ASSERT_TRUE(decoded.group);
  EXPECT_EQ(DecodeGroup({}, decoded.group, decoded.isApplication), Status::Refused);
  EXPECT_FALSE(decoded.group);
  EXPECT_FALSE(decoded.isApplication);
}

TEST(DecodeGroup, a_failure_in_the_contents_leaves_the_partly_built_record) {
  const std::size_t before = LiveBlocks();
  {
    const Decoded decoded =
        Decode(ApplicationFile(Primitive(4, "info") + Holding(3, Boolean(true))));
    EXPECT_EQ(decoded.status, Status::Refused);
    ASSERT_TRUE(decoded.group);
    EXPECT_TRUE(decoded.isApplication);
    EXPECT_EQ(decoded.group->ObjectInformation.View(), "info");
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(DecodeGroup, bytes_behind_the_group_are_not_looked_at) {
  EXPECT_TRUE(Decode(ApplicationFile("") + "\xFF\xFF").IsDone());
}

TEST(DecodeGroup, the_error_offset_is_that_of_the_element_that_cannot_be_taken) {
  const Bytes good = Primitive(4, "info");
  const Bytes file = SceneFile(good + Primitive(3, "\x01") + Holding(54, Integer(1)));
  // The INTEGER where a BOOLEAN belongs is the last element of the file.
  EXPECT_EQ(Decode(file).errorOffset, file.size() - Integer(1).size());
}

// ---- References ----

TEST(DecodeReference, a_bare_integer_has_no_group_and_an_external_one_has) {
  const Decoded decoded =
      Decode(FileWithItems(Holding(12, Integer(5)) + Holding(12, External("~/abc", 5))));
  ASSERT_TRUE(decoded.IsDone());
  const ObjectReference& bare = decoded.ItemAt<Palette>(0).Reference;
  EXPECT_FALSE(bare.GroupIdentifier.IsPresent());
  EXPECT_EQ(bare.Number, 5);
  const ObjectReference& external = decoded.ItemAt<Palette>(1).Reference;
  EXPECT_EQ(external.GroupIdentifier.View(), "~/abc");
  EXPECT_EQ(external.GroupIdentifier.Text()[5], '\0');
  EXPECT_EQ(external.Number, 5);
}

TEST(DecodeReference, an_empty_group_identifier_is_not_an_absent_one) {
  const Decoded decoded = Decode(FileWithItems(Holding(12, External("", 1))));
  ASSERT_TRUE(decoded.IsDone());
  EXPECT_TRUE(decoded.ItemAt<Palette>(0).Reference.GroupIdentifier.IsPresent());
}

TEST(DecodeReference, another_type_where_a_reference_stands_leaves_it_empty) {
  const Bytes condition = Holding(62, Boolean(true) + Enumerated(6));
  const OneItem<Link> link(20, condition);
  ASSERT_TRUE(link.IsDone());
  EXPECT_FALSE(link->Condition.EventSource.GroupIdentifier.IsPresent());
  EXPECT_EQ(link->Condition.EventSource.Number, 0);
  EXPECT_EQ(link->Condition.EventType, 6);
}

TEST(DecodeReference, a_sequence_must_hold_an_octet_string_and_an_integer) {
  for (const Bytes& inner : {Integer(1) + Integer(2), Octets("~/a"), Octets("~/a") + Boolean(true),
                             Octets("~/a") + Enumerated(1), Null() + Integer(1), ""s,
                             Octets("~/a") + Integer(1) + Integer(2)}) {
    EXPECT_FALSE(Decode(FileWithItems(Holding(12, Sequence(inner)))).IsDone())
        << Hexadecimal(inner);
  }
}

TEST(DecodeReference, every_form_under_a_context_tag_is_read) {
  const Bytes forms[] = {Primitive(78, "\x09"), Holding(78, Integer(9)),
                         Holding(78, External("~/g", 9)), Holding(78, Octets("~/g") + Integer(9))};
  for (const Bytes& form : forms) {
    const OneItem<Bitmap> bitmap(22, form);
    ASSERT_TRUE(bitmap.IsDone()) << Hexadecimal(form);
    EXPECT_TRUE(bitmap->OriginalPaletteRef.IsPresent);
    EXPECT_EQ(bitmap->OriginalPaletteRef.Reference.Number, 9);
  }
}

// ---- Implicit and explicit tags ----

TEST(DecodeAttribute, implicit_and_explicit_tags_give_the_same) {
  for (const Bytes& attributes :
       {Primitive(51, "\x04") + Primitive(54, "\x01") + Primitive(4, "info"),
        Holding(51, Integer(4)) + Holding(54, Boolean(true)) + Holding(4, Octets("info"))}) {
    const Decoded decoded = Decode(SceneFile(attributes));
    ASSERT_TRUE(decoded.IsDone());
    EXPECT_EQ(decoded.group.AsScene().InputEventReg, 4);
    EXPECT_TRUE(decoded.group.AsScene().MovingCursor);
    EXPECT_EQ(decoded.group->ObjectInformation.View(), "info");
  }
}

TEST(DecodeAttribute, an_explicit_tag_must_hold_one_element_of_its_type) {
  for (const Bytes& attribute :
       {Holding(51, Boolean(true)), Holding(51, Octets("\x01")), Holding(51, Enumerated(1)),
        Holding(51, ""), Holding(51, Integer(1) + Integer(2)), Holding(54, Integer(1)),
        Holding(4, Integer(1)), Holding(51, Holding(1, Integer(1)))}) {
    EXPECT_FALSE(Decode(SceneFile(attribute)).IsDone()) << Hexadecimal(attribute);
  }
}

TEST(DecodeAttribute, a_boolean_is_one_byte_of_which_any_bit_makes_it_true) {
  EXPECT_TRUE(Decode(SceneFile(Primitive(54, "\x01"))).group.AsScene().MovingCursor);
  EXPECT_TRUE(Decode(SceneFile(Primitive(54, "\x80"))).group.AsScene().MovingCursor);
  EXPECT_FALSE(Decode(SceneFile(Primitive(54, "\0"s))).group.AsScene().MovingCursor);
  EXPECT_FALSE(Decode(SceneFile(Primitive(54, ""))).IsDone());
  EXPECT_FALSE(Decode(SceneFile(Primitive(54, "\0\1"s))).IsDone());
}

TEST(DecodeAttribute, sequences_are_read_with_and_without_an_explicit_tag) {
  const Bytes size = Integer(720) + Integer(576);
  for (const Bytes& attribute : {Holding(52, size), Holding(52, Sequence(size))}) {
    const Decoded decoded = Decode(SceneFile(attribute));
    ASSERT_TRUE(decoded.IsDone());
    EXPECT_EQ(decoded.group.AsScene().SceneCS.Width, 720);
    EXPECT_EQ(decoded.group.AsScene().SceneCS.Height, 576);
  }
  EXPECT_FALSE(Decode(SceneFile(Holding(52, Integer(720)))).IsDone());
  EXPECT_FALSE(Decode(SceneFile(Holding(52, size + Integer(1)))).IsDone());
  EXPECT_FALSE(Decode(SceneFile(Holding(52, Integer(720) + Boolean(true)))).IsDone());
}

TEST(DecodeAttribute, a_repeated_attribute_replaces_and_releases_the_first) {
  const std::size_t before = LiveBlocks();
  {
    const Bytes colour = Holding(39, Octets("\x01\x02\x03"));
    const OneItem<Text> text(29, colour + Holding(39, Integer(4)) + Primitive(43, "one") +
                                     Primitive(43, "two"));
    ASSERT_TRUE(text.IsDone());
    EXPECT_EQ(text->BackgroundColour.Kind, ValueKind::Integer);
    EXPECT_EQ(text->BackgroundColour.Index, 4);
    EXPECT_EQ(text->FontAttributes.View(), "two");
  }
  EXPECT_EQ(LiveBlocks(), before);
}

TEST(DecodeBody, unknown_tags_are_passed_over_and_foreign_classes_refused) {
  const Bytes known = Primitive(51, "\x04");
  for (const Bytes& unknown : {Primitive(99, "any"), Holding(200, "\xFF\xFF\xFF"), Boolean(true),
                               Null(), Element(0, true, 17, Integer(1)), Octets("x")}) {
    const Decoded decoded = Decode(SceneFile(unknown + known));
    ASSERT_TRUE(decoded.IsDone()) << Hexadecimal(unknown);
    EXPECT_EQ(decoded.group.AsScene().InputEventReg, 4);
    EXPECT_TRUE(Decode(FileWithItems(Holding(29, Integer(1) + unknown))).IsDone());
  }
  for (const unsigned foreign : {1U, 3U}) {
    const Bytes element = Element(foreign, true, 51, Integer(1));
    EXPECT_FALSE(Decode(SceneFile(element)).IsDone());
    EXPECT_FALSE(Decode(FileWithItems(element)).IsDone());
    EXPECT_FALSE(Decode(FileWithItems(Holding(29, element))).IsDone());
  }
}

// ---- Groups ----

TEST(DecodeApplication, only_a_reference_gives_the_defaults_and_no_items) {
  const Decoded decoded = Decode(ApplicationFile(""));
  ASSERT_TRUE(decoded.IsDone());
  const Application& application = decoded.group.AsApplication();
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
  const DefaultAttributes& defaults = decoded.group.AsApplication().Defaults;
  for (const std::int32_t hook :
       {defaults.TextContentHook, defaults.InterchangedProgramContentHook,
        defaults.StreamContentHook, defaults.BitmapContentHook, defaults.LineArtContentHook}) {
    EXPECT_EQ(hook, -1);
  }
  EXPECT_TRUE(IsNotSet(defaults.BackgroundColour));
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
    const DefaultAttributes& defaults = decoded.group.AsApplication().Defaults;
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
  const Application& application = decoded.group.AsApplication();
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
  EXPECT_EQ(plain.group.AsScene().Aspect.Width, 4);
  EXPECT_EQ(plain.group.AsScene().Aspect.Height, 3);
  EXPECT_FALSE(plain.group.AsScene().MovingCursor);
  EXPECT_EQ(plain.group.AsScene().InputEventReg, 0);
  const Bytes next = Holding(55, Sequence(Octets("~/one") + Integer(1)) +
                                     Sequence(Octets("~/two") + Integer(255)));
  const Decoded decoded =
      Decode(SceneFile(Primitive(51, "\x03") + Holding(53, Integer(16) + Integer(9)) + next));
  ASSERT_TRUE(decoded.IsDone());
  const Scene& scene = decoded.group.AsScene();
  EXPECT_EQ(scene.InputEventReg, 3);
  EXPECT_EQ(scene.Aspect.Width, 16);
  EXPECT_EQ(scene.Aspect.Height, 9);
  ASSERT_EQ(scene.NextScenes.Size(), 2U);
  EXPECT_EQ(scene.NextScenes.At(1)->SceneReference.View(), "~/two");
  EXPECT_EQ(scene.NextScenes.At(1)->Weight, 255);
}

TEST(DecodeScene, next_scenes_are_read_behind_an_explicit_tag_too) {
  const Bytes list = Sequence(Octets("~/one") + Integer(1));
  const Decoded decoded = Decode(SceneFile(Holding(55, Sequence(list))));
  ASSERT_TRUE(decoded.IsDone());
  EXPECT_EQ(decoded.group.AsScene().NextScenes.Size(), 1U);
}

TEST(DecodeScene, has_no_attributes_of_an_application) {
  EXPECT_TRUE(Decode(SceneFile(Primitive(35, "junk"))).IsDone());
  EXPECT_FALSE(Decode(ApplicationFile(Holding(35, Null()))).IsDone());
}

// ---- Items ----

TEST(DecodeItems, every_item_tag_makes_its_class) {
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

TEST(DecodeItems, tags_of_no_item_are_passed_over_and_the_next_item_is_read) {
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
    EXPECT_EQ(art->OriginalLineStyle, 2);
    EXPECT_EQ(art->OriginalRefLineColour.Kind, ValueKind::OctetString);
    EXPECT_EQ(art->OriginalRefLineColour.Absolute.View(), "\x01\x02\x03");
    EXPECT_EQ(art->OriginalRefFillColour.Kind, ValueKind::Integer);
    EXPECT_EQ(art->OriginalRefFillColour.Index, 9);
  }
  const OneItem<Rectangle> rectangle(25, attributes);
  EXPECT_EQ(rectangle.decoded.group->Items.At(0)->Type(), ItemType::Rectangle);
}

// ---- Ingredients ----

TEST(DecodeIngredient, starts_from_its_defaults) {
  const OneItem<Palette> palette(12, "");
  ASSERT_TRUE(palette.IsDone());
  EXPECT_EQ(palette->Reference.Number, 7);
  EXPECT_TRUE(palette->InitiallyActive);
  EXPECT_FALSE(palette->Shared);
  EXPECT_FALSE(palette->OriginalContent.Data.IsPresent());
  EXPECT_EQ(palette->OriginalContent.CachePriority, 127);
  EXPECT_FALSE(palette->AvailabilityStatus);
}

TEST(DecodeIngredient, reads_the_common_attributes) {
  const OneItem<Palette> palette(12, Primitive(56, "\0"s) + Primitive(57, "\x08") +
                                         Primitive(59, "\x01"));
  EXPECT_FALSE(palette->InitiallyActive);
  EXPECT_EQ(palette->ContentHOOK, 8);
  EXPECT_TRUE(palette->Shared);
}

TEST(DecodeIngredient, included_content_is_an_octet_string) {
  for (const Bytes& attribute : {Holding(58, Octets("hello")), Primitive(58, "hello")}) {
    const OneItem<Text> text(29, attribute);
    ASSERT_TRUE(text.IsDone());
    EXPECT_FALSE(text->OriginalContent.IsReferenced);
    EXPECT_EQ(text->OriginalContent.Data.View(), "hello");
  }
}

TEST(DecodeIngredient, referenced_content_has_an_optional_size_and_priority) {
  struct Case {
    Bytes behindPath;
    std::int32_t size;
    std::int32_t priority;
  };
  const Case cases[] = {{"", 0, 127},
                        {Integer(1000), 1000, 127},
                        {Integer(1000) + Integer(9), 1000, 9},
                        {Primitive(60, "\x05"), 5, 127},
                        {Primitive(61, "\x06"), 0, 6},
                        {Primitive(60, "\x05") + Primitive(61, "\x06"), 5, 6},
                        {Primitive(61, "\x06") + Primitive(60, "\x05"), 5, 6},
                        {Holding(60, Integer(5)) + Holding(61, Integer(6)), 5, 6},
                        {Primitive(62, "\x07") + Integer(5), 5, 127}};
  for (const Case& expected : cases) {
    const OneItem<Bitmap> bitmap(22, Holding(58, Sequence(Octets("/a.png") + expected.behindPath)));
    ASSERT_TRUE(bitmap.IsDone()) << Hexadecimal(expected.behindPath);
    EXPECT_TRUE(bitmap->OriginalContent.IsReferenced);
    EXPECT_EQ(bitmap->OriginalContent.Data.View(), "/a.png");
    EXPECT_EQ(bitmap->OriginalContent.Size, expected.size);
    EXPECT_EQ(bitmap->OriginalContent.CachePriority, expected.priority);
  }
  for (const Bytes& behind :
       {Integer(1) + Integer(2) + Integer(3), Boolean(true), Holding(60, Null())}) {
    const OneItem<Bitmap> bitmap(22, Holding(58, Sequence(Octets("/a.png") + behind)));
    EXPECT_FALSE(bitmap.IsDone()) << Hexadecimal(behind);
  }
}

TEST(DecodeIngredient, classes_without_content_pass_content_over) {
  const OneItem<Link> link(20, Holding(58, Integer(1)) + Primitive(57, "\x05"));
  ASSERT_TRUE(link.IsDone());
  EXPECT_EQ(link->ContentHOOK, 0);
}

TEST(DecodeColour, is_an_index_or_an_absolute_colour_and_nothing_else) {
  const OneItem<Text> index(29, Holding(41, Integer(5)));
  EXPECT_EQ(index->TextColour.Kind, ValueKind::Integer);
  EXPECT_EQ(index->TextColour.Index, 5);
  const OneItem<Text> absolute(29, Holding(41, Octets("\xFF\x01\x02\x03")));
  EXPECT_EQ(absolute->TextColour.Kind, ValueKind::OctetString);
  EXPECT_EQ(absolute->TextColour.Absolute.View(), "\xFF\x01\x02\x03");
  EXPECT_FALSE(OneItem<Text>(29, Holding(41, Boolean(true))).IsDone());
  EXPECT_FALSE(OneItem<Text>(29, Primitive(41, "\x05")).IsDone());
}

TEST(DecodeFont, is_a_name_or_a_reference) {
  const OneItem<Text> name(29, Holding(86, Octets("rec://font/uk1")));
  EXPECT_EQ(name->OriginalFont.Kind, ValueKind::OctetString);
  EXPECT_EQ(name->OriginalFont.Name.View(), "rec://font/uk1");
  const OneItem<Text> internal(29, Holding(86, Integer(4)));
  EXPECT_EQ(internal->OriginalFont.Kind, ValueKind::ObjectReference);
  EXPECT_EQ(internal->OriginalFont.Reference.Number, 4);
  const OneItem<Text> external(29, Holding(86, External("~/app", 4)));
  EXPECT_EQ(external->OriginalFont.Reference.GroupIdentifier.View(), "~/app");
  EXPECT_FALSE(OneItem<Text>(29, Holding(86, Null())).IsDone());
}

TEST(DecodeLink, condition_and_effect) {
  const Bytes effect = Holding(63, Holding(115, Integer(1)) + Holding(216, Integer(2)));
  const OneItem<Link> link(20,
                           Holding(62, External("~/a", 3) + Enumerated(7) + Integer(15)) + effect);
  ASSERT_TRUE(link.IsDone());
  EXPECT_EQ(link->Condition.EventSource.GroupIdentifier.View(), "~/a");
  EXPECT_EQ(link->Condition.EventSource.Number, 3);
  EXPECT_EQ(link->Condition.EventType, 7);
  EXPECT_EQ(link->Condition.EventData.Kind, ValueKind::Integer);
  EXPECT_EQ(link->Condition.EventData.Integer, 15);
  EXPECT_EQ(link->LinkEffect.Size(), 2U);
}

TEST(DecodeLink, event_data_has_the_kind_of_its_type_and_none_when_absent) {
  const Bytes start = Integer(3) + Enumerated(6);
  EXPECT_EQ(OneItem<Link>(20, Holding(62, start))->Condition.EventData.Kind, ValueKind::None);
  const OneItem<Link> boolean(20, Holding(62, start + Boolean(true)));
  EXPECT_EQ(boolean->Condition.EventData.Kind, ValueKind::Boolean);
  EXPECT_TRUE(boolean->Condition.EventData.Boolean);
  const OneItem<Link> octets(20, Holding(62, start + Octets("x")));
  EXPECT_EQ(octets->Condition.EventData.Kind, ValueKind::OctetString);
  EXPECT_EQ(octets->Condition.EventData.Octets.View(), "x");
  EXPECT_FALSE(OneItem<Link>(20, Holding(62, start + Null())).IsDone());
}

TEST(DecodeLink, condition_is_read_behind_an_explicit_tag_with_either_reference) {
  for (const Bytes& source : {Integer(3), External("~/a", 3)}) {
    const Bytes condition = source + Enumerated(6);
    const OneItem<Link> link(20, Holding(62, Sequence(condition)));
    ASSERT_TRUE(link.IsDone());
    EXPECT_EQ(link->Condition.EventSource.Number, 3);
    EXPECT_EQ(link->Condition.EventType, 6);
  }
}

TEST(DecodeProgram, name_availability_and_connection) {
  const OneItem<RemoteProgram> remote(10, Primitive(64, "prg") + Primitive(65, "\0"s) +
                                              Primitive(66, "\x05"));
  ASSERT_TRUE(remote.IsDone());
  EXPECT_EQ(remote->Name.View(), "prg");
  EXPECT_FALSE(remote->InitiallyAvailable);
  EXPECT_EQ(remote->ProgramConnectionTag, 5);
  EXPECT_TRUE(OneItem<ResidentProgram>(9, "")->InitiallyAvailable);
}

TEST(DecodeVariable, each_class_has_the_value_of_its_type) {
  EXPECT_TRUE(OneItem<BooleanVariable>(15, Holding(67, Boolean(true)))->OriginalValue);
  EXPECT_EQ(OneItem<IntegerVariable>(16, Holding(67, Integer(-5)))->OriginalValue, -5);
  EXPECT_EQ(OneItem<OctetStringVariable>(17, Holding(67, Octets("x")))->OriginalValue.View(), "x");
  const OneItem<ObjectRefVariable> reference(18, Holding(67, Holding(68, External("~/a", 4))));
  ASSERT_TRUE(reference.IsDone());
  EXPECT_EQ(reference->OriginalValue.GroupIdentifier.View(), "~/a");
  EXPECT_EQ(reference->OriginalValue.Number, 4);
  const OneItem<ContentRefVariable> content(19, Holding(67, Primitive(69, "/a.png")));
  ASSERT_TRUE(content.IsDone());
  EXPECT_EQ(content->OriginalValue.Path.View(), "/a.png");
  EXPECT_EQ(OneItem<ContentRefVariable>(19, Holding(67, Holding(69, Octets("/a.png"))))
                ->OriginalValue.Path.View(),
            "/a.png");
}

TEST(DecodeVariable, a_value_of_another_type_is_refused) {
  EXPECT_FALSE(OneItem<BooleanVariable>(15, Holding(67, Integer(1))).IsDone());
  EXPECT_FALSE(OneItem<IntegerVariable>(16, Holding(67, Octets("1"))).IsDone());
  EXPECT_FALSE(OneItem<ObjectRefVariable>(18, Holding(67, Primitive(69, "x"))).IsDone());
  EXPECT_FALSE(OneItem<ContentRefVariable>(19, Holding(67, Holding(68, Integer(1)))).IsDone());
}

TEST(DecodeVariable, the_internal_value_is_left_to_preparation) {
  const OneItem<IntegerVariable> variable(16, Holding(67, Integer(5)));
  EXPECT_EQ(variable->Value, 0);
}

TEST(DecodeTokenGroup, movements_members_and_slots) {
  const Bytes row = Sequence(Integer(2) + Integer(1));
  const Bytes slots = Sequence(Sequence(Holding(115, Integer(9))) + Null() + Sequence(""));
  const Bytes members =
      Sequence(Integer(1) + slots) + Sequence(External("~/a", 2)) + Sequence(Integer(3));
  const Bytes attributes = Holding(70, row + Sequence(Integer(0) + Integer(0))) +
                           Holding(71, members) +
                           Holding(72, Null() + Sequence(Holding(115, Integer(8))));
  const OneItem<TokenGroup> group(33, attributes);
  ASSERT_TRUE(group.IsDone());
  ASSERT_EQ(group->MovementTable.Size(), 2U);
  EXPECT_EQ(*group->MovementTable.At(0)->Targets.At(0), 2);
  ASSERT_EQ(group->TokenGroupItems.Size(), 3U);
  const TokenGroupItem& first = *group->TokenGroupItems.At(0);
  EXPECT_EQ(first.AVisible.Number, 1);
  ASSERT_EQ(first.ActionSlots.Size(), 3U);
  EXPECT_FALSE(first.ActionSlots.At(0)->IsNull);
  EXPECT_EQ(first.ActionSlots.At(0)->Actions.Size(), 1U);
  EXPECT_TRUE(first.ActionSlots.At(1)->IsNull);
  EXPECT_FALSE(first.ActionSlots.At(2)->IsNull);
  EXPECT_TRUE(first.ActionSlots.At(2)->Actions.IsEmpty());
  EXPECT_EQ(group->TokenGroupItems.At(1)->AVisible.GroupIdentifier.View(), "~/a");
  EXPECT_TRUE(group->TokenGroupItems.At(2)->ActionSlots.IsEmpty());
  ASSERT_EQ(group->NoTokenActionSlots.Size(), 2U);
  EXPECT_TRUE(group->NoTokenActionSlots.At(0)->IsNull);
}

TEST(DecodeTokenGroup, lists_are_read_behind_explicit_tags_too) {
  const Bytes row = Sequence(Integer(2) + Integer(1));
  for (const Bytes& member : {Sequence(Integer(1)), Sequence(External("~/a", 1)),
                              Sequence(External("~/a", 1) + Sequence(Null()))}) {
    const OneItem<TokenGroup> group(33,
                                    Holding(70, Sequence(row)) + Holding(71, Sequence(member)) +
                                        Holding(72, Sequence(Sequence(Holding(115, Integer(8))))));
    ASSERT_TRUE(group.IsDone()) << Hexadecimal(member);
    ASSERT_EQ(group->MovementTable.Size(), 1U);
    EXPECT_EQ(group->MovementTable.At(0)->Targets.Size(), 2U);
    ASSERT_EQ(group->TokenGroupItems.Size(), 1U);
    EXPECT_EQ(group->TokenGroupItems.At(0)->AVisible.Number, 1);
    ASSERT_EQ(group->NoTokenActionSlots.Size(), 1U);
    EXPECT_EQ(group->NoTokenActionSlots.At(0)->Actions.Size(), 1U);
  }
}

TEST(DecodeListGroup, adds_positions_and_flags_to_a_token_group) {
  const Bytes positions =
      Sequence(Integer(10) + Integer(20)) + Sequence(Integer(-1) + Integer(300));
  const OneItem<ListGroup> plain(34, "");
  EXPECT_FALSE(plain->WrapAround);
  EXPECT_FALSE(plain->MultipleSelection);
  for (const Bytes& attribute : {Holding(73, positions), Holding(73, Sequence(positions))}) {
    const OneItem<ListGroup> list(34, Holding(71, Sequence(Integer(1))) + attribute +
                                          Primitive(74, "\x01") + Primitive(75, "\x01"));
    ASSERT_TRUE(list.IsDone());
    ASSERT_EQ(list->Positions.Size(), 2U);
    EXPECT_EQ(list->Positions.At(1)->X, -1);
    EXPECT_EQ(list->Positions.At(1)->Y, 300);
    EXPECT_TRUE(list->WrapAround);
    EXPECT_TRUE(list->MultipleSelection);
    EXPECT_EQ(list->TokenGroupItems.Size(), 1U);
  }
}

TEST(DecodeVisible, box_position_and_bitmap_attributes) {
  const OneItem<Bitmap> plain(22, "");
  EXPECT_FALSE(plain->Tiling);
  EXPECT_EQ(plain->OriginalTransparency, 0);
  EXPECT_FALSE(plain->OriginalPaletteRef.IsPresent);
  EXPECT_EQ(plain->OriginalPosition.X, 0);
  const OneItem<Bitmap> bitmap(22, Holding(76, Integer(100) + Integer(50)) +
                                       Holding(77, Integer(-5) + Integer(6)) +
                                       Primitive(79, "\x01") + Primitive(80, "\x32"));
  ASSERT_TRUE(bitmap.IsDone());
  EXPECT_EQ(bitmap->OriginalBoxSize.Width, 100);
  EXPECT_EQ(bitmap->OriginalBoxSize.Height, 50);
  EXPECT_EQ(bitmap->OriginalPosition.X, -5);
  EXPECT_EQ(bitmap->OriginalPosition.Y, 6);
  EXPECT_TRUE(bitmap->Tiling);
  EXPECT_EQ(bitmap->OriginalTransparency, 50);
}

TEST(DecodeLineArt, without_attributes_has_its_defaults) {
  const OneItem<LineArt> art(23, "");
  EXPECT_TRUE(art->BorderedBoundingBox);
  EXPECT_EQ(art->OriginalLineWidth, 1);
  EXPECT_EQ(art->OriginalLineStyle, 1);
  EXPECT_TRUE(IsNotSet(art->OriginalRefLineColour));
  EXPECT_TRUE(IsNotSet(art->OriginalRefFillColour));
}

TEST(DecodeText, layout_attributes_and_their_defaults) {
  const OneItem<Text> plain(29, "");
  EXPECT_EQ(plain->HorizontalJustification, 1);
  EXPECT_EQ(plain->VerticalJustification, 1);
  EXPECT_EQ(plain->LineOrientation, 2);
  EXPECT_EQ(plain->StartCorner, 1);
  EXPECT_FALSE(plain->TextWrapping);
  EXPECT_EQ(plain->TextColour.Kind, ValueKind::None);
  const OneItem<Text> text(29, Primitive(38, "\x0A") + Primitive(43, "plain") +
                                   Primitive(87, "\x03") + Holding(88, Enumerated(2)) +
                                   Primitive(89, "\x01") + Primitive(90, "\x04") +
                                   Primitive(91, "\x01"));
  ASSERT_TRUE(text.IsDone());
  EXPECT_EQ(text->CharacterSet, 10);
  EXPECT_EQ(text->FontAttributes.View(), "plain");
  EXPECT_EQ(text->HorizontalJustification, 3);
  EXPECT_EQ(text->VerticalJustification, 2);
  EXPECT_EQ(text->LineOrientation, 1);
  EXPECT_EQ(text->StartCorner, 4);
  EXPECT_TRUE(text->TextWrapping);
}

TEST(DecodeText, an_unknown_number_of_an_enumeration_is_kept) {
  EXPECT_EQ(OneItem<Text>(29, Primitive(87, "\x63"))->HorizontalJustification, 99);
}

TEST(DecodeInteractible, entry_field_hyper_text_buttons_and_slider) {
  const Bytes interactible = Primitive(101, "\0"s) + Holding(49, Integer(2));
  const OneItem<EntryField> field(30, interactible + Primitive(109, "\x02") +
                                          Primitive(110, "0123") + Primitive(111, "\x01") +
                                          Primitive(112, "\x0C"));
  ASSERT_TRUE(field.IsDone());
  EXPECT_FALSE(field->EngineResp);
  EXPECT_EQ(field->HighlightRefColour.Index, 2);
  EXPECT_EQ(field->InputType, 2);
  EXPECT_EQ(field->CharList.View(), "0123");
  EXPECT_TRUE(field->ObsuredInput);
  EXPECT_EQ(field->MaxLength, 12);
  EXPECT_FALSE(OneItem<HyperText>(31, interactible)->EngineResp);
  const OneItem<SwitchButton> button(27, interactible + Holding(48, Integer(3)) +
                                             Primitive(113, "label") + Primitive(38, "\x0A") +
                                             Primitive(114, "\x03"));
  ASSERT_TRUE(button.IsDone());
  EXPECT_EQ(button->ButtonRefColour.Index, 3);
  EXPECT_EQ(button->OriginalLabel.View(), "label");
  EXPECT_EQ(button->CharacterSet, 10);
  EXPECT_EQ(button->ButtonStyle, 3);
  const OneItem<Slider> slider(32, interactible + Primitive(102, "\x04") + Primitive(103, "\x0A") +
                                       Primitive(104, "\xFF") + Primitive(105, "\x05") +
                                       Primitive(106, "\x02") + Primitive(107, "\x03") +
                                       Primitive(108, "\x02") + Holding(50, Integer(6)));
  ASSERT_TRUE(slider.IsDone());
  EXPECT_EQ(slider->Orientation, 4);
  EXPECT_EQ(slider->MaxValue, 10);
  EXPECT_EQ(slider->MinValue, -1);
  EXPECT_EQ(slider->InitialValue, 5);
  EXPECT_EQ(slider->InitialPortion, 2);
  EXPECT_EQ(slider->StepSize, 3);
  EXPECT_EQ(slider->SliderStyle, 2);
  EXPECT_EQ(slider->SliderRefColour.Index, 6);
}

TEST(DecodeStream, components_belong_to_the_stream_and_not_to_the_items) {
  const Bytes audio = Holding(95, Integer(11) + Primitive(98, "\x01") + Primitive(99, "\x07"));
  const Bytes video =
      Holding(96, Integer(12) + Holding(76, Integer(720) + Integer(576)) + Primitive(98, "\x02") +
                      Primitive(100, "\x01") + Primitive(56, "\0"s));
  const Bytes graphics = Holding(97, Integer(13) + Primitive(98, "\x03") + Primitive(78, "\x05"));
  for (const Bytes& list : {audio + video + graphics, Sequence(audio + video) + graphics}) {
    const OneItem<Stream> stream(21, Holding(92, list + Holding(29, Integer(1))) +
                                         Primitive(93, "\x01") + Primitive(94, "\x00"s));
    ASSERT_TRUE(stream.IsDone());
    EXPECT_EQ(stream.decoded.group->Items.Size(), 1U);
    ASSERT_EQ(stream->Multiplex.Size(), 3U);
    EXPECT_EQ(stream->Multiplex.At(0)->Type(), ItemType::Audio);
    EXPECT_EQ(stream->Multiplex.At(0)->As<Audio>().ComponentTag, 1);
    EXPECT_EQ(stream->Multiplex.At(0)->As<Audio>().OriginalVolume, 7);
    EXPECT_EQ(stream->Multiplex.At(1)->Type(), ItemType::Video);
    EXPECT_EQ(stream->Multiplex.At(1)->As<Video>().Reference.Number, 12);
    EXPECT_EQ(stream->Multiplex.At(1)->As<Video>().OriginalBoxSize.Width, 720);
    EXPECT_EQ(stream->Multiplex.At(1)->As<Video>().Termination, 1);
    EXPECT_FALSE(stream->Multiplex.At(1)->As<Video>().InitiallyActive);
    EXPECT_EQ(stream->Multiplex.At(2)->Type(), ItemType::RTGraphics);
    EXPECT_TRUE(stream->Multiplex.At(2)->As<RTGraphics>().OriginalPaletteRef.IsPresent);
    EXPECT_EQ(stream->Storage, 1);
    EXPECT_EQ(stream->Looping, 0);
  }
}

TEST(DecodeStream, starts_from_its_defaults) {
  const OneItem<Stream> stream(21, Holding(92, Holding(96, Integer(1)) + Holding(95, Integer(2))));
  ASSERT_TRUE(stream.IsDone());
  EXPECT_EQ(stream->Storage, 2);
  EXPECT_EQ(stream->Looping, 1);
  EXPECT_EQ(stream->Speed.Numerator, 1);
  EXPECT_EQ(stream->Speed.Denominator, 1);
  EXPECT_EQ(stream->CounterPosition, 0);
  EXPECT_EQ(stream->CounterEndPosition, -1);
  EXPECT_TRUE(stream->CounterTriggers.IsEmpty());
  EXPECT_EQ(stream->Multiplex.At(0)->As<Video>().Termination, 2);
  EXPECT_EQ(stream->Multiplex.At(1)->As<Audio>().OriginalVolume, 0);
}

TEST(DecodeStream, video_has_no_palette_and_components_no_content) {
  const OneItem<Stream> stream(
      21, Holding(92, Holding(96, Integer(1) + Primitive(78, "\x05") + Holding(58, Null()) +
                                      Primitive(59, "\x01"))));
  ASSERT_TRUE(stream.IsDone());
  EXPECT_FALSE(stream->Multiplex.At(0)->As<Video>().OriginalPaletteRef.IsPresent);
  EXPECT_FALSE(stream->Multiplex.At(0)->As<Video>().Shared);
}

}  // namespace
}  // namespace korvel::test
