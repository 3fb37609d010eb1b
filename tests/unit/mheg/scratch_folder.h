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

// The report without the excerpts.
inline std::string LinesOf(const Findings& findings) {
  std::string lines;
  for (const Message& message : MessagesOf(findings)) lines += OneLine(message) + "\n";
  return lines;
}

// A temporary folder.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "mheg-test-XXXXXX").string();
    path_ = mkdtemp(name.data());
  }
  ~ScratchFolder() { std::filesystem::remove_all(path_); }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(path_ / name, std::ios::binary) << bytes;
    return path_ / name;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace mheg
