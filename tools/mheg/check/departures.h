// The actions by which a group leads to another group: transitions, launches, spawns and quits.
#pragma once

#include <cstdint>
#include <vector>

#include "objects/objects.h"
#include "textual/textual.h"

namespace mheg {

// When a departure may happen.
enum class Moment : std::uint8_t {
  Start,  // always when the group starts
  Event,  // possibly while the group starts: on an event that actions may cause
  Input,  // later: on a key, a timer or an engine event
};

struct Departure {
  const korvel::ElementaryAction* action = nullptr;  // borrowed from the group
  Moment moment = Moment::Event;
  // The position of the action, as for SourcePlaces::Find.
  std::int32_t object = 0;  // 0: the group itself
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

// Whether the action is a transition to the group that performs it, which the engine rejects.
// Compares the names including their "~".
[[nodiscard]] bool IsTransitionTo(const korvel::ElementaryAction& action,
                                  const korvel::Group& group);

}  // namespace mheg
