// Checks the parts of a path before the file system sees them, so that rejecting a path does not
// depend on the platform or on which files exist.
#include "player/carousel.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace player {
namespace {

// Whether a part is safe for the file system. A colon would name a drive or an alternate data
// stream. Windows removes trailing dots and blanks, so names that end in them could refer to the
// parent folder or to another file.
bool IsPlainName(std::string_view part) {
  return part.find(':') == std::string_view::npos && part.find('\0') == std::string_view::npos &&
         part.back() != '.' && part.back() != ' ';
}

// Appends one part to `parts`. Returns false if that leads outside the folder or if the part is not
// a plain name.
bool Follow(std::string_view part, std::vector<std::string_view>& parts) {
  if (part.empty() || part == ".") return true;
  if (part == "..") {
    if (parts.empty()) return false;
    parts.pop_back();
    return true;
  }
  if (!IsPlainName(part)) return false;
  parts.push_back(part);
  return true;
}

}  // namespace

std::optional<std::filesystem::path> Carousel::Resolve(std::string_view path) const {
  std::vector<std::string_view> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    if (!Follow(path.substr(0, end), parts)) return std::nullopt;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  if (parts.empty()) return std::nullopt;
  std::filesystem::path file = root_;
  for (std::string_view part : parts) file /= part;
  return file;
}

std::optional<std::vector<char>> Carousel::Read(std::string_view path) const {
  const auto file = Resolve(path);
  std::error_code failure;
  if (!file || !std::filesystem::is_regular_file(*file, failure)) return std::nullopt;
  std::ifstream stream(*file, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::vector<char>(std::istreambuf_iterator<char>(stream), {});
}

}  // namespace player
