// The rules of the check. A file in the folder rules is named after a rule and contains two
// carousels that differ in a few lines. In the first, the rule finds a fault; in the second, no
// rule does.
//
//   = FILE            the lines of a file follow
//     a line of both carousels
//   - a line of the carousel with the fault
//   + a line of the carousel without it
//   = findings        the report of the first carousel follows
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "mheg/check/check.h"
#include "mheg/check/report.h"
#include "mheg/convert.h"
#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = KORVEL_SOURCE_DIR;
const fs::path kCases = kSource / "tests/unit/mheg/rules";

using Files = std::map<std::string, std::string>;

struct RuleCase {
  Files faulty;
  Files good;
  std::string report;
};

RuleCase ReadCase(std::string_view rule) {
  RuleCase read;
  std::ifstream stream(kCases / rule);
  EXPECT_TRUE(stream) << kCases / rule << " is missing";
  std::string file;
  for (std::string line; std::getline(stream, line);) {
    if (line.starts_with("= ")) {
      file = line.substr(2);
      continue;
    }
    EXPECT_TRUE(line.starts_with("  ") || line.starts_with("- ") || line.starts_with("+ ")) << line;
    const std::string text = line.substr(2) + "\n";
    if (file == "findings") {
      read.report += text;
      continue;
    }
    if (line[0] != '+') read.faulty[file] += text;
    if (line[0] != '-') read.good[file] += text;
  }
  return read;
}

class Folder : public ScratchFolder {
 public:
  explicit Folder(const Files& files) {
    for (const auto& [name, text] : files) {
      fs::create_directories((Path() / name).parent_path());
      Write(name, text);
    }
  }

  // Replaces each source file with its BER form.
  void CompileAll(const Files& files) const {
    for (const auto& [name, text] : files) {
      const fs::path file = Path() / name;
      if (file.extension() != ".mheg") continue;
      EXPECT_TRUE(Compile(file, fs::path(file).replace_extension()).isGood) << name;
      fs::remove(file);
    }
  }

  [[nodiscard]] Findings Found() const {
    Findings findings = Check({Path()}, 1);
    for (Finding& finding : findings)
      finding.message.file = fs::relative(finding.message.file, Path());
    return findings;
  }
};

class Rules : public testing::TestWithParam<RuleRow> {};

TEST_P(Rules, finds_the_fault_and_nothing_else) {
  const RuleCase read = ReadCase(GetParam().name);
  const Findings findings = Folder(read.faulty).Found();
  EXPECT_EQ(LinesOf(findings), read.report);
  EXPECT_FALSE(findings.empty());
  for (const Finding& finding : findings) EXPECT_EQ(finding.rule, GetParam().rule);
}

TEST_P(Rules, finds_nothing_in_correct_content_that_is_nearly_the_same) {
  const RuleCase read = ReadCase(GetParam().name);
  EXPECT_EQ(LinesOf(Folder(read.good).Found()), "");
  EXPECT_NE(read.good, read.faulty);
}

// The findings without their positions, which only source files have.
std::multiset<std::string> Described(const Findings& findings) {
  std::multiset<std::string> all;
  for (const Finding& finding : findings) {
    all.insert(fs::path(finding.message.file).replace_extension().string() + " " +
               std::to_string(finding.object.value_or(-1)) + " " + finding.message.text);
  }
  return all;
}

TEST_P(Rules, finds_the_same_in_the_broadcast_form) {
  const RuleCase read = ReadCase(GetParam().name);
  if (GetParam().rule == Rule::InvalidGroup) return;  // an invalid group has no broadcast form
  const Folder faulty(read.faulty);
  const std::multiset<std::string> inSource = Described(faulty.Found());
  faulty.CompileAll(read.faulty);
  EXPECT_EQ(Described(faulty.Found()), inSource);
  const Folder good(read.good);
  good.CompileAll(read.good);
  EXPECT_EQ(LinesOf(good.Found()), "");
}

TEST_P(Rules, has_a_row_in_the_documentation_with_an_example_of_its_case) {
  const RuleRow& row = GetParam();
  const std::string page = "\n" + FileText(kSource / "docs/checks.md");
  const std::string begin = "\n| `" + std::string(row.name) + "` | " +
                            std::string(NameOf(row.level)) + " | " + std::string(row.sentence) +
                            " | `";
  const std::size_t rowStart = page.find(begin);
  ASSERT_NE(rowStart, std::string::npos) << begin;
  const std::size_t start = rowStart + begin.size();
  const std::string example = page.substr(start, page.find('`', start) - start);
  std::string faulty;
  std::string good;
  for (const auto& [name, text] : ReadCase(row.name).faulty) faulty += name + "\n" + text;
  for (const auto& [name, text] : ReadCase(row.name).good) good += name + "\n" + text;
  EXPECT_NE(faulty.find(example), std::string::npos) << example;
  EXPECT_EQ(good.find(example), std::string::npos) << example;
}

INSTANTIATE_TEST_SUITE_P(Check, Rules, testing::ValuesIn(kRules), [](const auto& test) {
  std::string name(test.param.name);
  std::ranges::replace(name, '-', '_');
  return name;
});

TEST(RuleCases, each_belongs_to_a_rule) {
  for (const auto& entry : fs::directory_iterator(kCases)) {
    EXPECT_NE(FindRule(entry.path().filename().string()), nullptr) << entry.path();
  }
}

}  // namespace
}  // namespace mheg
