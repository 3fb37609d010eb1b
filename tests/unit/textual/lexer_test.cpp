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
  TokenList list;
  std::vector<int> codes;  // without the end of the text
  std::vector<std::int32_t> numbers;
  std::vector<std::string> strings;
};

Lexing LexText(const std::string& text, LexMode mode = LexMode::Plain) {
  // The text is in a block of exactly its size, so that the sanitizer reports a read past its end.
  const std::vector<char> exact(text.begin(), text.end());
  Lexing lexing;
  TokenList& list = lexing.list;
  EXPECT_TRUE(Lex({exact.data(), exact.size()}, mode, list));
  for (const Token& token : list.tokens) {
    if (token.code == kEndOfText) break;
    lexing.codes.push_back(token.code);
    if (token.code == kInteger) lexing.numbers.push_back(token.number);
    if (token.code == kString) lexing.strings.emplace_back(list.String(token));
  }
  return lexing;
}
bool IsValid(const std::string& text) { return LexText(text).list.isValid; }
// The positions of all problems: "OFFSET+LENGTH ".
std::string ProblemsOf(const std::string& text, LexMode mode = LexMode::Plain) {
  std::string all;
  for (const LexProblem& problem : LexText(text, mode).list.problems) {
    all += std::to_string(problem.offset) + "+" + std::to_string(problem.length) + " ";
  }
  return all;
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
  EXPECT_FALSE(IsValid("\v"));
}

TEST(Lexer, brackets_are_tokens) {
  EXPECT_EQ(LexText("{}()").codes, (std::vector<int>{301, 302, 304, 305}));
}

TEST(Lexer, comment_runs_to_the_end_of_its_line) {
  EXPECT_EQ(LexText("TRUE // FALSE } : \nNULL").codes, (std::vector<int>{299, 298}));
  EXPECT_EQ(LexText("//x\fNULL").codes, (std::vector<int>{298}));
  EXPECT_EQ(LexText("//x\rNULL").codes, (std::vector<int>{298}));
}

TEST(Lexer, comment_may_end_at_the_end_of_the_text) {
  const Lexing lexing = LexText("TRUE // the end");
  EXPECT_TRUE(lexing.list.isValid);
  EXPECT_EQ(lexing.codes, (std::vector<int>{299}));
  EXPECT_TRUE(IsValid("//"));
}

TEST(Lexer, lone_slash_is_refused) {
  EXPECT_FALSE(IsValid("TRUE / FALSE"));
  EXPECT_FALSE(IsValid("/"));
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
    EXPECT_FALSE(lexing.list.isValid) << text;
    ASSERT_EQ(lexing.list.problems.Size(), 1U) << text;
    EXPECT_EQ(lexing.list.problems[0].offset, 0U) << "the error is at the opening quote";
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
  EXPECT_FALSE(IsValid("2147483648"));
  EXPECT_FALSE(IsValid("-2147483649"));
  EXPECT_FALSE(IsValid(std::string(60000, '9')));
}

TEST(Lexer, hexadecimal_number_is_refused) {
  EXPECT_FALSE(IsValid("0x1"));
  EXPECT_FALSE(IsValid("TRUE 0X"));
}

TEST(Lexer, minus_without_a_digit_is_refused) {
  EXPECT_FALSE(IsValid("-"));
  EXPECT_FALSE(IsValid("- 1"));
}

TEST(Lexer, keyword_with_a_colon_ends_at_an_opening_bracket) {
  EXPECT_EQ(LexText(":Name{").codes, (std::vector<int>{73, 301}));
  EXPECT_EQ(LexText(":Name(").codes, (std::vector<int>{73, 304}));
}

TEST(Lexer, keyword_with_a_colon_does_not_end_at_a_closing_bracket) {
  EXPECT_FALSE(IsValid(":Name}"));
  EXPECT_FALSE(IsValid(":Name)"));
}

TEST(Lexer, bare_word_ends_at_a_closing_bracket) {
  EXPECT_EQ(LexText("TRUE}").codes, (std::vector<int>{299, 302}));
  EXPECT_EQ(LexText("NULL)").codes, (std::vector<int>{298, 305}));
}

TEST(Lexer, bare_word_does_not_end_at_an_opening_bracket) {
  EXPECT_FALSE(IsValid("TRUE{"));
  EXPECT_FALSE(IsValid("TRUE("));
}

TEST(Lexer, word_ends_at_a_control_byte_and_at_127) {
  EXPECT_EQ(LexText("TRUE\x01").codes, (std::vector<int>{299, kUnknown}));
  EXPECT_EQ(LexText("TRUE\x7F").codes, (std::vector<int>{299, kUnknown}));
  EXPECT_EQ(LexText(":Name\x7F").codes, (std::vector<int>{73, kUnknown}));
}

TEST(Lexer, word_does_not_end_at_a_high_byte) {
  EXPECT_FALSE(IsValid("TRUE\xC8 "));
  EXPECT_FALSE(IsValid(":Name\xC8 "));
}

TEST(Lexer, unknown_word_is_reported_in_capitals) {
  const Lexing lexing = LexText("TRUE :foo(");
  EXPECT_EQ(lexing.list.unknownWord.View(), ":FOO");
  EXPECT_FALSE(LexText("TRUE / FALSE").list.unknownWord.IsPresent());
  EXPECT_FALSE(lexing.list.isValid);
  EXPECT_EQ(lexing.list.tokens[1].code, kUnknownKeyword);
  EXPECT_EQ(lexing.list.tokens[1].offset, 5U);
  EXPECT_FALSE(LexText("- :foo").list.unknownWord.IsPresent()) << "another error precedes it";
  EXPECT_EQ(LexText(":foo :bar").list.unknownWord.View(), ":FOO");
}

TEST(Lexer, invisible_bytes_are_refused) {
  EXPECT_FALSE(IsValid("\xC8"));
  EXPECT_FALSE(IsValid("\x7F"));
  EXPECT_FALSE(IsValid("\x01"));
  EXPECT_FALSE(IsValid("TRUE \0"s));
}

TEST(Lexer, text_of_65535_bytes_is_read) {
  std::string text(65531, ' ');
  text += "TRUE";
  EXPECT_EQ(LexText(text).codes, (std::vector<int>{299}));
}

TEST(Lexer, a_wrong_bracket_ends_a_word_for_further_reading) {
  EXPECT_EQ(LexText(":Name})").codes, (std::vector<int>{73, 302, 305}));
  EXPECT_EQ(ProblemsOf(":Name})"), "0+5 ");
  EXPECT_EQ(LexText(":Name})").list.unknownWord.View(), ":NAME})") << "as it is printed";
  EXPECT_EQ(LexText("center(").codes, (std::vector<int>{kUnknown, 304}));
  EXPECT_EQ(LexText("center{").list.unknownWord.View(), "CENTER{");
}

TEST(Lexer, lexing_continues_after_each_error) {
  EXPECT_EQ(LexText("0x1F, - /x\n99999999999 \"a\nTRUE").codes,
            (std::vector<int>{306, kUnknown, 306, 306, 303, 299}));
  EXPECT_EQ(ProblemsOf("0x1F - /x\n99999999999 \"a\nTRUE"), "0+4 5+1 7+1 10+11 22+2 ");
}

TEST(Lexer, block_comment_is_skipped_as_a_whole_or_up_to_the_end_of_its_line) {
  EXPECT_EQ(LexText("TRUE /* ) \n ) */ NULL").codes, (std::vector<int>{299, 298}));
  EXPECT_EQ(ProblemsOf("TRUE /* ) \n ) */ NULL"), "5+2 ");
  EXPECT_EQ(LexText("TRUE /* )\nNULL").codes, (std::vector<int>{299, 298}));
}

TEST(Lexer, leading_zero_is_a_problem_only_for_messages) {
  EXPECT_EQ(ProblemsOf("007 0 10"), "");
  EXPECT_EQ(ProblemsOf("007 0 10", LexMode::Explaining), "0+3 ");
  EXPECT_EQ(LexText("007", LexMode::Explaining).numbers, (std::vector<std::int32_t>{7}));
}

TEST(Lexer, doubtful_string_ends_with_its_line_only_in_its_mode) {
  const std::string text = "\"open)}\n:Name \"next\"";
  EXPECT_TRUE(LexText(text, LexMode::Explaining).list.hasDoubtfulString);
  EXPECT_EQ(LexText(text, LexMode::Explaining).codes, (std::vector<int>{303, kUnknown}));
  EXPECT_EQ(ProblemsOf(text, LexMode::ExplainingDoubtfulStrings), "0+5 ");
  EXPECT_EQ(LexText(text, LexMode::ExplainingDoubtfulStrings).codes,
            (std::vector<int>{303, 305, 302, 73, 303}));
  EXPECT_FALSE(LexText("\"two\nlines\" TRUE").list.hasDoubtfulString);
  EXPECT_FALSE(LexText("\"two\nlines\")").list.hasDoubtfulString);
  EXPECT_FALSE(LexText("\"line\"TRUE").list.hasDoubtfulString);
}

TEST(Lexer, open_brackets_are_counted) {
  const TokenList list = LexText("{({}}}(").list;
  EXPECT_EQ(list.openBraces, -1);
  EXPECT_EQ(list.openParentheses, 2);
}

TEST(Lexer, empty_text_has_no_tokens) {
  const Lexing lexing = LexText("");
  EXPECT_TRUE(lexing.list.isValid);
  EXPECT_TRUE(lexing.codes.empty());
}

}  // namespace
}  // namespace korvel
