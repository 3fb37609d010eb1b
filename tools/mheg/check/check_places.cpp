// Finds visibles whose box is partly or wholly outside their scene. Skips visibles that an action
// moves or resizes, because those may start outside on purpose, and visibles without a size.
#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

constexpr SceneCoordinateSystem kUsualScene{720, 576};

SceneCoordinateSystem SceneOf(const Group& group) {
  if (group.type != ItemType::Scene) return kUsualScene;
  const SceneCoordinateSystem& scene = static_cast<const Scene&>(group).SceneCS;
  return scene.Width > 0 && scene.Height > 0 ? scene : kUsualScene;
}

class PlaceCheck : public CheckVisitor {
 public:
  PlaceCheck(const Carousel& carousel, const CheckedGroup& group, Findings& findings)
      : CheckVisitor(carousel, group, findings), scene_(SceneOf(group.Group())) {}

  void VisitObject(ItemType type, const Ingredient& record) override {
    const std::int32_t number = record.Reference.Number;
    const bool isMoved = carousel_.MayAffect(group_, Action::SetPosition, number) ||
                         carousel_.MayAffect(group_, Action::SetBoxSize, number);
    if (isMoved) return;
    if (Contains(kVisibles, type)) CheckPosition(static_cast<const Visible&>(record));
  }

 private:
  // Both consider one axis: the box's position and length, and the scene's length, in scene units.
  static bool IsOutside(std::int64_t begin, std::int64_t length, std::int64_t limit) {
    return begin >= limit || begin + length <= 0;
  }
  static bool ReachesOutside(std::int64_t begin, std::int64_t length, std::int64_t limit) {
    return begin < 0 || begin + length > limit;
  }

  void CheckPosition(const Visible& visible) {
    const korvel::Position& position = visible.OriginalPosition;
    const korvel::BoxSize& size = visible.OriginalBoxSize;
    if (size == korvel::BoxSize{}) return;
    if (IsOutside(position.X, size.Width, scene_.Width) ||
        IsOutside(position.Y, size.Height, scene_.Height)) {
      ReportAt(":OrigPosition", Rule::OutsideScene, "lies outside the scene");
    } else if (ReachesOutside(position.X, size.Width, scene_.Width) ||
               ReachesOutside(position.Y, size.Height, scene_.Height)) {
      ReportAt(":OrigPosition", Rule::PartlyOutsideScene, "reaches out of the scene");
    }
  }

  SceneCoordinateSystem scene_;
};

}  // namespace

void CheckPlaces(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  PlaceCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
