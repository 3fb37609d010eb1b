// The name of a class for messages, from the class tables.
#pragma once

#include "objects/objects.h"

namespace mheg {

[[nodiscard]] inline const char* ClassName(korvel::ItemType type) {
  if (type == korvel::ItemType::Application) return "Application";
  if (type == korvel::ItemType::Scene) return "Scene";
  const char* name = "object";
  korvel::VisitIngredientClass(
      type, [&name]<class Record>() { name = korvel::Description<Record>::heading.name; });
  return name;
}

}  // namespace mheg
