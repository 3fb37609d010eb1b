// A record on the engine's heap with exactly one owner, who releases it by going away.
#pragma once

#include <new>
#include <utility>

#include "objects/memory.h"

namespace korvel {

template <class T>
class Owned {
 public:
  Owned() = default;
  explicit Owned(T* record) : record_(record) {}
  Owned(Owned&& other) noexcept : record_(std::exchange(other.record_, nullptr)) {}
  Owned& operator=(Owned&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.record_, nullptr));
    return *this;
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { Reset(); }

  // A record with its defaults, or an empty owner when memory is out.
  [[nodiscard]] static Owned New() {
    void* block = AllocateZeroed(sizeof(T));
    return Owned(block == nullptr ? nullptr : new (block) T());
  }

  void Reset(T* record = nullptr) {
    T* old = std::exchange(record_, record);
    if (old == nullptr) return;
    old->~T();
    ReleaseMemory(old);
  }

  [[nodiscard]] T* Release() { return std::exchange(record_, nullptr); }
  [[nodiscard]] T* Get() const { return record_; }
  T& operator*() const { return *record_; }
  T* operator->() const { return record_; }
  explicit operator bool() const { return record_ != nullptr; }

 private:
  T* record_ = nullptr;
};

}  // namespace korvel
