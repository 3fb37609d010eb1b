// How a text is divided into tokens.
#include "textual/lexer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "textual/textual.h"

namespace korvel {
namespace {

using namespace std::string_literals;

struct Lexing {
  LexResult result = LexResult::Done;
  LexStop stop;
  std::vector<int> codes;  // without the end of the text
  std::vector<std::int32_t> numbers;
  std::vector<std::string> strings;
};

Lexing LexText(const std::string& text) {
  // The text is in a block of exactly its size, so that the sanitizer reports a read past its end.
  const std::vector<char> exact(text.begin(), text.end());
  TokenList list;
  Lexing lexing;
  lexing.result = Lex({exact.data(), exact.size()}, list, lexing.stop);
  for (const Token& token : list.tokens) {
    if (token.code == kEndOfText) break;
    lexing.codes.push_back(token.code);
    if (token.code == kInteger) lexing.numbers.push_back(token.number);
    if (token.code == kString) lexing.strings.emplace_back(list.String(token));
  }
  return lexing;
}

TEST(Lexer, case_of_a_keyword_does_not_matter) {
  EXPECT_EQ(LexText(":scene").codes, (std::vector<int>{24}));
  EXPECT_EQ(LexText(":SCENE :Scene centre CENTRE").codes, (std::vector<int>{24, 24, 116, 116}));
}

TEST(Lexer, stop_precedes_step) {
  EXPECT_EQ(LexText(":Stop :Step").codes, (std::vector<int>{276, 277}));
}

TEST(Lexer, white_space_is_tab_line_feed_form_feed_return_and_space) {
  EXPECT_EQ(LexText("\t\n\f\r TRUE \t\n\f\r").codes, (std::vector<int>{299}));
  EXPECT_EQ(LexText("\v").result, LexResult::BadText);
}

TEST(Lexer, brackets_are_tokens) {
  EXPECT_EQ(LexText("{}()").codes, (std::vector<int>{301, 302, 304, 305}));
}

TEST(Lexer, comment_runs_to_the_end_of_its_line) {
  EXPECT_EQ(LexText("TRUE // FALSE } : \nNULL").codes, (std::vector<int>{299, 298}));
  EXPECT_EQ(LexText("//x\fNULL").codes, (std::vector<int>{298}));
  EXPECT_EQ(LexText("//x\rNULL").codes, (std::vector<int>{298}));
}

TEST(Lexer, comment_may_end_with_the_text) {
  const Lexing lexing = LexText("TRUE // the end");
  EXPECT_EQ(lexing.result, LexResult::Done);
  EXPECT_EQ(lexing.codes, (std::vector<int>{299}));
  EXPECT_EQ(LexText("//").result, LexResult::Done);
}

TEST(Lexer, lone_slash_is_refused) {
  EXPECT_EQ(LexText("TRUE / FALSE").result, LexResult::UnknownWord);
  EXPECT_EQ(LexText("/").result, LexResult::UnknownWord);
}

TEST(Lexer, backslash_makes_the_next_byte_literal) {
  EXPECT_EQ(LexText(R"("a\"b")").strings, (std::vector<std::string>{"a\"b"}));
  EXPECT_EQ(LexText(R"("\\\n")").strings, (std::vector<std::string>{"\\n"}));
}

TEST(Lexer, double_quotes_hold_any_byte) {
  EXPECT_EQ(LexText("\"a\0\x01\x7F\xC8'=41\n\""s).strings,
            (std::vector<std::string>{"a\0\x01\x7F\xC8'=41\n"s}));
  EXPECT_EQ(LexText("\"\"").strings, (std::vector<std::string>{""}));
}

TEST(Lexer, equals_sign_and_two_digits_are_a_byte_in_single_quotes) {
  EXPECT_EQ(LexText("'=41'").strings, (std::vector<std::string>{"A"}));
  EXPECT_EQ(LexText("'x=00=fF=Ffy'").strings, (std::vector<std::string>{"x\0\xFF\xFFy"s}));
}

TEST(Lexer, equals_sign_without_two_digits_is_literal) {
  EXPECT_EQ(LexText("'=4g==41=4'").strings, (std::vector<std::string>{"=4g=A=4"}));
  EXPECT_EQ(LexText("'=' TRUE").strings, (std::vector<std::string>{"="}));
  EXPECT_EQ(LexText("'a\\'").strings, (std::vector<std::string>{"a\\"}));
}

TEST(Lexer, string_without_its_closing_quote_is_refused) {
  for (const char* text :
       {"\"", "\"abc", "\"abc\\", "\"abc\\\"", "'", "'abc", "'=", "'=4", "'=41"}) {
    const Lexing lexing = LexText(text);
    EXPECT_EQ(lexing.result, LexResult::BadText) << text;
    EXPECT_EQ(lexing.stop.offset, 0U) << "the reported place is the opening quote";
  }
}

TEST(Lexer, number_is_digits_with_an_optional_minus) {
  EXPECT_EQ(LexText("1 23 -45 9").numbers, (std::vector<std::int32_t>{1, 23, -45, 9}));
  EXPECT_EQ(LexText("12)").codes, (std::vector<int>{306, 305}));
  EXPECT_EQ(LexText("-07").numbers, (std::vector<std::int32_t>{-7}));
}

TEST(Lexer, leading_zero_is_a_separate_number) {
  EXPECT_EQ(LexText("07").numbers, (std::vector<std::int32_t>{0, 7}));
  EXPECT_EQ(LexText("00").numbers, (std::vector<std::int32_t>{0, 0}));
  EXPECT_EQ(LexText("0").numbers, (std::vector<std::int32_t>{0}));
}

TEST(Lexer, number_has_32_bits) {
  EXPECT_EQ(LexText("2147483647 -2147483648").numbers,
            (std::vector<std::int32_t>{2147483647, -2147483647 - 1}));
  EXPECT_EQ(LexText("2147483648").result, LexResult::BadText);
  EXPECT_EQ(LexText("-2147483649").result, LexResult::BadText);
  EXPECT_EQ(LexText(std::string(60000, '9')).result, LexResult::BadText);
}

TEST(Lexer, hexadecimal_number_is_refused) {
  EXPECT_EQ(LexText("0x1").result, LexResult::BadText);
  EXPECT_EQ(LexText("TRUE 0X").result, LexResult::BadText);
}

TEST(Lexer, minus_without_a_digit_is_refused) {
  EXPECT_EQ(LexText("-").result, LexResult::BadText);
  EXPECT_EQ(LexText("- 1").result, LexResult::BadText);
}

TEST(Lexer, keyword_with_a_colon_ends_at_an_opening_bracket) {
  EXPECT_EQ(LexText(":Name{").codes, (std::vector<int>{73, 301}));
  EXPECT_EQ(LexText(":Name(").codes, (std::vector<int>{73, 304}));
}

TEST(Lexer, keyword_with_a_colon_does_not_end_at_a_closing_bracket) {
  EXPECT_EQ(LexText(":Name}").result, LexResult::UnknownWord);
  EXPECT_EQ(LexText(":Name)").result, LexResult::UnknownWord);
}

TEST(Lexer, bare_word_ends_at_a_closing_bracket) {
  EXPECT_EQ(LexText("TRUE}").codes, (std::vector<int>{299, 302}));
  EXPECT_EQ(LexText("NULL)").codes, (std::vector<int>{298, 305}));
}

TEST(Lexer, bare_word_does_not_end_at_an_opening_bracket) {
  EXPECT_EQ(LexText("TRUE{").result, LexResult::UnknownWord);
  EXPECT_EQ(LexText("TRUE(").result, LexResult::UnknownWord);
}

TEST(Lexer, word_ends_at_a_control_byte_and_at_127) {
  EXPECT_EQ(LexText("TRUE\x01").codes, (std::vector<int>{299}));
  EXPECT_EQ(LexText("TRUE\x7F").codes, (std::vector<int>{299}));
  EXPECT_EQ(LexText(":Name\x7F").codes, (std::vector<int>{73}));
}

TEST(Lexer, word_does_not_end_at_a_high_byte) {
  EXPECT_EQ(LexText("TRUE\xC8 ").result, LexResult::UnknownWord);
  EXPECT_EQ(LexText(":Name\xC8 ").result, LexResult::UnknownWord);
}

TEST(Lexer, unknown_word_is_reported_in_capitals) {
  const Lexing lexing = LexText("TRUE :foo(");
  EXPECT_EQ(lexing.stop.word.View(), ":FOO");
  EXPECT_FALSE(LexText("TRUE / FALSE").stop.word.IsPresent());
  EXPECT_EQ(lexing.result, LexResult::UnknownWord);
  EXPECT_EQ(lexing.stop.offset, 5U);
}

TEST(Lexer, invisible_bytes_are_refused) {
  EXPECT_EQ(LexText("\xC8").result, LexResult::BadText);
  EXPECT_EQ(LexText("\x7F").result, LexResult::BadText);
  EXPECT_EQ(LexText("\x01").result, LexResult::BadText);
  EXPECT_EQ(LexText("TRUE \0"s).result, LexResult::BadText);
}

TEST(Lexer, text_of_65535_bytes_is_read) {
  std::string text(65531, ' ');
  text += "TRUE";
  EXPECT_EQ(LexText(text).codes, (std::vector<int>{299}));
}

TEST(Lexer, longer_text_is_refused) {
  EXPECT_EQ(LexText(std::string(65536, ' ')).result, LexResult::BadText);
  EXPECT_EQ(LexText(std::string(200000, '{')).result, LexResult::BadText);
}

TEST(Lexer, empty_text_has_no_tokens) {
  const Lexing lexing = LexText("");
  EXPECT_EQ(lexing.result, LexResult::Done);
  EXPECT_TRUE(lexing.codes.empty());
}

}  // namespace
}  // namespace korvel
