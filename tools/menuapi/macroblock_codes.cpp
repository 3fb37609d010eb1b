// The code tables, sorted by value. They are built on first use and kept until the library is
// unloaded.
#include "menuapi/macroblock_codes.h"

namespace menuapi {
namespace {

constexpr Code<int> kAddressIncrements[] = {
    {"1", 1},
    {"011", 2},
    {"010", 3},
    {"0011", 4},
    {"0010", 5},
    {"00011", 6},
    {"00010", 7},
    {"0000111", 8},
    {"0000110", 9},
    {"00001011", 10},
    {"00001010", 11},
    {"00001001", 12},
    {"00001000", 13},
    {"00000111", 14},
    {"00000110", 15},
    {"0000010111", 16},
    {"0000010110", 17},
    {"0000010101", 18},
    {"0000010100", 19},
    {"0000010011", 20},
    {"0000010010", 21},
    {"00000100011", 22},
    {"00000100010", 23},
    {"00000100001", 24},
    {"00000100000", 25},
    {"00000011111", 26},
    {"00000011110", 27},
    {"00000011101", 28},
    {"00000011100", 29},
    {"00000011011", 30},
    {"00000011010", 31},
    {"00000011001", 32},
    {"00000011000", 33},
    {"00000001000", kIncrementEscape},
};

constexpr Code<int> kIntraTypes[] = {{"1", 0}, {"01", 1}};

constexpr Code<int> kMotionCodes[] = {
    {"1", 0},           {"01", 1},          {"001", 2},         {"0001", 3},
    {"000011", 4},      {"0000101", 5},     {"0000100", 6},     {"0000011", 7},
    {"000001011", 8},   {"000001010", 9},   {"000001001", 10},  {"0000010001", 11},
    {"0000010000", 12}, {"0000001111", 13}, {"0000001110", 14}, {"0000001101", 15},
    {"0000001100", 16},
};

constexpr Code<int> kLumaDcSizes[] = {
    {"100", 0},     {"00", 1},       {"01", 2},         {"101", 3},
    {"110", 4},     {"1110", 5},     {"11110", 6},      {"111110", 7},
    {"1111110", 8}, {"11111110", 9}, {"111111110", 10}, {"111111111", 11},
};

constexpr Code<int> kChromaDcSizes[] = {
    {"00", 0},       {"01", 1},        {"10", 2},          {"110", 3},
    {"1110", 4},     {"11110", 5},     {"111110", 6},      {"1111110", 7},
    {"11111110", 8}, {"111111110", 9}, {"1111111110", 10}, {"1111111111", 11},
};

}  // namespace

const CodeTable<int>& AddressIncrementCodes() {
  static const CodeTable<int> table{kAddressIncrements};
  return table;
}

const CodeTable<int>& IntraTypeCodes() {
  static const CodeTable<int> table{kIntraTypes};
  return table;
}

const CodeTable<int>& MotionCodes() {
  static const CodeTable<int> table{kMotionCodes};
  return table;
}

const CodeTable<int>& LumaDcSizeCodes() {
  static const CodeTable<int> table{kLumaDcSizes};
  return table;
}

const CodeTable<int>& ChromaDcSizeCodes() {
  static const CodeTable<int> table{kChromaDcSizes};
  return table;
}

}  // namespace menuapi
