// The objects that the actions of groups affect, collected in one pass over each group. Checks use
// this to find objects that wait for an action that no group contains.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>

#include "objects/objects.h"

namespace mheg {

// An effect of an action on one object. `group` is the name of the object's group without its "~",
// borrowed from the group that contains the action. `timer` is the number of the timer that
// SetTimer sets.
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
  // Adds the effect of an action, unless no check queries effects of its kind.
  void Add(const korvel::ElementaryAction& action, std::string_view groupName);
  void Add(const Effects& others);
  // Adds those effects of the others that may affect one of these groups or an object in it.
  void AddOn(const std::set<std::string_view>& groups, const Effects& others);

  // Whether there is such an action on any object.
  [[nodiscard]] bool HasAction(korvel::Action action) const;
  // Whether there is such an effect, or such an action whose target or timer a variable determines.
  [[nodiscard]] bool MayHave(const Effect& effect) const;

 private:
  [[nodiscard]] bool MayAffectAny(korvel::Action action) const { return onAny_.contains(action); }

  std::set<Effect> effects_;
  // Actions whose target or timer a variable determines, and SendEvent.
  std::set<korvel::Action> onAny_;
};

[[nodiscard]] Effects EffectsOf(const korvel::Group& group);

}  // namespace mheg
