// The keys and events that lead to an action.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "mheg/check/carousel.h"

namespace mheg {

// An action of a group, with its position.
struct HeldAction {
  const CheckedGroup* group = nullptr;
  std::int32_t object = 0;             // the number of the object or group that holds it
  const korvel::Link* link = nullptr;  // that object, if it is a link
  const char* keyword = "";            // of the attribute that holds it
  const korvel::ElementaryAction* action = nullptr;

  // Whether the action's target is the object `number` of the group `holder`.
  [[nodiscard]] bool Targets(const Carousel& carousel, const CheckedGroup& holder,
                             std::int32_t number) const;
};

// All actions of a group.
[[nodiscard]] std::vector<HeldAction> ActionsOf(const CheckedGroup& group);

class Causes {
 public:
  // Searches for causes among these actions. Borrows both arguments.
  Causes(const Carousel& carousel, const std::vector<HeldAction>& actions)
      : carousel_(carousel), actions_(actions) {}

  // The causes in words: "Red", "start", "TimerFired 1".
  [[nodiscard]] std::set<std::string> Of(const HeldAction& held);

 private:
  void Add(const HeldAction& held, std::set<std::string>& causes);
  void AddCausesOfEvent(const HeldAction& held, std::set<std::string>& causes);
  // Adds the causes of these actions on an object. Returns false if there are none.
  bool AddCausesOf(std::initializer_list<korvel::Action> actions, const CheckedGroup& group,
                   std::int32_t number, std::set<std::string>& causes);

  const Carousel& carousel_;
  const std::vector<HeldAction>& actions_;
  std::set<const void*> seen_;  // the actions traced so far, because causes may be circular
};

}  // namespace mheg
