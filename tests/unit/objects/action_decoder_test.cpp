// Decoding action lists: numbering, targets, and parameters of every shape, nested and flat.
#include <gtest/gtest.h>

#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

Decoded DecodeActions(const Bytes& actions) { return Decode(SceneFile(Holding(5, actions))); }

std::uint32_t TagOf(Action action) { return 114U + static_cast<std::uint32_t>(action); }

Bytes Indirect(std::int64_t number) { return Holding(236, Integer(number)); }

// A value as text: "I5", "B1", "S<bytes>", "R5" or "R~/a:5", "V5" for a variable, "C<path>", "-"
// for none.
std::string Show(const ObjectReference& reference) {
  const std::string group(reference.GroupIdentifier.View());
  return (group.empty() ? "" : group + ":") + std::to_string(reference.Number);
}

std::string Show(const GenericValue& value) {
  switch (value.Kind) {
  case ValueKind::None: return "-";
  case ValueKind::Boolean: return value.Boolean ? "B1" : "B0";
  case ValueKind::Integer: return "I" + std::to_string(value.Integer);
  case ValueKind::OctetString: return "S" + std::string(value.Octets.View());
  case ValueKind::ObjectReference: return "R" + Show(value.Reference);
  case ValueKind::IndirectReference: return "V" + Show(value.Reference);
  case ValueKind::ContentReference: return "C" + std::string(value.Octets.View());
  }
  return "?";
}

// The parameters of the only action of a list, separated by blanks, or "refused".
std::string ParametersOf(const Bytes& actions) {
  const Decoded decoded = DecodeActions(actions);
  if (!decoded.IsDone()) return "refused";
  if (decoded.group->OnStartUp.Size() != 1) return "not one action";
  std::string text;
  for (const GenericValue& value : decoded.group->OnStartUp.At(0)->Parameters) {
    text += (text.empty() ? "" : " ") + Show(value);
  }
  return text;
}

// Decodes an action with target 1 and these parameters. Returns the parameters as text.
std::string Parameters(Action action, const Bytes& parameters) {
  return ParametersOf(Holding(TagOf(action), Integer(1) + parameters));
}

// ---- Lists ----

TEST(DecodeActionList, the_tags_from_115_on_are_the_actions_in_order) {
  for (std::uint32_t tag = 115; tag <= 114 + kDecodedActionCount; ++tag) {
    const Decoded decoded = DecodeActions(Holding(tag, Integer(1)));
    ASSERT_TRUE(decoded.IsDone()) << tag;
    ASSERT_EQ(decoded.group->OnStartUp.Size(), 1U) << tag;
    EXPECT_EQ(decoded.group->OnStartUp.At(0)->ActionType, tag - 114);
    EXPECT_EQ(Show(decoded.group->OnStartUp.At(0)->Target), "R1");
  }
}

TEST(DecodeActionList, numbers_are_alphabetical_except_step_and_stop) {
  const std::pair<std::uint32_t, const char*> rows[] = {
      {115, "Activate"},     {116, "Add"},         {137, "Fork"},    {166, "Launch"},
      {176, "Quit"},         {178, "Run"},         {193, "SetData"}, {210, "SetTimer"},
      {214, "Spawn"},        {215, "Step"},        {216, "Stop"},    {217, "StorePersistent"},
      {222, "TransitionTo"}, {224, "UnlockScreen"}};
  for (const auto& [tag, name] : rows) {
    EXPECT_STREQ(FindAction(static_cast<std::uint8_t>(tag - 114))->name, name);
  }
}

TEST(DecodeActionList, other_context_tags_are_skipped) {
  for (const std::uint32_t tag : {0U, 114U, 225U, 230U, 236U, 371U, 100000U}) {
    const Decoded decoded = DecodeActions(Holding(tag, "\xFF\xFF\xFF") + Holding(115, Integer(1)));
    ASSERT_TRUE(decoded.IsDone()) << tag;
    ASSERT_EQ(decoded.group->OnStartUp.Size(), 1U) << tag;
  }
}

TEST(DecodeActionList, other_universal_types_and_classes_are_refused) {
  for (const Bytes& other :
       {Integer(1), Null(), Octets("x"), Element(0, true, 17, ""),
        Element(1, true, 115, Integer(1)), Element(3, true, 115, Integer(1))}) {
    EXPECT_FALSE(DecodeActions(Holding(115, Integer(1)) + other).IsDone()) << Hexadecimal(other);
  }
}

TEST(DecodeActionList, order_is_kept_with_and_without_wrappers) {
  const Bytes run = Holding(178, Integer(1));
  const Bytes stop = Holding(216, Integer(2));
  for (const Bytes& list : {run + stop + run, Sequence(run + stop + run),
                            Sequence(run) + Sequence(Sequence(stop) + run)}) {
    const Decoded decoded = DecodeActions(list);
    ASSERT_TRUE(decoded.IsDone());
    ASSERT_EQ(decoded.group->OnStartUp.Size(), 3U);
    EXPECT_EQ(decoded.group->OnStartUp.At(1)->ActionType, 102);
  }
}

TEST(DecodeActionList, a_failed_action_is_released_once) {
  const std::size_t before = LiveBlocks();
  EXPECT_FALSE(
      DecodeActions(Holding(178, Integer(1)) + Holding(118, External("~/a", 1) + Integer(5)))
          .IsDone());
  EXPECT_EQ(LiveBlocks(), before);
}

// ---- Targets ----

std::string TargetOf(const Bytes& action) {
  const Decoded decoded = DecodeActions(action);
  return decoded.IsDone() ? Show(decoded.group->OnStartUp.At(0)->Target) : "refused";
}

TEST(DecodeTarget, is_a_direct_or_indirect_reference) {
  EXPECT_EQ(TargetOf(Holding(178, Integer(5))), "R5");
  EXPECT_EQ(TargetOf(Holding(178, External("~/a", 5))), "R~/a:5");
  EXPECT_EQ(TargetOf(Holding(178, Indirect(5))), "V5");
  EXPECT_EQ(TargetOf(Holding(178, Holding(236, External("~/a", 5)))), "V~/a:5");
  EXPECT_EQ(TargetOf(Holding(178, Primitive(236, "\x05"))), "V5");
  EXPECT_EQ(TargetOf(Primitive(178, "\x05")), "R5");
}

TEST(DecodeTarget, must_be_a_reference) {
  for (const Bytes& content : {""s, Boolean(true), Octets("x"), Null(), Enumerated(1)}) {
    EXPECT_EQ(TargetOf(Holding(178, content)), "refused") << Hexadecimal(content);
  }
}

TEST(DecodeTarget, a_wrapper_around_all_values_is_distinguished_from_an_external_reference) {
  EXPECT_EQ(ParametersOf(Holding(116, Sequence(Integer(1) + Integer(7)))), "I7");
  EXPECT_EQ(ParametersOf(Holding(116, Sequence(External("~/a", 1) + Integer(7)))), "I7");
  EXPECT_EQ(ParametersOf(Holding(116, Sequence(Indirect(1) + Integer(7)))), "I7");
  EXPECT_EQ(ParametersOf(Holding(116, External("~/a", 1) + Integer(7))), "I7");
  EXPECT_EQ(TargetOf(Holding(178, Sequence(Integer(5)))), "R5");
  EXPECT_EQ(ParametersOf(Holding(116, Sequence(Integer(1) + Integer(7)) + Integer(8))), "refused");
}

// ---- Parameters ----

TEST(DecodeParameters, simple_parameters_have_the_kind_of_their_position) {
  EXPECT_EQ(Parameters(Action::Add, Integer(-5)), "I-5");
  EXPECT_EQ(Parameters(Action::Add, Enumerated(5)), "I5");
  EXPECT_EQ(Parameters(Action::Append, Octets("text")), "Stext");
  EXPECT_EQ(Parameters(Action::SetHighlightStatus, Boolean(true)), "B1");
  EXPECT_EQ(Parameters(Action::PutBefore, Integer(9)), "R9");
  EXPECT_EQ(Parameters(Action::PutBefore, External("~/a", 9)), "R~/a:9");
  EXPECT_EQ(Parameters(Action::AddItem, Integer(2) + Integer(9)), "I2 R9");
  EXPECT_EQ(Parameters(Action::GetPosition, Integer(2) + Integer(3)), "R2 R3");
  EXPECT_EQ(Parameters(Action::GetEngineSupport, Octets("x") + Integer(3)), "Sx R3");
  EXPECT_EQ(
      Parameters(Action::OpenConnection, Integer(2) + Octets("tcp") + Octets("host") + Integer(7)),
      "R2 Stcp Shost I7");
  EXPECT_EQ(Parameters(Action::DrawArc,
                       Integer(1) + Integer(2) + Integer(3) + Integer(4) + Integer(5) + Integer(6)),
            "I1 I2 I3 I4 I5 I6");
}

TEST(DecodeParameters, another_type_is_refused) {
  EXPECT_EQ(Parameters(Action::Add, Octets("5")), "refused");
  EXPECT_EQ(Parameters(Action::Add, Null()), "refused");
  EXPECT_EQ(Parameters(Action::Append, Integer(5)), "refused");
  EXPECT_EQ(Parameters(Action::SetHighlightStatus, Integer(1)), "refused");
  EXPECT_EQ(Parameters(Action::PutBefore, Boolean(true)), "refused");
  EXPECT_EQ(Parameters(Action::Run, Integer(1)), "refused");
}

TEST(DecodeParameters, each_may_be_indirect) {
  EXPECT_EQ(Parameters(Action::Add, Indirect(5)), "V5");
  EXPECT_EQ(Parameters(Action::Append, Indirect(5)), "V5");
  EXPECT_EQ(Parameters(Action::SetHighlightStatus, Indirect(5)), "V5");
  EXPECT_EQ(Parameters(Action::PutBefore, Indirect(5)), "V5");
  EXPECT_EQ(Parameters(Action::SetVariable, Indirect(5)), "V5");
}

TEST(DecodeParameters, missing_parameters_shorten_the_list) {
  EXPECT_EQ(Parameters(Action::Add, ""), "");
  EXPECT_EQ(Parameters(Action::SetPosition, Integer(1)), "I1");
  EXPECT_EQ(Parameters(Action::SetTimer, Integer(1)), "I1");
  EXPECT_EQ(Parameters(Action::Call, Integer(1)), "R1");
  EXPECT_EQ(Parameters(Action::StorePersistent, Integer(1)), "R1");
  EXPECT_EQ(Parameters(Action::SetData, ""), "");
  EXPECT_EQ(Parameters(Action::TransitionTo, ""), "");
}

TEST(DecodeParameters, unknown_tags_after_the_parameters_are_skipped) {
  EXPECT_EQ(Parameters(Action::Add, Integer(5) + Holding(240, "\xFF")), "I5");
}

TEST(DecodeParameters, typed_values_are_identified_by_their_tag) {
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(225, Boolean(true))), "B1");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(226, Integer(5))), "I5");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(227, Octets("x"))), "Sx");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(228, Integer(5))), "R5");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(228, External("~/a", 5))), "R~/a:5");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(229, Primitive(69, "/p"))), "C/p");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(229, Holding(69, Octets("/p")))), "C/p");
  for (const std::uint32_t tag : {225U, 226U, 227U, 228U, 229U}) {
    EXPECT_EQ(Parameters(Action::SetVariable, Holding(tag, Indirect(5))), "V5") << tag;
  }
}

TEST(DecodeParameters, typed_values_may_have_an_implicit_tag) {
  EXPECT_EQ(Parameters(Action::SetVariable, Primitive(225, "\x01")), "B1");
  EXPECT_EQ(Parameters(Action::SetVariable, Primitive(226, "\x05")), "I5");
  EXPECT_EQ(Parameters(Action::SetVariable, Primitive(227, "x")), "Sx");
  EXPECT_EQ(Parameters(Action::SetVariable, Primitive(228, "\x05")), "R5");
  EXPECT_EQ(Parameters(Action::SetVariable, Primitive(229, "/p")), "C/p");
}

TEST(DecodeParameters, a_typed_value_that_does_not_match_its_tag_is_refused) {
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(225, Integer(1))), "refused");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(226, Octets("x"))), "refused");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(229, Octets("/p"))), "refused");
  EXPECT_EQ(Parameters(Action::SetVariable, Integer(1)), "refused");
  EXPECT_EQ(Parameters(Action::SetVariable, Holding(226, "")), "refused");
}

TEST(DecodeParameters, a_tag_of_another_kind_is_refused_even_around_an_indirect_value) {
  EXPECT_EQ(Parameters(Action::Add, Holding(226, Integer(5))), "I5");
  EXPECT_EQ(Parameters(Action::Add, Holding(226, Indirect(5))), "V5");
  EXPECT_EQ(Parameters(Action::Add, Holding(227, Indirect(5))), "refused");
  EXPECT_EQ(Parameters(Action::Append, Holding(226, Indirect(5))), "refused");
}

TEST(DecodeParameters, send_event_and_test_variable_end_with_a_typed_value) {
  EXPECT_EQ(Parameters(Action::SendEvent, Integer(3) + Enumerated(6) + Holding(226, Integer(15))),
            "R3 I6 I15");
  EXPECT_EQ(Parameters(Action::SendEvent, Integer(3) + Integer(6)), "R3 I6");
  EXPECT_EQ(Parameters(Action::TestVariable, Integer(1) + Holding(226, Integer(5))), "I1 I5");
}

TEST(DecodeParameters, lists_of_call_and_fork_are_nested_or_flat) {
  const Bytes list =
      Holding(226, Integer(1)) + Holding(227, Octets("x")) + Holding(228, Integer(5));
  for (const Action action : {Action::Call, Action::Fork}) {
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence(list)), "R2 I1 Sx R5");
    EXPECT_EQ(Parameters(action, Integer(2) + list), "R2 I1 Sx R5");
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence("")), "R2");
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence(Integer(1))), "refused");
  }
}

TEST(DecodeParameters, persistent_lists_are_nested_or_flat_and_the_name_is_last) {
  const Bytes list = Integer(3) + External("~/a", 4) + Indirect(5);
  for (const Action action : {Action::ReadPersistent, Action::StorePersistent}) {
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence(list) + Octets("f")), "R2 R3 R~/a:4 V5 Sf");
    EXPECT_EQ(Parameters(action, Integer(2) + list + Octets("f")), "R2 R3 R~/a:4 V5 Sf");
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence(list) + Indirect(9)), "R2 R3 R~/a:4 V5 V9");
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence("") + Octets("f")), "R2 Sf");
    EXPECT_EQ(Parameters(action, Integer(2) + External("~/a", 4) + Octets("f")), "R2 R~/a:4 Sf");
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence(External("~/a", 4)) + Octets("f")),
              "R2 R~/a:4 Sf");
    EXPECT_EQ(Parameters(action, Integer(2) + Sequence(Octets("f"))), "refused");
  }
}

TEST(DecodeParameters, points_become_pairs_of_numbers) {
  const Bytes one = Integer(1) + Integer(2);
  const Bytes two = Indirect(3) + Integer(-4);
  for (const Action action : {Action::DrawPolygon, Action::DrawPolyline}) {
    EXPECT_EQ(Parameters(action, Sequence(Sequence(one) + Sequence(two))), "I1 I2 V3 I-4");
    EXPECT_EQ(Parameters(action, Sequence(one) + Sequence(two)), "I1 I2 V3 I-4");
    EXPECT_EQ(Parameters(action, one + two), "I1 I2 V3 I-4");
    EXPECT_EQ(Parameters(action, Sequence("")), "");
    EXPECT_EQ(Parameters(action, Sequence(Sequence(Octets("x")))), "refused");
  }
}

TEST(DecodeParameters, timer_and_speed_are_nested_or_flat) {
  const Bytes timer = Integer(500) + Boolean(true);
  EXPECT_EQ(Parameters(Action::SetTimer, Integer(1) + Sequence(timer)), "I1 I500 B1");
  EXPECT_EQ(Parameters(Action::SetTimer, Integer(1) + timer), "I1 I500 B1");
  EXPECT_EQ(Parameters(Action::SetTimer, Integer(1) + Sequence(Integer(500))), "I1 I500");
  EXPECT_EQ(Parameters(Action::SetTimer, Integer(1) + Sequence(timer + Integer(1))), "refused");
  EXPECT_EQ(Parameters(Action::SetSpeed, Sequence(Integer(1) + Integer(2))), "I1 I2");
  EXPECT_EQ(Parameters(Action::SetSpeed, Integer(1) + Indirect(2)), "I1 V2");
  EXPECT_EQ(Parameters(Action::SetSpeed, Sequence(Integer(3))), "I3");
  EXPECT_EQ(Parameters(Action::SetCounterTrigger, Integer(1) + Integer(2)), "I1 I2");
}

TEST(DecodeParameters, colours_and_fonts_may_have_tags) {
  for (const Action action : {Action::SetFillColour, Action::SetLineColour}) {
    EXPECT_EQ(Parameters(action, Integer(5)), "I5");
    EXPECT_EQ(Parameters(action, Octets("rgb")), "Srgb");
    EXPECT_EQ(Parameters(action, Holding(230, Integer(5))), "I5");
    EXPECT_EQ(Parameters(action, Holding(231, Octets("rgb"))), "Srgb");
    EXPECT_EQ(Parameters(action, Holding(231, Indirect(5))), "V5");
    EXPECT_EQ(Parameters(action, Holding(230, Octets("rgb"))), "refused");
    EXPECT_EQ(Parameters(action, Holding(233, Integer(5))), "refused");
  }
  EXPECT_EQ(Parameters(Action::SetFontRef, Integer(5)), "R5");
  EXPECT_EQ(Parameters(Action::SetFontRef, Octets("name")), "Sname");
  EXPECT_EQ(Parameters(Action::SetFontRef, Holding(232, Octets("name"))), "Sname");
  EXPECT_EQ(Parameters(Action::SetFontRef, Holding(233, External("~/a", 5))), "R~/a:5");
}

TEST(DecodeParameters, new_content_is_included_or_referenced) {
  const Bytes path = Primitive(69, "/p");
  EXPECT_EQ(Parameters(Action::SetData, Octets("text")), "Stext");
  EXPECT_EQ(Parameters(Action::SetData, Indirect(5)), "V5");
  EXPECT_EQ(Parameters(Action::SetData, Holding(227, Octets("text"))), "Stext");
  for (const Bytes& numbers :
       {Integer(10) + Integer(20), Holding(234, Integer(10)) + Holding(235, Integer(20)),
        Primitive(234, "\x0A") + Primitive(235, "\x14")}) {
    EXPECT_EQ(Parameters(Action::SetData, Sequence(path + numbers)), "C/p I10 I20");
    EXPECT_EQ(Parameters(Action::SetData, path + numbers), "C/p I10 I20");
  }
  EXPECT_EQ(Parameters(Action::SetData, Sequence(Indirect(5) + Integer(1) + Indirect(6))),
            "V5 I1 V6");
  EXPECT_EQ(Parameters(Action::SetData, Sequence(path)), "C/p");
  EXPECT_EQ(Parameters(Action::SetData, Sequence(Holding(229, path))), "C/p");
  EXPECT_EQ(Parameters(Action::SetData, Sequence(Indirect(5))), "V5 -");
  EXPECT_EQ(Parameters(Action::SetData, Octets("text") + Integer(1)), "refused");
}

TEST(DecodeParameters, a_null_number_has_kind_none) {
  const Bytes path = Primitive(69, "/p");
  EXPECT_EQ(Parameters(Action::SetData, Sequence(path + Null() + Null())), "C/p - -");
  EXPECT_EQ(Parameters(Action::SetData, path + Null() + Integer(3)), "C/p - I3");
  EXPECT_EQ(Parameters(Action::SetData, Sequence(path + Holding(235, Integer(3)))), "C/p - I3");
  EXPECT_EQ(Parameters(Action::TransitionTo, Null() + Integer(3)), "- I3");
  EXPECT_EQ(Parameters(Action::TransitionTo, Integer(2) + Null()), "I2 -");
  EXPECT_EQ(Parameters(Action::TransitionTo, Indirect(2)), "V2");
}

TEST(DecodeParameters, every_nesting_of_an_action_decodes_to_the_same_parameters) {
  const Bytes timer = Sequence(Integer(500) + Boolean(true));
  EXPECT_EQ(ParametersOf(Sequence(Holding(210, Sequence(Integer(1) + Integer(9) + timer)))),
            "I9 I500 B1");
  EXPECT_EQ(ParametersOf(Holding(210, External("~/a", 1) + Integer(9) + timer)), "I9 I500 B1");
}

}  // namespace
}  // namespace korvel::test
