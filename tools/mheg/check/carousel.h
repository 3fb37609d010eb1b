// A folder as the engine will see it: the groups in it, and the files that names lead to. A text
// "menu.mheg" counts as the file "menu" that it will be compiled to.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "mheg/check/link_deeds.h"
#include "mheg/group_file.h"
#include "objects/objects.h"

namespace mheg {

// One object of a group: an item, or a component of a stream.
struct CheckedObject {
  korvel::ItemType type = korvel::ItemType::None;
  const korvel::Ingredient* record = nullptr;
};

// A group of a carousel. Nothing is known of it while its file could not be read.
struct CheckedGroup {
  GroupFile file;
  bool isAskedFor = true;  // else it is only there for others to refer to
  std::multimap<std::int32_t, CheckedObject> objects;  // by number
  LinkDeeds deeds;

  [[nodiscard]] const korvel::Group& Group() const { return *file.group; }
  [[nodiscard]] std::string_view Name() const { return Group().Reference.GroupIdentifier.View(); }
  // The class of an object, or of the group itself for its own number; None when there is none.
  [[nodiscard]] korvel::ItemType ClassOf(std::int32_t number) const;
};

class Carousel {
 public:
  explicit Carousel(std::filesystem::path root) : root_(std::move(root)) {}

  void Add(const std::filesystem::path& file, bool isAskedFor);
  [[nodiscard]] std::size_t Size() const { return groups_.size(); }
  // Reads the file of that place. Several may be read at once.
  void Load(std::size_t index);
  // Sums up what has been read, once all is.
  void EndLoading();
  [[nodiscard]] const CheckedGroup& At(std::size_t index) const { return *groups_[index]; }

  // Whether the name of a group or of a content leads a group to a file.
  [[nodiscard]] bool HasFile(const CheckedGroup& from, std::string_view name) const;
  // The group that a name means where that group uses it, or null.
  [[nodiscard]] const CheckedGroup* Find(const CheckedGroup& from, std::string_view name) const;
  // The start-up application of a group's folder or of the carousel, or null.
  [[nodiscard]] const CheckedGroup* ApplicationOf(const CheckedGroup& group) const;
  // The deeds of all groups.
  [[nodiscard]] const LinkDeeds& Deeds() const { return deeds_; }

 private:
  [[nodiscard]] std::vector<std::filesystem::path> PlacesFor(const CheckedGroup& from,
                                                             std::string_view name) const;
  [[nodiscard]] const CheckedGroup* GroupIn(const std::filesystem::path& file) const;

  std::filesystem::path root_;
  std::vector<std::unique_ptr<CheckedGroup>> groups_;
  std::unordered_map<std::filesystem::path::string_type, const CheckedGroup*> groupsByPath_;
  LinkDeeds deeds_;
};

// The carousels of these files and folders: of the folders all groups are asked for, of the folder
// of a file only that file. A folder with a start-up application is a carousel of its own; groups
// outside of any belong to the folder given. `messages` receives the folders that cannot be
// read, or are asked for and have no groups.
[[nodiscard]] std::vector<Carousel> FindCarousels(const std::vector<std::filesystem::path>& paths,
                                                  std::vector<std::string>& messages);

}  // namespace mheg
