// Checks that the code tables are prefix codes, and the known properties of each table.
// reference_streams_test.cpp tests the meaning of the codes with streams that ffmpeg encoded.
#include <gtest/gtest.h>

#include <map>
#include <set>

#include "menuapi/coefficient_codes.h"
#include "menuapi/macroblock_codes.h"
#include "unit/menuapi/bit_writer.h"

namespace menuapi::test {

namespace {

constexpr int kLongest = 16;

// The runs and levels of a table. Fails if a code is a prefix of another.
std::set<std::pair<int, int>> Steps(CoefficientTable table) {
  std::vector<Code<RunLevel>> rows;
  for (const auto& part : {OwnCoefficientRows(table), SharedCoefficientRows()}) {
    rows.insert(rows.end(), part.begin(), part.end());
  }
  std::set<std::pair<int, int>> steps;
  for (const auto& row : rows) {
    for (const auto& other : rows) {
      EXPECT_TRUE(&row == &other || !other.bits.starts_with(row.bits)) << row.bits;
    }
    EXPECT_TRUE(steps.emplace(row.value.run, row.value.level).second) << row.bits;
  }
  return steps;
}

// The number of 16-bit numbers that begin with a code of the table. No code is longer than 16 bits.
// A code is followed by a sign bit, which may have either value and is therefore not counted.
int UsedNumbers(CoefficientTable table) {
  int used = 0;
  for (const auto& part : {OwnCoefficientRows(table), SharedCoefficientRows()}) {
    for (const auto& row : part) used += 1 << (kLongest - static_cast<int>(row.bits.size()));
  }
  return used;
}

// The number of values in a table, and the number of 16-bit numbers that begin with no code of it.
std::pair<std::size_t, int> Extent(const CodeTable<int>& table) {
  std::set<int> values;
  int unused = 0;
  for (unsigned number = 0; number < 1U << kLongest; ++number) {
    BitWriter writer;
    writer.Put(number, kLongest);
    BitReader reader(writer.Bytes());
    const int* value = table.Read(reader);
    if (value != nullptr) values.insert(*value);
    unused += value == nullptr ? 1 : 0;
  }
  return {values.size(), unused};
}

}  // namespace

TEST(CodeTable, reads_a_code_but_not_the_bits_after_it) {
  constexpr Code<int> rows[] = {{"1", 7}, {"01", 8}, {"00000000001", 9}};
  const CodeTable<int> table{rows};
  BitWriter writer;
  writer.Put("01 00000000001 1 00000000000");
  BitReader reader(writer.Bytes());
  for (const int expected : {8, 9, 7}) {
    const int* value = table.Read(reader);
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(*value, expected);
  }
  EXPECT_EQ(table.Read(reader), nullptr);
  EXPECT_EQ(reader.Peek(11), 0U);
}

TEST(CoefficientCodes, both_tables_encode_the_same_steps) {
  const auto zero = Steps(CoefficientTable::Zero);
  EXPECT_EQ(zero.size(), 113U);  // 111 steps, end and escape
  EXPECT_EQ(zero, Steps(CoefficientTable::One));
}

TEST(CoefficientCodes, cover_the_levels_of_each_run_up_to_the_highest_of_the_standard) {
  std::map<int, int> highest;
  std::map<int, int> count;
  for (const auto& [run, level] : Steps(CoefficientTable::Zero)) {
    if (level <= 0) continue;
    highest[run] = std::max(highest[run], level);
    ++count[run];
  }
  EXPECT_EQ(highest, count);  // no level is missing
  const std::map<int, int> firstRuns = {{0, 40}, {1, 18}, {2, 5}, {3, 4}, {4, 3}, {5, 3}, {6, 3}};
  for (int run = 0; run <= 31; ++run) {
    const auto first = firstRuns.find(run);
    EXPECT_EQ(highest[run], first != firstRuns.end() ? first->second : run <= 16 ? 2 : 1) << run;
  }
  EXPECT_FALSE(highest.contains(32));
}

// Table zero has a code for every 16-bit number except the 16 that begin with twelve zeros, so no
// code resembles a start code. In table one, nine times as many numbers begin with no code.
TEST(CoefficientCodes, leave_only_the_known_gaps) {
  EXPECT_EQ((1 << 16) - UsedNumbers(CoefficientTable::Zero), 1 << 4);
  EXPECT_EQ((1 << 16) - UsedNumbers(CoefficientTable::One), 9 << 4);
}

TEST(CoefficientCodes, are_read_as_the_value_of_their_row) {
  for (const CoefficientTable table : {CoefficientTable::Zero, CoefficientTable::One}) {
    for (const auto& part : {OwnCoefficientRows(table), SharedCoefficientRows()}) {
      for (const auto& row : part) {
        BitWriter writer;
        writer.Put(row.bits);
        writer.Put("1");
        BitReader reader(writer.Bytes());
        const RunLevel* read = CoefficientCodes(table).Read(reader);
        ASSERT_NE(read, nullptr) << row.bits;
        EXPECT_EQ(read->run, row.value.run);
        EXPECT_EQ(read->level, row.value.level);
        EXPECT_EQ(reader.Read(1), 1U);
      }
    }
  }
}

TEST(MacroblockCodes, have_as_many_values_and_gaps_as_the_standard_lists) {
  using Numbers = std::pair<std::size_t, int>;
  // 33 increments and the escape. Of the 11-bit numbers, 24 and above begin an increment, and 8 is
  // the escape.
  EXPECT_EQ(Extent(AddressIncrementCodes()), Numbers(34, 23 << 5));
  EXPECT_EQ(Extent(IntraTypeCodes()), Numbers(2, 1 << 14));
  // Of the 10-bit numbers, 12 and above begin a code.
  EXPECT_EQ(Extent(MotionCodes()), Numbers(17, 12 << 6));
  EXPECT_EQ(Extent(LumaDcSizeCodes()), Numbers(12, 0));
  EXPECT_EQ(Extent(ChromaDcSizeCodes()), Numbers(12, 0));
}

}  // namespace menuapi::test
