// Unknown context tags, at every position in a file. Elements with such a tag are skipped by their
// length, and the elements around them are decoded as usual.
#include <gtest/gtest.h>

#include <functional>
#include <ostream>

#include "objects/objects.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

using namespace std::string_literals;

// A construct of the file format. `file` has `x` at each position where its decoder reads the next
// element.
struct Construct {
  const char* name;
  std::function<Bytes(const Bytes& x)> file;
};

std::ostream& operator<<(std::ostream& out, const Construct& construct) {
  return out << construct.name;
}

Bytes InItem(std::uint32_t tag, const Bytes& attributes) {
  return FileWithItems(Holding(tag, Integer(7) + attributes));
}
Bytes InActions(std::uint32_t tag, const Bytes& content) {
  return SceneFile(Holding(5, Holding(tag, content)));
}

constexpr std::uint32_t kTokenGroup = 33;
constexpr std::uint32_t kListGroup = 34;
constexpr std::uint32_t kLink = 20;

Bytes Pair(const Bytes& x) { return Sequence(x + Integer(1) + x + Integer(2) + x); }
Bytes Slots(const Bytes& x) {
  return x + Sequence(Holding(115, Integer(9)) + x) + x + Null() + x + Sequence("") + x;
}
Bytes Member(const Bytes& x) { return Sequence(x + Integer(1) + x + Sequence(Slots(x)) + x); }
Bytes Condition(const Bytes& x) { return x + Integer(3) + x + Enumerated(6) + x + Integer(15) + x; }
Bytes Reference(const Bytes& x) { return x + Octets("~/a") + x + Integer(5) + x; }
Bytes NextScene(const Bytes& x) { return Sequence(x + Octets("~/n") + x + Integer(1) + x); }

const Construct kConstructs[] = {
    {"positions",
     [](const Bytes& x) { return InItem(kListGroup, Holding(73, x + Pair(x) + x + Pair(x) + x)); }},
    {"positions_in_a_wrapper",
     [](const Bytes& x) {
       return InItem(kListGroup, Holding(73, x + Sequence(x + Pair(x) + x + Pair(x) + x) + x));
     }},
    {"one_position",
     [](const Bytes& x) { return InItem(kListGroup, Holding(73, x + Pair(x) + x)); }},
    {"movements",
     [](const Bytes& x) {
       return InItem(kTokenGroup, Holding(70, x + Pair(x) + x + Pair(x) + x));
     }},
    {"members",
     [](const Bytes& x) {
       return InItem(kTokenGroup, Holding(71, x + Member(x) + x + Member(x) + x));
     }},
    {"a_member_of_another_group",
     [](const Bytes& x) {
       return InItem(kTokenGroup, Holding(71, x + Sequence(x + Sequence(Reference(x)) + x) + x));
     }},
    {"action_slots", [](const Bytes& x) { return InItem(kTokenGroup, Holding(72, Slots(x))); }},
    {"action_slots_in_a_wrapper",
     [](const Bytes& x) { return InItem(kTokenGroup, Holding(72, x + Sequence(Slots(x)) + x)); }},
    {"one_action_slot",
     [](const Bytes& x) {
       return InItem(kTokenGroup, Holding(72, x + Sequence(x + Holding(115, Integer(9)) + x) + x));
     }},
    {"next_scenes",
     [](const Bytes& x) {
       return SceneFile(Holding(55, x + NextScene(x) + x + NextScene(x) + x));
     }},
    {"a_link_condition", [](const Bytes& x) { return InItem(kLink, Holding(62, Condition(x))); }},
    {"a_link_condition_in_a_wrapper",
     [](const Bytes& x) { return InItem(kLink, Holding(62, x + Sequence(Condition(x)) + x)); }},
    {"a_link_condition_without_data",
     [](const Bytes& x) {
       return InItem(kLink, Holding(62, x + Sequence(Reference(x)) + x + Enumerated(6) + x));
     }},
    {"an_objects_own_reference",
     [](const Bytes& x) { return FileWithItems(Holding(12, Sequence(Reference(x)))); }},
    {"a_reference_under_its_tag",
     [](const Bytes& x) { return InItem(22, Holding(78, Reference(x))); }},
    {"a_size",
     [](const Bytes& x) {
       return SceneFile(Holding(52, x + Integer(720) + x + Integer(576) + x));
     }},
    {"a_size_in_a_wrapper", [](const Bytes& x) { return SceneFile(Holding(52, x + Pair(x) + x)); }},
    {"referenced_content",
     [](const Bytes& x) {
       return InItem(29,
                     Holding(58, Sequence(x + Octets("p") + x + Integer(8) + x + Integer(9) + x)));
     }},
    {"an_action",
     [](const Bytes& x) { return InActions(116, x + Integer(1) + x + Integer(7) + x); }},
    {"an_action_in_a_wrapper",
     [](const Bytes& x) {
       return InActions(116, x + Sequence(x + Integer(1) + x + Integer(7) + x) + x);
     }},
    {"an_action_on_another_group",
     [](const Bytes& x) { return InActions(178, x + Sequence(Reference(x)) + x); }},
    {"a_timer",
     [](const Bytes& x) {
       return InActions(210, x + Integer(1) + x + Integer(9) + x +
                                 Sequence(x + Integer(500) + x + Boolean(true) + x) + x);
     }},
    {"a_call",
     [](const Bytes& x) {
       return InActions(
           120, x + Integer(1) + x + Integer(2) + x +
                    Sequence(x + Holding(226, Integer(1)) + x + Holding(236, Integer(4)) + x) + x);
     }},
    {"points",
     [](const Bytes& x) {
       return InActions(133, x + Integer(1) + x + Sequence(x + Pair(x) + x + Pair(x) + x) + x);
     }},
    {"persistent_variables",
     [](const Bytes& x) {
       return InActions(217, x + Integer(1) + x + Integer(2) + x +
                                 Sequence(x + Integer(3) + x + Integer(4) + x) + x + Octets("f") +
                                 x);
     }},
    {"new_content",
     [](const Bytes& x) {
       return InActions(193, x + Integer(1) + x +
                                 Sequence(x + Primitive(69, "/p") + x + Holding(234, Integer(1)) +
                                          x + Holding(235, Integer(2)) + x) +
                                 x);
     }},
};

class UnknownTag : public testing::TestWithParam<Construct> {};

TEST_P(UnknownTag, is_skipped) {
  const auto& file = GetParam().file;
  const Decoded without = Decode(file(""));
  ASSERT_TRUE(without.IsDone());
  for (const Bytes& unknown : {Primitive(0, "any"), Primitive(99, ""), Holding(240, "\xFF\xFF\xFF"),
                               Holding(100000, Integer(1)), Holding(241, "") + Holding(242, "")}) {
    const Decoded with = Decode(file(unknown));
    ASSERT_TRUE(with.IsDone()) << Hexadecimal(unknown);
    EXPECT_TRUE(*without.group == *with.group) << Hexadecimal(unknown);
  }
}

// Skipping needs a valid length.
TEST_P(UnknownTag, that_is_cut_short_is_refused) {
  EXPECT_FALSE(Decode(GetParam().file("\x9F\x63"s)).IsDone());
}

INSTANTIATE_TEST_SUITE_P(In, UnknownTag, testing::ValuesIn(kConstructs),
                         [](const testing::TestParamInfo<Construct>& tested) {
                           return tested.param.name;
                         });

// Tags that are known in one list are unknown in others.
TEST(UnknownTags, may_be_known_in_other_lists) {
  for (const std::uint32_t tag : {60U, 69U, 115U, 226U, 236U}) {
    const Bytes x = Holding(tag, Integer(4));
    const OneItem<ListGroup> list(kListGroup, Holding(73, x + Pair(x) + x));
    ASSERT_TRUE(list.IsDone()) << tag;
    ASSERT_EQ(list->Positions.Size(), 1U) << tag;
    EXPECT_EQ(list->Positions.At(0)->Y, 2) << tag;
    EXPECT_EQ(OneItem<Link>(kLink, Holding(62, Condition(x)))->Condition.EventData.Integer, 15);
  }
}

TEST(UnknownTags, are_refused_inside_an_explicit_tag) {
  const Bytes x = Primitive(99, "");
  EXPECT_FALSE(Decode(SceneFile(Holding(51, x + Integer(4)))).IsDone());
  EXPECT_FALSE(Decode(SceneFile(Holding(51, Integer(4) + x))).IsDone());
}

TEST(UnknownTags, of_other_classes_are_refused) {
  for (const unsigned foreign : {1U, 3U}) {
    const Bytes x = Element(foreign, false, 99, "");
    for (const Construct& construct : kConstructs) {
      EXPECT_FALSE(Decode(construct.file(x)).IsDone()) << construct.name;
    }
  }
}

}  // namespace
}  // namespace korvel::test
