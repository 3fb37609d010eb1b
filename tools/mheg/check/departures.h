// The actions with which a group leads to another one: transitions, launches, spawns and quits.
#pragma once

#include <cstdint>
#include <vector>

#include "objects/objects.h"
#include "textual/textual.h"

namespace mheg {

enum class Moment : std::uint8_t {
  Start,  // in any case, when the group starts
  Event,  // possibly while the group starts: on an event that actions may cause
  Input,  // later: on a key, a timer or an engine event
};

// The action is borrowed from the group. The rest says where it is, as in SourcePlaces; `object` is
// 0 for the group itself.
struct Departure {
  const korvel::ElementaryAction* action = nullptr;
  Moment moment = Moment::Event;
  std::int32_t object = 0;
  const char* keyword = "";
  std::int32_t index = 0;
};

// Whether the action starts the group that its target names.
[[nodiscard]] constexpr bool LeadsToGroup(korvel::Action action) {
  return action == korvel::Action::TransitionTo || action == korvel::Action::Launch ||
         action == korvel::Action::Spawn;
}

// Whether the action ends the group that performs it, or suspends its application.
[[nodiscard]] constexpr bool IsDeparture(korvel::Action action) {
  return LeadsToGroup(action) || action == korvel::Action::Quit;
}

[[nodiscard]] std::vector<Departure> DeparturesOf(const korvel::Group& group);

// Whether the action is a transition to the group that performs it, which the engine refuses. The
// names are compared with their "~".
[[nodiscard]] bool IsTransitionTo(const korvel::ElementaryAction& action,
                                  const korvel::Group& group);

}  // namespace mheg
