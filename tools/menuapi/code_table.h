// A table of codes of different lengths, none of which is the beginning of another, and the quick
// look-up of the one that comes next.
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
template <typename Value>
struct Code {
  std::string_view bits;
  Value value;
};

template <typename Value>
class CodeTable {
 public:
  using Rows = std::span<const Code<Value>>;

  // The rows of all parts. The table does not keep them.
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

  // Reads a code. Null, with nothing read, if no code matches the next bits. The table owns the
  // value.
  [[nodiscard]] const Value* Read(BitReader& reader) const {
    const std::uint32_t next = reader.Peek(bits_);
    const Entry* entry = &short_[bits_ > kShortBits ? next >> (bits_ - kShortBits) : next];
    if (entry->length == 0) entry = &long_[next];
    if (entry->length == 0) return nullptr;
    reader.Skip(entry->length);
    return &entry->value;
  }

 private:
  // Nearly all codes of a picture are short, and their small part of the table stays in the cache.
  static constexpr int kShortBits = 9;

  struct Entry {
    Value value{};
    std::uint8_t length = 0;  // 0: no code begins like this
  };

  static int Length(const Code<Value>& row) { return static_cast<int>(row.bits.size()); }

  // Every number that begins with the code is an entry for it.
  static void Fill(std::vector<Entry>& entries, int bits, const Code<Value>& row) {
    std::size_t first = 0;
    for (const char bit : row.bits) first = first * 2 + (bit == '1' ? 1 : 0);
    const int open = bits - Length(row);
    std::fill_n(entries.begin() + static_cast<std::ptrdiff_t>(first << open),
                std::size_t{1} << open,
                Entry{row.value, static_cast<std::uint8_t>(row.bits.size())});
  }

  void Enter(const Code<Value>& row) {
    Fill(long_, bits_, row);
    const int shortBits = std::min(bits_, kShortBits);
    if (Length(row) <= shortBits) Fill(short_, shortBits, row);
  }

  int bits_ = 0;  // of the longest code
  std::vector<Entry> short_;
  std::vector<Entry> long_;
};

}  // namespace menuapi
