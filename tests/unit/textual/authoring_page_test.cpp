// Checks the authoring page: its examples are complete groups that compile, and they use every
// class, every attribute keyword and every action.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

#include "objects/ber/ber.h"
#include "objects/objects.h"
#include "textual/keywords.h"
#include "textual/textual.h"

namespace korvel {
namespace {

std::vector<std::string> Examples() {
  std::ifstream page(std::string(KORVEL_SOURCE_DIR) + "/docs/authoring.md");
  std::vector<std::string> examples;
  bool isInside = false;
  for (std::string line; std::getline(page, line);) {
    if (!isInside && line == "```mheg") {
      isInside = true;
      examples.emplace_back();
    } else if (line == "```") {
      isInside = false;
    } else if (isInside) {
      examples.back() += line + "\n";
    }
  }
  return examples;
}

TEST(AuthoringPage, every_example_is_a_complete_group_and_compiles) {
  const std::vector<std::string> examples = Examples();
  EXPECT_GE(examples.size(), 8U);
  for (const std::string& example : examples) {
    OwnedGroup group;
    TextReport report;
    EXPECT_EQ(ReadTextGroup(example, group, report), TextResult::Done) << example;
    for (const TextError& error : report.errors) {
      ADD_FAILURE() << "expected " << error.expected << " at " << example.substr(error.offset, 40);
    }
    for (const MissingPart& part : report.missing) {
      ADD_FAILURE() << part.owner << " lacks " << part.name << part.parameter;
    }
    OctetString bytes;
    EXPECT_EQ(EncodeGroup(*group, bytes), Status::Done) << example;
  }
}

TEST(AuthoringPage, the_examples_use_every_keyword_with_a_colon) {
  std::string all;
  for (const std::string& example : Examples()) all += example;
  for (char& c : all) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  for (std::uint16_t code = 1; code <= kKeywordCount; ++code) {
    const std::string word = KeywordText(code);
    if (word[0] != ':') continue;
    bool isShown = false;
    for (const char* end : {" ", "(", "\n"}) {
      isShown = isShown || all.find(word + end) != std::string::npos;
    }
    EXPECT_TRUE(isShown) << word;
  }
}

// The number of occurrences of a word that are not followed by a letter.
int CountOf(const std::string& text, const std::string& word) {
  int count = 0;
  for (std::size_t i = text.find(word); i != std::string::npos; i = text.find(word, i + 1)) {
    count += std::isalpha(static_cast<unsigned char>(text[i + word.size()])) == 0 ? 1 : 0;
  }
  return count;
}

TEST(AuthoringPage, the_list_of_actions_is_complete) {
  const std::vector<std::string> examples = Examples();
  const std::string& actions = examples.back();
  for (int number = 1; number <= kDecodedActionCount; ++number) {
    const std::string name = FindAction(static_cast<std::uint8_t>(number))->name;
    EXPECT_GE(CountOf(actions, ":" + name), 1) << name;
  }
}

TEST(AuthoringPage, the_examples_have_an_object_of_every_class) {
  std::string all;
  for (const std::string& example : Examples()) all += example;
  const auto look = [&all]<class Record>() {
    const char* keyword = Description<Record>::heading.keyword;
    EXPECT_GE(CountOf(all, std::string("{") + keyword), 1) << keyword;
  };
  ForEachClass(ItemClasses{}, look);
  ForEachClass(ComponentClasses{}, look);
  ForEachClass(Classes<Application, Scene>{}, look);
}

}  // namespace
}  // namespace korvel
