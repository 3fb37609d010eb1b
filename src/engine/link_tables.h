// The two tables of links that wait for events, and how links get into them and out again.
#pragma once

#include "actions/actions.h"
#include "engine/core.h"

namespace korvel {

// The table that holds links waiting for the type, or null for a number without a
// name: a link waiting for one is entered nowhere and never fires. The split between the tables is
// fixed, not the standard's split into synchronous and asynchronous events.
[[nodiscard]] LinkTable* TableOf(EventType type);

// Prepares the group's links, activates those that are initially active, and enters all of them in
// their tables.
Status AddLinks(Group& group, Scope context);

// Takes the links of a group out of both tables: those named after the group, and those it owns
// under whatever name.
void RemoveLinks(const Group& group);

void ClearLinkTables();

}  // namespace korvel
