// Groups made from the tables, for tests that must meet every class, attribute and action: what a
// table gains, these groups gain by themselves.
#pragma once

#include <cstdint>

#include "objects/ownership.h"

namespace korvel::test {

// An application or a scene with an item of every class, every attribute set to something else than
// its construction value, and every action that content can hold, once with direct and once with
// indirect values.
OwnedGroup MakeCompleteGroup(ItemType type);

// A group that depends on nothing but `seed`: some attributes, some items, some actions, some
// parameters left out. An even number gives an application, an odd one a scene.
OwnedGroup MakeRandomGroup(std::uint32_t seed);

// The groups of so many seeds, from 0 on, show each attribute of each class written and left out,
// each place of each action's syntax with a direct and with an indirect value, and every byte in
// strings.
inline constexpr std::uint32_t kEnoughRandomGroups = 1500;

}  // namespace korvel::test
