// References to objects that are not there. What an action does to them is nothing.
#include "mheg/check/check.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

class ReferenceCheck : public GroupVisitor {
 public:
  ReferenceCheck(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : carousel_(carousel), group_(group), findings_(findings) {}

  void VisitReference(const korvel::ObjectReference& reference) override {
    const std::string_view name = reference.GroupIdentifier.View();
    const CheckedGroup* group = carousel_.Find(group_, name);
    if (group == &group_) {
      if (!Exists(group_, reference.Number)) Report(std::to_string(reference.Number));
      return;
    }
    // A group that is a file which cannot be read is reported with that file, and one that is no
    // file at all with the action that goes there.
    const bool isKnown = group == nullptr || Exists(*group, reference.Number);
    if (!isKnown) Report(std::to_string(reference.Number) + " of " + std::string(name));
    if (group == nullptr && !carousel_.HasFile(group_, name)) {
      findings_.push_back(
          {currentObject, "refers to the group " + std::string(name) + ", which is not there"});
    }
  }

 private:
  static bool Exists(const CheckedGroup& group, std::int32_t number) {
    return group.ClassOf(number) != korvel::ItemType::None;
  }
  void Report(const std::string& what) {
    findings_.push_back({currentObject, "refers to object " + what + ", which does not exist"});
  }

  const Carousel& carousel_;
  const CheckedGroup& group_;
  Findings& findings_;
};

}  // namespace

void CheckReferences(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  ReferenceCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
