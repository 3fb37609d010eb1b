// Creates the folder inside the usual temporary folder, and sets TMP to it, the variable that
// Windows checks first.
#include "windows/support/temporary_folder.h"

#include <windows.h>

#include <filesystem>
#include <system_error>

namespace korvel::test {

namespace {

std::string TemporaryPath() {
  char path[MAX_PATH + 1] = {};
  GetTempPathA(MAX_PATH, path);
  return path;
}

}  // namespace

TemporaryFolder::TemporaryFolder()
    : before_(TemporaryPath()),
      path_(before_ + "korvel_test_" + std::to_string(GetCurrentProcessId()) + "\\") {
  CreateDirectoryA(path_.c_str(), nullptr);
  SetEnvironmentVariableA("TMP", path_.c_str());
}

TemporaryFolder::~TemporaryFolder() {
  SetEnvironmentVariableA("TMP", before_.c_str());
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace korvel::test
