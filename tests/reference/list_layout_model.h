// A reference model of the layout of a list group: which item is in which cell, and how many are
// before and after the first one.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "comparison.h"

namespace korvel::test {

struct ModelItem {
  std::int32_t visible;
  bool isSelected = false, isPresented = false;
};

struct ListLayoutModel {
  bool wrapAround = false;
  std::vector<ModelItem> items;
  std::vector<std::int32_t> cells;         // their y coordinates
  std::int32_t first = 1;                  // the first item, from 1; may be outside the items
  std::map<std::int32_t, std::int32_t> y;  // where each visible was placed last
  std::vector<std::int32_t> stack;         // the visibles on the screen

  std::int32_t N() const { return static_cast<std::int32_t>(items.size()); }
  std::int32_t K() const { return static_cast<std::int32_t>(cells.size()); }

  std::int32_t PositionOf(std::int32_t visible) const {
    for (std::int32_t i = 1; i <= N(); ++i) {
      if (At(items, i).visible == visible) return i;
    }
    return 0;
  }

  // The number modulo N; the remainder has the sign of the number, and 0 becomes N.
  std::int32_t Reduced(std::int32_t n) const {
    if (!wrapAround || N() == 0) return n;
    return n % N() == 0 ? N() : n % N();
  }
  // The index of the item that an action's number refers to, or 0.
  std::int32_t IndexOf(std::int32_t n) const {
    if (N() == 0 || (!wrapAround && (n < 1 || n > N()))) return 0;
    return Reduced(n) < 1 ? 1 : Reduced(n);
  }

  // The visible that belongs in a cell, or 0.
  std::int32_t VisibleInCell(std::int32_t cell) const {
    const std::int32_t start = Reduced(first) < 1 ? 1 : Reduced(first);
    if (wrapAround && cell <= N()) return At(items, (start - 1 + cell - 1) % N() + 1).visible;
    if (wrapAround || start > N() || cell > N() - start + 1) return 0;
    return At(items, start - 1 + cell).visible;
  }

  void Withdraw(ModelItem& item) {
    item.isPresented = false;
    std::erase(stack, item.visible);
  }

  void LayOut() {
    std::vector<std::int32_t> placed;
    for (std::int32_t cell = 1; cell <= K(); ++cell) placed.push_back(VisibleInCell(cell));
    for (ModelItem& item : items) {
      if (std::ranges::count(placed, item.visible) == 0) Withdraw(item);
    }
    for (std::int32_t cell = 1; cell <= K(); ++cell) {
      if (At(placed, cell) == 0) continue;
      ModelItem& item = At(items, PositionOf(At(placed, cell)));
      if (!item.isPresented) stack.push_back(item.visible);
      item.isPresented = true;
      y[item.visible] = At(cells, cell);
    }
  }

  bool IsFirstPresented() const { return N() > 0 && items.front().isPresented; }
  bool IsLastPresented() const { return N() > 0 && items.back().isPresented; }
  std::int32_t Head() const {
    const std::int32_t f = Reduced(first);
    return f < 1 ? 0 : f > N() ? N() : f - 1;
  }
  std::int32_t Tail() const {
    const std::int32_t f = Reduced(first);
    return f < 1 ? N() : f > N() ? 0 : N() - f;
  }
};

}  // namespace korvel::test
