// The printers of actions and their values.
#include "dump/printers.h"
#include "objects/action_table.h"

namespace korvel {
namespace {

// The kind behind the last that actions carry; the format has a line for it.
constexpr auto kLinkCondition = static_cast<ValueKind>(7);

// The name, of which one has always lacked its colon.
void DumpName(const Tree& tree, std::uint8_t number) {
  const ActionRow* row = FindAction(number);
  if (row == nullptr || number > kDecodedActionCount) {
    return tree.Line("Not define function type: %d", number);
  }
  tree.Line(row->action == Action::DelItem ? "%s" : "%s:", row->name);
}

// The reference of a value, which has no colon as that of a record does.
void DumpReference(const Tree& tree, const char* label, const ObjectReference& value) {
  tree.Line("%s(%s %d)", label, TextOrNull(value.GroupIdentifier), value.Number);
}

void DumpQuoted(const Tree& tree, const char* label, const OctetString& value) {
  if (!value.IsPresent()) return tree.Line("%s: NULL", label);
  tree.Line("%s: \"%s\"", label, value.Text());
}

void DumpAction(const Tree& tree, const ElementaryAction& action) {
  DumpName(tree, action.ActionType);
  DumpParameter(tree.Deeper(), action.Target);
  if (action.Parameters.IsEmpty()) tree.Deeper().Line("No parameters");
  for (const GenericValue& value : action.Parameters) DumpParameter(tree.Deeper(), value);
}

}  // namespace

void Dump(const Tree& tree, const ActionList& actions) {
  if (actions.IsEmpty()) tree.Line("No Action Class");
  for (const ElementaryAction& action : actions) DumpAction(tree, action);
}

void DumpParameter(const Tree& tree, const GenericValue& value) {
  if (value.Kind == kLinkCondition) return tree.Line("LinkCondition:");
  switch (value.Kind) {
  case ValueKind::None: break;
  case ValueKind::Boolean: return tree.Boolean("Boolean", value.Boolean);
  case ValueKind::Integer: return tree.Number("Integer", value.Integer);
  case ValueKind::OctetString: return DumpQuoted(tree, "OctetString", value.Octets);
  case ValueKind::ObjectReference: return DumpReference(tree, "ObjectReference", value.Reference);
  case ValueKind::IndirectReference:
    return DumpReference(tree, "IndirectObjectReference", value.Reference);
  case ValueKind::ContentReference: return DumpQuoted(tree, "ContentReference", value.Octets);
  }
  tree.Line("Not define parameter type: %d", static_cast<int>(value.Kind));
}

}  // namespace korvel
