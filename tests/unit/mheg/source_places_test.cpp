// The lines and columns of objects, attributes and actions in a source file.
#include "mheg/source_places.h"

#include <gtest/gtest.h>

#include <string>

namespace mheg {
namespace {

SourcePlaces PlacesOf(std::string_view text) {
  korvel::OwnedGroup group;
  korvel::TextReport report;
  EXPECT_EQ(korvel::ReadTextGroup(text, group, report), korvel::TextResult::Done);
  return {text, report.places};
}

std::string Shown(korvel::TextPlace place) {
  return std::to_string(place.line) + ":" + std::to_string(place.column);
}

constexpr const char* kText = R"({:Scene ("~/s" 0)
  :OnStartUp (:Run(1)
    :Stop(1))
  :Items (
    {:Text 1
      :OrigContent "é" :OrigBoxSize 1 1}
    {:TokenGroup 2
      :TokenGroupItems ((1 :ActionSlots ((:Run(1) :Stop(1)) NULL
        (:Run(1)))))
      :NoTokenActionSlots ((:Stop(1)))}
    {:Stream 3 :Multiplex (
      {:Audio 4 :ComponentTag 1})}
    {:Text 1 :OrigBoxSize 2 2})
  :SceneCS 720 576})";

TEST(SourcePlaces, objects_are_found_by_number_and_attributes_by_keyword) {
  const SourcePlaces places = PlacesOf(kText);
  EXPECT_EQ(Shown(places.Find(0)), "1:1");
  EXPECT_EQ(Shown(places.Find(0, ":SceneCS")), "14:3");
  EXPECT_EQ(Shown(places.Find(0, ":Items")), "4:3");
  EXPECT_EQ(Shown(places.Find(1)), "5:5");
  EXPECT_EQ(Shown(places.Find(4)), "12:7") << "a component of a stream";
  EXPECT_EQ(Shown(places.Find(4, ":ComponentTag")), "12:17");
}

TEST(SourcePlaces, actions_are_counted_in_their_attribute_across_all_its_lists) {
  const SourcePlaces places = PlacesOf(kText);
  EXPECT_EQ(Shown(places.Find(0, ":OnStartUp", 0)), "2:15");
  EXPECT_EQ(Shown(places.Find(0, ":OnStartUp", 1)), "3:5");
  EXPECT_EQ(Shown(places.Find(2, ":TokenGroupItems", 1)), "8:51");
  EXPECT_EQ(Shown(places.Find(2, ":TokenGroupItems", 2)), "9:10");
  EXPECT_EQ(Shown(places.Find(2, ":NoTokenActionSlots", 0)), "10:29");
}

TEST(SourcePlaces, columns_count_characters) {
  EXPECT_EQ(Shown(PlacesOf(kText).Find(1, ":OrigBoxSize")), "6:24");
}

TEST(SourcePlaces, of_two_objects_with_one_number_the_first_is_found) {
  const SourcePlaces places = PlacesOf(kText);
  EXPECT_EQ(Shown(places.Find(1)), "5:5");
  const auto all = places.FindAll(1);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(Shown(all[1]), "13:5");
}

TEST(SourcePlaces, an_unknown_attribute_or_action_has_the_position_of_its_container) {
  const SourcePlaces places = PlacesOf(kText);
  EXPECT_EQ(Shown(places.Find(0, ":OnStartUp", 9)), "2:3");
  EXPECT_EQ(Shown(places.Find(1, ":Tiling")), "5:5");
  EXPECT_EQ(Shown(places.Find(99)), "0:0");
  EXPECT_EQ(Shown(SourcePlaces().Find(0)), "0:0");
}

}  // namespace
}  // namespace mheg
