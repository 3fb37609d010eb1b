// The printers of invisible ingredients.
#include "dump/tree.h"
#include "objects/class_tables.h"
#include "objects/vocabulary.h"

namespace korvel {
namespace {

// The format has no name for IsAvailable and misspells IsRunning.
const char* EventName(EventType type) {
  if (type == EventType::IsAvailable) return nullptr;
  return type == EventType::IsRunning ? "IsRuning" : WordOf(type);
}

void DumpEventData(const Tree& tree, const GenericValue& data) {
  switch (data.Kind) {
  case ValueKind::Boolean: return tree.Boolean("Boolean", data.Boolean);
  case ValueKind::Integer: return tree.Number("Integer", data.Integer);
  case ValueKind::OctetString: return tree.OctetsLine(data.Octets);
  case ValueKind::IndirectReference:
    return tree.Number("IndirectObjectReference", data.Reference.Number);
  default: tree.Line("None %d", static_cast<int>(data.Kind));
  }
}

void DumpCondition(const Tree& tree, const LinkCondition& condition) {
  tree.Line("Event SourceType:%d", static_cast<int>(ValueKind::ObjectReference));
  tree.Reference("Event Source", condition.EventSource);
  const char* name = EventName(condition.EventType);
  if (name != nullptr) {
    tree.Line("Event Type: %s", name);
  } else {
    tree.Line("Event Type: Not define event type %d",
              static_cast<std::int32_t>(condition.EventType));
  }
  tree.Line("Event Data:");
  DumpEventData(tree.Deeper(), condition.EventData);
}

void DumpSlots(const Tree& tree, const char* heading, const List<ActionSlot>& slots) {
  tree.Line("%s", heading);
  if (slots.IsEmpty()) tree.Deeper().Line("No ActionSlots");
  for (const ActionSlot& slot : slots) {
    tree.Deeper().Line("Slot:");
    tree.Deeper().Line(slot.IsNull ? "Action: NULL" : "Action:");
    if (!slot.IsNull) Dump(tree.Deeper().Deeper(), slot.Actions);
  }
}

void DumpMovementTable(const Tree& tree, const List<Movement>& table) {
  if (table.IsEmpty()) return tree.Line("No MovementTable");
  tree.Line("MovementTable:");
  for (const Movement& movement : table) {
    tree.Deeper().Line("Movement:");
    for (const std::int32_t target : movement.Targets) {
      tree.Deeper().Deeper().Line("%d", target);
    }
  }
}

void DumpMembers(const Tree& tree, const List<TokenGroupItem>& members) {
  tree.Line("TokenGroupItems:");
  if (members.IsEmpty()) tree.Deeper().Line("No TokenGroupItems");
  for (const TokenGroupItem& member : members) {
    tree.Deeper().Line("Item:");
    tree.Deeper().Reference("AVisible", member.AVisible);
    DumpSlots(tree.Deeper(), "ActionSlots:", member.ActionSlots);
  }
}

void DumpTriggers(const Tree& tree, const List<CounterTrigger>& triggers) {
  if (triggers.IsEmpty()) return tree.Line("CounterTriggers: NULL");
  tree.Line("CounterTriggers:");
  for (const CounterTrigger& trigger : triggers) {
    tree.Deeper().Line("(%d , %d)", trigger.Identifier, trigger.Position);
  }
}

void DumpValue(const Tree& tree, const char* label, bool value) { tree.Boolean(label, value); }
void DumpValue(const Tree& tree, const char* label, std::int32_t value) {
  tree.Number(label, value);
}
void DumpValue(const Tree& tree, const char* label, const OctetString& value) {
  tree.String(label, value);
}
void DumpValue(const Tree& tree, const char* label, const ObjectReference& value) {
  tree.Reference(label, value);
}
void DumpValue(const Tree& tree, const char* label, const ContentReference& value) {
  tree.String(label, value.Path);
}

}  // namespace

void Dump(const Tree& tree, const Ingredient& ingredient) {
  DumpBase<Root>(tree, "Root", ingredient);
  tree.Boolean("InitiallyActive", ingredient.InitiallyActive);
  tree.Number("ContentHOOK", ingredient.ContentHOOK);
  tree.String("OriginalContent", ingredient.OriginalContent.Data);
  tree.Number("OriginalContentSize", ingredient.OriginalContent.Size);
  tree.Number("OriginalContentCachePriority", ingredient.OriginalContent.CachePriority);
  tree.Boolean("Shared", ingredient.Shared);
  tree.String("Content", ingredient.Content.Data);
  tree.Number("ContentSize", ingredient.Content.Size);
  tree.Number("ContentCachePriority", ingredient.Content.CachePriority);
}

void DumpPresentable(const Tree& tree, const Ingredient& ingredient) {
  DumpBase<Ingredient>(tree, "Ingredient:", ingredient);
}

void Dump(const Tree& tree, const Link& link) {
  DumpBase<Ingredient>(tree, "Ingredient:", link);
  tree.Line("Link Condition:");
  DumpCondition(tree.Deeper(), link.Condition);
  tree.Line("Action Queue:");
  Dump(tree.Deeper(), link.LinkEffect);
}

void Dump(const Tree& tree, const Program& program) {
  DumpBase<Ingredient>(tree, "Ingredient:", program);
  tree.String("Name", program.Name);
  tree.Boolean("InitiallyAvailable", program.InitiallyAvailable);
}

void DumpVariable(const Tree& tree, ItemType type, const Ingredient& variable) {
  DumpBase(tree, "Ingredient:", variable);
  bool isVariable = false;
  VisitIngredientClass(type, [&]<class Record>() {
    if constexpr (requires(Record & record) { record.OriginalValue; }) {
      isVariable = true;
      const auto& record = static_cast<const Record&>(variable);
      DumpValue(tree, "OriginalValue", record.OriginalValue);
      DumpValue(tree, "Value", record.Value);
    }
  });
  if (!isVariable) tree.Line("Not define variable type");
}

void Dump(const Tree& tree, const TokenGroup& group) {
  tree.Deeper().Line("Presentable:");
  DumpPresentable(tree.Deeper(), group);
  tree.Deeper().Line("TokenManager:");
  DumpMovementTable(tree.Deeper(), group.MovementTable);
  tree.Deeper().Number("TokenPosition", group.TokenPosition);
  DumpMembers(tree, group.TokenGroupItems);
  DumpSlots(tree, "NoTokenActionSlots:", group.NoTokenActionSlots);
}

void Dump(const Tree& tree, const ListGroup& group) {
  DumpBase<TokenGroup>(tree, "TokenGroup:", group);
  tree.Line("Positions:");
  if (group.Positions.IsEmpty()) tree.Deeper().Line("No Position");
  for (const Position& position : group.Positions) {
    tree.Deeper().Line("Position:(%d , %d)", position.X, position.Y);
  }
  tree.Boolean("WrapAround", group.WrapAround);
  tree.Boolean("MultipleSelection", group.MultipleSelection);
  tree.Line("ItemList:");
  for (const ListItem& item : group.ItemList) tree.Deeper().ReferenceLine(item.AVisible);
  tree.Number("FirstItem", group.FirstItem);
}

void Dump(const Tree& tree, const Stream& stream) {
  tree.Deeper().Line("Presentable:");
  DumpPresentable(tree.Deeper(), stream);
  tree.Line("Multiplex:");
  for (const Item& component : stream.Multiplex) DumpComponent(tree.Deeper(), component);
  tree.Word("Storage", stream.Storage, WordOf(stream.Storage), "Not define Stroage type: ");
  tree.Number("Looping", stream.Looping);
  tree.Line("Speed: (%d, %d)", stream.Speed.Numerator, stream.Speed.Denominator);
  tree.Number("CounterPosition", stream.CounterPosition);
  tree.Number("CounterEndPosition", stream.CounterEndPosition);
  DumpTriggers(tree, stream.CounterTriggers);
}

}  // namespace korvel
