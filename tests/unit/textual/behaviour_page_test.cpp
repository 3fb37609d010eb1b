// Checks that the table of the behaviour page lists every class and every attribute.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>

#include "objects/class_tables.h"

namespace korvel {
namespace {

// The keywords in the table of classes and attributes: the words in backticks.
std::set<std::string> KeywordsOfTable() {
  std::ifstream page(std::string(KORVEL_SOURCE_DIR) + "/docs/behaviour.md");
  std::set<std::string> keywords;
  bool isInTable = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) isInTable = line == "## Classes and attributes";
    if (!isInTable || !line.starts_with("|")) continue;
    std::size_t end = 0;
    for (std::size_t start = line.find("`:"); start != std::string::npos;
         start = line.find("`:", end + 1)) {
      end = line.find('`', start + 1);
      keywords.insert(line.substr(start + 1, end - start - 1));
    }
  }
  return keywords;
}

template <class Record> void ExpectClass(const std::set<std::string>& keywords) {
  const std::string heading = Description<Record>::heading.keyword;
  EXPECT_TRUE(keywords.contains(heading)) << heading;
  ForEachAttribute<Record>([&](const auto& attribute) {
    if (attribute.keyword == nullptr) return;
    EXPECT_TRUE(keywords.contains(attribute.keyword)) << heading << " " << attribute.keyword;
  });
}

TEST(BehaviourPage, the_table_has_every_class_and_attribute) {
  const std::set<std::string> keywords = KeywordsOfTable();
  ExpectClass<Application>(keywords);
  ExpectClass<Scene>(keywords);
  ForEachAttribute<DefaultAttributes>([&](const auto& attribute) {
    EXPECT_TRUE(keywords.contains(attribute.keyword)) << attribute.keyword;
  });
  ForEachClass(ItemClasses{}, [&]<class Record>() { ExpectClass<Record>(keywords); });
  ForEachClass(ComponentClasses{}, [&]<class Record>() { ExpectClass<Record>(keywords); });
}

}  // namespace
}  // namespace korvel
