// The same rules for all commands, so that `mheg run` and the player play what `mheg build` makes.
#include "mheg/source_folder.h"

#include <system_error>

namespace mheg {
namespace {

namespace fs = std::filesystem;

bool IsBroadcast(const fs::path& relative) {
  const bool isInFolderItself = !relative.has_parent_path();
  return !(isInFolderItself && (relative == "README.md" || relative.extension() == ".script"));
}

bool IsHidden(const fs::path& path) {
  const fs::path name = path.filename();
  return name.native().front() == '.';
}

}  // namespace

bool FindBroadcastFiles(const fs::path& folder, std::set<fs::path>& files) {
  std::error_code problem;
  fs::recursive_directory_iterator entry(folder, fs::directory_options::follow_directory_symlink,
                                         problem);
  for (; !problem && entry != fs::end(entry); entry.increment(problem)) {
    const fs::path relative = entry->path().lexically_relative(folder);
    std::error_code ignored;
    const bool isFolder = entry->is_directory(ignored);
    if (isFolder && IsHidden(relative)) entry.disable_recursion_pending();
    if (!isFolder && !IsHidden(relative) && IsBroadcast(relative)) files.insert(relative);
  }
  return !problem;
}

bool IsText(const fs::path& file) { return file.extension() == ".mheg"; }

}  // namespace mheg
