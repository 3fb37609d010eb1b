// The messages for the mistakes that authors make: each text in the folder "mistakes", checked by
// the tool, gives exactly the output that its file NAME.expected holds. ACCEPT=1 stores it instead.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "unit/mheg/scratch_folder.h"
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

const fs::path kMistakes = fs::path(KORVEL_SOURCE_DIR) / "tests/unit/mheg/mistakes";

std::vector<fs::path> Texts() {
  std::vector<fs::path> texts;
  for (const auto& entry : fs::directory_iterator(kMistakes)) {
    if (entry.path().extension() == ".mheg") texts.push_back(entry.path());
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

TEST_F(Tool, each_mistake_has_its_message) {
  const std::vector<fs::path> texts = Texts();
  EXPECT_GE(texts.size(), 30U);
  for (const fs::path& text : texts) {
    fs::copy_file(text, folder_ / text.filename());
    const ToolOutcome run = Call("check " + text.filename().string());
    fs::remove(folder_ / text.filename());
    EXPECT_EQ(run.status, 1) << text;
    const fs::path expected = fs::path(text).replace_extension(".expected");
    if (std::getenv("ACCEPT") != nullptr) {
      std::ofstream(expected, std::ios::binary) << run.output;
    }
    EXPECT_EQ(run.output, FileText(expected)) << text;
  }
}

}  // namespace
}  // namespace mheg
