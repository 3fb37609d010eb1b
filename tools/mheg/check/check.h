// Finds faults that the engine ignores silently: content that decodes without error but has no
// effect.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "mheg/check/carousel.h"

namespace mheg {

// A fault in one object of a group.
struct Finding {
  std::int32_t object = 0;
  std::string text;
  const char* keyword = "";   // the attribute with the fault; empty: the object
  std::int32_t action = -1;   // the action with the fault, as in SourcePlaces
  korvel::TextPlace place{};  // if it is not that of the object with the number
};
using Findings = std::vector<Finding>;

// The checks. Each examines one group that was read successfully.
void CheckNumbers(const CheckedGroup& group, Findings& findings);
void CheckMissing(const CheckedGroup& group, Findings& findings);
void CheckReferences(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckActions(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckLinks(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckFiles(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckPlaces(const CheckedGroup& group, Findings& findings);
void CheckValues(const CheckedGroup& group, Findings& findings);

// Checks all groups of these files and folders on `jobs` threads (0: one per processor). Returns
// the findings in file order, each with its file and object number.
[[nodiscard]] Messages Check(const std::vector<std::filesystem::path>& paths, unsigned jobs);

// The name of a class, for messages.
[[nodiscard]] inline const char* ClassName(korvel::ItemType type) {
  if (type == korvel::ItemType::Application) return "Application";
  if (type == korvel::ItemType::Scene) return "Scene";
  const char* name = "object";
  korvel::VisitIngredientClass(
      type, [&name]<class Record>() { name = korvel::Description<Record>::heading.name; });
  return name;
}

}  // namespace mheg
