// Finding groups in folders, and files for names by the engine's rules.
#include "mheg/check/carousel.h"

#include <algorithm>
#include <fstream>

namespace mheg {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTextExtension = ".mheg";
constexpr const char* kStartUpNames[] = {"a", "startup"};

bool HasFileOrText(const fs::path& path) {
  fs::path text = path;
  text += kTextExtension;
  return fs::is_regular_file(path) || fs::is_regular_file(text);
}

bool HasStartUpApplication(const fs::path& folder) {
  return std::any_of(std::begin(kStartUpNames), std::end(kStartUpNames),
                     [&](const char* name) { return HasFileOrText(folder / name); });
}

// The first byte of a group in BER is the tag of an application or of a scene.
bool IsGroupFile(const fs::path& path) {
  if (path.extension() == kTextExtension) return true;
  std::ifstream stream(path, std::ios::binary);
  const int first = stream.get();
  return first == 0xA0 || first == 0xA1;
}

// The outermost folder on the way from `top` down to the file that has a start-up application.
fs::path RootFor(const fs::path& top, const fs::path& file) {
  fs::path folder = top;
  for (const fs::path& step : file.parent_path().lexically_relative(top)) {
    if (HasStartUpApplication(folder)) return folder;
    if (step != ".") folder /= step;
  }
  return HasStartUpApplication(folder) ? folder : top;
}

// Whether a file is asked for, by the root of its carousel.
using Files = std::map<fs::path, std::map<fs::path, bool>>;

void AddFolder(const fs::path& folder, bool isAskedFor, Files& files) {
  for (const fs::directory_entry& entry :
       fs::recursive_directory_iterator(folder.empty() ? fs::path(".") : folder)) {
    const fs::path file = folder.empty() ? entry.path().lexically_normal() : entry.path();
    if (!entry.is_regular_file() || !IsGroupFile(file)) continue;
    bool& isFileAskedFor = files[RootFor(folder, file)][file];
    isFileAskedFor = isFileAskedFor || isAskedFor;
  }
}

void AddObject(const korvel::Item& item, CheckedGroup& group) {
  group.objects.emplace(item.Record()->Reference.Number, CheckedObject{item.Type(), item.Record()});
  if (item.Type() != korvel::ItemType::Stream) return;
  for (const korvel::Item& component : item.As<korvel::Stream>().Multiplex) {
    AddObject(component, group);
  }
}

}  // namespace

bool IsSameName(std::string_view one, std::string_view other) {
  if (one.starts_with('~')) one.remove_prefix(1);
  if (other.starts_with('~')) other.remove_prefix(1);
  return one == other;
}

korvel::ItemType CheckedGroup::ClassOf(std::int32_t number) const {
  if (number == Group().Reference.Number) return Group().Type;
  const auto found = objects.find(number);
  return found == objects.end() ? korvel::ItemType::None : found->second.type;
}

void Carousel::Add(const fs::path& file, bool isAskedFor) {
  groups_.push_back(std::make_unique<CheckedGroup>());
  groups_.back()->file.path = file;
  groups_.back()->isAskedFor = isAskedFor;
}

void Carousel::Load(std::size_t index) {
  CheckedGroup& group = *groups_[index];
  group.file = ReadGroupFile(group.file.path);
  if (!group.file.group) return;
  for (const korvel::Item& item : group.Group().Items) AddObject(item, group);
}

// The prefix "~" or "DSM:" and its slashes do not count. What is left is looked for beside the
// group that uses the name, whose application may have made its folder the current one, and at the
// root.
std::vector<fs::path> Carousel::PlacesFor(const CheckedGroup& from, std::string_view name) const {
  const std::size_t slash = name.find('/');
  std::string_view rest = slash == std::string_view::npos ? name : name.substr(slash + 1);
  if (rest.starts_with('/')) rest.remove_prefix(1);
  if (name.starts_with("CI:") || rest.empty()) return {};
  return {from.file.path.parent_path() / rest, root_ / rest};
}

bool Carousel::HasFile(const CheckedGroup& from, std::string_view name) const {
  const std::vector<fs::path> places = PlacesFor(from, name);
  return std::any_of(places.begin(), places.end(), HasFileOrText);
}

const CheckedGroup* Carousel::GroupIn(const fs::path& file) const {
  fs::path text = file;
  text += kTextExtension;
  for (const auto& group : groups_) {
    const fs::path path = group->file.path.lexically_normal();
    if (path == file.lexically_normal() || path == text.lexically_normal()) return group.get();
  }
  return nullptr;
}

const CheckedGroup* Carousel::Find(const CheckedGroup& from, std::string_view name) const {
  if (name.empty() || IsSameName(name, from.Name())) return &from;
  for (const fs::path& place : PlacesFor(from, name)) {
    const CheckedGroup* group = GroupIn(place);
    if (group != nullptr && group->file.group) return group;
  }
  return nullptr;
}

const CheckedGroup* Carousel::ApplicationOf(const CheckedGroup& group) const {
  for (const fs::path& folder : {group.file.path.parent_path(), root_}) {
    for (const char* name : kStartUpNames) {
      const CheckedGroup* found = GroupIn(folder / name);
      if (found != nullptr && found->file.group.IsApplication()) return found;
    }
  }
  return nullptr;
}

std::vector<Carousel> FindCarousels(const std::vector<fs::path>& paths) {
  Files files;
  for (const fs::path& path : paths) {
    const bool isFolder = fs::is_directory(path);
    AddFolder(isFolder ? path : path.parent_path(), isFolder, files);
    if (!isFolder) files[RootFor(path.parent_path(), path)][path] = true;
  }
  std::vector<Carousel> carousels;
  for (const auto& [root, members] : files) {
    Carousel& carousel = carousels.emplace_back(root);
    for (const auto& [file, isAskedFor] : members) carousel.Add(file, isAskedFor);
  }
  return carousels;
}

}  // namespace mheg
