// Finds groups in folders, and resolves names to files by the engine's rules.
#include "mheg/check/carousel.h"

#include <algorithm>
#include <fstream>
#include <system_error>

#include "mheg/path_text.h"
#include "mheg/source_folder.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

constexpr const char* kStartUpNames[] = {"a", "startup"};

// Returns false if the path cannot be queried, for example because it is too long.
bool IsFile(const fs::path& path) {
  std::error_code ignored;
  return fs::is_regular_file(path, ignored);
}

bool IsFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

bool HasFileOrSource(const fs::path& path) {
  fs::path source = path;
  source += kSourceExtension;
  return IsFile(path) || IsFile(source);
}

bool HasStartUpApplication(const fs::path& folder) {
  return std::any_of(std::begin(kStartUpNames), std::end(kStartUpNames),
                     [&](const char* name) { return HasFileOrSource(folder / name); });
}

// A BER group begins with the tag of an application or a scene. Returns true if the file cannot be
// read: loading it then reports the error.
bool IsGroupFile(const fs::path& path) {
  if (IsSourceFile(path)) return true;
  std::ifstream stream(path, std::ios::binary);
  const int first = stream.get();
  return !stream.is_open() || stream.bad() || first == 0xA0 || first == 0xA1;
}

// The outermost folder with a start-up application on the path from `top` down to the file; `top`
// if there is none.
fs::path RootFor(const fs::path& top, const fs::path& file) {
  fs::path folder = top;
  for (const fs::path& step : file.parent_path().lexically_relative(top)) {
    if (HasStartUpApplication(folder)) return folder;
    if (step != ".") folder /= step;
  }
  return HasStartUpApplication(folder) ? folder : top;
}

// The group files of each carousel, by the root of the carousel. true: the file is to be checked.
using Files = std::map<fs::path, std::map<fs::path, bool>>;

// The group files in a folder and its subfolders. Reports folders that cannot be read.
std::vector<fs::path> GroupFilesIn(const fs::path& folder, Findings& findings) {
  Messages problems;
  std::vector<fs::path> files = FilesIn(folder, FolderLinks::Followed, problems);
  std::erase_if(files, [](const fs::path& file) { return !IsFile(file) || !IsGroupFile(file); });
  for (const Message& problem : problems) findings.push_back({Rule::InvalidGroup, {}, problem});
  return files;
}

void AddFolder(const fs::path& folder, bool isChecked, Files& files, Findings& findings) {
  const std::size_t reported = findings.size();
  const auto found = GroupFilesIn(folder.empty() ? fs::path(".") : folder, findings);
  for (const fs::path& path : found) {
    const fs::path file = folder.empty() ? path.lexically_normal() : path;
    bool& isFileChecked = files[RootFor(folder, file)][file];
    isFileChecked = isFileChecked || isChecked;
  }
  const bool isEmpty = found.empty() && findings.size() == reported;
  if (isEmpty && isChecked) {
    findings.push_back({Rule::NoGroups, {}, {folder, "has no groups"}});
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

korvel::ItemType CheckedGroup::ClassOf(std::int32_t number) const {
  if (number == Group().Reference.Number) return Group().type;
  const auto found = objects.find(number);
  return found == objects.end() ? korvel::ItemType::None : found->second.type;
}

void Carousel::Add(const fs::path& file, bool isChecked) {
  groups_.push_back(std::make_unique<CheckedGroup>());
  groups_.back()->file.path = file;
  groups_.back()->isChecked = isChecked;
  groupsByPath_.emplace(file.lexically_normal().native(), groups_.back().get());
}

void Carousel::Load(std::size_t index) {
  CheckedGroup& group = *groups_[index];
  group.file = ReadGroupFile(group.file.path);
  if (!group.file.group) return;
  for (const korvel::Item& item : group.Group().Items) AddObject(item, group);
  group.effects = EffectsOf(group.Group());
  group.departures = DeparturesOf(group.Group());
}

void Carousel::EndLoading() {
  std::set<std::string_view> applications;
  for (const auto& group : groups_) {
    if (!korvel::IsApplication(group->file.group)) continue;
    applications.insert(korvel::WithoutTilde(group->Name()));
    ofApplications_.Add(group->effects);
  }
  for (const auto& group : groups_) onApplications_.AddOn(applications, group->effects);
  routes_ = Navigation(*this);
}

bool Carousel::IsStartUp(const CheckedGroup& group) const {
  fs::path name = group.file.path.filename();
  if (IsSourceFile(name)) name.replace_extension();
  return korvel::IsApplication(group.file.group) &&
         std::any_of(std::begin(kStartUpNames), std::end(kStartUpNames),
                     [&](const char* startUp) { return name == startUp; });
}

bool Carousel::IsNamedAfterFile(const CheckedGroup& group) const {
  const std::vector<fs::path> paths = PathsFor(group, group.Name());
  return std::any_of(paths.begin(), paths.end(),
                     [&](const fs::path& path) { return GroupIn(path) == &group; });
}

korvel::ItemType Carousel::ClassOf(const CheckedGroup& from,
                                   const korvel::ObjectReference& reference) const {
  const CheckedGroup* group = Find(from, reference.GroupIdentifier.View());
  return group == nullptr ? korvel::ItemType::None : group->ClassOf(reference.Number);
}

const CheckedObject* Carousel::FindObject(const CheckedGroup& from,
                                          const korvel::ObjectReference& reference) const {
  const CheckedGroup* group = Find(from, reference.GroupIdentifier.View());
  if (group == nullptr) return nullptr;
  const auto found = group->objects.find(reference.Number);
  return found == group->objects.end() ? nullptr : &found->second;
}

const Effects& Carousel::EffectsOfOthersOn(const CheckedGroup& group) const {
  return group.Group().type == korvel::ItemType::Application ? onApplications_ : ofApplications_;
}

bool Carousel::HasAction(const CheckedGroup& group, korvel::Action action) const {
  return group.effects.HasAction(action) || EffectsOfOthersOn(group).HasAction(action);
}

bool Carousel::MayAffect(const CheckedGroup& group, korvel::Action action, std::int32_t number,
                         std::optional<std::int32_t> timer) const {
  const Effect effect{action, group.Name(), number, timer};
  return group.effects.MayHave(effect) || EffectsOfOthersOn(group).MayHave(effect);
}

// Ignores the prefix "~" or "DSM:" and its slashes. The rest of the name may be relative to the
// folder of the group that uses it, because its application may have made that folder the current
// one, or relative to the root.
std::vector<fs::path> Carousel::PathsFor(const CheckedGroup& from, std::string_view name) const {
  const std::size_t slash = name.find('/');
  std::string_view rest = slash == std::string_view::npos ? name : name.substr(slash + 1);
  if (rest.starts_with('/')) rest.remove_prefix(1);
  if (name.starts_with("CI:") || rest.empty()) return {};
  const fs::path path = PathOf(rest);
  return {from.file.path.parent_path() / path, root_ / path};
}

bool Carousel::HasFile(const CheckedGroup& from, std::string_view name) const {
  const std::vector<fs::path> paths = PathsFor(from, name);
  return std::any_of(paths.begin(), paths.end(), HasFileOrSource);
}

const CheckedGroup* Carousel::GroupIn(const fs::path& file) const {
  fs::path path = file.lexically_normal();
  auto found = groupsByPath_.find(path.native());
  if (found == groupsByPath_.end()) found = groupsByPath_.find((path += kSourceExtension).native());
  return found == groupsByPath_.end() ? nullptr : found->second;
}

const CheckedGroup* Carousel::Find(const CheckedGroup& from, std::string_view name) const {
  if (name.empty() || korvel::IsSameGroup(name, from.Name())) return &from;
  for (const fs::path& path : PathsFor(from, name)) {
    const CheckedGroup* group = GroupIn(path);
    if (group != nullptr && group->file.group) return group;
  }
  return nullptr;
}

const CheckedGroup* Carousel::ApplicationOf(const CheckedGroup& group) const {
  for (const fs::path& folder : {group.file.path.parent_path(), root_}) {
    for (const char* name : kStartUpNames) {
      const CheckedGroup* found = GroupIn(folder / name);
      if (found != nullptr && korvel::IsApplication(found->file.group)) return found;
    }
  }
  return nullptr;
}

std::vector<Carousel> FindCarousels(const std::vector<fs::path>& paths, Findings& findings) {
  std::map<fs::path, bool> folders;  // true: check all groups in the folder
  for (const fs::path& path : paths) {
    const bool isFolder = IsFolder(path);
    bool& isChecked = folders[isFolder ? path : path.parent_path()];
    isChecked = isChecked || isFolder;
  }
  Files files;
  for (const auto& [folder, isChecked] : folders) AddFolder(folder, isChecked, files, findings);
  std::ranges::sort(findings, {}, [](const Finding& finding) { return finding.message.file; });
  for (const fs::path& path : paths) {
    if (!IsFolder(path)) files[RootFor(path.parent_path(), path)][path] = true;
  }
  std::vector<Carousel> carousels;
  for (const auto& [root, members] : files) {
    Carousel& carousel = carousels.emplace_back(root);
    for (const auto& [file, isChecked] : members) carousel.Add(file, isChecked);
  }
  return carousels;
}

}  // namespace mheg
