// Decoding values common to many classes: references, implicit and explicit tags, sequences,
// colours and fonts, and which other elements are skipped or refused.
#include <gtest/gtest.h>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

// ---- References ----

TEST(DecodeReference, a_bare_integer_has_no_group_but_an_external_reference_has_one) {
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

TEST(DecodeReference, another_type_in_place_of_a_reference_leaves_it_empty) {
  const Bytes condition = Holding(62, Boolean(true) + Enumerated(6));
  const OneItem<Link> link(20, condition);
  ASSERT_TRUE(link.IsDone());
  EXPECT_FALSE(link->Condition.EventSource.GroupIdentifier.IsPresent());
  EXPECT_EQ(link->Condition.EventSource.Number, 0);
  EXPECT_EQ(link->Condition.EventType, EventType{6});
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

TEST(DecodeAttribute, implicit_and_explicit_tags_decode_to_the_same_values) {
  for (const Bytes& attributes :
       {Primitive(51, "\x04") + Primitive(54, "\x01") + Primitive(4, "info"),
        Holding(51, Integer(4)) + Holding(54, Boolean(true)) + Holding(4, Octets("info"))}) {
    const Decoded decoded = Decode(SceneFile(attributes));
    ASSERT_TRUE(decoded.IsDone());
    EXPECT_EQ(AsScene(decoded.group).InputEventReg, 4);
    EXPECT_TRUE(AsScene(decoded.group).MovingCursor);
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

TEST(DecodeAttribute, a_boolean_is_one_byte_and_true_unless_zero) {
  EXPECT_TRUE(AsScene(Decode(SceneFile(Primitive(54, "\x01"))).group).MovingCursor);
  EXPECT_TRUE(AsScene(Decode(SceneFile(Primitive(54, "\x80"))).group).MovingCursor);
  EXPECT_FALSE(AsScene(Decode(SceneFile(Primitive(54, "\0"s))).group).MovingCursor);
  EXPECT_FALSE(Decode(SceneFile(Primitive(54, ""))).IsDone());
  EXPECT_FALSE(Decode(SceneFile(Primitive(54, "\0\1"s))).IsDone());
}

TEST(DecodeAttribute, sequences_are_read_with_and_without_an_explicit_tag) {
  const Bytes size = Integer(720) + Integer(576);
  for (const Bytes& attribute : {Holding(52, size), Holding(52, Sequence(size))}) {
    const Decoded decoded = Decode(SceneFile(attribute));
    ASSERT_TRUE(decoded.IsDone());
    EXPECT_EQ(AsScene(decoded.group).SceneCS.Width, 720);
    EXPECT_EQ(AsScene(decoded.group).SceneCS.Height, 576);
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

TEST(DecodeBody, unknown_tags_are_skipped_and_foreign_classes_refused) {
  const Bytes known = Primitive(51, "\x04");
  for (const Bytes& unknown : {Primitive(99, "any"), Holding(200, "\xFF\xFF\xFF"), Boolean(true),
                               Null(), Element(0, true, 17, Integer(1)), Octets("x")}) {
    const Decoded decoded = Decode(SceneFile(unknown + known));
    ASSERT_TRUE(decoded.IsDone()) << Hexadecimal(unknown);
    EXPECT_EQ(AsScene(decoded.group).InputEventReg, 4);
    EXPECT_TRUE(Decode(FileWithItems(Holding(29, Integer(1) + unknown))).IsDone());
  }
  for (const unsigned foreign : {1U, 3U}) {
    const Bytes element = Element(foreign, true, 51, Integer(1));
    EXPECT_FALSE(Decode(SceneFile(element)).IsDone());
    EXPECT_FALSE(Decode(FileWithItems(element)).IsDone());
    EXPECT_FALSE(Decode(FileWithItems(Holding(29, element))).IsDone());
  }
}

// ---- Colours and fonts ----

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

}  // namespace
}  // namespace korvel::test
