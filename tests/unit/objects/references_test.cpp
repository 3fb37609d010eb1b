// Completing references: each reference without a group identifier receives its own copy of the
// group's name.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

constexpr const char* kName = "~/a name that takes a block";

Decoded DecodeAndComplete(const Bytes& file) {
  Decoded decoded = Decode(file);
  EXPECT_TRUE(decoded.IsDone());
  EXPECT_EQ(CompleteReferences(kName, *decoded.group), Status::Done);
  return decoded;
}

Bytes FileWithItem(std::uint32_t tag, const Bytes& attributes) {
  return SceneFile(Holding(8, Holding(tag, Integer(1) + attributes)));
}

std::string_view NameIn(const ObjectReference& reference) {
  return reference.GroupIdentifier.View();
}

TEST(CompleteReferences, an_item_receives_the_name_and_keeps_its_number) {
  const Decoded decoded = DecodeAndComplete(FileWithItem(12, ""));
  EXPECT_EQ(NameIn(decoded.ItemAt<Palette>(0).Reference), kName);
  EXPECT_EQ(decoded.ItemAt<Palette>(0).Reference.Number, 1);
}

TEST(CompleteReferences, an_explicit_group_is_kept) {
  const Decoded decoded = DecodeAndComplete(
      SceneFile(Holding(8, Holding(12, External("~/app", 1)) + Holding(12, External("", 2)))));
  EXPECT_EQ(NameIn(decoded.ItemAt<Palette>(0).Reference), "~/app");
  EXPECT_EQ(NameIn(decoded.ItemAt<Palette>(1).Reference), "");
  EXPECT_EQ(NameIn(decoded.group->Reference), "~/g");
}

TEST(CompleteReferences, link_sources_targets_and_parameters_are_completed) {
  const Bytes actions = Holding(117, Integer(2) + Integer(1) + Integer(3)) +
                        Holding(116, Holding(236, Integer(4)) + Holding(236, Integer(5))) +
                        Holding(178, External("~/app", 6));
  const Decoded decoded = DecodeAndComplete(
      FileWithItem(20, Holding(62, Integer(9) + Enumerated(6)) + Holding(63, actions)));
  const Link& link = decoded.ItemAt<Link>(0);
  EXPECT_EQ(NameIn(link.Condition.EventSource), kName);
  const ElementaryAction& addItem = *link.LinkEffect.At(0);
  EXPECT_EQ(NameIn(addItem.Target.Reference), kName);
  EXPECT_FALSE(addItem.Parameters.At(0)->Reference.GroupIdentifier.IsPresent());
  EXPECT_EQ(NameIn(addItem.Parameters.At(1)->Reference), kName);
  const ElementaryAction& indirect = *link.LinkEffect.At(1);
  EXPECT_EQ(NameIn(indirect.Target.Reference), kName);
  EXPECT_EQ(NameIn(indirect.Parameters.At(0)->Reference), kName);
  EXPECT_EQ(NameIn(link.LinkEffect.At(2)->Target.Reference), "~/app");
}

TEST(CompleteReferences, each_reference_has_its_own_copy) {
  const Decoded decoded =
      DecodeAndComplete(FileWithItem(20, Holding(63, Holding(178, Integer(2)))));
  const Link& link = decoded.ItemAt<Link>(0);
  EXPECT_NE(link.Reference.GroupIdentifier.Text(),
            link.LinkEffect.At(0)->Target.Reference.GroupIdentifier.Text());
}

TEST(CompleteReferences, the_lists_of_the_group_itself_are_completed) {
  const Decoded decoded = DecodeAndComplete(ApplicationFile(Holding(5, Holding(178, Integer(2))) +
                                                            Holding(36, Holding(178, Integer(3))) +
                                                            Holding(37, Holding(42, Integer(4)))));
  EXPECT_EQ(NameIn(decoded.group->OnStartUp.At(0)->Target.Reference), kName);
  EXPECT_EQ(NameIn(AsApplication(decoded.group).OnRestart.At(0)->Target.Reference), kName);
  EXPECT_EQ(NameIn(AsApplication(decoded.group).Defaults.Font.Reference), kName);
}

TEST(CompleteReferences, stream_components_and_their_palettes_are_completed) {
  const Decoded decoded = DecodeAndComplete(FileWithItem(
      21, Holding(92, Holding(96, Integer(2)) + Holding(97, Integer(3) + Primitive(78, "\x04")))));
  const Stream& stream = decoded.ItemAt<Stream>(0);
  EXPECT_EQ(NameIn(stream.Multiplex.At(0)->Record()->Reference), kName);
  EXPECT_EQ(NameIn(stream.Multiplex.At(1)->As<RTGraphics>().OriginalPaletteRef.Reference), kName);
}

TEST(CompleteReferences, members_and_slots_of_token_groups_are_completed) {
  const Bytes slots = Sequence(Sequence(Holding(178, Integer(5))));
  const Decoded decoded =
      DecodeAndComplete(FileWithItem(34, Holding(71, Sequence(Integer(2) + slots)) +
                                             Holding(72, Sequence(Holding(178, Integer(6))))));
  const ListGroup& list = decoded.ItemAt<ListGroup>(0);
  EXPECT_EQ(NameIn(list.TokenGroupItems.At(0)->AVisible), kName);
  const ActionSlot& slot = *list.TokenGroupItems.At(0)->ActionSlots.At(0);
  EXPECT_EQ(NameIn(slot.Actions.At(0)->Target.Reference), kName);
  EXPECT_EQ(NameIn(list.NoTokenActionSlots.At(0)->Actions.At(0)->Target.Reference), kName);
}

TEST(CompleteReferences, variable_values_and_fonts_are_completed) {
  const Decoded variable = DecodeAndComplete(FileWithItem(18, Holding(67, Primitive(68, "\x04"))));
  EXPECT_EQ(NameIn(variable.ItemAt<ObjectRefVariable>(0).OriginalValue), kName);
  const Decoded text = DecodeAndComplete(FileWithItem(29, Holding(86, Integer(4))));
  EXPECT_EQ(NameIn(text.ItemAt<Text>(0).OriginalFont.Reference), kName);
}

TEST(CompleteReferences, absent_references_stay_absent) {
  const Decoded decoded = DecodeAndComplete(FileWithItem(29, Holding(86, Octets("name"))));
  const Text& text = decoded.ItemAt<Text>(0);
  EXPECT_FALSE(text.OriginalPaletteRef.IsPresent);
  EXPECT_FALSE(text.OriginalPaletteRef.Reference.GroupIdentifier.IsPresent());
  EXPECT_FALSE(text.OriginalFont.Reference.GroupIdentifier.IsPresent());
}

// Completes the references with each allocation failing in turn. Returns the messages printed.
std::set<std::string> MessagesWhenMemoryIsOut(const Bytes& file) {
  std::set<std::string> messages;
  for (std::size_t n = 1;; ++n) {
    const Decoded decoded = Decode(file);
    EXPECT_TRUE(decoded.IsDone());
    testing::internal::CaptureStdout();
    FailAllocation(n);
    const Status status = CompleteReferences(kName, *decoded.group);
    const bool hasFailed = HasFailedAllocation();
    FailAllocation(0);
    const std::string message = testing::internal::GetCapturedStdout();
    EXPECT_EQ(status, hasFailed ? Status::Failure : Status::Done);
    if (!hasFailed) {
      EXPECT_EQ(message, "");
      return messages;
    }
    messages.insert(message);
  }
}

TEST(CompleteReferences, failure_names_the_class_of_every_item) {
  const char* names[] = {"ResidentProgram",
                         "RemoteProgram",
                         "InterchangedProgram",
                         "Palette",
                         "Font",
                         "CursorShape",
                         "BooleanVariable",
                         "IntegerVariable",
                         "OctetStringVariable",
                         "ObjectRefVariable",
                         "ContentRefVariable",
                         "Link",
                         "Stream",
                         "Bitmap",
                         "LineArt",
                         "DynamicLineArt",
                         "Rectangle",
                         "HotSpot",
                         "SwitchButton",
                         "PushButton",
                         "Text",
                         "EntryField",
                         "HyperText",
                         "Slider",
                         "TokenGroup",
                         "ListGroup"};
  std::uint32_t tag = 9;
  for (const char* name : names) {
    const std::string message =
        std::string("Can't allocate memory for ") + name + " GroupIdentifier\n";
    EXPECT_EQ(MessagesWhenMemoryIsOut(FileWithItem(tag, "")).count(message), 1U) << name;
    ++tag;
  }
}

TEST(CompleteReferences, failure_names_the_inner_reference) {
  const std::pair<Bytes, const char*> cases[] = {
      {FileWithItem(20, Holding(62, Integer(2) + Enumerated(6))),
       "Link EventSource GroupIdentifier"},
      {FileWithItem(21, Holding(92, Holding(95, Integer(2)))), "Stream Audio GroupIdentifier"},
      {FileWithItem(21, Holding(92, Holding(96, Integer(2)))), "Stream Video GroupIdentifier"},
      {FileWithItem(21, Holding(92, Holding(97, Integer(2)))), "Stream RTGraphics GroupIdentifier"},
      {FileWithItem(33, Holding(71, Sequence(Integer(2)))), "TokenGroup AVisible GroupIdentifier"},
      {FileWithItem(34, Holding(71, Sequence(Integer(2)))), "ListGroup AVisible GroupIdentifier"},
      {FileWithItem(18, Holding(67, Primitive(68, "\x02"))),
       "ObjectRefVariable Value GroupIdentifier"},
      {FileWithItem(22, Primitive(78, "\x02")), "Bitmap PaletteRef GroupIdentifier"},
      {FileWithItem(29, Holding(86, Integer(2))), "Text Font GroupIdentifier"},
      {FileWithItem(20, Holding(63, Holding(178, Integer(2)))), "GroupId in Parameter"},
      {FileWithItem(33, Holding(72, Sequence(Holding(178, Integer(2))))), "GroupId in Parameter"},
      {SceneFile(Holding(5, Holding(178, Holding(236, Integer(2))))), "GroupId in Parameter"}};
  for (const auto& [file, reference] : cases) {
    const std::string message = std::string("Can't allocate memory for ") + reference + "\n";
    EXPECT_EQ(MessagesWhenMemoryIsOut(file).count(message), 1U) << reference;
  }
}

TEST(CompleteReferences, failure_names_the_class_of_the_group) {
  const std::pair<Bytes, const char*> cases[] = {{ApplicationFile(""), "Application"},
                                                 {SceneFile(""), "Scene"}};
  for (const auto& [file, name] : cases) {
    const Decoded decoded = Decode(file);
    decoded.group->Reference.GroupIdentifier.Clear();
    testing::internal::CaptureStdout();
    FailAllocation(1);
    EXPECT_EQ(CompleteReferences(kName, *decoded.group), Status::Failure);
    FailAllocation(0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              std::string("Can't allocate memory for ") + name + " GroupIdentifier\n");
  }
}

TEST(CompleteReferences, failure_ends_the_pass_after_one_message) {
  const Bytes file = SceneFile(Holding(8, Holding(12, Integer(1)) + Holding(12, Integer(2))));
  const Decoded decoded = Decode(file);
  testing::internal::CaptureStdout();
  FailAllocation(1);
  EXPECT_EQ(CompleteReferences(kName, *decoded.group), Status::Failure);
  FailAllocation(0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Can't allocate memory for Palette GroupIdentifier\n");
  EXPECT_FALSE(decoded.ItemAt<Palette>(1).Reference.GroupIdentifier.IsPresent());
}

}  // namespace
}  // namespace korvel::test
