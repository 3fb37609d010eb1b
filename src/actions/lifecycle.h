// What coming to life and going asks of the single classes, for the functions of the doorway that
// do it.
#pragma once

#include "actions/parameters.h"
#include "objects/visibles.h"

namespace korvel {

// Whether the class is drawn, or would be: its objects stand in the display stack while they run.
[[nodiscard]] bool IsVisibleClass(ItemType type);

// Enters a visible on top of the application's display stack, or takes it out. Failure when memory
// is out.
Status EnterDisplayStack(ItemType type, Ingredient& visible);
void LeaveDisplayStack(ItemType type, Ingredient& visible);

// The parts of Activate and Deactivate that go beyond a flag and the display stack.
Change ActivateStream(Stream& stream);
Change DeactivateStream(Stream& stream);
Change ActivateTokenGroup(TokenGroup& group);
Change DeactivateTokenGroup(TokenGroup& group);
Change ActivateListGroup(ListGroup& group);
Change DeactivateListGroup(ListGroup& group);

// Fetches the text that the object's content names. When it cannot be had, the text stays as it was
// and the application is told by EngineEvent 3. Failure has to be handed up.
Status FetchText(Text& text);

// The part of an entry field, hyper text or slider that can be highlighted and interacted with.
// Null for every other class.
[[nodiscard]] Interactible* InteractibleOf(const FoundObject& object);

// Ends the interaction of an object that stops: clears its flag and raises InteractionCompleted.
Status EndInteraction(Ingredient& object, Interactible& interactible);

}  // namespace korvel
