// The words for objects, values and actions in the trace, the expectations and the scene graph.
// They are the words of the textual notation.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "mheg/report_words.h"
#include "objects/group.h"
#include "objects/observer.h"

namespace mheg {

// The names of the classes: "TokenGroup or ListGroup".
[[nodiscard]] std::string ClassNames(korvel::ClassSet classes);

// The class of an object that a group holds.
[[nodiscard]] korvel::ItemType ClassOf(const korvel::Ingredient& object);

// "IntegerVar 20 of ~/menu".
[[nodiscard]] std::string NameOf(const korvel::Ingredient& object);
// "Scene ~/menu".
[[nodiscard]] std::string NameOf(const korvel::Group& group);
// The same for the object of a running group with that name; "object 20 of ~/menu" if there is no
// such object.
[[nodiscard]] std::string NameOf(std::string_view group, std::int32_t number);

// A string in the notation, with quotes and escaped bytes.
[[nodiscard]] std::string Quoted(std::string_view bytes);

// The value of a variable in the notation; empty if the object is not a variable.
[[nodiscard]] std::string ValueOf(const korvel::Ingredient& variable);

// An action in the notation. References into the group `home` are plain numbers.
[[nodiscard]] std::string TextOf(const korvel::ElementaryAction& action, std::string_view home);

// Why something was skipped. `action` is the action that it concerns, or null.
[[nodiscard]] std::string TextOf(korvel::Reason reason, std::int32_t detail,
                                 const korvel::ElementaryAction* action);
// "NotActive".
[[nodiscard]] std::string NameOf(korvel::Reason reason);

}  // namespace mheg
