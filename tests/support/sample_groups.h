// Groups generated from the tables, for tests that must cover every class, attribute and action.
// New rows of a table appear in these groups automatically.
#pragma once

#include <cstdint>

#include "objects/ownership.h"

namespace korvel::test {

// An application or a scene with an item of every class, every attribute different from its default
// value, and every action that content can hold, once with direct and once with indirect values.
OwnedGroup MakeCompleteGroup(ItemType type);

// A group that depends only on `seed`, with a random selection of attributes, items, actions and
// parameters. Even seeds produce an application, odd ones a scene.
OwnedGroup MakeRandomGroup(std::uint32_t seed);

// The number of seeds, starting at 0, whose groups together contain each attribute of each class
// (present and absent), each parameter of each action (with a direct and an indirect value), and
// every byte value in strings.
inline constexpr std::uint32_t kEnoughRandomGroups = 1500;

}  // namespace korvel::test
