// The messages for mistakes that authors make. For each source file in the folder "mistakes",
// `mheg check` must print exactly the contents of NAME.expected. The environment variable ACCEPT
// stores the output as the expected one.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "unit/mheg/scratch_folder.h"
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

const fs::path kMistakes = fs::path(KORVEL_SOURCE_DIR) / "tests/unit/mheg/mistakes";

std::vector<fs::path> SourceFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(kMistakes)) {
    if (entry.path().extension() == ".mheg") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST_F(Tool, each_mistake_has_its_message) {
  const std::vector<fs::path> files = SourceFiles();
  EXPECT_GE(files.size(), 30U);
  for (const fs::path& file : files) {
    fs::copy_file(file, folder_ / file.filename());
    const ToolOutcome run = Call("check " + file.filename().string());
    fs::remove(folder_ / file.filename());
    EXPECT_EQ(run.status, 1) << file;
    const fs::path expected = fs::path(file).replace_extension(".expected");
    if (std::getenv("ACCEPT") != nullptr) {
      std::ofstream(expected, std::ios::binary) << run.output;
    }
    EXPECT_EQ(run.output, FileText(expected)) << file;
  }
}

}  // namespace
}  // namespace mheg
