// Files for the tests of the tool.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "mheg/check/report.h"

namespace mheg {

inline std::string FileText(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The report without excerpts.
inline std::string LinesOf(const Findings& findings) {
  std::string lines;
  for (const Message& message : MessagesOf(findings)) lines += OneLine(message) + "\n";
  return lines;
}

// A temporary folder, which exists during the lifetime of this object.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "mheg-test-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~ScratchFolder() { std::filesystem::remove_all(folder_); }
  [[nodiscard]] const std::filesystem::path& Path() const { return folder_; }
  // Writes a file, creates its folders if necessary, and returns its path.
  std::filesystem::path Write(const std::string& name, const std::string& bytes) const {
    const std::filesystem::path path = folder_ / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

 protected:
  std::filesystem::path folder_;
};

}  // namespace mheg
