// Comparing values, items and groups: each part makes a difference, except those that the kind of a
// value does not use.
#include <gtest/gtest.h>

#include <string_view>

#include "objects/objects.h"

namespace korvel::test {
namespace {

OctetString Octets(std::string_view bytes) {
  OctetString octets;
  EXPECT_TRUE(octets.Assign(bytes));
  return octets;
}

ObjectReference Reference(std::string_view group, std::int32_t number) {
  ObjectReference reference;
  reference.GroupIdentifier = Octets(group);
  reference.Number = number;
  return reference;
}

// Whether a fresh value equals one that `change` has changed.
template <class Value, class Change> bool IsSameAfter(const Change& change) {
  Value value;
  change(value);
  const Value fresh;
  EXPECT_TRUE(value == value);
  EXPECT_EQ((value == fresh), (fresh == value));
  return value == fresh;
}

TEST(Equality, an_absent_string_differs_from_an_empty_one_and_strings_by_their_bytes) {
  EXPECT_FALSE(OctetString() == Octets(""));
  EXPECT_FALSE(Octets("a") == Octets("b"));
  EXPECT_TRUE(Octets("a") == Octets("a"));
}

TEST(Equality, references_differ_by_number_and_group) {
  EXPECT_TRUE(Reference("~/a", 1) == Reference("~/a", 1));
  EXPECT_FALSE(Reference("~/a", 1) == Reference("~/a", 2));
  EXPECT_FALSE(Reference("~/a", 1) == Reference("~/b", 1));
}

TEST(Equality, absent_references_are_equal_whatever_they_hold) {
  OptionalReference one;
  OptionalReference other;
  one.Reference.Number = 1;
  EXPECT_TRUE(one == other);
  one.IsPresent = true;
  EXPECT_FALSE(one == other);
  other.IsPresent = true;
  EXPECT_FALSE(one == other);
  other.Reference.Number = 1;
  EXPECT_TRUE(one == other);
}

TEST(Equality, a_generic_value_differs_by_kind_and_by_the_field_of_its_kind) {
  for (const ValueKind kind :
       {ValueKind::None, ValueKind::Boolean, ValueKind::Integer, ValueKind::OctetString,
        ValueKind::ObjectReference, ValueKind::IndirectReference, ValueKind::ContentReference}) {
    GenericValue one;
    one.Kind = kind;
    GenericValue other;
    other.Kind = kind;
    const auto isChangedBy = [&](auto GenericValue::*field, auto value) {
      other.*field = std::move(value);
      const bool isSame = one == other;
      other.*field = {};
      return !isSame;
    };
    EXPECT_EQ(isChangedBy(&GenericValue::Boolean, true), kind == ValueKind::Boolean);
    EXPECT_EQ(isChangedBy(&GenericValue::Integer, 1), kind == ValueKind::Integer);
    EXPECT_EQ(isChangedBy(&GenericValue::Octets, Octets("a")),
              kind == ValueKind::OctetString || kind == ValueKind::ContentReference);
    EXPECT_EQ(isChangedBy(&GenericValue::Reference, Reference("~/a", 1)),
              kind == ValueKind::ObjectReference || kind == ValueKind::IndirectReference);
    EXPECT_TRUE(one == other);
    other.Kind = kind == ValueKind::None ? ValueKind::Boolean : ValueKind::None;
    EXPECT_FALSE(one == other);
  }
}

TEST(Equality, a_colour_differs_by_its_bytes_or_its_index) {
  const auto isSame = [](ValueKind kind, std::int32_t index, std::string_view bytes) {
    ColourValue one;
    one.Kind = kind;
    one.Absolute = Octets("abc");
    ColourValue other;
    other.Kind = kind;
    other.Index = index;
    other.Absolute = Octets(bytes);
    return one == other;
  };
  EXPECT_TRUE(isSame(ValueKind::None, 1, "x"));
  EXPECT_TRUE(isSame(ValueKind::Integer, 0, "x"));
  EXPECT_FALSE(isSame(ValueKind::Integer, 1, "abc"));
  EXPECT_TRUE(isSame(ValueKind::OctetString, 1, "abc"));
  EXPECT_FALSE(isSame(ValueKind::OctetString, 0, "x"));
  EXPECT_FALSE(ColourValue() == ColourValue::NotSet());
}

TEST(Equality, a_font_differs_by_its_name_or_its_reference) {
  const auto isSame = [](ValueKind kind, std::string_view name, std::int32_t number) {
    FontBody one;
    one.Kind = kind;
    one.Name = Octets("f");
    FontBody other;
    other.Kind = kind;
    other.Name = Octets(name);
    other.Reference.Number = number;
    return one == other;
  };
  EXPECT_TRUE(isSame(ValueKind::None, "g", 1));
  EXPECT_TRUE(isSame(ValueKind::OctetString, "f", 1));
  EXPECT_FALSE(isSame(ValueKind::OctetString, "g", 0));
  EXPECT_TRUE(isSame(ValueKind::ObjectReference, "g", 0));
  EXPECT_FALSE(isSame(ValueKind::ObjectReference, "f", 1));
  EXPECT_FALSE(IsSameAfter<FontBody>([](auto& font) { font.Kind = ValueKind::OctetString; }));
}

TEST(Equality, each_part_of_content_makes_a_difference) {
  EXPECT_FALSE(IsSameAfter<ContentBody>([](auto& content) { content.Data = Octets("a"); }));
  EXPECT_FALSE(IsSameAfter<ContentBody>([](auto& content) { content.IsReferenced = true; }));
  EXPECT_FALSE(IsSameAfter<ContentBody>([](auto& content) { content.Size = 1; }));
  EXPECT_FALSE(IsSameAfter<ContentBody>([](auto& content) { content.CachePriority = 1; }));
  EXPECT_FALSE(IsSameAfter<ContentReference>([](auto& content) { content.Path = Octets("a"); }));
}

TEST(Equality, each_part_of_an_action_makes_a_difference) {
  EXPECT_FALSE(IsSameAfter<ElementaryAction>([](auto& action) { action.ActionType = 1; }));
  EXPECT_FALSE(
      IsSameAfter<ElementaryAction>([](auto& action) { action.Target.Kind = ValueKind::Integer; }));
  EXPECT_FALSE(IsSameAfter<ElementaryAction>(
      [](auto& action) { EXPECT_NE(action.Parameters.Append(GenericValue()), nullptr); }));
  EXPECT_FALSE(IsSameAfter<ActionSlot>([](auto& slot) { slot.IsNull = !slot.IsNull; }));
  EXPECT_FALSE(IsSameAfter<ActionSlot>(
      [](auto& slot) { EXPECT_NE(slot.Actions.Append(ElementaryAction()), nullptr); }));
  EXPECT_FALSE(IsSameAfter<Movement>(
      [](auto& movement) { EXPECT_NE(movement.Targets.Append(1), nullptr); }));
}

TEST(Equality, items_differ_by_class_reference_and_attributes) {
  const Item one = Item::New(ItemType::Rectangle);
  const Item other = Item::New(ItemType::Rectangle);
  EXPECT_TRUE(one == other);
  EXPECT_FALSE(one == Item::New(ItemType::DynamicLineArt));
  other.Record()->Shared = true;
  EXPECT_FALSE(one == other);
  other.Record()->Shared = false;
  other.Record()->Reference.Number = 1;
  EXPECT_FALSE(one == other);
}

TEST(Equality, groups_differ_by_class_reference_and_attributes) {
  EXPECT_TRUE(Scene() == Scene());
  const Application application;
  const Scene scene;
  EXPECT_FALSE(static_cast<const Group&>(application) == static_cast<const Group&>(scene));
  const auto isChangedBy = [](auto&& group, const auto& change) {
    const std::remove_reference_t<decltype(group)> fresh;
    change(group);
    return static_cast<const Group&>(group) != static_cast<const Group&>(fresh);
  };
  EXPECT_TRUE(isChangedBy(Scene(), [](auto& group) { group.Reference.Number = 1; }));
  EXPECT_TRUE(isChangedBy(Scene(), [](auto& group) { group.Aspect.Width = 16; }));
  EXPECT_TRUE(isChangedBy(Application(), [](auto& group) { group.Defaults.CharacterSet = 1; }));
}

}  // namespace
}  // namespace korvel::test
