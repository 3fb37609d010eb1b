// The new contents are written to a file beside the old one, which then takes its name.
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
  fs::path target = fs::canonical(path, problem);  // replaces the file that a link refers to
  if (problem) target = path;
  // Devices and pipes are written directly.
  const bool isReplaced = fs::is_regular_file(target, problem) || !fs::exists(target, problem);
  if (!isReplaced) return WriteNew(target, bytes);
  fs::path written = target;
  written += ".part";
  const fs::perms permissions = fs::status(target, problem).permissions();
  bool isGood = WriteNew(written, bytes);
  if (isGood) {
    if (permissions != fs::perms::none && permissions != fs::perms::unknown) {
      fs::permissions(written, permissions, problem);
    }
    fs::rename(written, target, problem);
    isGood = !problem;
  }
  if (!isGood) fs::remove(written, problem);
  return isGood;
}

}  // namespace mheg
