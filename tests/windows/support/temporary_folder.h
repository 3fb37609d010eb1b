// A folder for this process's temporary files. The engine overwrites one file with a fixed name, so
// test programs that run in parallel need separate folders.
#pragma once

#include <string>

namespace korvel::test {

// While the object exists, the platform reports this folder as the temporary one. Afterwards the
// folder and all its files are removed.
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
