// The doorway of the elementary actions: the interpreter and the lifecycle of ingredients. Worker
// thread only.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "objects/ingredients.h"
#include "objects/observer.h"
#include "objects/status.h"
#include "objects/vocabulary.h"

namespace korvel {

struct FoundObject;

// Runs an action list. `groupName` is the group of references without a group identifier. The view
// may point into a group that the actions end: groups are kept while actions run. Returns Done;
// Refused if an action number was unknown (the others have run); Failure if a behaviour, a raised
// event or a limit on nesting or work stops everything; Replaced if the application or scene was
// replaced.
Status RunActions(Scope scope, const ActionHolder& owner, std::string_view groupName);

// Prepares an ingredient: sets its run-time values from the original ones, reads its text, and
// makes it available.
Change Prepare(ItemType type, Ingredient& ingredient);

// Activates an ingredient: makes it run, enters a visible in the display stack, requests a redraw.
Change Activate(ItemType type, Ingredient& ingredient);

// The reverse of Activate.
Change Deactivate(ItemType type, Ingredient& ingredient);

// Runs an ingredient as the Run action and a group's start do: prepares it if necessary, activates
// it, and raises IsRunning if that changed something. Failure or Replaced stop the caller too.
Status RunIngredient(ItemType type, Ingredient& ingredient);

// Stops an ingredient as the Stop action does: deactivates it, and raises IsStopped if that changed
// something.
Status StopIngredient(ItemType type, Ingredient& ingredient);

// Stops a running ingredient without an event: it no longer runs, and its highlight and interaction
// end. A visible keeps its place in the display stack.
void StopSilently(ItemType type, Ingredient& ingredient);

// The value of a variable; for a content reference variable, its path.
template <class Variable> auto& ValueOf(Variable& variable) {
  if constexpr (requires { variable.Value.Path; }) {
    return variable.Value.Path;
  } else {
    return variable.Value;
  }
}

// Sets a variable's value. Refused, with the value unchanged, if the variable is not available.
template <class Variable, class Value> Status SetValue(Variable& variable, Value value) {
  if (!variable.AvailabilityStatus) return Refuse(Reason::NotAvailable);
  ValueOf(variable) = std::move(value);
  // Fetched content belongs to the old path.
  if constexpr (requires { variable.Value.Path; }) variable.Content.Data.Clear();
  ObserveValue(variable);
  return Status::Done;
}

// The field of a generic value that holds values of the type of the second argument.
inline bool& FieldOf(GenericValue& value, const bool& /*type*/) { return value.Boolean; }
inline std::int32_t& FieldOf(GenericValue& value, const std::int32_t& /*type*/) {
  return value.Integer;
}
inline OctetString& FieldOf(GenericValue& value, const OctetString& /*type*/) {
  return value.Octets;
}
inline ObjectReference& FieldOf(GenericValue& value, const ObjectReference& /*type*/) {
  return value.Reference;
}

// The kind of the values of a class of variables; None for every other class.
[[nodiscard]] constexpr ValueKind KindOf(ItemType type) {
  switch (type) {
  case ItemType::BooleanVariable: return ValueKind::Boolean;
  case ItemType::IntegerVariable: return ValueKind::Integer;
  case ItemType::OctetStringVariable: return ValueKind::OctetString;
  case ItemType::ObjectRefVariable: return ValueKind::ObjectReference;
  case ItemType::ContentRefVariable: return ValueKind::ContentReference;
  default: return ValueKind::None;
  }
}

// Whether TestVariable compares a variable of the class with a value of the kind. A path may be
// given as text.
[[nodiscard]] constexpr bool ComparesWith(ItemType type, ValueKind kind) {
  const bool isPathAsText = type == ItemType::ContentRefVariable && kind == ValueKind::OctetString;
  return kind == KindOf(type) || isPathAsText;
}

// Whether SetVariable accepts a value of the kind for a variable of the class. An integer becomes
// text only if it was read from a variable, and text a path only if it was not.
[[nodiscard]] constexpr bool MayBeSetTo(ItemType type, ValueKind kind, bool isIndirect) {
  switch (type) {
  case ItemType::IntegerVariable:
    return kind == ValueKind::Integer || kind == ValueKind::OctetString;
  case ItemType::OctetStringVariable:
    return kind == ValueKind::OctetString || (kind == ValueKind::Integer && isIndirect);
  case ItemType::ContentRefVariable:
    return kind == ValueKind::ContentReference || (kind == ValueKind::OctetString && !isIndirect);
  default: return kind == KindOf(type);
  }
}

// The answer of TestVariable for an integer. An unknown comparison means GreaterOrEqual.
[[nodiscard]] constexpr bool IsTrue(std::int64_t value, Comparison comparison,
                                    std::int64_t operand) {
  switch (comparison) {
  case Comparison::Equal: return value == operand;
  case Comparison::NotEqual: return value != operand;
  case Comparison::Less: return value < operand;
  case Comparison::LessOrEqual: return value <= operand;
  case Comparison::Greater: return value > operand;
  case Comparison::GreaterOrEqual: break;
  }
  return value >= operand;
}

// Copies the value and the kind of a variable; the kind is None if the object is not a variable.
// False if memory runs out: the field of the value is then empty.
[[nodiscard]] bool CopyValue(const FoundObject& found, GenericValue& value);

// Offers a key to the interaction in progress. True if the interaction used the key: the caller
// then returns `result` and does not raise UserInput.
[[nodiscard]] bool TakeInteractionKey(std::int32_t key, Status& result);

// Removes the objects of a group that ends from the engine-wide state of the classes, which is the
// interaction in progress.
void ForgetGroup(const Group& group);

}  // namespace korvel
