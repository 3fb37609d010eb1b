// Finds visibles whose box is partly or wholly outside their scene. Skips visibles that an action
// moves or resizes, because those may start outside on purpose, and visibles without a size.
#include <set>

#include "mheg/check/check.h"
#include "mheg/check/walk.h"

namespace mheg {
namespace {

using namespace korvel;

constexpr SceneCoordinateSystem kUsualScene{720, 576};

// The numbers of the objects that actions move or resize. If an action names its target through a
// variable, that may be any object.
class MovedObjects : public GroupVisitor {
 public:
  void VisitAction(const ElementaryAction& action) override {
    const bool isMoving = action.ActionType == static_cast<int>(Action::SetPosition) ||
                          action.ActionType == static_cast<int>(Action::SetBoxSize);
    if (!isMoving) return;
    areAll = areAll || action.Target.Kind == ValueKind::IndirectReference;
    numbers.insert(action.Target.Reference.Number);
  }

  std::set<std::int32_t> numbers;
  bool areAll = false;
};

class PlaceCheck : public GroupVisitor {
 public:
  PlaceCheck(const SceneCoordinateSystem& scene, const MovedObjects& moved, Findings& findings)
      : scene_(scene), moved_(moved), findings_(findings) {}

  void VisitObject(ItemType type, const Ingredient& record) override {
    if (moved_.areAll || moved_.numbers.contains(record.Reference.Number)) return;
    VisitIngredientClass(type, [&]<class Record>() {
      if constexpr (std::is_base_of_v<Visible, Record>) {
        Look(static_cast<const Record&>(record));
      }
    });
  }

 private:
  // Both work on one axis: the box's position and length, and the scene's length, in scene units.
  static bool IsOutside(std::int64_t begin, std::int64_t length, std::int64_t limit) {
    return begin >= limit || begin + length <= 0;
  }
  static bool IsBeyond(std::int64_t begin, std::int64_t length, std::int64_t limit) {
    return begin < 0 || begin + length > limit;
  }

  void Look(const Visible& visible) {
    const korvel::Position& place = visible.OriginalPosition;
    const korvel::BoxSize& size = visible.OriginalBoxSize;
    if (size == korvel::BoxSize{}) return;
    if (IsOutside(place.X, size.Width, scene_.Width) ||
        IsOutside(place.Y, size.Height, scene_.Height)) {
      Report("lies outside the scene");
    } else if (IsBeyond(place.X, size.Width, scene_.Width) ||
               IsBeyond(place.Y, size.Height, scene_.Height)) {
      Report("reaches out of the scene");
    }
  }
  void Report(const char* what) { findings_.push_back({currentObject, what}); }

  SceneCoordinateSystem scene_;
  const MovedObjects& moved_;
  Findings& findings_;
};

SceneCoordinateSystem SceneOf(const Group& group) {
  if (group.type != ItemType::Scene) return kUsualScene;
  const SceneCoordinateSystem& scene = static_cast<const Scene&>(group).SceneCS;
  return scene.Width > 0 && scene.Height > 0 ? scene : kUsualScene;
}

}  // namespace

void CheckPlaces(const CheckedGroup& group, Findings& findings) {
  MovedObjects moved;
  Walk(group.Group(), moved);
  PlaceCheck check(SceneOf(group.Group()), moved, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
