// The owner of one ingredient's record, whatever its class: what a group's items and a stream's
// components are lists of. The class number says which record it is.
#pragma once

#include <utility>

#include "objects/vocabulary.h"

namespace korvel {

struct Ingredient;

class Item {
 public:
  Item() = default;
  Item(ItemType type, Ingredient* record) : type_(type), record_(record) {}
  Item(Item&& other) noexcept
      : type_(std::exchange(other.type_, ItemType::None)),
        record_(std::exchange(other.record_, nullptr)) {}
  Item& operator=(Item&& other) noexcept;
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;
  ~Item() { Reset(); }

  // A record of the class with its construction values. Without a record when memory is out or the
  // number names no ingredient class.
  [[nodiscard]] static Item New(ItemType type);

  [[nodiscard]] ItemType Type() const { return type_; }
  // The record, to be used as the class that Type() names.
  [[nodiscard]] Ingredient* Record() const { return record_; }
  template <class T>
  [[nodiscard]] T& As() const {
    return *static_cast<T*>(record_);
  }
  explicit operator bool() const { return record_ != nullptr; }

 private:
  void Reset();

  ItemType type_ = ItemType::None;
  Ingredient* record_ = nullptr;
};

}  // namespace korvel
