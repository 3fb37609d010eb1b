// The transitions between the groups of a carousel.
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

  // Whether departures lead from a start-up application to the group. True for every group if the
  // carousel has no such application, or if a variable determines the target of a departure.
  [[nodiscard]] bool IsReached(const CheckedGroup& group) const;
  // Whether the viewer can leave the scene. True for the only scene of a carousel.
  [[nodiscard]] bool HasWayOut(const CheckedGroup& scene) const;
  // The departure that begins an endless cycle: as soon as the group starts, it leads to groups
  // whose starts lead back to it. Null if the group is in no such cycle.
  [[nodiscard]] const Departure* CycleFrom(const CheckedGroup& group) const;

 private:
  struct Successor {
    const Departure* departure = nullptr;
    const CheckedGroup* group = nullptr;
  };

  void FindReached(const Carousel& carousel);
  void FindSuccessors(const Carousel& carousel);
  [[nodiscard]] Successor SuccessorOf(const Carousel& carousel, const CheckedGroup& group) const;
  void FindCycles();

  std::unordered_set<const CheckedGroup*> reached_;
  bool isAllReached_ = true;
  bool applicationsNavigate_ = false;  // an application may leave a scene after its own start
  bool mayDivert_ = false;             // an application may do so while a scene starts
  std::size_t sceneCount_ = 0;
  std::unordered_map<const CheckedGroup*, Successor> successors_;
  std::unordered_map<const CheckedGroup*, const Departure*> cycles_;
};

}  // namespace mheg
