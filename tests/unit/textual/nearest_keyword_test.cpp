// Guesses at what was meant: slips of a letter lead to the keyword, other words to none.
#include "textual/nearest_keyword.h"

#include <gtest/gtest.h>

#include <string>

#include "textual/keywords.h"

namespace korvel {
namespace {

std::string Guess(std::string_view word) {
  const char* keyword = NearestKeyword(word);
  return keyword == nullptr ? "none" : keyword;
}

TEST(NearestKeyword, slips_of_a_letter_are_forgiven) {
  EXPECT_EQ(Guess(":TEXTCOLOR"), ":TEXTCOLOUR") << "left out";
  EXPECT_EQ(Guess(":TEXTT"), ":TEXT") << "put in";
  EXPECT_EQ(Guess(":TAXT"), ":TEXT") << "changed";
  EXPECT_EQ(Guess("ISRUNING"), "ISRUNNING");
  EXPECT_EQ(Guess(":CONTENTREF)"), ":CONTENTREF") << "a bracket that has stuck to it";
}

TEST(NearestKeyword, long_words_may_differ_by_more_letters) {
  EXPECT_EQ(Guess(":ORIGREFFILCOLOR"), ":ORIGREFFILLCOLOUR");
  EXPECT_EQ(Guess(":TXET"), "none") << "two letters of a short word";
}

TEST(NearestKeyword, words_that_resemble_none_have_none) {
  for (const char* word : {"", "X", "KEYPRESS", "RED", ":BUTTONPRESSED", "HELLO"}) {
    EXPECT_EQ(Guess(word), "none") << word;
  }
  EXPECT_EQ(Guess(std::string(41, 'A')), "none");
  EXPECT_EQ(Guess(":TEXT" + std::string(100'000, 'T')), "none");
}

TEST(NearestKeyword, each_keyword_is_nearest_to_itself) {
  for (std::uint16_t code = 1; code <= kKeywordCount; ++code) {
    EXPECT_EQ(Guess(KeywordText(code)), KeywordText(code));
  }
}

}  // namespace
}  // namespace korvel
