// Loads a carousel and resolves the paths in it.
#include "mheg/carousel_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

#include "mheg/group_file.h"
#include "mheg/source_folder.h"
#include "objects/ber/ber.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

CarouselFile Compiled(const fs::path& path, Messages& messages) {
  GroupFile file = ReadGroupFile(path);
  messages.insert(messages.end(), file.messages.begin(), file.messages.end());
  korvel::OctetString bytes;
  if (!file.IsGood() || korvel::EncodeGroup(*file.group, bytes) != korvel::Status::Done) return {};
  return {std::string(bytes.View()),
          {},
          std::move(file.places),
          std::string(file.group->Reference.GroupIdentifier.View())};
}

std::string BytesOf(const fs::path& path, Messages& messages) {
  std::ifstream stream(path, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  if (!stream.is_open() || stream.bad()) messages.push_back({path, "cannot be read"});
  return bytes;
}

// Appends one part of a path to `parts`. Returns false if that leads out of the folder.
bool Follow(std::string_view part, std::vector<std::string_view>& parts) {
  if (part.empty() || part == ".") return true;
  if (part != "..") {
    parts.push_back(part);
    return true;
  }
  if (parts.empty()) return false;
  parts.pop_back();
  return true;
}

// The path in the folder that a path of the engine leads to; empty if it leads nowhere.
std::string Resolved(std::string_view path) {
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    if (!Follow(path.substr(0, end), parts)) return {};
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  std::string resolved;
  for (std::string_view part : parts) {
    if (!resolved.empty()) resolved += '/';
    resolved += part;
  }
  return resolved;
}

}  // namespace

void CarouselFiles::Load(const fs::path& folder, Messages& messages) {
  std::set<fs::path> paths;
  if (!FindBroadcastFiles(folder, paths)) messages.push_back({folder, "cannot be read"});
  for (const fs::path& path : paths) {
    fs::path name = path;
    if (IsText(path)) {
      CarouselFile file = Compiled(folder / path, messages);
      file.text = path.generic_string();
      files_[name.replace_extension().generic_string()] = std::move(file);
    } else if (!files_.contains(name.generic_string())) {
      // A text replaces a file that was compiled from it earlier.
      files_[name.generic_string()].bytes = BytesOf(folder / path, messages);
    }
  }
}

bool CarouselFiles::Remove(const std::string& path) { return files_.erase(Resolved(path)) > 0; }

const CarouselFile* CarouselFiles::Find(std::string_view path) {
  const auto [place, isNew] = foundPaths_.try_emplace(std::string(path));
  if (isNew) {
    const auto file = files_.find(Resolved(path));
    place->second = file == files_.end() ? nullptr : &file->second;
  }
  return place->second;
}

}  // namespace mheg
