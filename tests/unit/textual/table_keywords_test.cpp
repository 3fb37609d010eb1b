// Checks that every word in the tables of classes and actions is a keyword of the lexer, and that
// the grammar for editors has the same words.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "objects/action_table.h"
#include "objects/class_tables.h"
#include "textual/keywords.h"

namespace korvel {
namespace {

class UsedWords {
 public:
  // Checks that the word is a keyword. Returns whether it was added for the first time.
  bool Add(const char* word) {
    std::string upper(word);
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    const std::uint16_t code = FindKeyword(upper);
    EXPECT_NE(code, 0) << word;
    return codes_.insert(code).second;
  }
  [[nodiscard]] const std::set<int>& Codes() const { return codes_; }

 private:
  std::set<int> codes_;
};

void AddForm(UsedWords& words, const char* keyword, const Form& form) {
  words.Add(keyword);
  if (form.innerKeyword == nullptr) return;
  EXPECT_TRUE(std::ranges::count(kValueKeywords, std::string_view(form.innerKeyword)))
      << form.innerKeyword;
}
template <class Field> void AddEnumerationWords(UsedWords& /*words*/, const Field& /*field*/) {}
template <IsEnumeration Enumeration>
void AddEnumerationWords(UsedWords& words, const Enumeration& /*field*/) {
  for (const char* word : kWords<Enumeration>) words.Add(word);
}

template <class Record> void AddClassWords(UsedWords& words) {
  words.Add(Description<Record>::heading.keyword);
  Record record{};
  ForEachWrittenAttribute<Record>(
      [&](const char* keyword, const Form& form, auto& field) {
        ASSERT_NE(keyword, nullptr);
        AddForm(words, keyword, form);
        AddEnumerationWords(words, field);
      },
      record);
}

TEST(TableKeywords, every_word_of_the_tables_is_a_keyword) {
  UsedWords words;
  AddClassWords<Application>(words);
  AddClassWords<Scene>(words);
  ForEachClass(ItemClasses{}, [&]<class Record>() { AddClassWords<Record>(words); });
  ForEachClass(ComponentClasses{}, [&]<class Record>() { AddClassWords<Record>(words); });
  for (int number = 1; number <= kDecodedActionCount; ++number) {
    const ActionRow* row = FindAction(static_cast<std::uint8_t>(number));
    words.Add((":" + std::string(row->name)).c_str());
  }
  for (const char* word : kValueKeywords) {
    EXPECT_TRUE(words.Add(word)) << word << " has another meaning too";
  }
  for (const char* word : {"NULL", "TRUE", "FALSE"}) words.Add(word);
  EXPECT_EQ(words.Codes().size(), kKeywordCount) << "every keyword is used";
}

// The words of the tables as the grammar for editors groups them, without colons.
struct GrammarWords {
  using Words = std::set<std::string>;
  Words classes, attributes, valueKeywords, actions, events, others;

  template <class Record> void AddClass() {
    classes.insert(Description<Record>::heading.keyword + 1);
    Record record{};
    ForEachWrittenAttribute<Record>(
        [this](const char* keyword, const Form& /*form*/, const auto& field) {
          attributes.insert(keyword + 1);
          if constexpr (IsEnumeration<std::remove_cvref_t<decltype(field)>>) {
            for (const char* word : kWords<std::remove_cvref_t<decltype(field)>>) {
              others.insert(word);
            }
          }
        },
        record);
  }
};

// In the grammar the words of a group are alternatives of one regular expression.
std::string Alternatives(const GrammarWords::Words& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? ":" : "|") + word;
  return text.substr(1);
}

TEST(TableKeywords, the_grammar_for_editors_has_exactly_the_words_of_the_tables) {
  GrammarWords words;
  words.AddClass<Application>();
  words.AddClass<Scene>();
  ForEachClass(ItemClasses{}, [&]<class Record>() { words.AddClass<Record>(); });
  ForEachClass(ComponentClasses{}, [&]<class Record>() { words.AddClass<Record>(); });
  for (int number = 1; number <= kDecodedActionCount; ++number) {
    words.actions.insert(FindAction(static_cast<std::uint8_t>(number))->name);
  }
  for (const char* keyword : kValueKeywords) words.valueKeywords.insert(keyword + 1);
  for (const char* event : kWords<EventType>) {
    words.events.insert(event);
    words.others.erase(event);
  }
  std::ifstream stream(KORVEL_SOURCE_DIR "/editors/mheg.tmLanguage.json");
  const std::string grammar(std::istreambuf_iterator<char>(stream), {});
  const GrammarWords::Words constants{"FALSE", "NULL", "TRUE"};
  for (const auto& group : {words.classes, words.attributes, words.valueKeywords, words.actions,
                            words.events, words.others, constants}) {
    EXPECT_NE(grammar.find(":" + Alternatives(group) + ")"), std::string::npos)
        << Alternatives(group);
  }
}

TEST(TableKeywords, action_keywords_are_in_numerical_order_except_stop_and_step) {
  for (int code = 176; code <= 285; ++code) {
    const ActionRow* row = FindActionByName(KeywordText(static_cast<std::uint16_t>(code)) + 1);
    ASSERT_NE(row, nullptr) << KeywordText(static_cast<std::uint16_t>(code));
    const int expected = code == 276 ? 102 : code == 277 ? 101 : code - 175;
    EXPECT_EQ(static_cast<int>(row->action), expected);
  }
}

TEST(TableKeywords, event_keywords_are_in_the_order_of_the_event_types) {
  for (std::uint16_t code = 40; code <= 70; ++code) {
    EXPECT_TRUE(IsSameWord(KeywordText(code), kWords<EventType>[code - 40U])) << code;
  }
}

}  // namespace
}  // namespace korvel
