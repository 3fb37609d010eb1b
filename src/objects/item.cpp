// Creates and releases records by class number, for every class in the class tables.
#include "objects/item.h"

#include "objects/class_tables.h"
#include "objects/messages.h"
#include "objects/ownership.h"

namespace korvel {

Item Item::New(ItemType type) {
  Item item;
  VisitIngredientClass(type, [&]<class Record>() {
    Ingredient* record = NewRecord<Record>().release();
    if (record != nullptr) item = Item(type, record);
  });
  return item;
}

Item& Item::operator=(Item&& other) noexcept {
  if (this != &other) {
    Reset();
    type_ = std::exchange(other.type_, ItemType::None);
    record_ = std::exchange(other.record_, nullptr);
  }
  return *this;
}

void Item::Reset() {
  Ingredient* record = std::exchange(record_, nullptr);
  if (record == nullptr) return;
  const bool isKnown = VisitIngredientClass(
      type_, [record]<class Record>() { Releaser<Record>()(static_cast<Record*>(record)); });
  // The record of an unknown class cannot be released: its destructor is unknown too.
  if (!isKnown) Say(Message::UnknownItemType);
  type_ = ItemType::None;
}

}  // namespace korvel
