// Goes through a group once and shows a check everything that can be at fault: objects, actions,
// references and contents. It walks the class tables, so that a new attribute is checked at once.
#pragma once

#include <cstdint>

#include "objects/objects.h"

namespace mheg {

// The parts of a group that a check sees. `currentObject` and `currentClass` are those of the
// object that is being walked, at first the group's own.
class GroupVisitor {
 public:
  virtual ~GroupVisitor() = default;

  virtual void VisitObject(korvel::ItemType /*type*/, const korvel::Ingredient& /*record*/) {}
  virtual void VisitAction(const korvel::ElementaryAction& /*action*/) {}
  // A reference anywhere: an event source, a member, a target, a parameter, a variable that is
  // read.
  virtual void VisitReference(const korvel::ObjectReference& /*reference*/) {}
  // A path that content is to come from.
  virtual void VisitContentPath(const korvel::OctetString& /*path*/) {}

  std::int32_t currentObject = 0;
  korvel::ItemType currentClass = korvel::ItemType::None;
};

void Walk(const korvel::Group& group, GroupVisitor& visitor);

}  // namespace mheg
