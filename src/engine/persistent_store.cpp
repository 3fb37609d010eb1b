// The persistent store: named blocks of bytes in memory, oldest first.
#include <utility>

#include "engine/core.h"
#include "objects/messages.h"

namespace korvel {
namespace {

auto HasName(std::string_view name) {
  return [name](const PersistentEntry& entry) { return entry.name.View() == name; };
}

}  // namespace

Status AppendPersistent(std::string_view name, OctetString&& data) {
  PersistentEntry entry;
  if (!entry.name.Assign(name)) {
    Say(Message::NoMemoryForPersistentName);
    return Status::Failure;
  }
  PersistentEntry* stored = TheCore().persistentStore.Append(std::move(entry));
  if (stored == nullptr) {
    Say(Message::NoMemoryForPersistent);
    return Status::Failure;
  }
  stored->data = std::move(data);
  return Status::Done;
}

bool TakePersistent(std::string_view name, OctetString& data) {
  PersistentEntry taken;
  if (!TheCore().persistentStore.RemoveFirst(HasName(name), &taken)) return false;
  data = std::move(taken.data);
  return true;
}

bool RemovePersistent(std::string_view name) {
  return TheCore().persistentStore.RemoveFirst(HasName(name));
}

void EmptyPersistentStore() { TheCore().persistentStore.Clear(); }

}  // namespace korvel
