// A hash table that keeps its values in the order in which they were added, including several
// values with the same key. A search takes the same time at any size; a removal visits all.
#pragma once

#include <cstddef>
#include <cstdint>

#include "objects/list.h"

namespace korvel {

// Computes the hash of numbers. The result differs from process to process: keys come from content,
// and content that could choose keys with the same hash would make every search linear.
class Hash {
 public:
  // Odd, and taken from the clock. Only the instruction benchmark sets it, while there is no index.
  static std::uint64_t secret;

  Hash& Add(std::uint32_t number) {
    state_ = (state_ + number + 1) * secret;
    return *this;
  }
  [[nodiscard]] std::uint32_t Result() const { return static_cast<std::uint32_t>(state_ >> 32U); }

 private:
  std::uint64_t state_ = 0;
};

[[nodiscard]] inline std::uint32_t HashOf(std::int32_t number) {
  return Hash().Add(static_cast<std::uint32_t>(number)).Result();
}

// `Key` and `Value` are trivially copyable. `Key` has operator== and a function
// `std::uint32_t HashOf(const Key&)`.
template <class Key, class Value> class Index {
 public:
  struct Entry {
    Key key;
    Value value;
    std::uint32_t next = kNone;  // the index of the next entry with the same key
    std::uint32_t last = kNone;  // in the first entry of a key: the index of its last entry
  };

  // Adds a value after all others. False, and unchanged, if memory runs out.
  [[nodiscard]] bool Add(const Key& key, const Value& value) {
    if (entries_.Size() * 2 >= slots_.Size() && !Rehash(slots_.Size() * 2)) return false;
    if (!entries_.Append({key, value})) return false;
    Chain(entries_.Size() - 1);
    return true;
  }

  // The first entry of a key, or null. Next returns the key's following entry, or null. Entries
  // that were added earlier have lower addresses.
  [[nodiscard]] const Entry* Find(const Key& key) const {
    if (slots_.IsEmpty()) return nullptr;
    const std::uint32_t first = slots_[SlotOf(key)];
    return first == kNone ? nullptr : entries_.begin() + first;
  }
  [[nodiscard]] const Entry* Next(const Entry& entry) const {
    return entry.next == kNone ? nullptr : entries_.begin() + entry.next;
  }

  // All entries, in the order in which they were added.
  [[nodiscard]] const Entry* begin() const { return entries_.begin(); }
  [[nodiscard]] const Entry* end() const { return entries_.end(); }

  // Removes every value for which `matches` returns true.
  template <class Predicate> void RemoveAll(Predicate&& matches) {
    std::size_t kept = 0;
    for (const Entry& entry : entries_) {
      if (!matches(entry.value)) entries_[kept++] = {entry.key, entry.value};
    }
    entries_.Truncate(kept);
    ChainAll();
  }

  void Clear() {
    entries_.Clear();
    slots_.Clear();
  }

 private:
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;
  static constexpr std::size_t kFirstSlots = 16;

  // The slot that holds the key's first entry, or the free slot for it.
  [[nodiscard]] std::size_t SlotOf(const Key& key) const {
    const std::size_t mask = slots_.Size() - 1;  // the size is a power of two
    std::size_t slot = HashOf(key) & mask;
    while (slots_[slot] != kNone && !(entries_[slots_[slot]].key == key)) slot = (slot + 1) & mask;
    return slot;
  }

  void Chain(std::size_t place) {
    const auto added = static_cast<std::uint32_t>(place);
    std::uint32_t& first = slots_[SlotOf(entries_[place].key)];
    if (first == kNone) {
      first = added;
    } else {
      entries_[entries_[first].last].next = added;
    }
    entries_[first].last = added;
  }

  void ChainAll() {
    for (std::uint32_t& slot : slots_) slot = kNone;
    for (std::size_t place = 0; place < entries_.Size(); ++place) {
      entries_[place].next = kNone;
      Chain(place);
    }
  }

  [[nodiscard]] bool Rehash(std::size_t size) {
    if (!slots_.Resize(size < kFirstSlots ? kFirstSlots : size)) return false;
    ChainAll();
    return true;
  }

  List<Entry> entries_;
  List<std::uint32_t> slots_;  // the index of a key's first entry; at least half are free
};

}  // namespace korvel
