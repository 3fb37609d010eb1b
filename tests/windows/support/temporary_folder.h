// A folder for temporary files of this process alone. The engine rewrites one file of a fixed name,
// and test programs run side by side.
#pragma once

#include <string>

namespace korvel::test {

// While it lives, the platform gives this folder to whoever asks for the temporary one. Afterwards
// the folder is gone with all files in it.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Ends in a backslash.
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string before_;
  std::string path_;
};

}  // namespace korvel::test
