// A reference model of the actions on a list group, and the events of each, as plain as possible.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "comparison.h"
#include "list_layout_model.h"

namespace korvel::test {

class ListGroupModel {
 public:
  struct Setup {
    int itemCount, visibleCount, cellCount;  // the items are the visibles 1 to itemCount
    bool isActive, wrapAround, multipleSelection;
    std::string failing;  // the event on which a link fails; empty: none
  };

  explicit ListGroupModel(const Setup& setup) : setup_(setup) {
    list_.wrapAround = setup.wrapAround;
    for (int i = 1; i <= setup.cellCount; ++i) list_.cells.push_back(10 * i);
    if (!setup.isActive) return;
    for (int i = 1; i <= setup.itemCount; ++i) list_.items.push_back({i});
    token_ = setup.itemCount == 0 ? 0 : 1;
    LayOut();
  }

  Outcome Do(const Step& step) {
    done_ = {};
    if (setup_.isActive) Act(step.action, step.numbers);
    return done_;
  }

  std::string State() {
    std::string text = Words("first", list_.first, "token", token_, integer_, boolean_, reference_);
    for (const ModelItem& item : list_.items) {
      text += Words(item.visible, item.isSelected, item.isPresented);
    }
    text += "at ";
    for (int i = 1; i <= setup_.visibleCount; ++i) text += Words(list_.y[i]);
    text += "stack ";
    for (const std::int32_t visible : list_.stack) text += Words(visible);
    return text;
  }

 private:
  void Act(const std::string& action, const std::vector<std::int32_t>& numbers) {
    const std::int32_t n = numbers.size() > 1 ? numbers[1] : 0;
    const std::int32_t last = numbers.back();
    const std::int32_t size = list_.N();
    const std::int32_t cell = std::clamp(n, 1, std::max(list_.K(), 1));
    const std::int32_t i = list_.IndexOf(n);
    const std::int32_t token = token_ >= 1 && token_ <= size ? token_ : 0;
    if (action == "ScrollItems") {
      list_.first = static_cast<std::int32_t>(std::int64_t{list_.first} + n);  // modulo 2^32
      LayOut();
    }
    if (action == "SetFirstItem") Change([&] { list_.first = n; });
    if (action == "AddItem") Add(n, last);
    if (action == "DelItem") Delete(list_.PositionOf(n));
    if (action == "SetCellPosition" && list_.K() != 0) {
      At(list_.cells, cell) = last;
      LayOut();
    }
    if (action == "Stop") Stop();
    if (action == "SelectItem") Select(i);
    if (action == "DeselectItem") Deselect(i);
    if (action == "ToggleItem" && i != 0) At(list_.items, i).isSelected ? Deselect(i) : Select(i);
    if (action == "Select") Select(token);
    if (action == "Deselect") Deselect(token);
    if (action == "MoveTo" && n != token_) {
      Raise("TokenMovedFrom", token_);
      token_ = n;
      Raise("TokenMovedTo", token_);
    }
    if (action == "GetListSize") integer_ = size;
    if (action == "GetFirstItem") integer_ = list_.first;
    if (action == "GetTokenPosition") integer_ = token_;
    if (action == "GetItemStatus" && i != 0) boolean_ = At(list_.items, i).isSelected;
    if (action == "GetListItem" && i != 0) reference_ = At(list_.items, i).visible;
    if (action == "GetCellItem") reference_ = list_.K() == 0 ? 0 : list_.VisibleInCell(cell);
  }

  // A failure skips everything that follows.
  bool HasFailed() const { return done_.status == Status::Failure; }
  template <class Data> void Raise(const std::string& event, Data data) {
    if (HasFailed()) return;
    done_.events += Mark(event, data);
    if (event != setup_.failing) return;
    done_.messages += kFailMessage;
    done_.status = Status::Failure;
  }

  void LayOut() {
    if (list_.K() == 0) return;
    list_.LayOut();
    ++done_.redraws;
  }
  template <class Action> void Change(Action action) {
    const ListLayoutModel before = list_;
    action();
    LayOut();
    const bool first = list_.IsFirstPresented(), last = list_.IsLastPresented();
    if (first != before.IsFirstPresented()) Raise("FirstItemPresented", first);
    if (last != before.IsLastPresented()) Raise("LastItemPresented", last);
    if (list_.Head() != before.Head()) Raise("HeadItems", list_.Head());
    if (list_.Tail() != before.Tail()) Raise("TailItems", list_.Tail());
  }
  // Adds the visible unless the list already contains it.
  void Add(std::int32_t i, std::int32_t visible) {
    if (i < 1 || i > list_.N() + 1) return;
    if (visible > setup_.visibleCount || list_.PositionOf(visible) != 0) return;
    Change([&] { list_.items.insert(list_.items.begin() + (i - 1), {visible}); });
  }
  void Delete(std::int32_t i) {
    if (i == 0) return;
    Change([&] {
      list_.Withdraw(At(list_.items, i));
      list_.items.erase(list_.items.begin() + (i - 1));
    });
  }
  void Stop() {
    Raise("TokenMovedFrom", token_);
    for (ModelItem& item : list_.items) list_.Withdraw(item);
    setup_.isActive = false;
    ++done_.redraws;
  }
  void Deselect(std::int32_t i) {
    if (i == 0 || !At(list_.items, i).isSelected) return;
    At(list_.items, i).isSelected = false;
    Raise("ItemDeselected", i);
  }
  void Select(std::int32_t i) {
    if (i == 0 || At(list_.items, i).isSelected) return;
    At(list_.items, i).isSelected = true;
    for (std::int32_t other = 1; other <= list_.N(); ++other) {
      if (!setup_.multipleSelection && other != i && !HasFailed()) Deselect(other);
    }
    Raise("ItemSelected", i);
  }

  Setup setup_;
  ListLayoutModel list_;
  std::int32_t token_ = 0, integer_ = -1, reference_ = 99;
  bool boolean_ = false;
  Outcome done_;
};

}  // namespace korvel::test
