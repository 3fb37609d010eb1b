// The headings of objects, and the printer of each class.
#include "dump/tree.h"

namespace korvel {
namespace {

template <class Record> void DumpAs(const Tree& tree, const char* heading, const Item& item) {
  tree.Line("%s", heading);
  Dump(tree, static_cast<const Record&>(item.As<Record>()));
}

// Prints the heading of a class and the fields of one base class. The caller prints the fields of
// the class itself, if it has any.
template <class Record>
void DumpKindOf(const Tree& tree, const char* heading, const char* baseHeading, const Item& item) {
  tree.Line("%s", heading);
  DumpBase(tree, baseHeading, static_cast<const Record&>(item.As<Record>()));
}

void DumpRemoteProgram(const Tree& tree, const Item& item) {
  DumpKindOf<Program>(tree, "RemoteProgram:", "Program:", item);
  tree.Number("ProgramConnectionTag", item.As<RemoteProgram>().ProgramConnectionTag);
}

void DumpVariableItem(const Tree& tree, const char* heading, const Item& item) {
  tree.Line("%s", heading);
  tree.Deeper().Line("Variable:");
  DumpVariable(tree.Deeper(), item.Type(), *item.Record());
}

template <class Component>
void DumpVisibleComponent(const Tree& tree, const char* heading, const Item& item) {
  const auto& component = item.As<Component>();
  tree.Line("%s", heading);
  DumpBase<Visible>(tree, "Visible:", component);
  tree.Word("Termination", component.Termination,
            WordAmong({"Freeze", "Disappear"}, component.Termination),
            "Not define termination value: ");
  tree.Number("ComponentTag", component.ComponentTag);
}

void DumpAudio(const Tree& tree, const Item& item) {
  const auto& audio = item.As<Audio>();
  tree.Line("Audio:");
  tree.Deeper().Line("Presentable:");
  DumpPresentable(tree.Deeper(), audio);
  tree.Number("OriginalVolume", audio.OriginalVolume);
  tree.Number("Volume", audio.Volume);
  tree.Number("ComponentTag", audio.ComponentTag);
}

}  // namespace

void DumpItem(const Tree& tree, const Item& item) {
  switch (item.Type()) {
  case ItemType::Link: return DumpAs<Link>(tree, "Link:", item);
  case ItemType::ResidentProgram:
    return DumpKindOf<Program>(tree, "ResidentProgram:", "Program:", item);
  case ItemType::BooleanVariable: return DumpVariableItem(tree, "BooleanVariable:", item);
  case ItemType::IntegerVariable: return DumpVariableItem(tree, "IntegerVariable:", item);
  case ItemType::OctetStringVariable: return DumpVariableItem(tree, "OctetStringVariable:", item);
  case ItemType::ObjectRefVariable: return DumpVariableItem(tree, "ObjectRefVariable:", item);
  case ItemType::ContentRefVariable: return DumpVariableItem(tree, "ContentRefVariable:", item);
  case ItemType::TokenGroup: return DumpAs<TokenGroup>(tree, "TokenGroup:", item);
  case ItemType::ListGroup: return DumpAs<ListGroup>(tree, "ListGroup:", item);
  case ItemType::Bitmap: return DumpAs<Bitmap>(tree, "Bitmap:", item);
  case ItemType::Rectangle: return DumpKindOf<LineArt>(tree, "Rectangle:", "Lineart:", item);
  case ItemType::DynamicLineArt:
    return DumpKindOf<LineArt>(tree, "DynamicLineart:", "Lineart:", item);
  case ItemType::Text: return DumpAs<Text>(tree, "Text:", item);
  case ItemType::Stream: return DumpAs<Stream>(tree, "Stream:", item);
  case ItemType::Slider: return DumpAs<Slider>(tree, "Slider:", item);
  case ItemType::EntryField: return DumpAs<EntryField>(tree, "EntryField:", item);
  case ItemType::HyperText: return DumpAs<HyperText>(tree, "HyperText:", item);
  case ItemType::PushButton: return DumpAs<PushButton>(tree, "PushButton:", item);
  case ItemType::LineArt: return DumpAs<LineArt>(tree, "Lineart:", item);
  case ItemType::HotSpot: return DumpKindOf<Button>(tree, "Hotspot:", "Button:", item);
  case ItemType::SwitchButton: return DumpAs<SwitchButton>(tree, "SwitchButton:", item);
  case ItemType::Palette: return DumpKindOf<Ingredient>(tree, "Palette:", "Ingredient:", item);
  case ItemType::RemoteProgram: return DumpRemoteProgram(tree, item);
  case ItemType::InterchangedProgram:
    return DumpKindOf<Program>(tree, "InterchangedProgram:", "Program:", item);
  case ItemType::Font: return DumpKindOf<Ingredient>(tree, "Font:", "Ingredient:", item);
  case ItemType::CursorShape:
    return DumpKindOf<Ingredient>(tree, "CursorShape:", "Ingredient:", item);
  case ItemType::None:
  case ItemType::Application:
  case ItemType::Scene:
  case ItemType::Audio:
  case ItemType::Video:
  case ItemType::RTGraphics: break;
  }
  tree.Line("Not define %d", static_cast<int>(item.Type()));
}

void DumpComponent(const Tree& tree, const Item& component) {
  switch (component.Type()) {
  case ItemType::Audio: return DumpAudio(tree, component);
  case ItemType::Video: return DumpVisibleComponent<Video>(tree, "Video:", component);
  case ItemType::RTGraphics:
    return DumpVisibleComponent<RTGraphics>(tree, "RTGraphics:", component);
  default: break;
  }
  tree.Line("Not define multiplex type: %d", static_cast<int>(component.Type()));
}

}  // namespace korvel
