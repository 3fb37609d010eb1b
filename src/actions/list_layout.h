// Which item of a list group stands in which cell, and putting them there. Places of items and
// cells count from 1; 0 means none.
#pragma once

#include <cstdint>

#include "actions/parameters.h"
#include "objects/ingredients.h"

namespace korvel {

[[nodiscard]] std::int32_t ItemCount(const ListGroup& group);
[[nodiscard]] std::int32_t CellCount(const ListGroup& group);

// The item at a place, or null.
[[nodiscard]] ListItem* ItemAt(ListGroup& group, std::int32_t place);

// The place of the item that refers to the object, or 0.
[[nodiscard]] std::int32_t PlaceOf(const ListGroup& group, const ObjectReference& object);

// The place of the item that the layout puts into a cell, or 0.
[[nodiscard]] std::int32_t ItemInCell(const ListGroup& group, std::int32_t cell);

// The first item as it counts: within the items when the list wraps around. May lie outside them
// otherwise.
[[nodiscard]] std::int32_t EffectiveFirstItem(const ListGroup& group);

// Puts the items into the cells and takes the others off the screen, silently; then asks for a
// redraw when the group is running. Failure and Replaced have to be handed up.
Status LayOut(ListGroup& group);

// Takes an item's visible off the screen, silently.
void Withdraw(const ListGroup& group, ListItem& item);

}  // namespace korvel
