// Text objects: new content, reading it back, attributes, what viewers enter into entry fields, and
// the anchors of hyper texts.
#include "actions/behaviours.h"
#include "stage.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

constexpr std::int32_t kSelect = 15;
constexpr std::int32_t kCancel = 16;

class TextTest : public Stage {
 protected:
  static std::string Shown(int number = 1) {
    return std::string(Object<Text>(number).TextData.View());
  }
  static Status Press(std::int32_t key) { return RaiseOutsideEvent(0, EventType::UserInput, key); }
  // A running field in interaction, with its events logged.
  void StartField(const std::string& attributes) {
    Start("{:EntryField 1 :OrigBoxSize 99 20 :OrigContent \"\" " + attributes + "}" +
          Watch(1, "InteractionCompleted", "done") + Watch(1, "EntryFieldFull", "full"));
    EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  }
  static void Enter(const std::string& characters) {
    for (const char character : characters) {
      EXPECT_EQ(EnterCharacter(Object<EntryField>(1), character), Status::Done);
    }
  }
  static std::int32_t EntryPoint() { return Object<EntryField>(1).EntryPoint; }
};

constexpr char kText[] = "{:Text 1 :OrigContent \"as decoded\" :OrigBoxSize 99 20}"
                         "{:OStringVar 2 :OrigValue \"before\"} {:IntegerVar 3 :OrigValue 5}";

TEST_F(TextTest, included_content_is_shown_at_once) {
  Start(kText);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetData(1 'new=00text')"), Status::Done);
  EXPECT_EQ(Shown(), std::string("new\0text", 8));
  EXPECT_EQ(ThePresentation().redraws, before + 1);
  EXPECT_EQ(Run(":Stop(1)"), Status::Done);
  const int stopped = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetData(1 :IndirectRef 2)"), Status::Done);
  EXPECT_EQ(Shown(), "before");
  EXPECT_EQ(ThePresentation().redraws, stopped) << "a text that does not run is not drawn";
}

TEST_F(TextTest, referenced_content_is_fetched_and_a_failure_leaves_the_old_text) {
  TheHost().files["t"] = "fetched";
  Start(std::string(kText) + "{:ContentRefVar 4 :OrigValue :ContentRef \"~/t\"}" +
        Watch(0, "EngineEvent", "error", "3"));
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:ContentRef \"~/none\"))"), Status::Done);
  EXPECT_EQ(Shown(), "as decoded");
  EXPECT_EQ(TakeLog(), "error");
  TheHost().fetched.clear();
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:IndirectRef 4 :NewContentSize 7 :NewCCPriority 3))"),
            Status::Done);
  EXPECT_EQ(Shown(), "fetched");
  EXPECT_EQ(Object<Text>(1).Content.Size, 7);
  EXPECT_EQ(Object<Text>(1).Content.CachePriority, 3);
  const std::vector<std::string> expected = {"t", "t"};
  EXPECT_EQ(TheHost().fetched, expected) << "for the variable, then for the text";
}

TEST_F(TextTest, a_variable_that_names_new_content_loads_it_first) {
  TheHost().files["p"] = "picture";
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/o\") :OrigBoxSize 9 9}"
        "{:ContentRefVar 2 :OrigValue :ContentRef \"~/p\"}");
  TheHost().fetched.clear();
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:IndirectRef 2))"), Status::Done);
  EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"p"});
  EXPECT_EQ(Object<ContentRefVariable>(2).Content.Data.View(), "picture");
  EXPECT_TRUE(Object<Bitmap>(1).Content.IsReferenced);
  EXPECT_EQ(Object<Bitmap>(1).Content.Data.View(), "~/p") << "the object is given the path";
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:IndirectRef 2))"), Status::Done);
  EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"p"}) << "loaded once";
}

TEST_F(TextTest, every_other_class_keeps_its_new_content) {
  Start("{:Bitmap 1 :OrigContent :ContentRef (\"~/p\") :OrigBoxSize 9 9} {:IntegerVar 2"
        " :OrigValue 0} {:Stream 3 :Multiplex ({:Audio 4 :ComponentTag 1})}");
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":SetData(1 :NewRefContent (:ContentRef \"~/q\")) :SetData(2 \"two\") :SetData(4 "
                "\"four\")"),
            Status::Done);
  EXPECT_TRUE(Object<Bitmap>(1).Content.IsReferenced);
  EXPECT_EQ(Object<Bitmap>(1).Content.Data.View(), "~/q");
  EXPECT_EQ(Object<Bitmap>(1).OriginalContent.Data.View(), "~/p");
  EXPECT_EQ(Object<Ingredient>(2).Content.Data.View(), "two");
  EXPECT_EQ(Object<Ingredient>(4).Content.Data.View(), "four");
  EXPECT_EQ(ThePresentation().redraws, before + 1) << "the bitmap is drawn again";
}

TEST_F(TextTest, text_data_is_what_is_shown_and_content_what_was_decoded) {
  Start(kText);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":SetData(1 \"shown\") :GetTextData(1 2)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "5\n");
  EXPECT_EQ(Octets(2), "shown");
  EXPECT_EQ(Run(":GetTextContent(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "as decoded");
}

TEST_F(TextTest, a_text_without_data_reads_as_an_empty_string) {
  Start("{:Text 1 :InitiallyActive FALSE :OrigContent \"x\" :OrigBoxSize 9 9}"
        "{:OStringVar 2 :OrigValue \"before\"}");
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":GetTextData(1 2)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "0\n");
  EXPECT_EQ(Octets(2), "");
}

TEST_F(TextTest, reading_into_a_variable_of_another_class_does_nothing) {
  Start(kText);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":GetTextData(1 3) :GetTextContent(1 3)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(Integer(3), 5);
}

TEST_F(TextTest, a_font_is_a_name_or_an_object) {
  Start(std::string(kText) + "{:ObjectRefVar 5 :OrigValue :ObjectRef (\"~/f\" 8)}");
  EXPECT_EQ(Run(":SetFontRef(1 \"rec://font/uk1\")"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Kind, ValueKind::OctetString);
  EXPECT_EQ(Object<Text>(1).Font.Name.View(), "rec://font/uk1");
  EXPECT_EQ(Run(":SetFontRef(1 (\"~/a\" 7))"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Kind, ValueKind::ObjectReference);
  EXPECT_EQ(Object<Text>(1).Font.Reference.Number, 7);
  EXPECT_EQ(Run(":SetFontRef(1 :IndirectRef 5)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Reference.Number, 8);
  EXPECT_EQ(Run(":SetFontRef(1 :IndirectRef 2)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Name.View(), "before");
  EXPECT_EQ(Run(":SetFontRef(1 :IndirectRef 3)"), Status::Done);
  EXPECT_EQ(Object<Text>(1).Font.Name.View(), "before");
}

TEST_F(TextTest, colours_and_font_attributes_are_kept) {
  Start(kText);
  EXPECT_EQ(RunOne(Action::SetTextColour, 1, ParametersOf(IntegerValue(7))), Status::Done);
  EXPECT_EQ(Object<Text>(1).TextColour.Kind, ValueKind::Integer);
  EXPECT_EQ(Object<Text>(1).TextColour.Index, 7);
  GenericValue indirect = ReferenceValue(2);
  indirect.Kind = ValueKind::IndirectReference;
  EXPECT_EQ(RunOne(Action::SetBackgroundColour, 1, ParametersOf(std::move(indirect))),
            Status::Done);
  EXPECT_EQ(Object<Text>(1).BackgroundColour.Kind, ValueKind::OctetString);
  EXPECT_EQ(Object<Text>(1).BackgroundColour.Absolute.View(), "before");
  EXPECT_EQ(RunOne(Action::SetFontAttributes, 1, ParametersOf(OctetsValue("bold.20.24.0"))),
            Status::Done);
  EXPECT_EQ(Object<Text>(1).FontAttributes.View(), "bold.20.24.0");
}

TEST_F(TextTest, the_entry_point_is_set_without_an_upper_bound) {
  Start("{:EntryField 1 :OrigContent \"abc\" :OrigBoxSize 99 20} {:IntegerVar 2 :OrigValue 0}"
        "{:BooleanVar 3 :OrigValue FALSE}");
  EXPECT_EQ(Run(":SetEntryPoint(1 1000) :SetEntryPoint(1 -1) :GetEntryPoint(1 2)"
                ":SetOverwriteMode(1 TRUE) :GetOverwriteMode(1 3)"),
            Status::Done);
  EXPECT_EQ(Integer(2), 1000);
  EXPECT_TRUE(Boolean(3));
}

TEST_F(TextTest, inserting_into_a_field_of_four_takes_three_characters) {
  StartField(":MaxLength 4");
  Enter("abcd");
  EXPECT_EQ(Shown(), "abc");
  EXPECT_EQ(EntryPoint(), 3);
  EXPECT_EQ(TakeLog(), "full");
}

TEST_F(TextTest, overwriting_a_field_of_four_takes_four_characters) {
  StartField(":MaxLength 4");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE)"), Status::Done);
  Enter("abcde");
  EXPECT_EQ(Shown(), "abcd");
  EXPECT_EQ(TakeLog(), "full");
}

TEST_F(TextTest, a_line_end_completes_an_unlimited_field_and_is_a_character_in_a_limited_one) {
  StartField("");
  Enter("ab\r");
  EXPECT_EQ(Shown(), "ab");
  EXPECT_EQ(TakeLog(), "done");
  EXPECT_FALSE(Object<EntryField>(1).InteractionStatus);
  StartField(":MaxLength 9");
  Enter("a\r\n");
  EXPECT_EQ(Shown(), "a\r\n");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(TextTest, characters_are_inserted_at_the_entry_point) {
  StartField("");
  Enter("ac");
  EXPECT_EQ(Run(":SetEntryPoint(1 1)"), Status::Done);
  Enter("b");
  EXPECT_EQ(Shown(), "abc");
  EXPECT_EQ(EntryPoint(), 2);
}

TEST_F(TextTest, an_entry_point_far_behind_the_text_is_its_end_when_inserting) {
  StartField("");
  Enter("ab");
  EXPECT_EQ(Run(":SetEntryPoint(1 1000)"), Status::Done);
  Enter("c");
  EXPECT_EQ(Shown(), "abc");
  EXPECT_EQ(EntryPoint(), 3);
}

TEST_F(TextTest, overwriting_replaces_within_and_adds_at_the_end) {
  StartField("");
  Enter("abc");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 2)"), Status::Done);
  Enter("xy");
  EXPECT_EQ(Shown(), "abxy");
  EXPECT_EQ(Run(":SetEntryPoint(1 1000)"), Status::Done);
  Enter("z");
  EXPECT_EQ(Shown(), "abxyz");
}

TEST_F(TextTest, overwriting_a_limited_field_behind_its_text_fills_the_gap_with_zeros) {
  StartField(":MaxLength 9");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 3)"), Status::Done);
  Enter("x");
  EXPECT_EQ(Shown(), std::string("\0\0\0x", 4));
  EXPECT_EQ(EntryPoint(), 4);
}

TEST_F(TextTest, a_character_far_beyond_the_text_takes_one_allocation) {
  constexpr int kPlace = 15'000'000;
  StartField(":MaxLength 16000000");
  Enter("ab");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 " + std::to_string(kPlace) + ")"),
            Status::Done);
  FailAllocation(2);
  Enter("x");
  EXPECT_FALSE(HasFailedAllocation());
  FailAllocation(0);
  const std::string_view text = Object<EntryField>(1).TextData.View();
  ASSERT_EQ(text.size(), kPlace + 1U);
  EXPECT_EQ(text.substr(0, 2), "ab");
  EXPECT_EQ(text.find_first_not_of('\0', 2), static_cast<std::size_t>(kPlace));
  EXPECT_EQ(text.back(), 'x');
}

TEST_F(TextTest, a_gap_of_gigabytes_counts_as_out_of_memory) {
  StartField(":MaxLength 2147483647");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 2147483646)"), Status::Done);
  testing::internal::CaptureStdout();
  EXPECT_EQ(EnterCharacter(Object<EntryField>(1), 'x'), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Can't allocate memory for TextData\n");
  EXPECT_EQ(Shown(), "");
}

TEST_F(TextTest, a_field_of_negative_length_ignores_input) {
  StartField(":MaxLength -1");
  EXPECT_EQ(EnterCharacter(Object<EntryField>(1), 'x'), Status::Refused);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(TextTest, keys_enter_digits_and_move_within_the_text) {
  StartField("");
  for (const std::int32_t key : {6, 14, 3, 3, 3, 5, 4, 4, 4, 7})
    EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Shown(), "0192");
  EXPECT_EQ(Press(kSelect), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(TextTest, select_and_cancel_end_a_limited_field_without_a_character) {
  StartField(":MaxLength 9");
  EXPECT_EQ(Press(kSelect), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(kCancel), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(TextTest, the_input_type_says_which_digits_are_taken) {
  StartWithScene("", "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9 :InputType alpha}"
                     "{:EntryField 2 :OrigContent \"\" :OrigBoxSize 9 9 :InputType listed"
                     " :CharList \"13\"}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(Press(6), Status::Done);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Press(kSelect), Status::Done);
  EXPECT_EQ(Run(":SetInteractionStatus(2 TRUE)", Scope::SceneFirst), Status::Done);
  for (const std::int32_t key : {6, 7, 8}) EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Shown(2), "13");
}

constexpr char kHyperText[] =
    "{:HyperText 1 :OrigBoxSize 99 20 :OrigContent 'see =1BA=03oneone=1Ba and =1BA=03twotwo=1Ba'}"
    "{:OStringVar 2 :OrigValue \"none\"}";

TEST_F(TextTest, keys_move_among_anchors_and_fire_them) {
  Start(std::string(kHyperText) + Watch(1, "AnchorFired", "fired") +
        Watch(1, "InteractionCompleted", "done"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(kSelect), Status::Done);
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "one");
  for (const std::int32_t key : {2, 4, kSelect}) EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "two");
  for (const std::int32_t key : {1, 3, kSelect}) EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "one");
  EXPECT_EQ(Press(kCancel), Status::Done);
  EXPECT_EQ(TakeLog(), "fired fired fired done");
}

TEST_F(TextTest, new_data_forgets_the_chosen_anchor) {
  Start(std::string(kHyperText) + Watch(1, "AnchorFired", "fired"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(2), Status::Done);
  EXPECT_EQ(Run(":SetData(1 '=1BA=05firsta=1Ba =1BA=04nextb=1Ba')"), Status::Done);
  EXPECT_EQ(Press(kSelect), Status::Done);
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "first");
  EXPECT_EQ(Press(2), Status::Done);
  EXPECT_EQ(Run(":SetData(1 '=1BA=04onlyc=1Ba')"), Status::Done);
  EXPECT_EQ(Press(kSelect), Status::Done) << "fewer anchors than before";
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "only");
  EXPECT_EQ(TakeLog(), "fired fired");
}

TEST_F(TextTest, new_data_of_another_hyper_text_leaves_the_choice) {
  Start(std::string(kHyperText) + "{:HyperText 4 :OrigBoxSize 9 9 :OrigContent \"\"}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(2), Status::Done);
  EXPECT_EQ(Run(":SetData(4 '=1BA=04onlyc=1Ba')"), Status::Done);
  EXPECT_EQ(Press(kSelect), Status::Done);
  EXPECT_EQ(Object<HyperText>(1).LastAnchorFired.View(), "two");
}

TEST_F(TextTest, a_cut_off_anchor_is_none) {
  Start("{:HyperText 1 :OrigBoxSize 9 9 :OrigContent 'x=1BA=09ab'}" +
        Watch(1, "AnchorFired", "fired"));
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(kSelect), Status::Refused);
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(TextTest, an_anchor_is_not_asked_of_a_hyper_text_that_is_not_available) {
  Start("{:HyperText 1 :InitiallyActive FALSE :OrigContent \"\" :OrigBoxSize 9 9}"
        "{:OStringVar 2 :OrigValue \"kept\"}");
  EXPECT_EQ(Run(":GetLastAnchorFired(1 2)"), Status::Done);
  EXPECT_EQ(Octets(2), "kept");
}

}  // namespace
}  // namespace korvel::test
