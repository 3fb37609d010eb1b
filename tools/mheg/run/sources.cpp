// Finds the attribute that holds an action list, because source positions are stored by attribute.
#include "mheg/run/sources.h"

#include <optional>
#include <string_view>

namespace mheg {
namespace {

using korvel::ActionList;
using korvel::ItemType;

// The attribute that holds a list, and the index of the list's first action among all actions of
// the attribute.
struct ListPosition {
  std::int32_t object = 0;
  std::string_view keyword;
  std::int32_t first = 0;
};

// Searches slots for the list. Adds the number of actions in the slots before it to `count`.
bool IsInSlots(const korvel::List<korvel::ActionSlot>& slots, const ActionList& list,
               std::int32_t& count) {
  for (const korvel::ActionSlot& slot : slots) {
    if (&slot.Actions == &list) return true;
    count += static_cast<std::int32_t>(slot.Actions.Size());
  }
  return false;
}

std::optional<ListPosition> FindInTokenGroup(const korvel::TokenGroup& group,
                                             const ActionList& list) {
  std::int32_t count = 0;
  if (IsInSlots(group.NoTokenActionSlots, list, count)) {
    return ListPosition{group.Reference.Number, ":NoTokenActionSlots", count};
  }
  count = 0;
  for (const korvel::TokenGroupItem& item : group.TokenGroupItems) {
    if (IsInSlots(item.ActionSlots, list, count)) {
      return ListPosition{group.Reference.Number, ":TokenGroupItems", count};
    }
  }
  return std::nullopt;
}

std::optional<ListPosition> FindInItem(const korvel::Item& item, const ActionList& list) {
  if (item.Type() == ItemType::Link) {
    const auto& link = item.As<korvel::Link>();
    if (&link.LinkEffect != &list) return std::nullopt;
    return ListPosition{link.Reference.Number, ":LinkEffect", 0};
  }
  if (!korvel::Contains(korvel::kTokenGroups, item.Type())) return std::nullopt;
  return FindInTokenGroup(item.As<korvel::TokenGroup>(), list);
}

std::optional<ListPosition> FindList(const korvel::Group& group, const ActionList& list) {
  if (&group.OnStartUp == &list) return ListPosition{group.Reference.Number, ":OnStartUp", 0};
  for (const korvel::Item& item : group.Items) {
    if (const auto place = FindInItem(item, list)) return place;
  }
  return std::nullopt;
}

}  // namespace

void Sources::OnGroupStarted(const korvel::Group& group) {
  const auto file = latest_.find(group.Reference.GroupIdentifier.View());
  running_[&group] = file == latest_.end() ? nullptr : file->second;
}

Source Sources::Of(const korvel::Ingredient& object) const {
  return Find(object.owner, object.Reference.Number, {}, -1);
}

Source Sources::Of(const korvel::ActionHolder& list, const korvel::ElementaryAction& action) const {
  const auto place = list.holder == nullptr ? std::nullopt : FindList(*list.holder, *list.actions);
  if (!place) return {};
  const auto index = static_cast<std::int32_t>(&action - list.actions->begin());
  return Find(list.holder, place->object, place->keyword, place->first + index);
}

Source Sources::Find(const korvel::Group* group, std::int32_t object, std::string_view keyword,
                     std::int32_t action) const {
  const auto file = running_.find(group);
  if (file == running_.end() || file->second == nullptr) return {};
  return {file->second->source, file->second->places.Find(object, keyword, action).line};
}

}  // namespace mheg
