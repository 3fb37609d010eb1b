// Finds references to objects, groups and content that do not exist, and duplicate object numbers.
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

// Reports references to missing objects, because an action on a missing object does nothing.
class ReferenceCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitReference(const ObjectReference& reference) override {
    const std::string_view name = reference.GroupIdentifier.View();
    const CheckedGroup* group = carousel_.Find(group_, name);
    if (group == &group_) {
      if (!Exists(group_, reference.Number)) ReportObject(std::to_string(reference.Number));
      return;
    }
    // A group that is not loaded is reported here only if it has no file. If its file cannot be
    // read, the error has been reported when the file was loaded.
    const bool isKnown = group == nullptr || Exists(*group, reference.Number);
    if (!isKnown) ReportObject(std::to_string(reference.Number) + " of " + std::string(name));
    if (group == nullptr && !carousel_.HasFile(group_, name)) {
      Report(Rule::UnknownGroup,
             "refers to the group " + std::string(name) + ", which is not there");
    }
  }

 private:
  static bool Exists(const CheckedGroup& group, std::int32_t number) {
    return group.ClassOf(number) != ItemType::None;
  }
  void ReportObject(const std::string& what) {
    Report(Rule::UnknownObject, "refers to object " + what + ", which does not exist");
  }
};

// Whether the path has a scheme other than "DSM:".
bool LeadsOutOfCarousel(std::string_view path) {
  return path.find("://") != std::string_view::npos && !path.starts_with("DSM:");
}

// Reports content files that do not exist. Skips streams, whose content is not in the carousel.
class FileCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitContentPath(const OctetString& path) override {
    const bool isStream = currentClass == ItemType::Stream;
    if (isStream || path.IsEmpty() || LeadsOutOfCarousel(path.View())) return;
    if (carousel_.HasFile(group_, path.View())) return;
    Report(Rule::MissingContent,
           "takes content from " + std::string(path.View()) + ", which is not there");
  }

  void CheckNextScenes(const Scene& scene) {
    for (const NextScene& next : scene.NextScenes) {
      if (carousel_.HasFile(group_, next.SceneReference.View())) continue;
      ReportAt(":NextScenes", Rule::UnknownGroup,
               "names the next scene " + std::string(next.SceneReference.View()) +
                   ", which is not there");
    }
  }
};

}  // namespace

// If two objects have the same number, the engine never finds the second one. The group's own
// number counts too.
void CheckNumbers(const Carousel& /*carousel*/, const CheckedGroup& group, Findings& findings) {
  const auto& objects = group.objects;
  for (auto first = objects.begin(); first != objects.end();
       first = objects.upper_bound(first->first)) {
    const std::int32_t number = first->first;
    const std::size_t count = objects.count(number);
    const std::vector<TextPlace> places = group.file.places.FindAll(number);
    const TextPlace second = places.size() > 1 ? places[1] : TextPlace{};
    if (number == group.Group().Reference.Number) {
      findings.push_back({Rule::DuplicateNumber,
                          number,
                          {{}, "an object has the number of the group itself", second}});
    } else if (count > 1) {
      findings.push_back({Rule::DuplicateNumber,
                          number,
                          {{}, std::to_string(count) + " objects have this number", second}});
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
  check.CheckNextScenes(static_cast<const Scene&>(group.Group()));
}

}  // namespace mheg
