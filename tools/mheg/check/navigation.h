// How the groups of a carousel lead to each other.
#pragma once

#include <unordered_map>
#include <unordered_set>

#include "mheg/check/departures.h"

namespace mheg {

class Carousel;
struct CheckedGroup;

class Navigation {
 public:
  Navigation() = default;
  // Borrows the groups of the carousel, which must be loaded.
  explicit Navigation(const Carousel& carousel);

  // Whether something leads from a start-up application to the group. True for every group if the
  // carousel has none, or if a target is named through a variable.
  [[nodiscard]] bool IsReached(const CheckedGroup& group) const;
  // Whether the viewer can leave the scene. True for the only scene of a carousel.
  [[nodiscard]] bool HasWayOut(const CheckedGroup& scene) const;
  // The departure with which the group leads, as soon as it starts, to groups that lead back to it
  // in the same way; null if it does not.
  [[nodiscard]] const Departure* CycleFrom(const CheckedGroup& group) const;

 private:
  struct Next {
    const Departure* departure = nullptr;
    const CheckedGroup* group = nullptr;
  };

  void FindReached(const Carousel& carousel);
  void FindNexts(const Carousel& carousel);
  [[nodiscard]] Next NextOf(const Carousel& carousel, const CheckedGroup& group) const;
  void FindCycles();

  std::unordered_set<const CheckedGroup*> reached_;
  bool isAllReached_ = true;
  bool applicationsLead_ = false;  // an application leads to another group after its start
  bool mayDivert_ = false;         // and it may do so while a scene starts
  std::size_t sceneCount_ = 0;
  std::unordered_map<const CheckedGroup*, Next> nexts_;
  std::unordered_map<const CheckedGroup*, const Departure*> cycles_;
};

}  // namespace mheg
