// The effects of the actions of groups on links: they activate and deactivate them, and send events
// that nothing else raises. Found in one walk over each group.
#pragma once

#include <cstdint>
#include <set>
#include <string_view>
#include <utility>

#include "objects/objects.h"

namespace mheg {

// Links that actions are done to. The names are borrowed from the groups that hold the actions.
struct LinkTargets {
  std::set<std::pair<std::string_view, std::int32_t>> links;  // group without its "~", and number
  bool areAny = false;                                        // a variable says which

  void Add(const LinkTargets& others);
  [[nodiscard]] bool MayBe(std::string_view group, std::int32_t number) const;
};

struct LinkDeeds {
  LinkTargets activated;
  LinkTargets deactivated;
  bool sendsEvents = false;

  void Add(const LinkDeeds& others);
};

[[nodiscard]] LinkDeeds DeedsOf(const korvel::Group& group);

}  // namespace mheg
