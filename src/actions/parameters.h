// Evaluates an action's parameters: reads indirect ones from their variables, and finds the objects
// that references name. Values of the action itself are borrowed, because its list is kept while it
// runs. Values of variables are copied, so that nothing that the action does can invalidate them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "actions/actions.h"
#include "engine/engine.h"
#include "objects/action_table.h"
#include "objects/values.h"

namespace korvel {

// The context in which references are resolved: which group is searched first, and the group of
// references without a group identifier.
struct ReferenceContext {
  Scope scope = Scope::ApplicationFirst;
  std::string_view groupName;  // borrowed; must outlive the ReferenceContext
};

// The context of an ingredient's own references: its group is searched first, and is the group of
// references without a group identifier.
[[nodiscard]] ReferenceContext ContextOf(const Ingredient& ingredient);

// The values that an action works with.
struct Arguments : ReferenceContext {
  explicit Arguments(const ReferenceContext& context) : ReferenceContext(context) {}
  Arguments(const Arguments&) = delete;  // `values` points to `read`
  Arguments& operator=(const Arguments&) = delete;
  ~Arguments() = default;

  FoundObject target;
  const List<GenericValue>* given = nullptr;  // unevaluated; borrowed from the action
  // The evaluated parameters, in the order of the syntax; null for absent ones. They end before the
  // first list, colour or value of any type: the behaviour reads that and the rest from `given`.
  std::array<const GenericValue*, kMostParameters> values{};
  std::array<std::optional<GenericValue>, kMostParameters> read;  // those that come from variables

  // An absent value is 0, false or empty.
  [[nodiscard]] std::int32_t Integer(std::size_t place) const {
    return IsPresent(place) ? values[place]->Integer : 0;
  }
  [[nodiscard]] bool Boolean(std::size_t place) const {
    return IsPresent(place) && values[place]->Boolean;
  }
  [[nodiscard]] std::string_view Octets(std::size_t place) const {
    return IsPresent(place) ? values[place]->Octets.View() : std::string_view{};
  }
  // The parameter must be present.
  [[nodiscard]] const ObjectReference& Reference(std::size_t place) const {
    return values[place]->Reference;
  }
  [[nodiscard]] bool IsPresent(std::size_t place) const { return values[place] != nullptr; }
};

// Whether reading a content reference variable fetches its content if that has not been done yet.
enum class ContentLoading : std::uint8_t { Fetch, LeaveOut };

// The object that a reference names.
[[nodiscard]] FoundObject Find(const ReferenceContext& context, const ObjectReference& reference);

// The object that an action's target names: directly, or through an object reference variable.
[[nodiscard]] FoundObject FindTarget(const ReferenceContext& context, const GenericValue& target);

// Copies the value of the variable that `reference` names. The kind of `value` follows from the
// class of the variable; None means that the object is not a variable.
void ReadVariable(const ReferenceContext& context, const ObjectReference& reference,
                  ContentLoading loading, GenericValue& value);

// Whether the value must be read from a variable.
[[nodiscard]] constexpr bool IsIndirect(const GenericValue& given) {
  return given.Kind == ValueKind::IndirectReference;
}

// Reads a value of any kind: copies a direct one, else reads the variable. False if there is no
// value.
[[nodiscard]] bool ReadValue(const ReferenceContext& context, const GenericValue& given,
                             ContentLoading loading, GenericValue& value);

// Reads a value that must be of one kind. An absent value stays None. A boolean, integer or octet
// string may also be given as a plain reference to its variable. False if the value or its variable
// is of another kind.
[[nodiscard]] bool ReadValueOfKind(const ReferenceContext& context, const GenericValue* given,
                                   ValueKind kind, GenericValue& value);

// Evaluates `arguments.given` by the action's syntax. False if a required parameter is missing or
// cannot be read.
[[nodiscard]] bool EvaluateParameters(const ActionRow& row, Arguments& arguments);

}  // namespace korvel
