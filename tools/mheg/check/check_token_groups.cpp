// Finds movements and action slots that a token group does not have, and movements that lead out of
// the group.
#include <algorithm>

#include "mheg/check/check.h"

namespace mheg {
namespace {

using namespace korvel;

std::size_t MostSlots(const TokenGroup& group) {
  std::size_t most = group.NoTokenActionSlots.Size();
  for (const TokenGroupItem& item : group.TokenGroupItems) {
    most = std::max(most, item.ActionSlots.Size());
  }
  return most;
}

class TokenGroupCheck : public CheckVisitor {
 public:
  using CheckVisitor::CheckVisitor;

  void VisitAction(const ElementaryAction& action) override {
    const bool isMove = ActionOf(action) == Action::Move;
    const bool isCall = ActionOf(action) == Action::CallActionSlot;
    const GenericValue* number = action.Parameters.At(0);
    if ((!isMove && !isCall) || number == nullptr || number->Kind != ValueKind::Integer) return;
    const CheckedObject* object = TargetOf(action, kTokenGroups);
    if (object == nullptr) return;
    const auto& group = static_cast<const TokenGroup&>(*object->record);
    isMove ? CheckMove(group, number->Integer) : CheckCall(group, number->Integer);
  }

  // Skips list groups, because their members change at run time.
  void VisitObject(ItemType type, const Ingredient& record) override {
    if (type != ItemType::TokenGroup) return;
    const auto& group = static_cast<const TokenGroup&>(record);
    const std::size_t members = group.TokenGroupItems.Size();
    for (std::size_t i = 0; i < group.MovementTable.Size(); ++i) {
      const List<std::int32_t>& targets = group.MovementTable[i].Targets;
      const std::string movement = "movement " + std::to_string(i + 1);
      if (targets.Size() < members) {
        ReportMovement(movement + " has positions for " + std::to_string(targets.Size()) + " of " +
                       std::to_string(members) + " members");
      }
      const auto outside = std::find_if(targets.begin(), targets.end(), [&](std::int32_t target) {
        return target < 0 || static_cast<std::size_t>(target) > members;
      });
      if (outside == targets.end()) continue;
      ReportMovement(movement + " leads to position " + std::to_string(*outside) + " of " +
                     std::to_string(members));
    }
  }

 private:
  void ReportMovement(const std::string& text) {
    ReportAt(":MovementTable", Rule::NoSuchMovement, text);
  }

  void CheckMove(const TokenGroup& group, std::int32_t movement) {
    const std::size_t count = group.MovementTable.Size();
    if (movement >= 1 && static_cast<std::size_t>(movement) <= count) return;
    Report(Rule::NoSuchMovement, "Move " + std::to_string(movement) + " of object " +
                                     std::to_string(group.Reference.Number) + ", which has " +
                                     std::to_string(count) + " movements");
  }

  // The engine treats slot numbers below 1 as 1.
  void CheckCall(const TokenGroup& group, std::int32_t slot) {
    const std::size_t most = MostSlots(group);
    if (static_cast<std::size_t>(std::max(slot, 1)) <= most) return;
    Report(Rule::NoSuchSlot, "CallActionSlot " + std::to_string(slot) + " of object " +
                                 std::to_string(group.Reference.Number) +
                                 ", whose members have at most " + std::to_string(most) + " slots");
  }
};

}  // namespace

void CheckTokenGroups(const Carousel& carousel, const CheckedGroup& group, Findings& findings) {
  TokenGroupCheck check(carousel, group, findings);
  Walk(group.Group(), check);
}

}  // namespace mheg
