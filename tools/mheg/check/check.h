// Finds what a viewer would only notice as silence: content that decodes well and then does
// nothing.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "mheg/check/carousel.h"

namespace mheg {

// A fault of one object of a group; 0 is the group itself.
struct Finding {
  std::int32_t object = 0;
  std::string text;
};
using Findings = std::vector<Finding>;

// The checks, each of them one file. They look at one group that could be read, in its carousel.
void CheckNumbers(const CheckedGroup& group, Findings& findings);
void CheckMissing(const CheckedGroup& group, Findings& findings);
void CheckReferences(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckActions(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckLinks(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckFiles(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckPlaces(const CheckedGroup& group, Findings& findings);

// Checks all groups of these files and folders on `jobs` threads (0: one a processor). Returns what
// is found, with file and object number, in the order of the files; nothing when all is well.
[[nodiscard]] std::vector<std::string> Check(const std::vector<std::filesystem::path>& paths,
                                             unsigned jobs);

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
