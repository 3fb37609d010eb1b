// Which object a reference means: the groups themselves, their items, and the components of
// streams.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class Lookup : public EngineTest {
 protected:
  static ItemType ClassOf(std::string_view group, std::int32_t number,
                          Scope scope = Scope::SceneFirst) {
    const FoundObject found = FindObject(scope, group, number);
    EXPECT_EQ(found.object == nullptr, found.type == ItemType::None);
    return found.type;
  }
  static constexpr ItemType kNothing = ItemType::None;
};

TEST_F(Lookup, without_an_application_nothing_is_found) {
  EXPECT_EQ(ClassOf("~/a", 0), kNothing);
  EXPECT_EQ(ClassOf("", 0), kNothing);
  EXPECT_EQ(ClassOf("~/a", 1, Scope::ApplicationFirst), kNothing);
}

TEST_F(Lookup, number_zero_with_a_groups_name_is_the_group) {
  ServeApplication("");
  ServeScene("menu", "");
  StartWithScene("~/menu");
  for (const Scope scope : {Scope::SceneFirst, Scope::ApplicationFirst}) {
    EXPECT_EQ(FindObject(scope, "~/a", 0).object, CurrentApplication());
    EXPECT_EQ(FindObject(scope, "~/a", 0).type, ItemType::Application);
    EXPECT_EQ(FindObject(scope, "~/menu", 0).object, CurrentScene());
    EXPECT_EQ(FindObject(scope, "~/menu", 0).type, ItemType::Scene);
    EXPECT_EQ(ClassOf("~/other", 0, scope), kNothing);
    EXPECT_EQ(ClassOf("", 0, scope), kNothing);
  }
}

TEST_F(Lookup, a_tilde_before_either_name_does_not_count) {
  Serve("a", "{:Application (\"/a\" 0) :Items (" + RectangleText(1) + ")}");
  ServeScene("menu", RectangleText(2));
  StartWithScene("~/menu");
  for (const char* name : {"/a", "~/a"}) {
    EXPECT_EQ(ClassOf(name, 0), ItemType::Application) << name;
    EXPECT_EQ(ClassOf(name, 1), ItemType::Rectangle) << name;
  }
  for (const char* name : {"/menu", "~/menu"}) {
    EXPECT_EQ(ClassOf(name, 0), ItemType::Scene) << name;
    EXPECT_EQ(ClassOf(name, 2), ItemType::Rectangle) << name;
  }
}

TEST_F(Lookup, items_are_found_by_group_and_number) {
  ServeApplication(RectangleText(5));
  ServeScene("menu", "{:IntegerVar 5 :OrigValue 1} {:BooleanVar 6 :OrigValue TRUE}");
  StartWithScene("~/menu");
  EXPECT_EQ(ClassOf("~/a", 5), ItemType::Rectangle);
  EXPECT_EQ(ClassOf("~/menu", 5), ItemType::IntegerVariable);
  EXPECT_EQ(ClassOf("~/menu", 6), ItemType::BooleanVariable);
  EXPECT_EQ(ClassOf("~/a", 6), kNothing);
  EXPECT_EQ(ClassOf("~/other", 5), kNothing);
  EXPECT_EQ(ClassOf("~/a", 7), kNothing);
  EXPECT_EQ(ClassOf("~/a", -5), kNothing);
}

TEST_F(Lookup, the_scope_says_which_group_is_searched_first) {
  ServeApplication("{:IntegerVar (\"~/shared\" 5) :OrigValue 1}"
                   "{:IntegerVar (\"~/shared\" 6) :OrigValue 2}");
  ServeScene("menu", "{:BooleanVar (\"~/shared\" 5) :OrigValue TRUE}"
                     "{:BooleanVar (\"~/shared\" 7) :OrigValue TRUE}");
  StartWithScene("~/menu");
  EXPECT_EQ(ClassOf("~/shared", 5, Scope::ApplicationFirst), ItemType::IntegerVariable);
  EXPECT_EQ(ClassOf("~/shared", 5, Scope::SceneFirst), ItemType::BooleanVariable);
  EXPECT_EQ(ClassOf("~/shared", 6, Scope::SceneFirst), ItemType::IntegerVariable);
  EXPECT_EQ(ClassOf("~/shared", 7, Scope::ApplicationFirst), ItemType::BooleanVariable);
}

TEST_F(Lookup, the_first_of_two_items_of_one_number_is_meant) {
  ServeApplication("{:IntegerVar 5 :OrigValue 1} {:BooleanVar 5 :OrigValue TRUE}");
  ASSERT_EQ(Start(), Status::Done);
  EXPECT_EQ(ClassOf("~/a", 5), ItemType::IntegerVariable);
}

TEST_F(Lookup, classes_up_to_27_are_found_and_higher_ones_are_not) {
  ServeApplication(
      LinkOn(3, "0", "IsRunning", "") +
      "{:ResidentPrg 4 :Name \"x\"}"
      "{:BooleanVar 5 :OrigValue TRUE} {:IntegerVar 6 :OrigValue 1} {:OStringVar 7 :OrigValue \"\"}"
      "{:ObjectRefVar 8 :OrigValue :ObjectRef 1} {:ContentRefVar 9 :OrigValue :ContentRef \"x\"}"
      "{:TokenGroup 10 :InitiallyActive FALSE :TokenGroupItems ((13))}"
      "{:ListGroup 11 :InitiallyActive FALSE :TokenGroupItems ((13))}"
      "{:Bitmap 12 :OrigBoxSize 1 1} {:Rectangle 13 :OrigBoxSize 1 1}"
      "{:DynamicLineArt 14 :OrigBoxSize 1 1} {:Text 15 :OrigBoxSize 1 1}"
      "{:Stream 16 :InitiallyActive FALSE :Multiplex ({:Audio 17 :ComponentTag 1}"
      "  {:Video 18 :OrigBoxSize 1 1 :ComponentTag 2}"
      "  {:RTGraphics 25 :OrigBoxSize 1 1 :ComponentTag 3})}"
      "{:Slider 19 :OrigBoxSize 1 1} {:EntryField 20 :OrigBoxSize 1 1}"
      "{:HyperText 21 :OrigBoxSize 1 1} {:PushButton 23 :OrigBoxSize 1 1}"
      "{:LineArt 24 :OrigBoxSize 1 1} {:HotSpot 26 :OrigBoxSize 1 1}"
      "{:SwitchButton 27 :OrigBoxSize 1 1}"
      "{:Palette 28} {:RemotePrg 29 :Name \"x\"} {:InterchgPrg 30 :Name \"x\"} {:Font 31}"
      "{:CursorShape 32}");
  static_cast<void>(Start());
  ASSERT_NE(CurrentApplication(), nullptr) << Printed();
  for (std::int32_t number = 3; number <= 27; ++number) {
    if (number == 22) continue;
    EXPECT_EQ(ClassOf("~/a", number), static_cast<ItemType>(number)) << number;
  }
  for (std::int32_t number = 28; number <= 32; ++number) {
    EXPECT_EQ(ClassOf("~/a", number), kNothing) << number;
  }
}

TEST_F(Lookup, an_object_of_a_scene_that_ended_is_not_found) {
  ServeApplication("");
  ServeScene("menu", RectangleText(5));
  ServeScene("next", "");
  StartWithScene("~/menu");
  EXPECT_EQ(ClassOf("~/menu", 5), ItemType::Rectangle);
  ASSERT_EQ(GoTo("~/next"), Status::Done);
  EXPECT_EQ(ClassOf("~/menu", 5), kNothing);
  EXPECT_EQ(ClassOf("~/menu", 0), kNothing);
}

}  // namespace
}  // namespace korvel::test
