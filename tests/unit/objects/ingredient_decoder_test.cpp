// Decoding the objects of a group: which tag sets which field of which class.
#include <gtest/gtest.h>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

bool IsNotSet(const ColourValue& colour) {
  return colour.Kind == ValueKind::Integer && colour.Index == -1;
}

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

TEST(DecodeIngredient, only_the_original_cache_priority_starts_at_127) {
  for (const Bytes& attribute : {Bytes(), Holding(58, Octets("hello"))}) {
    const OneItem<Palette> palette(12, attribute);
    ASSERT_TRUE(palette.IsDone());
    EXPECT_EQ(palette->OriginalContent.CachePriority, 127);
    EXPECT_EQ(palette->Content.CachePriority, 0) << "the object is not prepared yet";
  }
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
    Bytes afterPath;
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
    const OneItem<Bitmap> bitmap(22, Holding(58, Sequence(Octets("/a.png") + expected.afterPath)));
    ASSERT_TRUE(bitmap.IsDone()) << Hexadecimal(expected.afterPath);
    EXPECT_TRUE(bitmap->OriginalContent.IsReferenced);
    EXPECT_EQ(bitmap->OriginalContent.Data.View(), "/a.png");
    EXPECT_EQ(bitmap->OriginalContent.Size, expected.size);
    EXPECT_EQ(bitmap->OriginalContent.CachePriority, expected.priority);
  }
  const Bytes truncated = "\x02\x05\x01";  // an integer
  for (const Bytes& extra :
       {Integer(1) + Integer(2) + Integer(3), Boolean(true), Holding(60, Null()), truncated}) {
    const OneItem<Bitmap> bitmap(22, Holding(58, Sequence(Octets("/a.png") + extra)));
    EXPECT_FALSE(bitmap.IsDone()) << Hexadecimal(extra);
  }
}

TEST(DecodeIngredient, classes_without_content_skip_it) {
  const OneItem<Link> link(20, Holding(58, Integer(1)) + Primitive(57, "\x05"));
  ASSERT_TRUE(link.IsDone());
  EXPECT_EQ(link->ContentHOOK, 0);
}

TEST(DecodeLink, reads_condition_and_effect) {
  const Bytes effect = Holding(63, Holding(115, Integer(1)) + Holding(216, Integer(2)));
  const OneItem<Link> link(20,
                           Holding(62, External("~/a", 3) + Enumerated(7) + Integer(15)) + effect);
  ASSERT_TRUE(link.IsDone());
  EXPECT_EQ(link->Condition.EventSource.GroupIdentifier.View(), "~/a");
  EXPECT_EQ(link->Condition.EventSource.Number, 3);
  EXPECT_EQ(link->Condition.EventType, EventType::AnchorFired);
  EXPECT_EQ(link->Condition.EventData.Kind, ValueKind::Integer);
  EXPECT_EQ(link->Condition.EventData.Integer, 15);
  EXPECT_EQ(link->LinkEffect.Size(), 2U);
}

TEST(DecodeLink, event_data_has_the_kind_of_its_type_or_none) {
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

TEST(DecodeLink, condition_may_be_in_an_explicit_sequence_with_either_form_of_reference) {
  for (const Bytes& source : {Integer(3), External("~/a", 3)}) {
    const Bytes condition = source + Enumerated(6);
    const OneItem<Link> link(20, Holding(62, Sequence(condition)));
    ASSERT_TRUE(link.IsDone());
    EXPECT_EQ(link->Condition.EventSource.Number, 3);
    EXPECT_EQ(link->Condition.EventType, EventType::UserInput);
  }
}

TEST(DecodeLink, event_type_may_be_encoded_as_an_integer) {
  const OneItem<Link> link(20, Holding(62, Integer(3) + Integer(6)));
  ASSERT_TRUE(link.IsDone());
  EXPECT_EQ(link->Condition.EventType, EventType::UserInput);
}

TEST(DecodeProgram, reads_name_availability_and_connection) {
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

TEST(DecodeVariable, a_value_of_another_type_is_rejected) {
  EXPECT_FALSE(OneItem<BooleanVariable>(15, Holding(67, Integer(1))).IsDone());
  EXPECT_FALSE(OneItem<IntegerVariable>(16, Holding(67, Octets("1"))).IsDone());
  EXPECT_FALSE(OneItem<ObjectRefVariable>(18, Holding(67, Primitive(69, "x"))).IsDone());
  EXPECT_FALSE(OneItem<ContentRefVariable>(19, Holding(67, Holding(68, Integer(1)))).IsDone());
}

TEST(DecodeVariable, the_run_time_value_is_not_set) {
  const OneItem<IntegerVariable> variable(16, Holding(67, Integer(5)));
  EXPECT_EQ(variable->Value, 0);
}

TEST(DecodeTokenGroup, reads_movements_members_and_slots) {
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

TEST(DecodeTokenGroup, lists_may_be_in_an_explicit_sequence) {
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
  EXPECT_EQ(plain->FirstItem, 1);
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

TEST(DecodeVisible, reads_box_position_and_bitmap_attributes) {
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
  EXPECT_EQ(art->OriginalLineStyle, LineStyle::Solid);
  EXPECT_TRUE(IsNotSet(art->OriginalRefLineColour));
  EXPECT_TRUE(IsNotSet(art->OriginalRefFillColour));
}

TEST(DecodeText, reads_layout_attributes_or_their_defaults) {
  const OneItem<Text> plain(29, "");
  EXPECT_EQ(plain->HorizontalJustification, Justification::Start);
  EXPECT_EQ(plain->VerticalJustification, Justification::Start);
  EXPECT_EQ(plain->LineOrientation, LineOrientation::Horizontal);
  EXPECT_EQ(plain->StartCorner, StartCorner::UpperLeft);
  EXPECT_FALSE(plain->TextWrapping);
  EXPECT_EQ(plain->TextColour.Kind, ValueKind::None);
  const OneItem<Text> text(29, Primitive(38, "\x0A") + Primitive(43, "plain") +
                                   Primitive(87, "\x03") + Holding(88, Enumerated(2)) +
                                   Primitive(89, "\x01") + Primitive(90, "\x04") +
                                   Primitive(91, "\x01"));
  ASSERT_TRUE(text.IsDone());
  EXPECT_EQ(text->CharacterSet, 10);
  EXPECT_EQ(text->FontAttributes.View(), "plain");
  EXPECT_EQ(text->HorizontalJustification, Justification::Centre);
  EXPECT_EQ(text->VerticalJustification, Justification::End);
  EXPECT_EQ(text->LineOrientation, LineOrientation::Vertical);
  EXPECT_EQ(text->StartCorner, StartCorner::LowerRight);
  EXPECT_TRUE(text->TextWrapping);
}

TEST(DecodeText, enumeration_may_be_encoded_as_an_integer) {
  const OneItem<Text> text(29, Holding(88, Integer(2)));
  ASSERT_TRUE(text.IsDone());
  EXPECT_EQ(text->VerticalJustification, Justification::End);
}

TEST(DecodeText, an_unknown_number_of_an_enumeration_is_kept) {
  EXPECT_EQ(OneItem<Text>(29, Primitive(87, "\x63"))->HorizontalJustification, Justification{99});
}

TEST(DecodeInteractible, missing_attributes_have_their_defaults) {
  const OneItem<EntryField> field(30, "");
  ASSERT_TRUE(field.IsDone());
  EXPECT_TRUE(field->EngineResp);
  EXPECT_EQ(field->InputType, InputType::Any);
  EXPECT_TRUE(OneItem<HyperText>(31, "")->EngineResp);
  EXPECT_TRUE(OneItem<SwitchButton>(27, "")->EngineResp);
  const OneItem<Slider> slider(32, "");
  ASSERT_TRUE(slider.IsDone());
  EXPECT_TRUE(slider->EngineResp);
  EXPECT_EQ(slider->StepSize, 1);
  EXPECT_EQ(slider->SliderStyle, SliderStyle::Normal);
}

TEST(DecodeInteractible, reads_every_attribute) {
  const Bytes interactible = Primitive(101, "\0"s) + Holding(49, Integer(2));
  const OneItem<EntryField> field(30, interactible + Primitive(109, "\x02") +
                                          Primitive(110, "0123") + Primitive(111, "\x01") +
                                          Primitive(112, "\x0C"));
  ASSERT_TRUE(field.IsDone());
  EXPECT_FALSE(field->EngineResp);
  EXPECT_EQ(field->HighlightRefColour.Index, 2);
  EXPECT_EQ(field->InputType, InputType::Numeric);
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
  EXPECT_EQ(button->ButtonStyle, ButtonStyle::CheckBox);
  const OneItem<Slider> slider(32, interactible + Primitive(102, "\x04") + Primitive(103, "\x0A") +
                                       Primitive(104, "\xFF") + Primitive(105, "\x05") +
                                       Primitive(106, "\x02") + Primitive(107, "\x03") +
                                       Primitive(108, "\x02") + Holding(50, Integer(6)));
  ASSERT_TRUE(slider.IsDone());
  EXPECT_EQ(slider->Orientation, Orientation::Down);
  EXPECT_EQ(slider->MaxValue, 10);
  EXPECT_EQ(slider->MinValue, -1);
  EXPECT_EQ(slider->InitialValue, 5);
  EXPECT_EQ(slider->InitialPortion, 2);
  EXPECT_EQ(slider->StepSize, 3);
  EXPECT_EQ(slider->SliderStyle, SliderStyle::Thermometer);
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
    EXPECT_EQ(stream->Multiplex.At(1)->As<Video>().Termination, Termination::Freeze);
    EXPECT_FALSE(stream->Multiplex.At(1)->As<Video>().InitiallyActive);
    EXPECT_EQ(stream->Multiplex.At(2)->Type(), ItemType::RTGraphics);
    EXPECT_TRUE(stream->Multiplex.At(2)->As<RTGraphics>().OriginalPaletteRef.IsPresent);
    EXPECT_EQ(stream->Storage, Storage::Memory);
    EXPECT_EQ(stream->Looping, 0);
  }
}

TEST(DecodeStream, starts_from_its_defaults) {
  const OneItem<Stream> stream(21, Holding(92, Holding(96, Integer(1)) + Holding(95, Integer(2))));
  ASSERT_TRUE(stream.IsDone());
  EXPECT_EQ(stream->Storage, Storage::Stream);
  EXPECT_EQ(stream->Looping, 1);
  EXPECT_EQ(stream->Speed.Numerator, 1);
  EXPECT_EQ(stream->Speed.Denominator, 1);
  EXPECT_EQ(stream->CounterPosition, 0);
  EXPECT_EQ(stream->CounterEndPosition, -1);
  EXPECT_TRUE(stream->CounterTriggers.IsEmpty());
  EXPECT_EQ(stream->Multiplex.At(0)->As<Video>().Termination, Termination::Disappear);
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
