// Runs all checks on the groups of all carousels. Files are read and checked in parallel; the
// findings are reported in file order.
#include "mheg/check/check.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "mheg/batch.h"

namespace mheg {
namespace {

struct GroupIndex {
  std::size_t carousel;
  std::size_t group;
};

std::vector<GroupIndex> AllGroups(const std::vector<Carousel>& carousels) {
  std::vector<GroupIndex> all;
  for (std::size_t i = 0; i < carousels.size(); ++i) {
    for (std::size_t k = 0; k < carousels[i].Size(); ++k) all.push_back({i, k});
  }
  return all;
}

using CheckFunction = void (*)(const Carousel& carousel, const CheckedGroup& group,
                               Findings& findings);

constexpr CheckFunction kChecks[] = {
    CheckNumbers,    CheckMissing, CheckReferences,  CheckFiles,
    CheckNavigation, CheckActions, CheckVariables,   CheckEndlessTests,
    CheckPrograms,   CheckLinks,   CheckTokenGroups, CheckInteraction,
    CheckAttributes, CheckPlaces,  CheckTexts,       CheckIdle,
};

bool IsBefore(const Finding& one, const Finding& other) {
  const auto order = [](const Finding& finding) {
    const korvel::TextPlace& place = finding.message.place;
    return std::tuple(place.line, place.column, finding.object);
  };
  return order(one) < order(other);
}

// The errors of the reader, in its order, and then the findings of the checks, sorted by position.
Findings CheckGroup(const Carousel& carousel, const CheckedGroup& group) {
  Findings findings;
  for (const Message& message : group.file.messages) {
    findings.push_back({Rule::InvalidGroup, {}, message});
  }
  if (!group.file.group) return findings;
  const auto errorCount = static_cast<std::ptrdiff_t>(findings.size());
  for (const CheckFunction check : kChecks) check(carousel, group, findings);
  std::stable_sort(findings.begin() + errorCount, findings.end(), IsBefore);
  for (auto finding = findings.begin() + errorCount; finding != findings.end(); ++finding) {
    Message& message = finding->message;
    message.file = group.file.path;
    if (message.place.line > 0) message.excerpt = ExcerptAt(group.file.text, message.place, 1);
  }
  return findings;
}

}  // namespace

void CheckVisitor::ReportAt(const char* keyword, Rule rule, std::string text,
                            std::int32_t action) const {
  const bool isGroup = korvel::Contains(korvel::kGroups, currentClass);
  const std::int32_t number = isGroup ? 0 : currentObject;
  findings_.push_back({rule,
                       currentObject,
                       {{}, std::move(text), group_.file.places.Find(number, keyword, action)}});
}

const CheckedObject* CheckVisitor::TargetOf(const korvel::ElementaryAction& action,
                                            korvel::ClassSet classes) const {
  if (action.Target.Kind != korvel::ValueKind::ObjectReference) return nullptr;
  const CheckedObject* object = carousel_.FindObject(group_, action.Target.Reference);
  return object != nullptr && korvel::Contains(classes, object->type) ? object : nullptr;
}

bool IsFault(const Finding& finding) { return RowOf(finding.rule).level != Level::Note; }

Findings Check(const std::vector<std::filesystem::path>& paths, unsigned jobs,
               const std::vector<std::string>& ignored) {
  Findings all;
  std::vector<Carousel> carousels = FindCarousels(paths, all);
  const std::vector<GroupIndex> groups = AllGroups(carousels);
  RunBatch(groups.size(), jobs,
           [&](std::size_t i) { carousels[groups[i].carousel].Load(groups[i].group); });
  for (Carousel& carousel : carousels) carousel.EndLoading();
  std::vector<Findings> found(groups.size());
  RunBatch(groups.size(), jobs, [&](std::size_t i) {
    const Carousel& carousel = carousels[groups[i].carousel];
    const CheckedGroup& group = carousel.At(groups[i].group);
    if (group.isChecked) found[i] = CheckGroup(carousel, group);
  });
  for (const Findings& ofGroup : found) all.insert(all.end(), ofGroup.begin(), ofGroup.end());
  std::erase_if(all, [&](const Finding& finding) {
    return std::ranges::find(ignored, RowOf(finding.rule).name) != ignored.end();
  });
  return all;
}

}  // namespace mheg
