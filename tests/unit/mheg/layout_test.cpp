// The layout of source text: each rule by itself, and for many source files that the records, the
// words and the comments do not change.
#include "mheg/format/layout.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "mheg/format/tokens.h"
#include "objects/ber/ber.h"
#include "support/sample_groups.h"
#include "textual/textual.h"
#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

namespace fs = std::filesystem;

korvel::OwnedGroup Read(const std::string& text) {
  korvel::OwnedGroup group;
  EXPECT_EQ(korvel::ReadTextGroup(text, group), korvel::TextResult::Done) << text;
  return group;
}

// The group of a source text in BER.
std::string Compiled(const std::string& text) {
  const korvel::OwnedGroup group = Read(text);
  korvel::OctetString bytes;
  EXPECT_TRUE(group && korvel::EncodeGroup(*group, bytes) == korvel::Status::Done);
  return std::string(bytes.View());
}

// The group of a source text as `mheg decompile` writes it.
std::string Decompiled(const std::string& text) {
  const korvel::OwnedGroup group = Read(text);
  korvel::OctetString written;
  EXPECT_TRUE(group && korvel::WriteTextGroup(*group, written) == korvel::Status::Done);
  return std::string(written.View());
}

// The tokens of the text, including comments.
std::vector<std::string> WordsOf(const std::string& text) {
  std::vector<std::string> words;
  for (const Token& token : TokensOf(text)) words.emplace_back(token.text);
  return words;
}

void ExpectGoodLayoutOf(const std::string& text) {
  const std::string laidOut = LayOut(text);
  ASSERT_EQ(Compiled(laidOut), Compiled(text)) << text;
  ASSERT_EQ(WordsOf(laidOut), WordsOf(text));
  ASSERT_EQ(LayOut(laidOut), laidOut) << text;
}

// All source files of the demos and scenarios.
std::vector<std::string> AllSourceFiles() {
  std::vector<std::string> texts;
  for (const char* folder : {"/examples", "/tests/scenarios"}) {
    for (const auto& entry :
         fs::recursive_directory_iterator(KORVEL_SOURCE_DIR + std::string(folder))) {
      if (entry.path().extension() != ".mheg") continue;
      texts.push_back(FileText(entry.path()));
    }
  }
  return texts;
}

// The words of a text with random blanks and comments between them.
std::string Scattered(const std::string& text, std::mt19937& random) {
  const auto oneIn = [&random](unsigned count) { return random() % count == 0; };
  std::string scattered;
  for (const std::string& word : WordsOf(text)) {
    const bool isComment = word.front() == '/';
    const bool mayJoin = !scattered.empty() && (scattered.back() == '(' || scattered.back() == '{');
    if (!mayJoin || !oneIn(2))
      scattered += oneIn(4) ? (oneIn(2) ? "\r\n \t" : "\n\n\n") : (oneIn(9) ? "\t " : " ");
    if (oneIn(20)) scattered += "// a remark, \"{(" + std::string(oneIn(2) ? " \n" : "\r");
    scattered += word;
    if (isComment) scattered += '\n';
  }
  return scattered;
}

TEST(Layout, objects_and_lists_on_several_lines_get_the_layout_of_decompile) {
  const std::string text = R"({:Scene ("~/s" 0) :Items ({:Palette 1} {:Link 2
      :EventSource 0 :EventType IsRunning :LinkEffect (:Run (3)
      :SetPosition(4 :IndirectRef 5 -6))}
      {:TokenGroup 7 :MovementTable
      ( (1 2)(2 1)) :TokenGroupItems((1)
      (2 :ActionSlots (NULL (:Stop(2)
      )()))) }) })";
  EXPECT_EQ(LayOut(text), Decompiled(text));
}

TEST(Layout, an_object_or_a_list_of_actions_on_one_line_stays_on_one_line) {
  const std::string text =
      "{:Scene 0\n  :Items (\n    {:Link 1 :EventSource 0 :EventType IsRunning :LinkEffect "
      "(:Run(2) :Stop(3))}\n  )\n}\n";
  EXPECT_EQ(LayOut(text), text);
  EXPECT_EQ(LayOut("{ :Scene   0 :Items ( {:Palette 1 } ) }"),
            "{:Scene 0 :Items ({:Palette 1})}\n");
}

TEST(Layout, an_object_that_is_too_long_for_one_line_is_divided) {
  const auto withText = [](std::size_t length) {
    return "{:Scene 0 :ObjectInfo \"" + std::string(length, 'x') + "\"}";
  };
  EXPECT_EQ(LayOut(withText(75)), withText(75) + "\n");
  EXPECT_EQ(LayOut(withText(76)), "{:Scene 0\n  :ObjectInfo \"" + std::string(76, 'x') + "\"\n}\n");
}

TEST(Layout, the_width_of_a_line_counts_characters_and_all_closing_brackets) {
  const auto withText = [](std::size_t length) {
    std::string text = "{:Scene 0\n  :Items (\n    {:TokenGroup 1\n      :TokenGroupItems (\n"
                       "        (1 :ActionSlots ((:SetData(2 \"";
    for (std::size_t i = 0; i < length; ++i) text += "é";
    return text + "\"))))\n      )\n    }\n  )\n}\n";
  };
  EXPECT_EQ(LayOut(withText(57)), withText(57));
  EXPECT_NE(LayOut(withText(58)), withText(58));
}

TEST(Layout, a_list_of_values_keeps_its_line_breaks) {
  const std::string text = R"({:Scene 0
  :Items (
    {:TokenGroup 1
      :MovementTable (
        (1 2 3)
        (3 2 1)
      )
      :TokenGroupItems ((2) (3)
        (4))
    }
    {:Link 2 :EventSource 0 :EventType IsRunning :LinkEffect (
      :DrawPolygon(5 ((0 0) (1 1)
  (2 2)))
    )}
  )
}
)";
  EXPECT_EQ(LayOut(text), R"({:Scene 0
  :Items (
    {:TokenGroup 1
      :MovementTable (
        (1 2 3)
        (3 2 1)
      )
      :TokenGroupItems (
        (2)
        (3)
        (4)
      )
    }
    {:Link 2
      :EventSource 0
      :EventType IsRunning
      :LinkEffect (
        :DrawPolygon(5 ((0 0) (1 1)
          (2 2)))
      )
    }
  )
}
)");
}

TEST(Layout, comments_stay_above_an_entry_or_at_the_end_of_a_line) {
  EXPECT_EQ(LayOut(R"(// The file.
// Its second line.

{:Scene 0 // the scene

  // Above the first attribute.
 :ObjectInfo // between
   // a word
   "and its value"
 :Items( // the items
 // Nothing else.
  {:Palette 1}//at the end
// Last.
) // after
    // Before the end.
} // after the end
// The last line.   )"),
            R"(// The file.
// Its second line.

{:Scene 0  // the scene

  // Above the first attribute.
  :ObjectInfo  // between
  // a word
    "and its value"
  :Items (  // the items
    // Nothing else.
    {:Palette 1}  //at the end
    // Last.
  )  // after
  // Before the end.
}  // after the end
// The last line.
)");
}

TEST(Layout, an_object_or_list_with_a_comment_is_divided) {
  EXPECT_EQ(LayOut("{:Scene 0 :ObjectInfo \"x\" // why\n}"),
            "{:Scene 0\n  :ObjectInfo \"x\"  // why\n}\n");
  EXPECT_EQ(LayOut("{:Scene 0 :OnStartUp (// nothing\n)}"),
            "{:Scene 0\n  :OnStartUp (  // nothing\n  )\n}\n");
}

TEST(Layout, consecutive_empty_lines_become_one_and_beside_brackets_none) {
  EXPECT_EQ(
      LayOut("\n\n{:Scene 0\n\n\n\n :ObjectInfo \"x\"\n\n :Items (\n\n{:Palette 1}\n\n\n)\n\n}"
             "\n\n"),
      "{:Scene 0\n\n  :ObjectInfo \"x\"\n\n  :Items (\n    {:Palette 1}\n  )\n}\n");
}

TEST(Layout, strings_and_the_case_of_words_are_not_changed) {
  EXPECT_EQ(LayOut("{:scene 0 :OBJECTINFO \"a  \\\" //\n\t'\" :ITEMS ({:Palette 1 "
                   ":INITIALLYACTIVE false})}"),
            "{:scene 0\n  :OBJECTINFO \"a  \\\" //\n\t'\"\n  :ITEMS ({:Palette 1 "
            ":INITIALLYACTIVE false})\n}\n");
  EXPECT_EQ(LayOut("{:Scene 0 :ObjectInfo  '=41 {\"' }"), "{:Scene 0 :ObjectInfo '=41 {\"'}\n");
}

TEST(Layout, line_ends_become_line_feeds) {
  EXPECT_EQ(LayOut("{:Scene 0\r\n:ObjectInfo \"x\"\r\n\r\n// one\r// two\f}"),
            "{:Scene 0\n  :ObjectInfo \"x\"\n\n  // one\n  // two\n}\n");
}

TEST(Layout, numbers_without_a_space_between_them_are_separated) {
  EXPECT_EQ(LayOut("{:Scene 0:SceneCS 720-5}"), "{:Scene 0 :SceneCS 720 -5}\n");
}

TEST(Layout, decompiled_groups_are_not_changed) {
  for (std::uint32_t seed = 0; seed < korvel::test::kEnoughRandomGroups; ++seed) {
    korvel::OctetString text;
    const korvel::OwnedGroup group = korvel::test::MakeRandomGroup(seed);
    ASSERT_EQ(korvel::WriteTextGroup(*group, text), korvel::Status::Done);
    if (text.Length() > korvel::kMaxTextSize) continue;
    ASSERT_EQ(LayOut(std::string(text.View())), std::string(text.View())) << seed;
  }
}

TEST(Layout, keeps_records_words_and_comments_and_is_stable) {
  const std::vector<std::string> texts = AllSourceFiles();
  EXPECT_GT(texts.size(), 100U);
  for (const std::string& text : texts) ExpectGoodLayoutOf(text);
}

TEST(Layout, keeps_records_words_and_comments_for_any_blanks_and_comments_between_words) {
  std::mt19937 random(1);
  for (const std::string& text : AllSourceFiles()) ExpectGoodLayoutOf(Scattered(text, random));
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    korvel::OctetString text;
    const korvel::OwnedGroup group = korvel::test::MakeRandomGroup(seed);
    ASSERT_EQ(korvel::WriteTextGroup(*group, text), korvel::Status::Done);
    const std::string scattered = Scattered(std::string(text.View()), random);
    if (scattered.size() < korvel::kMaxTextSize) ExpectGoodLayoutOf(scattered);
  }
}

}  // namespace
}  // namespace mheg
