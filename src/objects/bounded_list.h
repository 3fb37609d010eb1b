// A list of at most `kCapacity` values, stored inside the object without allocation.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <utility>

namespace korvel {

template <class T, std::size_t kCapacity> class BoundedList {
 public:
  [[nodiscard]] bool IsEmpty() const { return size_ == 0; }
  [[nodiscard]] bool IsFull() const { return size_ == kCapacity; }
  [[nodiscard]] std::size_t Size() const { return size_; }
  [[nodiscard]] const T* begin() const { return values_.data(); }
  [[nodiscard]] const T* end() const { return values_.data() + size_; }
  [[nodiscard]] const T& operator[](std::size_t index) const { return values_[index]; }
  // The list must not be empty.
  [[nodiscard]] const T& Last() const { return values_[size_ - 1]; }

  // The list must not be full.
  void Append(T value) {
    assert(!IsFull());
    values_[size_++] = std::move(value);
  }
  // The list must not be empty.
  void RemoveLast() {
    assert(!IsEmpty());
    values_[--size_] = T{};
  }
  void Clear() {
    while (!IsEmpty()) RemoveLast();
  }

 private:
  std::array<T, kCapacity> values_{};
  std::size_t size_ = 0;
};

}  // namespace korvel
