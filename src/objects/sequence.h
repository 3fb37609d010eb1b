// A growable array of trivially copyable values on the engine's heap.
#pragma once

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include "objects/memory.h"

namespace korvel {

template <class T> class Sequence {
  static_assert(std::is_trivially_copyable_v<T>, "values are moved as bytes");

 public:
  Sequence() = default;
  Sequence(Sequence&& other) noexcept
      : values_(std::exchange(other.values_, nullptr)),
        size_(std::exchange(other.size_, 0)),
        capacity_(std::exchange(other.capacity_, 0)) {}
  Sequence& operator=(Sequence&&) = delete;
  Sequence(const Sequence&) = delete;
  Sequence& operator=(const Sequence&) = delete;
  ~Sequence() { ReleaseMemory(values_); }

  // False, and unchanged, if memory runs out.
  [[nodiscard]] bool Append(const T& value) {
    if (size_ == capacity_ && !Reserve(capacity_ == 0 ? kFirstCapacity : capacity_ * 2)) {
      return false;
    }
    values_[size_++] = value;
    return true;
  }
  // Added values are default values. False, and unchanged, if memory runs out.
  [[nodiscard]] bool Resize(std::size_t size) {
    if (size > capacity_ && !Reserve(size)) return false;
    for (; size_ < size; ++size_) values_[size_] = T{};
    size_ = size;
    return true;
  }
  // Removes all values after the first `size`.
  void Truncate(std::size_t size) { size_ = size; }
  void Clear() {
    ReleaseMemory(std::exchange(values_, nullptr));
    size_ = capacity_ = 0;
  }

  [[nodiscard]] std::size_t Size() const { return size_; }
  [[nodiscard]] bool IsEmpty() const { return size_ == 0; }
  [[nodiscard]] T* begin() { return values_; }
  [[nodiscard]] T* end() { return values_ + size_; }
  [[nodiscard]] const T* begin() const { return values_; }
  [[nodiscard]] const T* end() const { return values_ + size_; }
  T& operator[](std::size_t index) { return values_[index]; }
  const T& operator[](std::size_t index) const { return values_[index]; }

 private:
  static constexpr std::size_t kFirstCapacity = 8;
  // A value may well be a pointer.  NOLINTNEXTLINE(bugprone-sizeof-expression)
  static constexpr std::size_t kValueSize = sizeof(T);

  [[nodiscard]] bool Reserve(std::size_t capacity) {
    auto* values = static_cast<T*>(AllocateZeroed(capacity * kValueSize));
    if (values == nullptr) return false;
    if (size_ > 0) std::memcpy(static_cast<void*>(values), values_, size_ * kValueSize);
    ReleaseMemory(values_);
    values_ = values;
    capacity_ = capacity;
    return true;
  }

  T* values_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace korvel
