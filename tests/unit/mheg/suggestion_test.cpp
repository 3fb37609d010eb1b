// The words that are suggested for misspelt ones.
#include "mheg/suggestion.h"

#include <gtest/gtest.h>

#include <string>

namespace mheg {
namespace {

const std::vector<std::string_view> kWords = {":TextColour",   ":Text",  ":OrigRefFillColour",
                                              ":TextWrapping", "centre", "end"};

std::string Guess(std::string_view word) { return std::string(NearestWord(word, kWords)); }

TEST(Suggestion, a_letter_may_be_omitted_inserted_changed_or_exchanged) {
  EXPECT_EQ(Guess(":TextColor"), ":TextColour");
  EXPECT_EQ(Guess(":Textt"), ":Text");
  EXPECT_EQ(Guess(":Taxt"), ":Text");
  EXPECT_EQ(Guess(":Txet"), ":Text");
  EXPECT_EQ(Guess("center"), "centre");
  EXPECT_EQ(Guess("Text"), ":Text") << "a missing colon";
}

TEST(Suggestion, case_does_not_matter) { EXPECT_EQ(Guess(":TEXTCOLOR"), ":TextColour"); }

TEST(Suggestion, one_letter_of_three_may_differ) {
  EXPECT_EQ(Guess(":OrigFilColor"), "") << "five letters of 13";
  EXPECT_EQ(Guess(":OrigRefFilColor"), ":OrigRefFillColour");
  EXPECT_EQ(Guess("eend"), "end");
  EXPECT_EQ(Guess("en"), "end");
  EXPECT_EQ(Guess("dne"), "") << "two letters of three";
}

TEST(Suggestion, words_unlike_any_candidate_and_very_long_words_have_none) {
  for (const char* word : {"", "X", "KeyPress", "red", ":ButtonPressed"})
    EXPECT_EQ(Guess(word), "");
  EXPECT_EQ(Guess(":Text" + std::string(100'000, 't')), "");
  EXPECT_EQ(NearestWord("a", {}), "");
}

TEST(Suggestion, of_several_equally_near_words_the_first_is_chosen) {
  EXPECT_EQ(NearestWord("cat", {"bat", "hat"}), "bat");
}

}  // namespace
}  // namespace mheg
