// Runs all checks on the groups of all carousels. Files are read and checked in parallel; the
// findings are reported in file order.
#include "mheg/check/check.h"

#include <algorithm>

#include "mheg/batch.h"

namespace mheg {
namespace {

struct Place {
  std::size_t carousel;
  std::size_t group;
};

std::vector<Place> AllGroups(const std::vector<Carousel>& carousels) {
  std::vector<Place> places;
  for (std::size_t i = 0; i < carousels.size(); ++i) {
    for (std::size_t k = 0; k < carousels[i].Size(); ++k) places.push_back({i, k});
  }
  return places;
}

Message MessageOf(const GroupFile& file, const Finding& finding) {
  Message message{file.path, "object " + std::to_string(finding.object) + ": " + finding.text};
  message.place = finding.place.line > 0
                      ? finding.place
                      : file.places.Find(finding.object, finding.keyword, finding.action);
  if (message.place.line > 0) message.excerpt = ExcerptAt(file.text, message.place, 1);
  return message;
}

Messages CheckGroup(const Carousel& carousel, const CheckedGroup& group) {
  Messages messages = group.file.messages;
  if (!group.file.group) return messages;
  Findings findings;
  CheckNumbers(group, findings);
  CheckMissing(group, findings);
  CheckReferences(carousel, group, findings);
  CheckActions(carousel, group, findings);
  CheckLinks(carousel, group, findings);
  CheckFiles(carousel, group, findings);
  CheckPlaces(group, findings);
  CheckValues(group, findings);
  std::stable_sort(findings.begin(), findings.end(), [](const Finding& one, const Finding& other) {
    return one.object < other.object;
  });
  for (const Finding& finding : findings) {
    messages.push_back(MessageOf(group.file, finding));
  }
  return messages;
}

}  // namespace

Messages Check(const std::vector<std::filesystem::path>& paths, unsigned jobs) {
  Messages all;
  std::vector<Carousel> carousels = FindCarousels(paths, all);
  const std::vector<Place> places = AllGroups(carousels);
  RunBatch(places.size(), jobs,
           [&](std::size_t i) { carousels[places[i].carousel].Load(places[i].group); });
  for (Carousel& carousel : carousels) carousel.EndLoading();
  std::vector<Messages> messages(places.size());
  RunBatch(places.size(), jobs, [&](std::size_t i) {
    const Carousel& carousel = carousels[places[i].carousel];
    const CheckedGroup& group = carousel.At(places[i].group);
    if (group.isAskedFor) messages[i] = CheckGroup(carousel, group);
  });
  for (const Messages& ofGroup : messages) {
    all.insert(all.end(), ofGroup.begin(), ofGroup.end());
  }
  return all;
}

}  // namespace mheg
