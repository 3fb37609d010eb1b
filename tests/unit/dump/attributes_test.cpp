// Checks with the class tables that no attribute is missing from the dump, and that preparing an
// object sets each run-time value from its original value.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "actions/actions.h"
#include "dump/tree.h"
#include "objects/objects.h"
#include "unit/dump/printed.h"

namespace korvel {
namespace {

// ---- Modify changes a field from its value in a new record ----

void Modify(bool& field) { field = !field; }
void Modify(std::int32_t& field) { field += 17; }
template <IsEnumeration Enumeration> void Modify(Enumeration& field) {
  field = static_cast<Enumeration>(field == Enumeration{1} ? 2 : 1);
}
void Modify(OctetString& field) { ASSERT_TRUE(field.Assign("changed")); }
void Modify(ObjectReference& field) { field.Number = 17; }
void Modify(OptionalReference& field) { field.IsPresent = true; }
void Modify(ColourValue& field) {
  field.Kind = ValueKind::Integer;
  field.Index = 17;
}
void Modify(FontBody& field) {
  field.Kind = ValueKind::OctetString;
  Modify(field.Name);
}
void Modify(ContentReference& field) { Modify(field.Path); }
void Modify(ContentBody& field) { Modify(field.Data); }
void Modify(GenericValue& field) {
  field.Kind = ValueKind::Integer;
  field.Integer = 17;
}
template <IsSequence Record> void Modify(Record& field) {
  ForEachElement<Record>([&](const auto& element) { Modify(field.*element.field); });
}
template <class Entry> void Modify(List<Entry>& field) {
  ASSERT_NE(field.Append(Entry{}), nullptr);
}
void Modify(List<Item>& field) { ASSERT_NE(field.Append(Item::New(ItemType::Audio)), nullptr); }

template <class Record> std::string Dumped(const Record& record) {
  return Printed([&record](std::FILE* stream) {
    if constexpr (std::is_same_v<Record, Application>) DumpApplication(record, 0, stream);
    if constexpr (std::is_same_v<Record, Scene>) DumpScene(record, 0, stream);
  });
}
std::string Dumped(const Item& item) {
  return Printed([&item](std::FILE* stream) {
    const bool isComponent =
        Contains(SetOf(ItemType::Audio, ItemType::Video, ItemType::RTGraphics), item.Type());
    isComponent ? DumpComponent(Tree(0, stream), item) : DumpItem(Tree(0, stream), item);
  });
}

// Calls visit(keyword, field) for each attribute of the record, including those of its nested
// records.
template <class Record, class Visit> void ForEachField(Record& record, Visit&& visit) {
  ForEachAttribute<Record>([&](const auto& attribute) {
    auto& field = record.*attribute.field;
    if constexpr (IsDescribed<std::remove_cvref_t<decltype(field)>>) {
      ForEachField(field, visit);
    } else {
      visit(attribute.keyword == nullptr ? ":Condition" : attribute.keyword, field);
    }
  });
}

// Calls visit(keyword, change) for each attribute of the class; change(record) changes it.
template <class Record, class Visit> void ForEachChange(Visit&& visit) {
  Record names;
  std::size_t count = 0;
  ForEachField(names, [&](const char* keyword, auto& /*field*/) {
    const std::size_t index = count++;
    visit(keyword, [index](Record& record) {
      std::size_t current = 0;
      ForEachField(record, [&](const char* /*keyword*/, auto& field) {
        if (current++ == index) Modify(field);
      });
    });
  });
}

template <class Visit> void ForEachItemClass(Visit&& visit) {
  ForEachClass(ItemClasses{}, visit);
  ForEachClass(ComponentClasses{}, visit);
}

template <class Record> void ExpectAllInDumpOfGroup() {
  ForEachChange<Record>([](const char* keyword, auto&& change) {
    const Record before;
    Record after;
    change(after);
    EXPECT_NE(Dumped(before), Dumped(after)) << keyword;
  });
}

TEST(Attributes, each_attribute_of_a_group_is_in_the_dump) {
  ExpectAllInDumpOfGroup<Application>();
  ExpectAllInDumpOfGroup<Scene>();
}

TEST(Attributes, each_attribute_of_an_object_is_in_the_dump) {
  ForEachItemClass([]<class Record>() {
    ForEachChange<Record>([](const char* keyword, auto&& change) {
      const Item before = Item::New(Description<Record>::heading.type);
      const Item after = Item::New(Description<Record>::heading.type);
      change(after.As<Record>());
      EXPECT_NE(Dumped(before), Dumped(after)) << Description<Record>::heading.name << keyword;
    });
  });
}

std::size_t CountDifferentLines(const std::string& one, const std::string& other) {
  std::istringstream lines(one);
  std::istringstream otherLines(other);
  std::size_t count = 0;
  std::string line;
  std::string otherLine;
  while (std::getline(lines, line) && std::getline(otherLines, otherLine)) {
    if (line != otherLine) ++count;
  }
  return count;
}

// The number of lines of the dump that a changed attribute changes, for objects that are prepared
// or not.
template <class Record> std::size_t CountChangedLines(const auto& change, bool isPrepared) {
  const Item before = Item::New(Description<Record>::heading.type);
  const Item after = Item::New(Description<Record>::heading.type);
  change(after.As<Record>());
  for (const Item* item : {&before, &after}) {
    if (!isPrepared) continue;
    EXPECT_EQ(Prepare(item->Type(), *item->Record()), Change::Changed);
  }
  return CountDifferentLines(Dumped(before), Dumped(after));
}

bool HasRunTimeValue(std::string_view keyword) {
  return keyword.starts_with(":Orig") || keyword == ":InitialValue" || keyword == ":InitialPortion";
}

TEST(Attributes, preparing_sets_each_run_time_value_from_its_original_value) {
  int count = 0;
  ForEachItemClass([&count]<class Record>() {
    ForEachChange<Record>([&count](const char* keyword, auto&& change) {
      if (!HasRunTimeValue(keyword)) return;
      ++count;
      EXPECT_GT(CountChangedLines<Record>(change, true), CountChangedLines<Record>(change, false))
          << Description<Record>::heading.name << keyword;
    });
  });
  EXPECT_GT(count, 60);
}

}  // namespace
}  // namespace korvel
