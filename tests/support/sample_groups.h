// Groups made from the tables, for tests that must meet every class, attribute and action: what a
// table gains, these groups gain by themselves.
#pragma once

#include <cstdint>

#include "objects/decoded_group.h"

namespace korvel::test {

// An application or a scene with an item of every class, every attribute set to something else than
// its construction value, and every action that content can hold, once with direct and once with
// indirect values.
OwnedGroup MakeCompleteGroup(ItemType type);

// A group that depends on nothing but `seed`: some attributes, some items, some actions, some
// parameters left out.
OwnedGroup MakeRandomGroup(std::uint32_t seed);

}  // namespace korvel::test
