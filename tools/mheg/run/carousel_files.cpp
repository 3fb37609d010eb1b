// Loads a carousel and resolves paths as the player does.
#include "mheg/run/carousel_files.h"

#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "mheg/group_file.h"
#include "objects/ber/ber.h"
#include "player/carousel.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTextExtension = ".mheg";

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

// The path in the folder that a path of the engine leads to; empty if it leads nowhere.
std::string Resolved(std::string_view path) {
  const auto found = player::Carousel({}).Resolve(path);
  return found ? found->generic_string() : std::string();
}

}  // namespace

void CarouselFiles::Load(const fs::path& folder, Messages& messages) {
  std::error_code problem;
  fs::recursive_directory_iterator entry(folder, problem);
  for (; !problem && entry != fs::recursive_directory_iterator(); entry.increment(problem)) {
    std::error_code ignored;
    if (!entry->is_regular_file(ignored)) continue;
    fs::path name = entry->path().lexically_relative(folder);
    if (name.extension() == kTextExtension) {
      CarouselFile file = Compiled(entry->path(), messages);
      file.text = name.generic_string();
      name.replace_extension();
      files_[name.generic_string()] = std::move(file);
    } else if (!files_.contains(name.generic_string())) {
      // A text replaces a file that was compiled from it earlier.
      files_[name.generic_string()].bytes = BytesOf(entry->path(), messages);
    }
  }
  if (problem) messages.push_back({folder, "cannot be read"});
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
