// The resident programs: the result of each, and how the dispatcher handles invalid calls. Dates
// are compared with the C library, text searches with a second, simpler implementation.
#include <gtest/gtest.h>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "objects/limits.h"
#include "objects/objects.h"
#include "substitutes/memory.h"
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

// The variables of the application that programs write their results into.
enum Variable : std::int32_t {
  kBoolean = 1,
  kText,
  kReference,
  kContent,
  kFirst,
  kSecond,
  kThird,
  kFourth
};

std::string Contents(const std::string& path) {
  std::ifstream file(KORVEL_SOURCE_DIR + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The three-letter names in the text that are between `before` and `after`.
std::set<std::string> NamesIn(const std::string& text, const std::string& before,
                              const std::string& after) {
  const std::regex expression(before + "([A-Z][A-Za-z]{2})" + after);
  std::set<std::string> names;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    names.insert((*match)[1]);
  return names;
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

class ResidentProgramsTest : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    TheHost().files["a"] = CompileText(
        "{:Application (\"~/a\" 0) :Items ({:BooleanVar 1 :OrigValue FALSE}"
        "{:OStringVar 2 :OrigValue \"before\"} {:ObjectRefVar 3 :OrigValue :ObjectRef 0}"
        "{:ContentRefVar 4 :OrigValue :ContentRef \"\"} {:IntegerVar 5 :OrigValue -99}"
        "{:IntegerVar 6 :OrigValue -99} {:IntegerVar 7 :OrigValue -99}"
        "{:IntegerVar 8 :OrigValue -99})}");
    BeginWork();
    EXPECT_EQ(StartEngine(""), Status::Done);
  }

  static GenericValue Of(std::int32_t number) {
    GenericValue value;
    value.Kind = ValueKind::Integer;
    value.Integer = number;
    return value;
  }
  static GenericValue Of(std::string_view text) {
    GenericValue value;
    value.Kind = ValueKind::OctetString;
    EXPECT_TRUE(value.Octets.Assign(text));
    return value;
  }
  static GenericValue Of(const char* text) { return Of(std::string_view(text)); }
  static GenericValue Of(bool boolean) {
    GenericValue value;
    value.Kind = ValueKind::Boolean;
    value.Boolean = boolean;
    return value;
  }
  static GenericValue Of(Variable variable) {
    GenericValue value;
    value.Kind = ValueKind::ObjectReference;
    value.Reference.Number = variable;
    return value;
  }

  // Calls a program with numbers, texts and variables.
  template <class... Parameters>
  static Status Call(std::string_view name, const Parameters&... parameters) {
    const std::vector<GenericValue> values = [&] {
      std::vector<GenericValue> list;
      (list.push_back(Of(parameters)), ...);
      return list;
    }();
    const Status status = RunResidentProgram(name, values, "~/a");
    if (status == Status::Done) Succeeded().insert(std::string(name));
    return status;
  }

  // The names of the programs called successfully in this test.
  static std::set<std::string>& Succeeded() {
    static std::set<std::string> names;
    return names;
  }

  template <class Record> static Record& Object(Variable variable) {
    return FindObject(Scope::ApplicationFirst, "~/a", variable).As<Record>();
  }
  static std::int32_t Integer(Variable variable) { return Object<IntegerVariable>(variable).Value; }
  static std::string Text() { return std::string(Object<OctetStringVariable>(kText).Value.View()); }

  static std::string Formatted(std::string_view format, std::int32_t date, std::int32_t time) {
    EXPECT_EQ(Call("FDa", format, date, time, kText), Status::Done);
    return Text();
  }
  static std::int32_t Found(std::string_view text, std::int32_t start, std::string_view wanted) {
    EXPECT_EQ(Call("SSS", text, start, wanted, kFirst), Status::Done);
    return Integer(kFirst);
  }
  static std::string Substring(std::string_view text, std::int32_t begin, std::int32_t end) {
    EXPECT_EQ(Call("GSS", text, begin, end, kText), Status::Done);
    return Text();
  }
  static std::int32_t ServiceIndex(std::string_view reference) {
    EXPECT_EQ(Call("GSI", reference, kFirst), Status::Done);
    return Integer(kFirst);
  }
};

TEST_F(ResidentProgramsTest, names_are_compared_exactly) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(Call("gcd", kFirst, kSecond), Status::Failure);
  EXPECT_EQ(Call("RND", 5, kFirst), Status::Failure);
  EXPECT_EQ(Call("GCDx", kFirst, kSecond), Status::Failure);
  EXPECT_EQ(Call(""), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "GetItemType Error\nGetItemType Error\nGetItemType Error\nGetItemType Error\n");
}

TEST_F(ResidentProgramsTest, a_result_without_memory_fails_and_sets_no_variable) {
  std::vector<GenericValue> values;
  values.push_back(Of("a text that takes a block"));
  values.push_back(Of(1));
  values.push_back(Of(0));
  values.push_back(Of(kText));
  const std::string before = Text();
  const std::size_t failures =
      FailEachInTurn([&values] { return RunResidentProgram("FDa", values, "~/a"); },
                     [&before](Status status, bool hasFailed) {
                       EXPECT_EQ(status == Status::Done, !hasFailed);
                       EXPECT_EQ(Text() == before, hasFailed);
                     });
  EXPECT_GT(failures, 0U);
  EXPECT_EQ(Text(), "a text that takes a block");
}

// A text that is copied for each character takes minutes, in which the engine cannot be closed.
TEST_F(ResidentProgramsTest, a_formatted_date_is_not_copied_for_each_character) {
  constexpr std::size_t kFewAllocations = 100;
  const std::string format(10'000, 'x');
  FailAllocation(kFewAllocations);
  EXPECT_TRUE(Formatted(format, 0, 0) == format);
  EXPECT_FALSE(HasFailedAllocation());
  FailAllocation(0);
}

TEST_F(ResidentProgramsTest, a_formatted_date_has_the_limit_of_octet_strings) {
  std::string format(kLongestString - 4, 'x');
  format += "%Y";
  EXPECT_EQ(Call("FDa", format, 0, 0, kText), Status::Done);
  EXPECT_EQ(Text().size(), kLongestString);
  format.insert(0, 1, 'x');
  EXPECT_EQ(Call("FDa", format, 0, 0, kText), Status::Failure);
  EXPECT_EQ(Text().size(), kLongestString) << "the old value";
}

TEST_F(ResidentProgramsTest, every_program_of_the_table_runs) {
  Succeeded().clear();
  TheHost().localTime = {2000, 1, 1, 0, 0, 0};
  EXPECT_EQ(Call("GCD", kFirst, kSecond), Status::Done);
  EXPECT_EQ(Call("FDa", "%Y", 1, 0, kText), Status::Done);
  EXPECT_EQ(Call("GDW", 1, kFirst), Status::Done);
  EXPECT_EQ(Call("Rnd", 1, kFirst), Status::Done);
  EXPECT_EQ(Call("CTC", "c", kContent), Status::Done);
  EXPECT_EQ(Call("CTO", "g", 1, kReference), Status::Done);
  EXPECT_EQ(Call("GSL", "abc", kFirst), Status::Done);
  EXPECT_EQ(Call("GSS", "abc", 1, 2, kText), Status::Done);
  EXPECT_EQ(Call("SSS", "abc", 1, "b", kFirst), Status::Done);
  EXPECT_EQ(Call("SES", "abc", 1, "b", kText, kFirst), Status::Done);
  EXPECT_EQ(Call("GSI", "dvb://", kFirst), Status::Done);
  EXPECT_EQ(Call("BSI", 1, kFirst, kSecond, kThird, kFourth), Status::Done);
  EXPECT_EQ(Call("TIn", 0), Status::Done);
  EXPECT_EQ(Call("TII", 0), Status::Done);
  EXPECT_EQ(Call("GBI", kBoolean, kText), Status::Done);
  EXPECT_EQ(Call("CCR", "c", kBoolean, kContent), Status::Done);
  EXPECT_EQ(Call("CGR", kReference, kBoolean, kReference), Status::Done);
  EXPECT_EQ(Call("VTG"), Status::Done);
  EXPECT_EQ(Call("SWA", 3), Status::Done);
  EXPECT_EQ(Call("GDA", kFirst), Status::Done);
  EXPECT_EQ(Call("CIS", 1, 2, 3), Status::Done);
  EXPECT_EQ(Call("SSM", true), Status::Done);
  EXPECT_EQ(Call("WAI", kText), Status::Done);
  EXPECT_EQ(Call("DBG", "anything"), Status::Done);
  const std::string table = Contents("/src/engine/resident_programs.cpp");
  EXPECT_EQ(Succeeded(), NamesIn(table, R"(\{")", R"(",)"));
}

TEST_F(ResidentProgramsTest, every_program_has_a_row_in_the_behaviour_page) {
  const std::string page = Contents("/docs/behaviour.md");
  const std::string rows = page.substr(page.find("## Resident programs"));
  std::string names;
  for (const std::string& line : LinesOf(rows)) {
    if (line.starts_with("| `")) names += line.substr(0, line.find('|', 1));
  }
  const std::string table = Contents("/src/objects/program_table.h");
  EXPECT_EQ(NamesIn(names, "`", "`"), NamesIn(table, R"(\{")", R"(",)"));
}

TEST_F(ResidentProgramsTest, an_output_variable_of_another_class_is_reported) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(Call("WAI", kFirst), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "GetItemType Error\n");
  EXPECT_EQ(Integer(kFirst), -99);
}

TEST_F(ResidentProgramsTest, a_call_with_a_missing_variable_writes_nothing) {
  const auto missing = static_cast<Variable>(77);
  EXPECT_EQ(Call("BSI", 1, kFirst, kSecond, kThird, missing), Status::Refused);
  EXPECT_EQ(Call("BSI", 1, kFirst, kSecond, kThird), Status::Refused);
  EXPECT_EQ(Call("BSI", missing, kFirst, kSecond, kThird, kFourth), Status::Refused);
  EXPECT_EQ(Call("BSI", kText, kFirst, kSecond, kThird, kFourth), Status::Refused);
  EXPECT_EQ(Integer(kFirst), -99);
}

TEST_F(ResidentProgramsTest, inputs_are_read_from_variables) {
  Object<IntegerVariable>(kSecond).Value = 2;
  EXPECT_EQ(Call("GSS", kText, kSecond, 4, kText), Status::Done);
  EXPECT_EQ(Text(), "efo");
}

TEST_F(ResidentProgramsTest, the_current_date_is_a_julian_date_and_the_time_is_bcd) {
  TheHost().localTime = {2000, 1, 1, 13, 5, 9};
  EXPECT_EQ(Call("GCD", kFirst, kSecond), Status::Done);
  EXPECT_EQ(Integer(kFirst), 51544);
  EXPECT_EQ(Integer(kSecond), 0x130509);
  TheHost().hasLocalTime = false;
  EXPECT_EQ(Call("GCD", kFirst, kSecond), Status::Done);
  EXPECT_EQ(Integer(kFirst), 0);
  EXPECT_EQ(Integer(kSecond), 0);
}

// GCD's formula for modified Julian dates is valid from March 1900 to February 2100. The calendar
// of FDa and GDW has no such limit.
TEST_F(ResidentProgramsTest, dates_agree_with_the_c_library_over_two_centuries) {
  constexpr std::int64_t kDayNumberOf1970 = 40587;
  constexpr std::int32_t kFirstOfTheFormula = 15079;     // 1 March 1900
  for (std::int32_t day = 15020; day <= 88068; ++day) {  // 1900 to 2099
    const std::time_t seconds = (std::int64_t{day} - kDayNumberOf1970) * 86400;
    std::tm utc{};
    ASSERT_NE(gmtime_r(&seconds, &utc), nullptr);
    char expected[64];
    std::snprintf(expected, sizeof expected, "%04d %02d %d %d %02d %d %02d", utc.tm_year + 1900,
                  utc.tm_year % 100, utc.tm_mon + 1, utc.tm_mday, utc.tm_mon + 1, utc.tm_mday,
                  utc.tm_mday);
    ASSERT_EQ(Formatted("%Y %y %x %d %X %d %D", day, 0), expected) << day;
    ASSERT_EQ(Call("GDW", day, kSecond), Status::Done);
    ASSERT_EQ(Integer(kSecond), utc.tm_wday == 0 ? 7 : utc.tm_wday) << day;
    if (day < kFirstOfTheFormula) continue;
    TheHost().localTime = {utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, 0, 0, 0};
    ASSERT_EQ(Call("GCD", kFirst, kSecond), Status::Done);
    ASSERT_EQ(Integer(kFirst), day);
  }
}

TEST_F(ResidentProgramsTest, every_hour_is_formatted) {
  for (int hour = 0; hour < 24; ++hour) {
    const std::int32_t time = (hour / 10 << 4 | hour % 10) << 16 | 0x0709;
    const int twelve = hour % 12 == 0 ? 12 : hour % 12;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%02d %d %02d %d 07 7 09 9 %s %s", hour, hour, twelve,
                  twelve, hour < 12 ? "AM" : "PM", hour < 12 ? "am" : "pm");
    EXPECT_EQ(Formatted("%H %h %I %i %M %m %S %s %A %a", 51544, time), expected);
  }
}

TEST_F(ResidentProgramsTest, unknown_codes_and_a_final_percent_insert_nothing) {
  EXPECT_EQ(Formatted("%Y/%x/%d %I:%M%A %q%%", 51544, 0x000509), "2000/1/1 12:05AM %");
  EXPECT_EQ(Formatted("100%", 51544, 0), "100");
  EXPECT_EQ(Formatted("", 51544, 0), "");
  EXPECT_EQ(Formatted(std::string_view("a\0b", 3), 51544, 0), std::string("a\0b", 3));
}

TEST_F(ResidentProgramsTest, days_before_the_calendar_are_reported_and_treated_as_its_first) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(Formatted("%d.%x.%Y", -1, 0), "17.11.1858");
  EXPECT_EQ(Formatted("%d.%x.%Y", kLeast, 0), "17.11.1858");
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Month error\nMonth error\n");
  EXPECT_EQ(Formatted("%d.%x.%Y", 0, 0), "17.11.1858");
  EXPECT_EQ(Formatted("%d.%x.%Y", 45, 0), "1.1.1859");
}

TEST_F(ResidentProgramsTest, days_in_the_far_future_are_formatted) {
  EXPECT_EQ(Formatted("%Y", kMost, 0), "5881469");
  EXPECT_EQ(Formatted("%H:%M:%S", 0, -1), "165:165:165") << "digits above 9 are used unchanged";
}

TEST_F(ResidentProgramsTest, the_day_of_the_week_counts_from_monday) {
  EXPECT_EQ(Call("GDW", 51544, kFirst), Status::Done);
  EXPECT_EQ(Integer(kFirst), 6);
  EXPECT_EQ(Call("GDW", kMost, kFirst), Status::Done);
  EXPECT_EQ(Integer(kFirst), (std::int64_t{kMost} + 2) % 7 + 1);
}

TEST_F(ResidentProgramsTest, random_numbers_reach_but_do_not_exceed_their_bound) {
  std::vector<int> counts(6);
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(Call("Rnd", 5, kFirst), Status::Done);
    ASSERT_GE(Integer(kFirst), 0);
    ASSERT_LE(Integer(kFirst), 5);
    ++counts[static_cast<std::size_t>(Integer(kFirst))];
  }
  for (const int count : counts) EXPECT_GT(count, 0);
  for (const std::int32_t bound : {0, -1, -2, kLeast}) {
    EXPECT_EQ(Call("Rnd", bound, kFirst), Status::Done);
    EXPECT_EQ(Integer(kFirst), 0);
  }
  EXPECT_EQ(Call("Rnd", kMost, kFirst), Status::Done);
  EXPECT_GE(Integer(kFirst), 0);
}

TEST_F(ResidentProgramsTest, a_substring_is_clipped_to_the_text) {
  EXPECT_EQ(Substring("abcdef", 2, 4), "bcd");
  EXPECT_EQ(Substring("abcdef", 0, 100), "abcdef");
  EXPECT_EQ(Substring("abcdef", 7, 9), "");
  EXPECT_EQ(Substring("abcdef", 4, 2), "");
  EXPECT_EQ(Substring("abcdef", kLeast, kMost), "abcdef");
  EXPECT_EQ(Substring("abcdef", kMost, kMost), "");
  EXPECT_EQ(Substring("abcdef", 3, 0), "");
  EXPECT_EQ(Substring(std::string_view("a\0b", 3), 2, 3), std::string("\0b", 2));
}

TEST_F(ResidentProgramsTest, a_length_counts_zero_bytes) {
  EXPECT_EQ(Call("GSL", std::string_view("a\0b", 3), kFirst), Status::Done);
  EXPECT_EQ(Integer(kFirst), 3);
  EXPECT_EQ(Call("GSL", "", kFirst), Status::Done);
  EXPECT_EQ(Integer(kFirst), 0);
}

TEST_F(ResidentProgramsTest, a_search_begins_at_its_start_position) {
  EXPECT_EQ(Found("abcabc", 1, "bc"), 2);
  EXPECT_EQ(Found("abcabc", 3, "bc"), 5);
  EXPECT_EQ(Found("abcabc", -7, "bc"), 2);
  EXPECT_EQ(Found("abcabc", 6, "bc"), -1);
  EXPECT_EQ(Found("abcabc", kMost, "bc"), -1);
  EXPECT_EQ(Found("abc", 4, ""), 4);
  EXPECT_EQ(Found("abc", 5, ""), -1);
  EXPECT_EQ(Found("abc", 2, ""), 2);
  EXPECT_EQ(Found("ab", 1, "abc"), -1);
}

TEST_F(ResidentProgramsTest, repeated_extraction_walks_through_a_list) {
  std::int32_t start = 1;
  std::string words;
  for (;;) {
    EXPECT_EQ(Call("SES", "one,two,,end", start, ",", kText, kFirst), Status::Done);
    if (Integer(kFirst) == -1) break;
    words += Text() + ";";
    start = Integer(kFirst);
  }
  EXPECT_EQ(words, "one;two;;");
  EXPECT_EQ(Text(), "");
  EXPECT_EQ(start, 10);
}

// The expected result of a search: the first position at or after `start`, counted from 1, at which
// `wanted` occurs, or -1.
std::int32_t ExpectedPosition(const std::string& text, std::int32_t start,
                              const std::string& wanted) {
  for (std::size_t at = start < 1 ? 0 : static_cast<std::size_t>(start) - 1;
       at + wanted.size() <= text.size(); ++at) {
    if (text.compare(at, wanted.size(), wanted) == 0) return static_cast<std::int32_t>(at) + 1;
  }
  return -1;
}

std::string RandomText(std::mt19937& random, std::size_t longest) {
  std::string text(random() % (longest + 1), ' ');
  for (char& byte : text) byte = "ab\0"[random() % 3];
  return text;
}

TEST_F(ResidentProgramsTest, substrings_of_random_texts_are_clipped_to_the_text) {
  std::mt19937 random(1);  // NOLINT: the same texts every time
  for (int i = 0; i < 3000; ++i) {
    const std::string text = RandomText(random, 8);
    const auto begin = static_cast<std::int32_t>(random() % 14) - 2;
    const auto end = static_cast<std::int32_t>(random() % 14) - 2;
    std::string wanted;
    for (std::int32_t at = 1; at <= static_cast<std::int32_t>(text.size()); ++at) {
      if (at >= begin && at <= end) wanted += text[static_cast<std::size_t>(at) - 1];
    }
    ASSERT_EQ(Substring(text, begin, end), wanted) << text << ' ' << begin << ' ' << end;
  }
}

TEST_F(ResidentProgramsTest, searches_in_random_texts_find_the_first_occurrence) {
  std::mt19937 random(1);  // NOLINT: the same texts every time
  for (int i = 0; i < 3000; ++i) {
    const std::string text = RandomText(random, 8);
    const std::string wanted = RandomText(random, 3);
    const auto start = static_cast<std::int32_t>(random() % 12) - 1;
    const std::int32_t position = ExpectedPosition(text, start, wanted);
    ASSERT_EQ(Found(text, start, wanted), position) << text << ' ' << start << ' ' << wanted;
    ASSERT_EQ(Call("SES", text, start, wanted, kText, kFirst), Status::Done);
    const std::int32_t first = start < 1 ? 1 : start;
    ASSERT_EQ(Integer(kFirst),
              position == -1 ? -1 : position + static_cast<std::int32_t>(wanted.size()));
    ASSERT_EQ(Text(), position == -1 ? ""
                                     : text.substr(static_cast<std::size_t>(first) - 1,
                                                   static_cast<std::size_t>(position - first)));
  }
}

TEST_F(ResidentProgramsTest, texts_are_converted_to_references) {
  EXPECT_EQ(Call("CTC", "~/content", kContent), Status::Done);
  EXPECT_EQ(Object<ContentRefVariable>(kContent).Value.Path.View(), "~/content");
  EXPECT_EQ(Call("CTO", "~/group", 17, kReference), Status::Done);
  EXPECT_EQ(Object<ObjectRefVariable>(kReference).Value.GroupIdentifier.View(), "~/group");
  EXPECT_EQ(Object<ObjectRefVariable>(kReference).Value.Number, 17);
}

TEST_F(ResidentProgramsTest, a_service_is_identified_by_its_first_and_third_field) {
  std::int32_t index = 1;
  for (const char* service : {"104d", "108d", "10ff", "113f", "117f", "123f"}) {
    EXPECT_EQ(ServiceIndex(std::string("dvb://233a.100d.") + service), index++);
  }
  EXPECT_EQ(ServiceIndex("dvb://233a.anything.123f"), 6);
  EXPECT_EQ(ServiceIndex("dvb://233A.100d.108d"), -1);
  EXPECT_EQ(ServiceIndex("dvb://233a.100d.108D"), -1);
  EXPECT_EQ(ServiceIndex("dvb://233a.100d.1234"), -1);
  EXPECT_EQ(ServiceIndex("dvb://233a.108d"), -1);
  EXPECT_EQ(ServiceIndex("rec://233a.100d.108d"), -1);
  EXPECT_EQ(ServiceIndex(""), -1);
}

TEST_F(ResidentProgramsTest, basic_service_information_is_returned) {
  EXPECT_EQ(Call("BSI", 3, kFirst, kSecond, kThird, kFourth), Status::Done);
  EXPECT_EQ(Integer(kFirst), 12290);
  EXPECT_EQ(Integer(kSecond), 9018);
  EXPECT_EQ(Integer(kThird), 4109);
  EXPECT_EQ(Integer(kFourth), 4351);
  std::int32_t known = 1;
  for (const std::int32_t service : {4173, 4237, 4351, 4415, 4479, 4671}) {
    EXPECT_EQ(Call("BSI", known, kFirst, kSecond, kThird, kFourth), Status::Done);
    EXPECT_EQ(Integer(kFourth), service) << known;
    ++known;
  }
  for (const std::int32_t index : {7, 0, -1, kMost}) {
    EXPECT_EQ(Call("BSI", index, kFirst, kSecond, kThird, kFourth), Status::Done);
    for (const Variable output : {kFirst, kSecond, kThird, kFourth}) {
      EXPECT_EQ(Integer(output), -1) << index;
    }
  }
}

TEST_F(ResidentProgramsTest, tuning_requests_a_restart) {
  EXPECT_EQ(Call("TIn", 0), Status::Done);
  EXPECT_EQ(Call("TIn", -1), Status::Done);
  EXPECT_TRUE(TheHost().restarts.empty());
  EXPECT_EQ(Call("TIn", 2), Status::Done);
  EXPECT_EQ(TheHost().restarts, std::vector<RestartReason>{RestartReason::Tune});
}

TEST_F(ResidentProgramsTest, programs_about_the_receiver_return_fixed_values) {
  Object<BooleanVariable>(kBoolean).Value = true;
  EXPECT_EQ(Call("GBI", kBoolean, kText), Status::Done);
  EXPECT_FALSE(Object<BooleanVariable>(kBoolean).Value);
  EXPECT_EQ(Text(), "");
  EXPECT_EQ(Call("WAI", kText), Status::Done);
  EXPECT_EQ(Text(), "QXZ001100 MHGQXZ001 DSMQXZ000");
  EXPECT_EQ(Text().size(), 29U);
  EXPECT_EQ(Call("SWA", 3), Status::Done);
  EXPECT_EQ(Call("GDA", kFirst), Status::Done);
  EXPECT_EQ(Integer(kFirst), 1) << "SWA does not change the aspect ratio";
}

TEST_F(ResidentProgramsTest, checking_a_reference_succeeds_and_copies_it) {
  EXPECT_EQ(Call("CCR", "~/c", kBoolean, kContent), Status::Done);
  EXPECT_TRUE(Object<BooleanVariable>(kBoolean).Value);
  EXPECT_EQ(Object<ContentRefVariable>(kContent).Value.Path.View(), "~/c");
  Object<BooleanVariable>(kBoolean).Value = false;
  EXPECT_EQ(Call("CGR", static_cast<Variable>(1234), kBoolean, kReference), Status::Done);
  EXPECT_TRUE(Object<BooleanVariable>(kBoolean).Value);
  EXPECT_EQ(Object<ObjectRefVariable>(kReference).Value.Number, 1234);
}

}  // namespace
}  // namespace korvel::test
