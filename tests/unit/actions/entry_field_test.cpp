// Entry fields: the entry point, the overwrite mode, and the characters that the viewer's keys
// enter.
#include "actions/behaviours.h"
#include "stage.h"
#include "substitutes/memory.h"

namespace korvel::test {
namespace {

class EntryFieldTest : public Stage {
 protected:
  static std::string Shown(int number = 1) {
    return std::string(Object<Text>(number).TextData.View());
  }
  // Starts a field and its interaction, and logs its events.
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

TEST_F(EntryFieldTest, an_entry_point_beyond_the_text_is_accepted_but_not_a_negative_one) {
  Start("{:EntryField 1 :OrigContent \"abc\" :OrigBoxSize 99 20} {:IntegerVar 2 :OrigValue 0}");
  EXPECT_EQ(Run(":SetEntryPoint(1 1000) :SetEntryPoint(1 -1) :GetEntryPoint(1 2)"), Status::Done);
  EXPECT_EQ(Integer(2), 1000);
}

TEST_F(EntryFieldTest, the_overwrite_mode_is_read_into_a_variable) {
  Start("{:EntryField 1 :OrigContent \"\" :OrigBoxSize 99 20} {:BooleanVar 2 :OrigValue FALSE}");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :GetOverwriteMode(1 2)"), Status::Done);
  EXPECT_TRUE(Boolean(2));
}

TEST_F(EntryFieldTest, inserting_into_a_field_of_length_4_accepts_3_characters) {
  StartField(":MaxLength 4");
  Enter("abcd");
  EXPECT_EQ(Shown(), "abc");
  EXPECT_EQ(EntryPoint(), 3);
  EXPECT_EQ(TakeLog(), "full");
}

TEST_F(EntryFieldTest, overwriting_a_field_of_length_4_accepts_4_characters) {
  StartField(":MaxLength 4");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE)"), Status::Done);
  Enter("abcde");
  EXPECT_EQ(Shown(), "abcd");
  EXPECT_EQ(TakeLog(), "full");
}

TEST_F(EntryFieldTest,
       a_line_end_completes_an_unlimited_field_and_is_a_character_in_a_limited_one) {
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

TEST_F(EntryFieldTest, characters_are_inserted_at_the_entry_point) {
  StartField("");
  Enter("ac");
  EXPECT_EQ(Run(":SetEntryPoint(1 1)"), Status::Done);
  Enter("b");
  EXPECT_EQ(Shown(), "abc");
  EXPECT_EQ(EntryPoint(), 2);
}

TEST_F(EntryFieldTest, inserting_past_the_end_of_the_text_appends) {
  StartField("");
  Enter("ab");
  EXPECT_EQ(Run(":SetEntryPoint(1 1000)"), Status::Done);
  Enter("c");
  EXPECT_EQ(Shown(), "abc");
  EXPECT_EQ(EntryPoint(), 3);
}

TEST_F(EntryFieldTest, overwriting_replaces_within_and_adds_at_the_end) {
  StartField("");
  Enter("abc");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 2)"), Status::Done);
  Enter("xy");
  EXPECT_EQ(Shown(), "abxy");
  EXPECT_EQ(Run(":SetEntryPoint(1 1000)"), Status::Done);
  Enter("z");
  EXPECT_EQ(Shown(), "abxyz");
}

TEST_F(EntryFieldTest, overwriting_past_the_text_of_a_limited_field_fills_the_gap_with_zeros) {
  StartField(":MaxLength 9");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 3)"), Status::Done);
  Enter("x");
  EXPECT_EQ(Shown(), std::string("\0\0\0x", 4));
  EXPECT_EQ(EntryPoint(), 4);
}

TEST_F(EntryFieldTest, entering_a_character_far_beyond_the_text_takes_one_allocation) {
  constexpr int kEntryPoint = 15'000'000;
  StartField(":MaxLength 16000000");
  Enter("ab");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 " + std::to_string(kEntryPoint) + ")"),
            Status::Done);
  FailAllocation(2);
  Enter("x");
  EXPECT_FALSE(HasFailedAllocation());
  FailAllocation(0);
  const std::string_view text = Object<EntryField>(1).TextData.View();
  ASSERT_EQ(text.size(), kEntryPoint + 1U);
  EXPECT_EQ(text.substr(0, 2), "ab");
  EXPECT_EQ(text.find_first_not_of('\0', 2), static_cast<std::size_t>(kEntryPoint));
  EXPECT_EQ(text.back(), 'x');
}

TEST_F(EntryFieldTest, a_gap_of_gigabytes_counts_as_out_of_memory) {
  StartField(":MaxLength 2147483647");
  EXPECT_EQ(Run(":SetOverwriteMode(1 TRUE) :SetEntryPoint(1 2147483646)"), Status::Done);
  testing::internal::CaptureStdout();
  EXPECT_EQ(EnterCharacter(Object<EntryField>(1), 'x'), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Can't allocate memory for TextData\n");
  EXPECT_EQ(Shown(), "");
}

TEST_F(EntryFieldTest, a_field_of_negative_length_ignores_input) {
  StartField(":MaxLength -1");
  EXPECT_EQ(EnterCharacter(Object<EntryField>(1), 'x'), Status::Refused);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(TakeLog(), "");
}

TEST_F(EntryFieldTest, keys_enter_digits_and_move_the_entry_point) {
  StartField("");
  for (const std::int32_t key : {6, 14, 3, 3, 3, 5, 4, 4, 4, 7})
    EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Shown(), "0192");
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(EntryFieldTest, select_and_cancel_complete_a_limited_field_and_enter_no_character) {
  StartField(":MaxLength 9");
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)"), Status::Done);
  EXPECT_EQ(Press(keys::kCancel), Status::Done);
  EXPECT_EQ(TakeLog(), "done");
}

TEST_F(EntryFieldTest, the_input_type_decides_which_digits_are_accepted) {
  StartWithScene("", "{:EntryField 1 :OrigContent \"\" :OrigBoxSize 9 9 :InputType alpha}"
                     "{:EntryField 2 :OrigContent \"\" :OrigBoxSize 9 9 :InputType listed"
                     " :CharList \"13\"}");
  EXPECT_EQ(Run(":SetInteractionStatus(1 TRUE)", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(Press(6), Status::Done);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Press(keys::kSelect), Status::Done);
  EXPECT_EQ(Run(":SetInteractionStatus(2 TRUE)", Scope::SceneFirst), Status::Done);
  for (const std::int32_t key : {6, 7, 8}) EXPECT_EQ(Press(key), Status::Done);
  EXPECT_EQ(Shown(2), "13");
}

}  // namespace
}  // namespace korvel::test
