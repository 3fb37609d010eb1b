// Finds objects of the running groups by group name and number.
#include "engine/core.h"

namespace korvel {
namespace {

// Actions cannot target palettes, remote and interchanged programs, fonts and cursor shapes.
bool IsFindable(ItemType type) { return type <= ItemType::SwitchButton; }

bool HasName(const Root& object, std::string_view name, std::int32_t number) {
  return object.Reference.Number == number &&
         IsSameGroup(object.Reference.GroupIdentifier.View(), name);
}

FoundObject FindInList(const List<Item>& items, std::string_view name, std::int32_t number) {
  for (const Item& item : items) {
    if (!MayContinue()) break;
    if (IsFindable(item.Type()) && HasName(*item.Record(), name, number)) {
      return {item.Type(), item.Record()};
    }
    // The components of a stream are not items of the group.
    if (item.Type() != ItemType::Stream) continue;
    const FoundObject component = FindInList(item.As<Stream>().Multiplex, name, number);
    if (component) return component;
  }
  return {};
}

FoundObject FindInGroup(const Group* group, std::string_view name, std::int32_t number) {
  return group == nullptr ? FoundObject{} : FindInList(group->Items, name, number);
}

bool IsItself(const Group* group, std::string_view name, std::int32_t number) {
  return group != nullptr && number == 0 && IsSameGroup(NameOf(*group), name);
}

}  // namespace

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
