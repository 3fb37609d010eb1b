// Loads a carousel and resolves the paths in it.
#include "mheg/carousel_files.h"

#include <algorithm>
#include <vector>

#include "mheg/path_text.h"
#include "mheg/read_file.h"
#include "mheg/source_folder.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

// Reads or compiles the file. Adds a message for each error.
CarouselFile ReadOrCompile(const fs::path& folder, const fs::path& source, Messages& messages) {
  CarouselFile file;
  if (IsSourceFile(source)) {
    file.source = GenericTextOf(source);
    const Outcome outcome = CompileSource(folder / source, file);
    messages.insert(messages.end(), outcome.messages.begin(), outcome.messages.end());
  } else if (const char* reason = ReadBytes(folder / source, file.bytes)) {
    messages.push_back({folder / source, reason});
  }
  return file;
}

// Appends one part of a path to `parts`. Returns false if the path then leaves the folder.
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

// The path in the folder that a path of the engine resolves to; empty if it leaves the folder.
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
  for (const auto& [name, file] : FindBroadcastFiles(folder, messages)) {
    messages.insert(messages.end(), file.clashes.begin(), file.clashes.end());
    files_[GenericTextOf(name)] = ReadOrCompile(folder, file.source, messages);
  }
}

bool CarouselFiles::Remove(const std::string& path) { return files_.erase(Resolved(path)) > 0; }

const CarouselFile* CarouselFiles::Find(std::string_view path) const {
  const auto file = files_.find(Resolved(path));
  return file == files_.end() ? nullptr : &file->second;
}

}  // namespace mheg
