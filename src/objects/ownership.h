// Owning pointers to records on the engine's heap, and a holder for records that are never
// released.
#pragma once

#include <memory>
#include <new>

#include "objects/group.h"
#include "objects/memory.h"

namespace korvel {

template <class T> struct Releaser {
  void operator()(T* record) const {
    record->~T();
    ReleaseMemory(record);
  }
};

// Casts a group to its own class, Application or Scene, and releases it.
template <> struct Releaser<Group> {
  Releaser() = default;
  // Lets an owner of an Application or a Scene convert to an owner of a group.
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

template <class T> using Owned = std::unique_ptr<T, Releaser<T>>;
// An application or a scene, or null.
using OwnedGroup = Owned<Group>;

// A record with its defaults, or null if memory runs out.
template <class T> [[nodiscard]] Owned<T> NewRecord() {
  void* block = AllocateZeroed(sizeof(T));
  return Owned<T>(block == nullptr ? nullptr : new (block) T());
}

[[nodiscard]] inline bool IsApplication(const OwnedGroup& group) {
  return group != nullptr && group->type == ItemType::Application;
}
// The group as its own class, which the caller has checked.
[[nodiscard]] inline Application& AsApplication(const OwnedGroup& group) {
  return static_cast<Application&>(*group);
}
[[nodiscard]] inline Scene& AsScene(const OwnedGroup& group) { return static_cast<Scene&>(*group); }

// A process-wide record whose destructor never runs. If the process ends while the engine runs, its
// threads have been terminated at arbitrary points and the libraries that they used may be
// unloaded, so nothing may be released.
template <class T> union NeverDestroyed {
  constexpr NeverDestroyed() : value() {}
  // A defaulted destructor would be deleted.  NOLINTNEXTLINE(modernize-use-equals-default)
  ~NeverDestroyed() {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;

  T value;
};

}  // namespace korvel
