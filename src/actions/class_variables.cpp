// The one record of what the classes keep engine-wide, and what makes it forget.
#include "actions/class_variables.h"

#include <cstddef>
#include <new>

#include "actions/actions.h"

namespace korvel {
namespace {

void ForgetIfIn(const Group& group, FoundObject& kept) {
  if (kept && kept.As<Ingredient>().owner == &group) kept = {};
}

}  // namespace

ClassVariables& CurrentClassVariables() {
  // Never destroyed: the process may end while the engine runs, and then nothing may be touched any
  // more.
  alignas(ClassVariables) static std::byte storage[sizeof(ClassVariables)];
  static ClassVariables* const variables = new (storage) ClassVariables();
  return *variables;
}

void ResetClassVariables() { CurrentClassVariables() = ClassVariables(); }

void ForgetGroup(const Group& group) {
  ForgetIfIn(group, CurrentClassVariables().HighlightedObject);
  ForgetIfIn(group, CurrentClassVariables().InteractingObject);
}

}  // namespace korvel
