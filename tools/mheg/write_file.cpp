// Writes the new contents to a file beside the old one, and then renames it to the old name.
#include "mheg/write_file.h"

#include <fstream>
#include <system_error>

namespace mheg {
namespace {

namespace fs = std::filesystem;

bool WriteNew(const fs::path& path, std::string_view bytes) {
  std::ofstream stream(path, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  return !stream.fail();
}

}  // namespace

bool WriteFile(const fs::path& path, std::string_view bytes) {
  std::error_code problem;
  fs::path target = fs::canonical(path, problem);  // follows a link
  if (problem) target = path;
  // Devices and pipes are written directly.
  const bool isReplaced = fs::is_regular_file(target, problem) || !fs::exists(target, problem);
  if (!isReplaced) return WriteNew(target, bytes);
  return WriteFile(target, [&](const fs::path& part) {
    const fs::perms permissions = fs::status(target, problem).permissions();
    if (!WriteNew(part, bytes)) return false;
    if (permissions != fs::perms::none && permissions != fs::perms::unknown) {
      fs::permissions(part, permissions, problem);
    }
    return true;
  });
}

bool WriteFile(const fs::path& path, const std::function<bool(const fs::path&)>& write) {
  fs::path part = path;
  part += ".part";
  std::error_code problem;
  bool isGood = write(part);
  if (isGood) {
    fs::rename(part, path, problem);
    isGood = !problem;
  }
  if (!isGood) fs::remove(part, problem);
  return isGood;
}

}  // namespace mheg
