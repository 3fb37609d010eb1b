// The printers of groups and of actions.
#include "dump/dump.h"

#include "dump/tree.h"
#include "objects/action_table.h"

namespace korvel {
namespace {

// A kind that no value has. The format has a line for it.
constexpr auto kLinkCondition = static_cast<ValueKind>(7);

// Prints the name and a colon. The format omits the colon for DelItem.
void DumpName(const Tree& tree, std::uint8_t number) {
  const ActionRow* row = FindAction(number);
  if (row == nullptr || number > kDecodedActionCount) {
    return tree.Line("Not define function type: %d", number);
  }
  tree.Line(row->action == Action::DelItem ? "%s" : "%s:", row->name);
}

// The reference of a value. Unlike the reference of a record, it has no colon.
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

void DumpItems(const Tree& tree, const List<Item>& items) {
  if (items.IsEmpty()) tree.Line("No Items");
  for (const Item& item : items) DumpItem(tree, item);
}

void DumpGroup(const Tree& tree, const Group& group) {
  DumpBase<Root>(tree, "Root:", group);
  tree.Number("JointIsoItuIdentifier", group.Standard.JointIsoItuIdentifier);
  tree.Number("MHEGStandardIdentifier", group.Standard.MHEGStandardIdentifier);
  tree.Number("StandardVersion", group.StandardVersion);
  tree.String("ObjectInformation", group.ObjectInformation);
  tree.Number("OriginalGroupCachePriority", group.OriginalGroupCachePriority);
  tree.Number("GroupCachePriority", group.GroupCachePriority);
  tree.Line("OnStartUp:");
  Dump(tree.Deeper(), group.OnStartUp);
  tree.Line("OnCloseDown:");
  Dump(tree.Deeper(), group.OnCloseDown);
  tree.Line("Items:");
  DumpItems(tree.Deeper(), group.Items);
}

void DumpDefaults(const Tree& tree, const DefaultAttributes& defaults) {
  tree.Number("CharacterSet", defaults.CharacterSet);
  tree.Colour("BackgroundColour", defaults.BackgroundColour);
  tree.Colour("TextColour", defaults.TextColour);
  tree.Font("Font", defaults.Font);
  tree.String("FontAttributes", defaults.FontAttributes);
  tree.Number("BitmapContentHook", defaults.BitmapContentHook);
  tree.Number("StreamContentHook", defaults.StreamContentHook);
  tree.Number("TextContentHook", defaults.TextContentHook);
  tree.Number("LineArtContentHook", defaults.LineArtContentHook);
  tree.Number("InterchangedProgramContentHook", defaults.InterchangedProgramContentHook);
  tree.Colour("ButtonRefColour", defaults.ButtonRefColour);
  tree.Colour("HighlightRefColour", defaults.HighlightRefColour);
  tree.Colour("SliderRefColour", defaults.SliderRefColour);
}

void DumpNextScenes(const Tree& tree, const List<NextScene>& scenes) {
  if (scenes.IsEmpty()) tree.Line("No next Scenes");
  for (const NextScene& scene : scenes) {
    tree.Line("Scene Ref: %s, weight %d", TextOrNull(scene.SceneReference), scene.Weight);
  }
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

void Dump(const Tree& tree, const Root& root) {
  tree.ReferenceLine(root.Reference);
  tree.Boolean("AvailabilityStatus", root.AvailabilityStatus);
  tree.Boolean("RunningStatus", root.RunningStatus);
}

void DumpApplication(const Application& application, int depth, std::FILE* stream) {
  const Tree tree(depth, stream);
  tree.Line("Application:");
  DumpGroup(tree.Deeper(), application);
  tree.Line("OnSpawnCloseDown:");
  Dump(tree.Deeper(), application.OnSpawnCloseDown);
  tree.Line("OnRestart:");
  Dump(tree.Deeper(), application.OnRestart);
  DumpDefaults(tree, application.Defaults);
  tree.Number("LockCount", application.LockCount);
  tree.Line("DispalyStack:");
  for (const StackedVisible& stacked : application.DisplayStack) {
    tree.Deeper().ReferenceLine(stacked.visible->Reference);
  }
}

void DumpScene(const Scene& scene, int depth, std::FILE* stream) {
  const Tree tree(depth, stream);
  tree.Line("SCene:");
  DumpGroup(tree.Deeper(), scene);
  tree.Number("InputEventReg", scene.InputEventReg);
  tree.Line("SceneCS: %d %d", scene.SceneCS.Width, scene.SceneCS.Height);
  tree.Line("AspectRatio:");
  tree.Deeper().Number("Width", scene.Aspect.Width);
  tree.Deeper().Number("Height", scene.Aspect.Height);
  tree.Boolean("MovingCursor", scene.MovingCursor);
  tree.Line("NextScene:");
  DumpNextScenes(tree.Deeper(), scene.NextScenes);
}

}  // namespace korvel
