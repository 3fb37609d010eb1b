// The growable array for items, actions, parameters and everything else whose number content
// decides. It owns its values, which move when it grows: pointers to values and iterators are valid
// until the next change. A failed allocation changes nothing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>

#include "objects/memory.h"

namespace korvel {

template <class T> class List {
 public:
  List() = default;
  List(List&& other) noexcept
      : values_(std::exchange(other.values_, nullptr)),
        size_(std::exchange(other.size_, 0)),
        capacity_(std::exchange(other.capacity_, 0)) {}
  List& operator=(List&& other) noexcept {
    if (this != &other) {
      Clear();
      values_ = std::exchange(other.values_, nullptr);
      size_ = std::exchange(other.size_, 0);
      capacity_ = std::exchange(other.capacity_, 0);
    }
    return *this;
  }
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() { Clear(); }

  T* begin() { return values_; }
  T* end() { return values_ + size_; }
  const T* begin() const { return values_; }
  const T* end() const { return values_ + size_; }
  T& operator[](std::size_t index) { return values_[index]; }
  const T& operator[](std::size_t index) const { return values_[index]; }

  bool operator==(const List& other) const {
    return std::equal(begin(), end(), other.begin(), other.end());
  }
  [[nodiscard]] bool IsEmpty() const { return size_ == 0; }
  [[nodiscard]] std::size_t Size() const { return size_; }
  // The value at a 0-based index, or null past the end.
  [[nodiscard]] T* At(std::size_t index) { return index < size_ ? values_ + index : nullptr; }
  [[nodiscard]] const T* At(std::size_t index) const {
    return index < size_ ? values_ + index : nullptr;
  }
  [[nodiscard]] T* Last() { return IsEmpty() ? nullptr : values_ + size_ - 1; }

  // Moves `value`, which must not be in this list, to the end and returns a pointer to it. Null,
  // with `value` unchanged, if memory runs out.
  [[nodiscard]] T* Append(T&& value) {
    if (size_ == capacity_ && !Grow()) return nullptr;
    return new (values_ + size_++) T(std::move(value));
  }
  [[nodiscard]] T* Append(const T& value) requires std::is_trivially_copyable_v<T> {
    return Append(T(value));
  }
  // The same at a 0-based index; an index past the end means the end.
  [[nodiscard]] T* InsertAt(std::size_t index, T&& value) {
    if (index >= size_) return Append(std::move(value));
    if (size_ == capacity_ && !Grow()) return nullptr;
    T* const last = values_ + size_ - 1;
    new (last + 1) T(std::move(*last));
    ++size_;
    std::move_backward(values_ + index, last, last + 1);
    values_[index] = std::move(value);
    return values_ + index;
  }
  // Adds default values at the end or removes values there. False, and unchanged, if memory runs
  // out.
  [[nodiscard]] bool Resize(std::size_t size) {
    if (!Reserve(size)) return false;
    while (size_ < size) new (values_ + size_++) T();
    Truncate(size);
    return true;
  }

  // Makes room for `capacity` values in all. False, and unchanged, if memory runs out.
  [[nodiscard]] bool Reserve(std::size_t capacity) {
    constexpr std::size_t kMost = std::min<std::size_t>(UINT32_MAX, SIZE_MAX / kValueSize);
    if (capacity <= capacity_) return true;
    if (capacity > kMost) return false;
    auto* values = static_cast<T*>(AllocateZeroed(capacity * kValueSize));
    if (values == nullptr) return false;
    for (std::uint32_t place = 0; place < size_; ++place) {
      new (values + place) T(std::move(values_[place]));
      values_[place].~T();
    }
    ReleaseMemory(values_);
    values_ = values;
    capacity_ = static_cast<std::uint32_t>(capacity);
    return true;
  }

  // Removes the first value for which `matches` returns true and moves it to `taken` (may be null).
  // False if there is none.
  template <class Predicate> bool RemoveFirst(Predicate&& matches, T* taken = nullptr) {
    for (std::size_t place = 0; place < size_; ++place) {
      if (!matches(values_[place])) continue;
      if (taken != nullptr) *taken = std::move(values_[place]);
      std::move(values_ + place + 1, values_ + size_, values_ + place);
      Truncate(std::size_t{size_} - 1);
      return true;
    }
    return false;
  }
  // Removes every value for which `matches` returns true.
  template <class Predicate> void RemoveAll(Predicate&& matches) {
    std::size_t kept = 0;
    for (std::size_t place = 0; place < size_; ++place) {
      if (matches(values_[place])) continue;
      if (kept != place) values_[kept] = std::move(values_[place]);
      ++kept;
    }
    Truncate(kept);
  }
  // Removes the values after the first `size`.
  void Truncate(std::size_t size) {
    while (size_ > size) values_[--size_].~T();
  }

  void Clear() {
    Truncate(0);
    ReleaseMemory(std::exchange(values_, nullptr));
    capacity_ = 0;
  }

 private:
  // Content's lists are short, so the first block has room for 2 records, or for 8 values of less
  // than 16 bytes, which cost as little.
  static constexpr std::uint32_t kFirstCapacity = sizeof(T) < 16 ? 8 : 2;
  // T may be a pointer type. NOLINTNEXTLINE(bugprone-sizeof-expression)
  static constexpr std::size_t kValueSize = sizeof(T);

  [[nodiscard]] bool Grow() { return Reserve(IsEmpty() ? kFirstCapacity : std::size_t{size_} * 2); }

  T* values_ = nullptr;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ = 0;
};

}  // namespace korvel
