// Who releases a record: owners of records on the engine's heap, groups among them, and records
// that are never released.
#pragma once

#include <memory>
#include <new>

#include "objects/group.h"
#include "objects/memory.h"

namespace korvel {

template <class T>
struct Releaser {
  void operator()(T* record) const {
    record->~T();
    ReleaseMemory(record);
  }
};

// An application or a scene, released as the class that it is.
template <>
struct Releaser<Group> {
  Releaser() = default;
  // For the owner of an Application or a Scene that becomes the owner of a group.
  template <class Record>
  Releaser(Releaser<Record> /*other*/) {}  // NOLINT(google-explicit-constructor)
  void operator()(Group* group) const {
    if (group->type == ItemType::Application) {
      Releaser<Application>()(static_cast<Application*>(group));
    } else {
      Releaser<Scene>()(static_cast<Scene*>(group));
    }
  }
};

template <class T>
using Owned = std::unique_ptr<T, Releaser<T>>;
// An application or a scene. Null if nothing was built.
using OwnedGroup = Owned<Group>;

// A record with its defaults, or null when memory is out.
template <class T>
[[nodiscard]] Owned<T> NewRecord() {
  void* block = AllocateZeroed(sizeof(T));
  return Owned<T>(block == nullptr ? nullptr : new (block) T());
}

[[nodiscard]] inline bool IsApplication(const OwnedGroup& group) {
  return group != nullptr && group->type == ItemType::Application;
}
// The group as the class that it is.
[[nodiscard]] inline Application& AsApplication(const OwnedGroup& group) {
  return static_cast<Application&>(*group);
}
[[nodiscard]] inline Scene& AsScene(const OwnedGroup& group) { return static_cast<Scene&>(*group); }

// A process-wide record whose destructor never runs. When a process ends while the engine runs, its
// threads have been stopped anywhere in their work and the libraries they used may be gone too:
// nothing may be released then.
template <class T>
union NeverDestroyed {
  constexpr NeverDestroyed() : value() {}
  // A defaulted destructor would be deleted.  NOLINTNEXTLINE(modernize-use-equals-default)
  ~NeverDestroyed() {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;

  T value;
};

}  // namespace korvel
