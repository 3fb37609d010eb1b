// The values that an action works with: its parameters with indirect ones read from their
// variables, copied so that nothing an action does can take them away, and the objects that its
// references name.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "actions/actions.h"
#include "engine/engine.h"
#include "objects/action_table.h"
#include "objects/values.h"

namespace korvel {

// Who asks: decides which group is searched first, and which group a reference without a group
// identifier means.
struct Asker {
  Scope scope = Scope::ApplicationFirst;
  std::string_view groupName;  // borrowed for the asker's life
};

// The asker that speaks for an ingredient: its own group comes first and completes its references.
[[nodiscard]] Asker AskerFor(const Ingredient& ingredient);

// The values that an action works with.
struct Arguments : Asker {
  FoundObject target;
  // The evaluated parameters, by their place in the syntax; kind None where an optional one is
  // absent. Places from the first one on that a behaviour reads in its own way (lists, colours,
  // values of any type) are left out.
  std::array<GenericValue, kMostParameters> values;
  const List<GenericValue>* given = nullptr;  // the parameters as the action holds them

  [[nodiscard]] std::int32_t Integer(std::size_t place) const { return values[place].Integer; }
  [[nodiscard]] bool Boolean(std::size_t place) const { return values[place].Boolean; }
  [[nodiscard]] std::string_view Octets(std::size_t place) const {
    return values[place].Octets.View();
  }
  [[nodiscard]] const ObjectReference& Reference(std::size_t place) const {
    return values[place].Reference;
  }
  [[nodiscard]] bool IsPresent(std::size_t place) const {
    return values[place].Kind != ValueKind::None;
  }
};

// Whether reading a content reference variable fetches the content that it names, if that is not
// there yet.
enum class ContentLoading : std::uint8_t { Fetch, LeaveOut };

// The object that a reference names.
[[nodiscard]] FoundObject Find(const Asker& asker, const ObjectReference& reference);

// The object that an action's target names: directly, or through an object reference variable.
[[nodiscard]] FoundObject FindTarget(const Asker& asker, const GenericValue& target);

// Copies the value of the variable that `reference` names; the kind of `value` says which class it
// was, None that it was no variable. Failure when the action list has to stop.
Status ReadVariable(const Asker& asker, const ObjectReference& reference, ContentLoading loading,
                    GenericValue& value);

// Whether the value stands in a variable that has to be read.
[[nodiscard]] constexpr bool IsIndirect(const GenericValue& given) {
  return given.Kind == ValueKind::IndirectReference;
}

// A value of any kind: copied when it is given directly, else read from the variable. Refused when
// it cannot be had.
Status ReadValue(const Asker& asker, const GenericValue& given, ContentLoading loading,
                 GenericValue& value);

// A value that has to be of one kind. An absent value stays None. A boolean, integer or octet
// string may also be given as a plain reference to its variable. Refused when the variable is not
// of the kind's class.
Status ReadValueOfKind(const Asker& asker, const GenericValue* given, ValueKind kind,
                       GenericValue& value);

// Fills `arguments.Values` by the action's syntax. Refused when a required parameter is missing or
// cannot be had.
Status EvaluateParameters(const ActionRow& row, Arguments& arguments);

}  // namespace korvel
