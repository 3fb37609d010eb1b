// The page on behaviour and the check agree on what has no effect.
#include "mheg/check/idle.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "objects/objects.h"
#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

using namespace korvel;

// A row of the table of classes and attributes, by its columns.
struct PageRow {
  std::string classes;
  std::string drawn;
  std::string ignored;
};

std::vector<PageRow> RowsOfPage() {
  const std::string page = FileText(std::filesystem::path(KORVEL_SOURCE_DIR) / "docs/behaviour.md");
  std::istringstream lines(page.substr(page.find("## Classes and attributes")));
  std::vector<PageRow> rows;
  for (std::string line; std::getline(lines, line) && !line.starts_with("## Links");) {
    std::smatch match;
    static const std::regex kRow(R"(\| ([^|]*) \| ([^|]*)\|([^|]*)\|([^|]*)\|)");
    if (std::regex_match(line, match, kRow)) rows.push_back({match[1], match[2], match[4]});
  }
  return rows;
}

std::set<std::string> KeywordsIn(const std::string& text) {
  static const std::regex kKeyword("`(:[A-Za-z]+)`");
  std::set<std::string> keywords;
  for (std::sregex_iterator match(text.begin(), text.end(), kKeyword), end; match != end; ++match) {
    keywords.insert((*match)[1]);
  }
  return keywords;
}

// Calls visit.operator()<Record>() for the records of groups, items and the parts of streams.
template <class Visit> void ForEveryClass(Visit&& visit) {
  ForEachClass(Classes<Application, Scene>{}, visit);
  ForEachClass(ItemClasses{}, visit);
  ForEachClass(ComponentClasses{}, visit);
}

ClassSet ClassesOf(const PageRow& row) {
  if (row.classes == "every group") return kGroups;
  if (row.classes == "every interactible") return kInteractibles;
  ClassSet classes = 0;
  const std::set<std::string> keywords = KeywordsIn(row.classes);
  ForEveryClass([&]<class Record>() {
    const ClassHeading& heading = Description<Record>::heading;
    if (keywords.contains(heading.keyword)) classes |= SetOf(heading.type);
  });
  // Entry fields and hypertexts refer to the row of texts.
  return classes == SetOf(ItemType::Text) ? kTexts : classes;
}

// Attributes that describe the content to receivers and services. So does the :OrigContent of a
// Stream, which names what a receiver with a decoder plays.
const std::set<std::string> kDescriptions = {
    ":StdID",        ":StdVersion",   ":ObjectInfo", ":OrigGCPriority",   ":SceneCS",
    ":NextScenes",   ":CHook",        ":TextCHook",  ":InterchgPrgCHook", ":StreamCHook",
    ":LineArtCHook", ":ComponentTag", ":OrigVolume", ":Termination",      ":Storage",
    ":Looping"};

TEST(Idle, every_ignored_attribute_of_the_page_is_reported_unless_it_only_describes_content) {
  const std::vector<PageRow> rows = RowsOfPage();
  ASSERT_GT(rows.size(), 25U);
  for (const PageRow& row : rows) {
    const ClassSet classes = ClassesOf(row);
    ForEveryClass([&]<class Record>() {
      constexpr ItemType type = Description<Record>::heading.type;
      if (!Contains(classes, type) || Contains(kIdleClasses, type)) return;
      for (const std::string& keyword : KeywordsIn(row.ignored)) {
        const bool describes = kDescriptions.contains(keyword) ||
                               (type == ItemType::Stream && keyword == ":OrigContent");
        EXPECT_NE(IsIdleAttribute(type, keyword), describes)
            << row.classes << " " << Description<Record>::heading.keyword << " " << keyword;
      }
    });
  }
}

TEST(Idle, every_reported_attribute_is_ignored_on_the_page) {
  for (const IdleAttribute& attribute : kIdleAttributes) {
    ClassSet ignoring = 0;
    for (const PageRow& row : RowsOfPage()) {
      if (KeywordsIn(row.ignored).contains(std::string(attribute.keyword))) {
        ignoring |= ClassesOf(row);
      }
    }
    EXPECT_EQ(attribute.classes & ~ignoring, 0U) << attribute.keyword;
  }
}

TEST(Idle, idle_classes_have_no_drawn_attribute_on_the_page) {
  for (const PageRow& row : RowsOfPage()) {
    const ClassSet classes = ClassesOf(row);
    const bool isDrawn = !KeywordsIn(row.drawn).empty();
    EXPECT_FALSE(isDrawn && (classes & kIdleClasses) != 0) << row.classes;
    const bool isNeverDrawn = row.drawn.find("never drawn") != std::string::npos;
    EXPECT_FALSE(isNeverDrawn && (classes & ~kIdleClasses) != 0) << row.classes;
  }
}

TEST(Idle, the_actions_without_effect_are_those_that_are_not_performed) {
  std::set<std::string> idle;
  for (std::uint8_t number = 1; number <= kDecodedActionCount; ++number) {
    if (IsIdleAction(*FindAction(number))) idle.insert(FindAction(number)->name);
  }
  const std::set<std::string> expected = {
      "Clone",          "CloseConnection",   "GetCursorPosition", "GetLabel", "GetSelectionStatus",
      "OpenConnection", "SetCursorPosition", "SetCursorShape",    "SetLabel", "Toggle",
      "Unload"};
  EXPECT_EQ(idle, expected);
}

}  // namespace
}  // namespace mheg
