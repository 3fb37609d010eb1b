// Walks a group once and calls a visitor for each object, action, reference and content path. The
// walk follows the class tables, so new attributes are included automatically.
#pragma once

#include <cstdint>

#include "objects/objects.h"

namespace mheg {

[[nodiscard]] inline korvel::Action ActionOf(const korvel::ElementaryAction& action) {
  return static_cast<korvel::Action>(action.ActionType);
}

// Whether the value is a reference to an object or to a variable that holds the value.
[[nodiscard]] inline bool IsReference(const korvel::GenericValue& value) {
  return value.Kind == korvel::ValueKind::ObjectReference ||
         value.Kind == korvel::ValueKind::IndirectReference;
}

// Base class of visitors. `currentObject` and `currentClass` are the number and class of the object
// being visited, or of the group itself outside items. `currentKeyword` is the keyword of the
// attribute being visited, or empty for the object itself. `currentAction` is the index of the
// action being visited among all actions of the attribute, or -1.
class GroupVisitor {
 public:
  virtual ~GroupVisitor() = default;

  virtual void VisitObject(korvel::ItemType /*type*/, const korvel::Ingredient& /*record*/) {}
  virtual void VisitAction(const korvel::ElementaryAction& /*action*/) {}
  // Called for every reference: event sources, group members, targets, parameters, and variables
  // that hold values.
  virtual void VisitReference(const korvel::ObjectReference& /*reference*/) {}
  // Called for every path of referenced content.
  virtual void VisitContentPath(const korvel::OctetString& /*path*/) {}

  // Called for every colour of an attribute.
  virtual void VisitColour(const korvel::ColourValue& /*colour*/) {}
  // Called for every string that is the value of an attribute.
  virtual void VisitString(const korvel::OctetString& /*value*/) {}

  std::int32_t currentObject = 0;
  korvel::ItemType currentClass = korvel::ItemType::None;
  const char* currentKeyword = "";
  std::int32_t currentAction = -1;
};

void Walk(const korvel::Group& group, GroupVisitor& visitor);

}  // namespace mheg
