// Compares whole dumps with reviewed ones. tests/golden/dump has pairs of a text, NAME.mheg, and
// its dump, NAME.dump. Its lines.txt lists every form of a line; each must occur in a dump.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <vector>

#include "dump/tree.h"
#include "unit/dump/prepared_groups.h"
#include "unit/dump/printed.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

const fs::path kFolder = KORVEL_TESTS_FOLDER "/golden/dump";

std::string FileText(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  EXPECT_TRUE(stream) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The names of the files with that extension, without the extension.
std::vector<std::string> Names(const char* extension) {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(kFolder)) {
    if (entry.path().extension() == extension) names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

// Reports only the first line that differs, because the dumps are long.
void ExpectSame(const std::string& actual, const std::string& name) {
  const std::string expected = FileText(kFolder / (name + ".dump"));
  const std::vector<std::string> actualLines = Lines(actual);
  const std::vector<std::string> expectedLines = Lines(expected);
  const auto [one, other] = std::mismatch(actualLines.begin(), actualLines.end(),
                                          expectedLines.begin(), expectedLines.end());
  EXPECT_TRUE(actual == expected) << name << ".dump line " << one - actualLines.begin() + 1 << "\n"
                                  << (one == actualLines.end() ? "nothing" : *one) << "\n"
                                  << (other == expectedLines.end() ? "nothing" : *other)
                                  << " was expected";
}

class GoldenDump : public testing::TestWithParam<std::string> {};

TEST_P(GoldenDump, is_printed_exactly) {
  const OwnedGroup group = Read(FileText(kFolder / (GetParam() + ".mheg")));
  ASSERT_TRUE(group);
  if (GetParam() == "running") MakeRunning(*group);
  if (GetParam() == "running_application") MakeRunningApplication(AsApplication(group));
  if (GetParam() == "unknown") MakeUnknown(*group);
  ExpectSame(DumpOf(group), GetParam());
}

INSTANTIATE_TEST_SUITE_P(Texts, GoldenDump, testing::ValuesIn(Names(".mheg")),
                         [](const auto& name) { return name.param; });

TEST(GoldenDump, a_variable_of_an_unknown_type_is_printed_exactly) {
  const Palette record;
  const std::string dump =
      Printed([&](std::FILE* stream) { DumpVariable(Tree(0, stream), ItemType::Palette, record); });
  ExpectSame(dump, "unknown_variable");
}

// ---- The forms of lines ----

// Whether a line matches a form, in which %d is a number and %s any text.
bool HasForm(std::string_view line, std::string_view form) {
  if (form.empty()) return line.empty();
  if (form.starts_with("%s")) {
    for (std::size_t i = 0; i <= line.size(); ++i) {
      if (HasForm(line.substr(i), form.substr(2))) return true;
    }
    return false;
  }
  if (form.starts_with("%d")) {
    std::size_t end = line.starts_with('-') ? 1 : 0;
    const std::size_t begin = end;
    while (end < line.size() && line[end] >= '0' && line[end] <= '9') ++end;
    return end > begin && HasForm(line.substr(end), form.substr(2));
  }
  return !line.empty() && line.front() == form.front() && HasForm(line.substr(1), form.substr(1));
}

// How specific a form is: mainly by its letters, then by its numbers. %s does not count.
std::size_t Specificity(std::string_view form) {
  std::size_t specificity = 0;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] != '%') {
      specificity += 10;
    } else {
      specificity += form[++i] == 'd' ? 1 : 0;
    }
  }
  return specificity;
}

std::set<std::string> Forms() {
  std::set<std::string> forms;
  for (const std::string& line : Lines(FileText(kFolder / "lines.txt"))) {
    if (!line.empty() && line.front() != '#') forms.insert(line);
  }
  return forms;
}

// The most specific form that the line matches: that of an absent string, not that of any string.
std::string FormOf(std::string_view line, const std::set<std::string>& forms) {
  std::string mostSpecific;
  for (const std::string& form : forms) {
    if (HasForm(line, form) && Specificity(form) > Specificity(mostSpecific)) mostSpecific = form;
  }
  return mostSpecific;
}

// Every line of the reviewed dumps, without its prefix.
std::set<std::string> GoldenLines() {
  constexpr std::string_view kLevel = "|   ";
  constexpr std::string_view kPrefixEnd = "|---";
  std::set<std::string> all;
  for (const std::string& name : Names(".dump")) {
    for (const std::string& line : Lines(FileText(kFolder / (name + ".dump")))) {
      std::string_view rest = line;
      while (rest.starts_with(kLevel)) rest.remove_prefix(kLevel.size());
      EXPECT_TRUE(rest.starts_with(kPrefixEnd)) << name << ": " << line;
      all.emplace(rest.substr(kPrefixEnd.size()));
    }
  }
  return all;
}

TEST(GoldenDump, exactly_the_listed_line_forms_occur) {
  const std::set<std::string> forms = Forms();
  EXPECT_GT(forms.size(), 400U);
  std::set<std::string> shown;
  for (const std::string& line : GoldenLines()) {
    const std::string form = FormOf(line, forms);
    EXPECT_FALSE(form.empty()) << "has no form: " << line;
    shown.insert(form);
  }
  for (const std::string& form : forms)
    EXPECT_TRUE(shown.contains(form)) << "is not shown: " << form;
}

}  // namespace
}  // namespace korvel
