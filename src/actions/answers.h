// What a behaviour hands out: events of its object, redraw requests, and answers written into
// variables.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "actions/parameters.h"
#include "objects/messages.h"

namespace korvel {

// Raises an event of the object. Failure and Replaced have to be handed up at once: with Replaced
// the object itself has ended. Done in every other case, also when other groups were replaced.
Status RaiseFrom(const Ingredient& object, EventType type, EventData data = {});

// Raises an EngineEvent of the running application. Failure has to be handed up.
Status RaiseEngineEvent(std::int32_t number);

// Asks for a redraw when the object is running. Failure and Replaced have to be handed up, as for
// RaiseFrom.
Status RedrawIfRunning(const Ingredient& object);

// Write an answer into the variable that the parameter at `place` names. Refused when it is not of
// the class.
Status AnswerBoolean(const Arguments& arguments, std::size_t place, bool value);
Status AnswerInteger(const Arguments& arguments, std::size_t place, std::int32_t value);
// `message` is printed when memory is out, and the list stops.
Status AnswerOctets(const Arguments& arguments, std::size_t place, std::string_view value,
                    Message message);
Status AnswerReference(const Arguments& arguments, std::size_t place, const ObjectReference& value);
// Writes both numbers or, when one of the two variables is of another class, neither.
Status AnswerPair(const Arguments& arguments, std::int32_t first, std::int32_t second);

}  // namespace korvel
