// Creates, releases and compares records by class number, for every class in the class tables.
#include "objects/item.h"

#include "objects/class_tables.h"
#include "objects/messages.h"
#include "objects/ownership.h"

namespace korvel {
namespace {

template <class Record> bool HasSameAttributes(const Record& one, const Record& other) {
  bool isSame = one.Reference == other.Reference;
  ForEachAttribute<Record>([&](const auto& attribute) {
    isSame = isSame && one.*attribute.field == other.*attribute.field;
  });
  return isSame;
}

}  // namespace

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

bool Item::operator==(const Item& other) const {
  if (type_ != other.type_) return false;
  bool isSame = false;
  VisitIngredientClass(type_, [&]<class Record>() {
    isSame = HasSameAttributes(As<const Record>(), other.As<const Record>());
  });
  return isSame;
}

bool Group::operator==(const Group& other) const {
  return type == other.type && VisitGroup(*this, [&other]<class Record>(Record& record) {
           return HasSameAttributes(record, static_cast<Record&>(other));
         });
}

}  // namespace korvel
