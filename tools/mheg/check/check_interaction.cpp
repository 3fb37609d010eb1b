// Finds interactibles that never receive a key, because no action begins their interaction.
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

class InteractionCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitObject(ItemType type, const Ingredient& /*record*/) override {
    if (!Contains(kInteractibles, type) || IsAffectedBy(Action::SetInteractionStatus)) return;
    if (type != ItemType::Slider) {
      return ReportAt("", Rule::NoInteraction,
                      ClassName(type) +
                          " never receives a key: no SetInteractionStatus begins its interaction");
    }
    // A slider may also show a value that actions set.
    if (IsAffectedBy(Action::Step) || IsAffectedBy(Action::SetSliderValue) ||
        IsAffectedBy(Action::SetPortion)) {
      return;
    }
    ReportAt("", Rule::IdleSlider,
             "Slider never changes: no action begins its interaction or sets "
             "its value");
  }

 private:
  [[nodiscard]] bool IsAffectedBy(Action action) const {
    return carousel_.MayAffect(group_, action, currentObject);
  }
};

}  // namespace

void CheckInteraction(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  InteractionCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
