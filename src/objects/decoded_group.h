// What a reader of groups hands out: an application or a scene with one owner.
#pragma once

#include <utility>

#include "objects/group.h"
#include "objects/owned.h"

namespace korvel {

// Owns one Application or Scene, released as what it is. Empty when nothing was built.
class OwnedGroup {
 public:
  OwnedGroup() = default;
  explicit OwnedGroup(Group* group) : group_(group) {}
  OwnedGroup(OwnedGroup&& other) noexcept : group_(std::exchange(other.group_, nullptr)) {}
  OwnedGroup& operator=(OwnedGroup&& other) noexcept {
    if (this != &other) Reset(std::exchange(other.group_, nullptr));
    return *this;
  }
  OwnedGroup(const OwnedGroup&) = delete;
  OwnedGroup& operator=(const OwnedGroup&) = delete;
  ~OwnedGroup() { Reset(); }

  void Reset(Group* group = nullptr) {
    Group* old = std::exchange(group_, group);
    if (old == nullptr) return;
    if (old->Type == ItemType::Application) {
      Owned<Application>(static_cast<Application*>(old)).Reset();
    } else {
      Owned<Scene>(static_cast<Scene*>(old)).Reset();
    }
  }

  [[nodiscard]] Group* Get() const { return group_; }
  [[nodiscard]] Group* Release() { return std::exchange(group_, nullptr); }
  [[nodiscard]] bool IsApplication() const {
    return group_ != nullptr && group_->Type == ItemType::Application;
  }
  [[nodiscard]] Application& AsApplication() const { return *static_cast<Application*>(group_); }
  [[nodiscard]] Scene& AsScene() const { return *static_cast<Scene*>(group_); }
  Group* operator->() const { return group_; }
  explicit operator bool() const { return group_ != nullptr; }

 private:
  Group* group_ = nullptr;
};

}  // namespace korvel
