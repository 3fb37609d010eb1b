// Which objects the actions of groups affect, collected in one pass over each group. Checks use it
// to find objects that wait for an action that nothing performs.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>

#include "objects/objects.h"

namespace mheg {

// One kind of effect on one object. The group's name is without its "~", and borrowed from the
// group that holds the action. `timer` is the number of a timer that SetTimer sets.
struct Effect {
  korvel::Action action{};
  std::string_view group;
  std::int32_t number = 0;
  std::optional<std::int32_t> timer;

  [[nodiscard]] auto Fields() const { return std::tie(action, group, number, timer); }
  bool operator<(const Effect& other) const { return Fields() < other.Fields(); }
};

class Effects {
 public:
  // Adds the effect of an action. Only the actions that checks ask about are recorded.
  void Add(const korvel::ElementaryAction& action, std::string_view groupName);
  void Add(const Effects& others);
  // Adds those of the others that may affect a group of that name, or an object in it.
  void AddOn(const std::set<std::string_view>& groups, const Effects& others);

  // Whether there is any such action, whatever it affects.
  [[nodiscard]] bool Has(korvel::Action action) const;
  // Whether there is such an effect, or an action that names its target through a variable.
  [[nodiscard]] bool May(const Effect& effect) const;

 private:
  [[nodiscard]] bool MayBeAny(korvel::Action action) const { return onAny_.contains(action); }

  std::set<Effect> effects_;
  // Actions that name their target or timer through a variable, and SendEvent.
  std::set<korvel::Action> onAny_;
};

[[nodiscard]] Effects EffectsOf(const korvel::Group& group);

}  // namespace mheg
