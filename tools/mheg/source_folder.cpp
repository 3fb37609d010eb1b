// All commands share these rules, so that `mheg run` and the player play the files that `mheg
// build` makes, and `mheg check` checks them.
#include "mheg/source_folder.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "mheg/path_text.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

bool IsHidden(const fs::path& path) { return path.filename().native().front() == '.'; }

bool IsBroadcast(const fs::path& relative) {
  const bool isInSubfolder = relative.has_parent_path();
  return isInSubfolder || (relative != "README.md" && relative.extension() != ".script");
}

// Whether a link to a folder leads to a folder that contains the link.
bool LeadsBack(const fs::path& link) {
  std::error_code ignored;
  const fs::path target = fs::canonical(link, ignored);
  const fs::path home = fs::canonical(link.parent_path(), ignored);
  return std::mismatch(target.begin(), target.end(), home.begin(), home.end()).first ==
         target.end();
}

}  // namespace

std::vector<fs::path> FilesIn(const fs::path& folder, FolderLinks links, Messages& messages) {
  std::vector<fs::path> files;
  std::vector<fs::path> folders{folder};
  while (!folders.empty()) {
    const fs::path next = folders.back();
    folders.pop_back();
    std::error_code problem;
    fs::directory_iterator entry(next, problem);
    for (; !problem && entry != fs::end(entry); entry.increment(problem)) {
      const fs::path& path = entry->path();
      std::error_code ignored;
      if (IsHidden(path)) continue;
      if (!entry->is_directory(ignored)) {
        files.push_back(path);
      } else if (!entry->is_symlink(ignored)) {
        folders.push_back(path);
      } else if (links == FolderLinks::Followed) {
        LeadsBack(path) ? messages.push_back({path, "leads back to a folder around it"})
                        : folders.push_back(path);
      }
    }
    if (problem) messages.push_back({next, "cannot be read"});
  }
  return files;
}

BroadcastFiles FindBroadcastFiles(const fs::path& folder, Messages& messages) {
  std::set<fs::path> sources;  // sorted, so that "menu.mheg" comes after "menu"
  for (const fs::path& file : FilesIn(folder, FolderLinks::Followed, messages)) {
    const fs::path relative = file.lexically_relative(folder);
    if (IsBroadcast(relative)) sources.insert(relative);
  }
  BroadcastFiles files;
  for (const fs::path& source : sources) {
    fs::path name = source;
    if (IsSourceFile(name)) name.replace_extension();
    const auto [file, isNew] = files.emplace(name, BroadcastFile{source});
    if (isNew) continue;
    file->second.clashes.push_back({folder / source, "has the same name in the carousel as " +
                                                         TextOf(folder / file->second.source)});
  }
  return files;
}

bool IsSourceFile(const fs::path& file) { return file.extension() == kSourceExtension; }

}  // namespace mheg
