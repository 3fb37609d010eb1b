// The random groups are representative: a round trip of all of them covers every class, attribute,
// action and byte value.
#include "support/sample_groups.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>

#include "objects/objects.h"

namespace korvel::test {
namespace {

struct Seen {
  std::map<std::string, std::set<bool>> isSet;  // by class and keyword
  // The kinds of value by action and position among its values. Position 0 is the target.
  std::map<std::pair<int, std::size_t>, std::set<ValueKind>> kinds;
  std::map<int, std::set<std::size_t>> valueCounts;  // by action
  std::array<bool, 256> bytes{};
};

template <class Field> void Look(const Field& /*field*/, Seen& /*seen*/) {}
void Look(const OctetString& field, Seen& seen) {
  for (const char byte : field.View()) seen.bytes[static_cast<unsigned char>(byte)] = true;
}
void Look(const ActionList& field, Seen& seen) {
  for (const ElementaryAction& action : field) {
    const int number = action.ActionType;
    seen.kinds[{number, 0}].insert(action.Target.Kind);
    std::size_t position = 0;
    for (const GenericValue& value : action.Parameters) {
      seen.kinds[{number, ++position}].insert(value.Kind);
    }
    seen.valueCounts[number].insert(position);
  }
}
void Look(const List<Item>& field, Seen& seen);

template <class Record>
void LookAtAttributes(const Record& record, const std::string& owner, Seen& seen) {
  const Record construction{};
  ForEachAttribute<Record>([&](const auto& attribute) {
    const auto& field = record.*attribute.field;
    if constexpr (IsDescribed<std::remove_cvref_t<decltype(field)>>) {
      LookAtAttributes(field, owner, seen);
    } else {
      const char* keyword = attribute.keyword == nullptr ? " condition" : attribute.keyword;
      seen.isSet[owner + keyword].insert(field != construction.*attribute.field);
      Look(field, seen);
    }
  });
}

void Look(const List<Item>& field, Seen& seen) {
  for (const Item& item : field) {
    VisitIngredientClass(item.Type(), [&]<class Record>() {
      LookAtAttributes(item.As<Record>(), Description<Record>::heading.name, seen);
    });
  }
}

const Seen& All() {
  static const Seen seen = [] {
    Seen all;
    for (std::uint32_t seed = 0; seed < kEnoughRandomGroups; ++seed) {
      const OwnedGroup group = MakeRandomGroup(seed);
      if (IsApplication(group)) {
        LookAtAttributes(AsApplication(group), "Application", all);
      } else {
        LookAtAttributes(AsScene(group), "Scene", all);
      }
    }
    return all;
  }();
  return seen;
}

TEST(RandomGroups, every_attribute_of_every_class_is_both_set_and_omitted) {
  for (const auto& [attribute, states] : All().isSet) EXPECT_EQ(states.size(), 2U) << attribute;
  std::size_t count = 0;
  const auto countAttributes = [&count]<class Record>() {
    ForEachAttribute<Record>([&count](const auto& /*attribute*/) { ++count; });
  };
  ForEachClass(ItemClasses{}, countAttributes);
  ForEachClass(ComponentClasses{}, countAttributes);
  ForEachClass(Classes<Application, Scene, DefaultAttributes>{}, countAttributes);
  EXPECT_EQ(All().isSet.size(), count - 1);  // DefaultAttributes is counted by its members
}

TEST(RandomGroups, every_action_has_direct_and_indirect_values_in_every_position) {
  for (int number = 1; number <= kDecodedActionCount; ++number) {
    const ActionRow& row = *FindAction(static_cast<std::uint8_t>(number));
    for (std::size_t position = 0; position <= row.parameterCount; ++position) {
      const auto kinds = All().kinds.find({number, position});
      ASSERT_NE(kinds, All().kinds.end()) << row.name << " " << position;
      EXPECT_TRUE(kinds->second.contains(ValueKind::IndirectReference))
          << row.name << " " << position;
      EXPECT_GE(kinds->second.size(), 2U) << row.name << " " << position;
    }
  }
}

TEST(RandomGroups, actions_occur_with_all_and_with_missing_parameters) {
  for (int number = 1; number <= kDecodedActionCount; ++number) {
    const ActionRow& row = *FindAction(static_cast<std::uint8_t>(number));
    if (row.parameterCount == 0) continue;
    const std::set<std::size_t>& counts = All().valueCounts.at(number);
    EXPECT_LT(*counts.begin(), row.parameterCount) << row.name;
    EXPECT_GE(*counts.rbegin(), row.parameterCount) << row.name;
  }
}

TEST(RandomGroups, strings_contain_every_byte_value) {
  for (std::size_t byte = 0; byte < 256; ++byte) EXPECT_TRUE(All().bytes[byte]) << byte;
}

}  // namespace
}  // namespace korvel::test
