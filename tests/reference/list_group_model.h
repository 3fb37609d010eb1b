// A reference model of a running list group: the layout of its items, scrolling, selection, and the
// events of each, one rule per function and as plain as possible.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "comparison.h"

namespace korvel::test {

class ListGroupModel {
 public:
  struct Setup {
    int itemCount, visibleCount, cellCount;  // the items are the visibles 1 to itemCount
    bool isActive, wrapAround, multipleSelection;
  };
  struct Item {
    std::int32_t visible;
    bool isSelected, isPresented;
  };

  explicit ListGroupModel(const Setup& setup) : setup_(setup) {
    for (int i = 1; i <= setup.cellCount; ++i) cells_.push_back(10 * i);
    if (!setup.isActive) return;
    for (int i = 1; i <= setup.itemCount; ++i) items_.push_back({i, false, false});
    token_ = setup.itemCount == 0 ? 0 : 1;
    LayOut();
  }

  Outcome Do(const Step& step) {
    events_.clear();
    redraws_ = 0;
    if (!setup_.isActive) return {};
    const std::string& action = step.action;
    const std::int32_t n = step.numbers.size() > 1 ? step.numbers[1] : 0;
    const std::int32_t last = step.numbers.back();
    const std::int32_t i = IndexOf(n);
    if (action == "ScrollItems") Scroll(n);
    if (action == "SetFirstItem") Change([&] { first_ = n; });
    const bool isAddable = last <= setup_.visibleCount && PlaceOf(last) == 0;
    if (action == "AddItem" && n >= 1 && n <= N() + 1 && isAddable) {
      Change([&] { items_.insert(items_.begin() + (n - 1), {last, false, false}); });
    }
    if (action == "DelItem" && PlaceOf(n) != 0) {
      Change([&] {
        Withdraw(items_[PlaceOf(n) - 1]);
        items_.erase(items_.begin() + (PlaceOf(n) - 1));
      });
    }
    if (action == "Stop") Stop();
    if (action == "SetCellPosition" && K() != 0) cells_[std::clamp(n, 1, K()) - 1] = last, LayOut();
    if (action == "SelectItem") Select(i);
    if (action == "DeselectItem") Deselect(i);
    if (action == "ToggleItem" && i != 0) items_[i - 1].isSelected ? Deselect(i) : Select(i);
    const bool hasToken = token_ >= 1 && token_ <= N();
    if (action == "Select" && hasToken) Select(token_);
    if (action == "Deselect" && hasToken) Deselect(token_);
    if (action == "MoveTo" && n != token_) {
      events_ += Mark("TokenMovedFrom", token_);
      token_ = n;
      events_ += Mark("TokenMovedTo", token_);
    }
    if (action == "GetListSize") integer_ = N();
    if (action == "GetFirstItem") integer_ = first_;
    if (action == "GetTokenPosition") integer_ = token_;
    if (action == "GetItemStatus" && i != 0) boolean_ = items_[i - 1].isSelected;
    if (action == "GetListItem" && i != 0) reference_ = items_[i - 1].visible;
    if (action == "GetCellItem") reference_ = K() == 0 ? 0 : ItemInCell(std::clamp(n, 1, K()));
    return {Status::Done, events_, "", redraws_};
  }

  std::string State() {
    std::string text = Words("first", first_, "token", token_, integer_, boolean_, reference_);
    for (const Item& item : items_) text += Words(item.visible, item.isSelected, item.isPresented);
    text += "at ";
    for (int i = 1; i <= setup_.visibleCount; ++i) text += Words(y_[i]);
    text += "stack ";
    for (const std::int32_t visible : stack_) text += Words(visible);
    return text;
  }

 private:
  std::int32_t N() const { return static_cast<std::int32_t>(items_.size()); }
  std::int32_t K() const { return static_cast<std::int32_t>(cells_.size()); }
  std::int32_t PlaceOf(std::int32_t visible) const {
    for (std::int32_t i = 1; i <= N(); ++i) {
      if (items_[i - 1].visible == visible) return i;
    }
    return 0;
  }
  // The number modulo N; the remainder has the sign of the number, and 0 becomes N.
  std::int32_t Reduced(std::int32_t n) const {
    if (!setup_.wrapAround || N() == 0) return n;
    return n % N() == 0 ? N() : n % N();
  }
  // The index of the item that an action names, or 0.
  std::int32_t IndexOf(std::int32_t n) const {
    if (N() == 0 || (!setup_.wrapAround && (n < 1 || n > N()))) return 0;
    return Reduced(n) < 1 ? 1 : Reduced(n);
  }
  // The visible that the layout puts into a cell, or 0.
  std::int32_t ItemInCell(std::int32_t cell) const {
    std::int32_t start = Reduced(first_) < 1 ? 1 : Reduced(first_);
    if (setup_.wrapAround && cell <= N()) return items_[(start - 1 + cell - 1) % N()].visible;
    if (setup_.wrapAround || start > N() || cell > N() - start + 1) return 0;
    return items_[start - 1 + cell - 1].visible;
  }
  void Withdraw(Item& item) {
    item.isPresented = false;
    std::erase(stack_, item.visible);
  }
  void LayOut() {
    if (K() == 0) return;
    ++redraws_;
    std::vector<std::int32_t> placed;
    for (std::int32_t cell = 1; cell <= K(); ++cell) placed.push_back(ItemInCell(cell));
    for (Item& item : items_) {
      if (std::ranges::count(placed, item.visible) == 0) Withdraw(item);
    }
    for (std::int32_t cell = 1; cell <= K(); ++cell) {
      if (placed[cell - 1] == 0) continue;
      Item& item = items_[PlaceOf(placed[cell - 1]) - 1];
      if (!item.isPresented) stack_.push_back(item.visible);
      item.isPresented = true;
      y_[item.visible] = cells_[cell - 1];
    }
  }
  std::int32_t Head() const {
    const std::int32_t f = Reduced(first_);
    return f < 1 ? 0 : f > N() ? N() : f - 1;
  }
  std::int32_t Tail() const {
    const std::int32_t f = Reduced(first_);
    return f < 1 ? N() : f > N() ? 0 : N() - f;
  }
  void Scroll(std::int32_t n) {
    first_ = static_cast<std::int32_t>(std::int64_t{first_} + n);  // modulo 2^32
    LayOut();
  }
  void Stop() {
    events_ += Mark("TokenMovedFrom", token_);
    for (Item& item : items_) Withdraw(item);
    setup_.isActive = false;
    ++redraws_;
  }
  template <class Action> void Change(Action action) {
    const auto isFirst = [&] { return N() > 0 && items_.front().isPresented; };
    const auto isLast = [&] { return N() > 0 && items_.back().isPresented; };
    const bool first = isFirst(), last = isLast();
    const std::int32_t head = Head(), tail = Tail();
    action();
    LayOut();
    if (isFirst() != first) events_ += Mark("FirstItemPresented", isFirst());
    if (isLast() != last) events_ += Mark("LastItemPresented", isLast());
    if (Head() != head) events_ += Mark("HeadItems", Head());
    if (Tail() != tail) events_ += Mark("TailItems", Tail());
  }
  void Deselect(std::int32_t i) {
    if (i == 0 || !items_[i - 1].isSelected) return;
    items_[i - 1].isSelected = false;
    events_ += Mark("ItemDeselected", i);
  }
  void Select(std::int32_t i) {
    if (i == 0 || items_[i - 1].isSelected) return;
    items_[i - 1].isSelected = true;
    for (std::int32_t other = 1; other <= N(); ++other) {
      if (!setup_.multipleSelection && other != i) Deselect(other);
    }
    events_ += Mark("ItemSelected", i);
  }

  Setup setup_;
  std::vector<Item> items_;
  std::vector<int> cells_;                  // the y coordinates
  std::map<std::int32_t, std::int32_t> y_;  // where each visible was placed last
  std::vector<std::int32_t> stack_;
  std::int32_t first_ = 1, token_ = 0, integer_ = -1, reference_ = 99;
  bool boolean_ = false;
  int redraws_ = 0;
  std::string events_;
};

}  // namespace korvel::test
