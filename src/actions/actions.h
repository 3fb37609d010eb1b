// The doorway of the elementary actions: the interpreter and the lifecycle of ingredients. Worker
// thread only.
#pragma once

#include <cstdint>
#include <string_view>

#include "objects/ingredients.h"
#include "objects/status.h"
#include "objects/vocabulary.h"

namespace korvel {

// Runs an action list. `groupName` is the group that references without a group identifier mean; it
// is copied, so it may belong to a group that the actions end. The integer is reserved. Returns
// Done; Refused when an unknown action number was met (the rest has run); Failure when a behaviour,
// a raised event or the limits on nesting and work ask everything to stop; Replaced when the
// application or scene was replaced.
Status RunActions(Scope scope, const ActionHolder& owner, std::int32_t reserved,
                  std::string_view groupName);

// Prepares an ingredient: sets its run-time values up from the original ones, takes its text, makes
// it available.
Change Prepare(ItemType type, Ingredient& ingredient);

// Activates an ingredient: makes it run, enters a visible in the display stack, requests a redraw.
Change Activate(ItemType type, Ingredient& ingredient);

// The reverse of Activate.
Change Deactivate(ItemType type, Ingredient& ingredient);

// What the Run action and a group's start do: prepares if need be, activates, and raises IsRunning
// if that changed something. Failure or Replaced when everything has to stop.
Status RunIngredient(ItemType type, Ingredient& ingredient);

// What the Stop action does: deactivates and raises IsStopped if that changed something.
Status StopIngredient(ItemType type, Ingredient& ingredient);

// Stops a running ingredient without an event: it no longer runs, and its highlight and interaction
// end. A visible keeps its place in the display stack.
void StopSilently(ItemType type, Ingredient& ingredient);

// Sets a variable's value. Refused, with the value as it was, while the variable is not available.
Status SetValue(BooleanVariable& variable, bool value);
Status SetValue(IntegerVariable& variable, std::int32_t value);
Status SetValue(OctetStringVariable& variable, OctetString value);
Status SetValue(ObjectRefVariable& variable, ObjectReference value);
Status SetValue(ContentRefVariable& variable, OctetString path);

// Whether the key is one that the interaction in progress uses. If so the key is given to it, with
// its result in `result`, and goes nowhere else.
[[nodiscard]] bool TakeInteractionKey(std::int32_t key, Status& result);

// Forgets what the classes keep engine-wide (the highlighted object, the interaction in progress),
// as an engine start does.
void ResetClassVariables();

// Forgets what the classes keep engine-wide about objects of a group that ends.
void ForgetGroup(const Group& group);

}  // namespace korvel
