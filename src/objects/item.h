// Owns one ingredient's record of any class. A group's items and a stream's components are lists of
// these. The class number identifies the type of the record.
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

  // Creates a record of the class with its construction values. The result is empty if memory runs
  // out or the number is not an ingredient class.
  [[nodiscard]] static Item New(ItemType type);

  [[nodiscard]] ItemType Type() const { return type_; }
  // The record, whose actual class is the one that Type() names.
  [[nodiscard]] Ingredient* Record() const { return record_; }
  template <class T> [[nodiscard]] T& As() const { return *static_cast<T*>(record_); }
  explicit operator bool() const { return record_ != nullptr; }
  // Whether both have the same class, own reference and attributes; run-time values may differ.
  bool operator==(const Item& other) const;

 private:
  void Reset();

  ItemType type_ = ItemType::None;
  Ingredient* record_ = nullptr;
};

}  // namespace korvel
