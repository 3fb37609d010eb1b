// The persistent store: named blocks of bytes in memory, in the order in which they were stored.
#include <cstdio>
#include <utility>

#include "engine/core.h"

namespace korvel {
namespace {

auto HasName(std::string_view name) {
  return [name](const PersistentEntry& entry) { return entry.Name.View() == name; };
}

}  // namespace

Status AppendPersistent(std::string_view name, OctetString&& data) {
  PersistentEntry entry;
  if (!entry.Name.Assign(name)) {
    std::fputs("Can't allocate memory for Persistent FileName\n", stdout);
    return Status::Failure;
  }
  PersistentEntry* stored = TheCore().persistentStore.Append(std::move(entry));
  if (stored == nullptr) {
    std::fputs("Can't allocate memory for Persistent\n", stdout);
    return Status::Failure;
  }
  stored->Data = std::move(data);
  return Status::Done;
}

Status TakePersistent(std::string_view name, OctetString& data) {
  PersistentEntry taken;
  if (!TheCore().persistentStore.RemoveFirst(HasName(name), &taken)) return Status::Refused;
  data = std::move(taken.Data);
  return Status::Done;
}

Status RemovePersistent(std::string_view name) {
  return TheCore().persistentStore.RemoveFirst(HasName(name)) ? Status::Done : Status::Refused;
}

void EmptyPersistentStore() { TheCore().persistentStore.Clear(); }

}  // namespace korvel
