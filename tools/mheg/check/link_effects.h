// The effects of a group's actions on links: actions activate and deactivate links, and SendEvent
// can raise any event. Collected in one pass over each group.
#pragma once

#include <cstdint>
#include <set>
#include <string_view>
#include <utility>

#include "objects/objects.h"

namespace mheg {

// The links that actions target. The names are borrowed from the groups that hold the actions.
struct LinkTargets {
  std::set<std::pair<std::string_view, std::int32_t>> links;  // group without its "~", and number
  bool areAny = false;  // a target is named through a variable, so it may be any link

  void Add(const LinkTargets& others);
  [[nodiscard]] bool MayBe(std::string_view group, std::int32_t number) const;
};

struct LinkEffects {
  LinkTargets activated;
  LinkTargets deactivated;
  bool sendsEvents = false;

  void Add(const LinkEffects& others);
};

[[nodiscard]] LinkEffects LinkEffectsOf(const korvel::Group& group);

}  // namespace mheg
