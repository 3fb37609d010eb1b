// A table of variable-length prefix codes, with a fast look-up of the next code in the stream.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "menuapi/bit_reader.h"

namespace menuapi {

// One row: the bits of the code as "0" and "1", and its value.
template <typename Value> struct Code {
  std::string_view bits;
  Value value;
};

template <typename Value> class CodeTable {
 public:
  using Rows = std::span<const Code<Value>>;

  // Copies the rows of all parts, which together must form a prefix code.
  CodeTable(std::initializer_list<Rows> parts) {
    for (const Rows rows : parts) {
      for (const Code<Value>& row : rows) bits_ = std::max(bits_, Length(row));
    }
    short_.resize(std::size_t{1} << kShortBits);
    long_.resize(std::size_t{1} << bits_);
    for (const Rows rows : parts) {
      for (const Code<Value>& row : rows) Enter(row);
    }
  }

  // Reads a code. Returns null and consumes nothing if no code matches. The table owns the value.
  [[nodiscard]] const Value* Read(BitReader& reader) const {
    const std::uint32_t next = reader.Peek(bits_);
    const Entry* entry = &short_[bits_ > kShortBits ? next >> (bits_ - kShortBits) : next];
    if (entry->length == 0) entry = &long_[next];
    if (entry->length == 0) return nullptr;
    reader.Skip(entry->length);
    return &entry->value;
  }

 private:
  // Nearly all codes in a picture are short, so the small table for them stays in the cache.
  static constexpr int kShortBits = 9;

  struct Entry {
    Value value{};
    std::uint8_t length = 0;  // in bits; 0: no code matches
  };

  static int Length(const Code<Value>& row) { return static_cast<int>(row.bits.size()); }

  // Fills every entry whose index begins with the code's bits.
  static void Fill(std::vector<Entry>& entries, int bits, const Code<Value>& row) {
    std::size_t first = 0;
    for (const char bit : row.bits) first = first * 2 + (bit == '1' ? 1 : 0);
    const int freeBits = bits - Length(row);
    std::fill_n(entries.begin() + static_cast<std::ptrdiff_t>(first << freeBits),
                std::size_t{1} << freeBits,
                Entry{row.value, static_cast<std::uint8_t>(row.bits.size())});
  }

  void Enter(const Code<Value>& row) {
    Fill(long_, bits_, row);
    const int shortBits = std::min(bits_, kShortBits);
    if (Length(row) <= shortBits) Fill(short_, shortBits, row);
  }

  int bits_ = 0;  // length of the longest code
  std::vector<Entry> short_;
  std::vector<Entry> long_;
};

}  // namespace menuapi
