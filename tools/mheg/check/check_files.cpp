// Contents that are to come from files which are not in the folder. A stream's content is no file
// of the carousel, and names with another scheme lead out of it.
#include "mheg/check/check.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

bool LeadsOutOfCarousel(std::string_view path) {
  return path.find("://") != std::string_view::npos && !path.starts_with("DSM:");
}

class FileCheck : public GroupVisitor {
 public:
  FileCheck(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : carousel_(carousel), group_(group), findings_(findings) {}

  void VisitContentPath(const OctetString& path) override {
    const bool isStream = currentClass == ItemType::Stream;
    if (isStream || path.IsEmpty() || LeadsOutOfCarousel(path.View())) return;
    if (carousel_.HasFile(group_, path.View())) return;
    findings_.push_back(
        {currentObject, "takes content from " + std::string(path.View()) + ", which is not there"});
  }

 private:
  const Carousel& carousel_;
  const CheckedGroup& group_;
  Findings& findings_;
};

}  // namespace

void CheckFiles(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  FileCheck check(carousel, group, findings);
  Walk(group.Group(), check);
  if (group.Group().Type != ItemType::Scene) return;
  for (const NextScene& next : static_cast<const Scene&>(group.Group()).NextScenes) {
    if (carousel.HasFile(group, next.SceneReference.View())) continue;
    findings.push_back({group.Group().Reference.Number,
                        "names the next scene " + std::string(next.SceneReference.View()) +
                            ", which is not there"});
  }
}

}  // namespace mheg
