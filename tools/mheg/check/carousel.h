// A folder as the engine will see it: its groups, and the files that names resolve to. A source
// file "menu.mheg" counts as the file "menu" to which it will be compiled.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mheg/check/effects.h"
#include "mheg/check/finding.h"
#include "mheg/check/navigation.h"
#include "mheg/group_file.h"
#include "objects/objects.h"

namespace mheg {

// One object of a group: an item, or a component of a stream.
struct CheckedObject {
  korvel::ItemType type = korvel::ItemType::None;
  const korvel::Ingredient* record = nullptr;
};

// A group of a carousel. If its file could not be read, only `file` is filled in.
struct CheckedGroup {
  GroupFile file;
  bool isChecked = true;  // false: loaded only because other groups may refer to it
  std::multimap<std::int32_t, CheckedObject> objects;  // by number
  Effects effects;
  std::vector<Departure> departures;

  [[nodiscard]] const korvel::Group& Group() const { return *file.group; }
  [[nodiscard]] std::string_view Name() const { return Group().Reference.GroupIdentifier.View(); }
  // The class of the object with this number, which may be the group itself; None if there is none.
  [[nodiscard]] korvel::ItemType ClassOf(std::int32_t number) const;
};

class Carousel {
 public:
  explicit Carousel(std::filesystem::path root) : root_(std::move(root)) {}

  void Add(const std::filesystem::path& file, bool isChecked);
  [[nodiscard]] std::size_t Size() const { return groups_.size(); }
  // Reads the file of the group at `index`. Threads may load different groups at the same time.
  void Load(std::size_t index);
  // Combines the effects and departures of all groups. Call it once, after all are loaded.
  void EndLoading();
  [[nodiscard]] const CheckedGroup& At(std::size_t index) const { return *groups_[index]; }

  // Whether the name of a group or of content, as used by the group `from`, resolves to a file.
  [[nodiscard]] bool HasFile(const CheckedGroup& from, std::string_view name) const;
  // The group that `name` refers to when the group `from` uses it, or null.
  [[nodiscard]] const CheckedGroup* Find(const CheckedGroup& from, std::string_view name) const;
  // The start-up application of a group's folder or of the carousel, or null.
  [[nodiscard]] const CheckedGroup* ApplicationOf(const CheckedGroup& group) const;
  // Whether the engine starts with this group, if it starts in this folder.
  [[nodiscard]] bool IsStartUp(const CheckedGroup& group) const;
  // Whether the name of the group resolves to its own file.
  [[nodiscard]] bool IsNamedAfterFile(const CheckedGroup& group) const;
  [[nodiscard]] const Navigation& Routes() const { return routes_; }

  // The class of an object that the group `from` refers to; None if it or its group is unknown.
  [[nodiscard]] korvel::ItemType ClassOf(const CheckedGroup& from,
                                         const korvel::ObjectReference& reference) const;
  // The object itself; null if it is unknown or a group.
  [[nodiscard]] const CheckedObject* FindObject(const CheckedGroup& from,
                                                const korvel::ObjectReference& reference) const;

  // Both consider the actions of the group itself and, for a scene, those of the applications or,
  // for an application, those of all groups.
  // Whether there is such an action on any object.
  [[nodiscard]] bool HasAction(const CheckedGroup& group, korvel::Action action) const;
  // Whether there is such an action that may affect the object `number` of the group.
  [[nodiscard]] bool MayAffect(const CheckedGroup& group, korvel::Action action,
                               std::int32_t number, std::optional<std::int32_t> timer = {}) const;

 private:
  [[nodiscard]] std::vector<std::filesystem::path> PathsFor(const CheckedGroup& from,
                                                            std::string_view name) const;
  [[nodiscard]] const CheckedGroup* GroupIn(const std::filesystem::path& file) const;
  [[nodiscard]] const Effects& EffectsOfOthersOn(const CheckedGroup& group) const;

  std::filesystem::path root_;
  std::vector<std::unique_ptr<CheckedGroup>> groups_;
  std::unordered_map<std::filesystem::path::string_type, const CheckedGroup*> groupsByPath_;
  Effects ofApplications_;
  Effects onApplications_;
  Navigation routes_;
};

// The carousels that contain these files and folders. All groups of a given folder are checked. Of
// the folder of a given file, only that file is checked, although all its groups are loaded. A
// folder with a start-up application is a carousel of its own; a group outside all such folders
// belongs to the given folder. Adds a finding for each folder that cannot be read, and for each
// given folder without groups.
[[nodiscard]] std::vector<Carousel> FindCarousels(const std::vector<std::filesystem::path>& paths,
                                                  Findings& findings);

}  // namespace mheg
