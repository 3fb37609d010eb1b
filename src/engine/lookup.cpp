// Finds objects of the running groups by group name and number.
#include "engine/core.h"

namespace korvel {
namespace {

// Actions cannot target palettes, remote and interchanged programs, fonts and cursor shapes.
bool IsFindable(ItemType type) { return type <= ItemType::SwitchButton; }

bool IndexObjectsOf(const List<Item>& items, Group& group) {
  for (const Item& item : items) {
    if (!MayContinue()) return false;
    const std::int32_t number = item.Record()->Reference.Number;
    if (IsFindable(item.Type()) && !group.objects.Add(number, {item.Type(), item.Record()})) {
      return false;
    }
    // The components of a stream are not items of the group.
    if (item.Type() == ItemType::Stream && !IndexObjectsOf(item.As<Stream>().Multiplex, group)) {
      return false;
    }
  }
  return true;
}

// The first object of that name and number. An object can bear the name of another group.
FoundObject FindInGroup(const Group* group, std::string_view name, std::int32_t number) {
  if (group == nullptr) return {};
  const auto* entry = group->objects.Find(number);
  for (; entry != nullptr && MayContinue(); entry = group->objects.Next(*entry)) {
    const HeldObject& held = entry->value;
    if (IsSameGroup(held.record->Reference.GroupIdentifier.View(), name)) {
      return {held.type, held.record};
    }
  }
  return {};
}

bool IsItself(const Group* group, std::string_view name, std::int32_t number) {
  return group != nullptr && number == 0 && IsSameGroup(NameOf(*group), name);
}

}  // namespace

bool IndexObjects(Group& group) { return IndexObjectsOf(group.Items, group); }

FoundObject FindObject(Scope scope, std::string_view name, std::int32_t number) {
  Application* application = CurrentApplication();
  Scene* scene = CurrentScene();
  if (IsItself(application, name, number)) return {ItemType::Application, application};
  if (IsItself(scene, name, number)) return {ItemType::Scene, scene};
  const bool isApplicationFirst = scope == Scope::ApplicationFirst;
  const Group* first = isApplicationFirst ? static_cast<Group*>(application) : scene;
  const Group* second = isApplicationFirst ? static_cast<Group*>(scene) : application;
  const FoundObject found = FindInGroup(first, name, number);
  return found ? found : FindInGroup(second, name, number);
}

}  // namespace korvel
