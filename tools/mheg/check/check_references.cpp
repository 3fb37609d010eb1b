// Finds references to objects, groups and content that do not exist, and duplicate object numbers.
#include "mheg/check/check.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

// Reports references to missing objects, because an action on a missing object does nothing.
class ReferenceCheck : public GroupVisitor {
 public:
  ReferenceCheck(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : carousel_(carousel), group_(group), findings_(findings) {}

  void VisitReference(const ObjectReference& reference) override {
    const std::string_view name = reference.GroupIdentifier.View();
    const CheckedGroup* group = carousel_.Find(group_, name);
    if (group == &group_) {
      if (!Exists(group_, reference.Number)) Report(std::to_string(reference.Number));
      return;
    }
    // A group that is not loaded is reported here only if it has no file. A file that cannot be
    // read is reported when it is loaded.
    const bool isKnown = group == nullptr || Exists(*group, reference.Number);
    if (!isKnown) Report(std::to_string(reference.Number) + " of " + std::string(name));
    if (group == nullptr && !carousel_.HasFile(group_, name)) {
      findings_.push_back({currentObject,
                           "refers to the group " + std::string(name) + ", which is not there",
                           currentKeyword, currentAction});
    }
  }

 private:
  static bool Exists(const CheckedGroup& group, std::int32_t number) {
    return group.ClassOf(number) != ItemType::None;
  }
  void Report(const std::string& what) {
    findings_.push_back({currentObject, "refers to object " + what + ", which does not exist",
                         currentKeyword, currentAction});
  }

  const Carousel& carousel_;
  const CheckedGroup& group_;
  Findings& findings_;
};

// True if the name has a scheme other than "DSM:".
bool LeadsOutOfCarousel(std::string_view path) {
  return path.find("://") != std::string_view::npos && !path.starts_with("DSM:");
}

// Reports content files that do not exist. Skips streams, whose content is not in the carousel.
class FileCheck : public GroupVisitor {
 public:
  FileCheck(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : carousel_(carousel), group_(group), findings_(findings) {}

  void VisitContentPath(const OctetString& path) override {
    const bool isStream = currentClass == ItemType::Stream;
    if (isStream || path.IsEmpty() || LeadsOutOfCarousel(path.View())) return;
    if (carousel_.HasFile(group_, path.View())) return;
    findings_.push_back({currentObject,
                         "takes content from " + std::string(path.View()) + ", which is not there",
                         currentKeyword, currentAction});
  }

 private:
  const Carousel& carousel_;
  const CheckedGroup& group_;
  Findings& findings_;
};

}  // namespace

// If two objects have the same number, the engine never finds the second one. The group's own
// number counts too.
void CheckNumbers(const CheckedGroup& group, Findings& findings) {
  const auto& objects = group.objects;
  for (auto place = objects.begin(); place != objects.end();
       place = objects.upper_bound(place->first)) {
    const std::int32_t number = place->first;
    const std::size_t count = objects.count(number);
    const std::vector<TextPlace> places = group.file.places.FindAll(number);
    const TextPlace second = places.size() > 1 ? places[1] : TextPlace{};
    if (number == group.Group().Reference.Number) {
      findings.push_back({number, "an object has the number of the group itself", "", -1, second});
    } else if (count > 1) {
      findings.push_back(
          {number, std::to_string(count) + " objects have this number", "", -1, second});
    }
  }
}

void CheckReferences(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  ReferenceCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

void CheckFiles(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  FileCheck check(carousel, group, findings);
  Walk(group.Group(), check);
  if (group.Group().type != ItemType::Scene) return;
  for (const NextScene& next : static_cast<const Scene&>(group.Group()).NextScenes) {
    if (carousel.HasFile(group, next.SceneReference.View())) continue;
    findings.push_back(
        {group.Group().Reference.Number,
         "names the next scene " + std::string(next.SceneReference.View()) + ", which is not there",
         ":NextScenes"});
  }
}

}  // namespace mheg
