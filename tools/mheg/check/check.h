// Finds faults that the engine ignores silently: content that decodes without error, but has no
// effect or not the effect that the author meant. rules.h lists the rules.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "mheg/check/carousel.h"
#include "mheg/check/finding.h"
#include "mheg/check/walk.h"
#include "mheg/report_words.h"

namespace mheg {

// Base class of the checks that walk a group.
class CheckVisitor : public GroupVisitor {
 public:
  CheckVisitor(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : carousel_(carousel), group_(group), findings_(findings) {}

 protected:
  // Reports a fault of the current action, or else of the current attribute or object.
  void Report(Rule rule, std::string text) const {
    ReportAt(currentKeyword, rule, std::move(text), currentAction);
  }
  // Reports a fault of an attribute of the current object; of the object if the keyword is empty.
  void ReportAt(const char* keyword, Rule rule, std::string text, std::int32_t action = -1) const;

  // The object that the action names directly as its target; null if the object is unknown or not
  // of one of these classes.
  [[nodiscard]] const CheckedObject* TargetOf(const korvel::ElementaryAction& action,
                                              korvel::ClassSet classes) const;

  const Carousel& carousel_;
  const CheckedGroup& group_;

 private:
  Findings& findings_;
};

// The checks. Each examines one group that was read successfully.
void CheckNumbers(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckMissing(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckReferences(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckActions(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckLinks(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckFiles(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckPlaces(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckVariables(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckEndlessTests(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckPrograms(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckTokenGroups(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckAttributes(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckInteraction(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckNavigation(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckIdle(const Carousel& carousel, const CheckedGroup& group, Findings& findings);
void CheckTexts(const Carousel& carousel, const CheckedGroup& group, Findings& findings);

// Checks all groups of these files and folders on `jobs` threads (0: one per processor). Returns
// the findings in the order of the files and, in each file, in the order of the text or of the
// object numbers. `ignored` holds the names of rules whose findings are omitted.
[[nodiscard]] Findings Check(const std::vector<std::filesystem::path>& paths, unsigned jobs,
                             const std::vector<std::string>& ignored = {});

// Whether a finding makes the check fail: any except a note.
[[nodiscard]] bool IsFault(const Finding& finding);

}  // namespace mheg
