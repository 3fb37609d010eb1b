// The layout of groups as text, and values that cannot be written.
#include <gtest/gtest.h>

#include <string>

#include "objects/objects.h"
#include "substitutes/memory.h"
#include "textual/textual.h"

namespace korvel {
namespace {

OwnedGroup Read(const std::string& text) {
  OwnedGroup group;
  EXPECT_EQ(ReadTextGroup(text, group), TextResult::Done) << text;
  return group;
}
std::string Written(const std::string& text) {
  OctetString written;
  const OwnedGroup group = Read(text);
  EXPECT_EQ(WriteTextGroup(*group, written), Status::Done);
  return std::string(written.View());
}
// The text between ":OrigValue " and the end of its line.
std::string WrittenString(const std::string& bytes) {
  auto scene = NewRecord<Scene>();
  Item item = Item::New(ItemType::OctetStringVariable);
  EXPECT_TRUE(item.As<OctetStringVariable>().OriginalValue.Assign(bytes));
  EXPECT_NE(scene->Items.Append(std::move(item)), nullptr);
  OctetString written;
  EXPECT_EQ(WriteTextGroup(*scene, written), Status::Done);
  const std::string text(written.View());
  const std::string before = ":OrigValue ";
  const std::size_t start = text.find(before) + before.size();
  return text.substr(start, text.find("\n    }", start) - start);
}

TEST(TextWriter, each_attribute_has_a_line_and_each_level_two_spaces) {
  EXPECT_EQ(Written(R"({:scene ("~/s" 0) :scenecs 720 576 :items ({:palette 1} {:link 2
      :eventsource 0 :eventtype isrunning :linkeffect (:run(3) :setposition(4 :indirectref 5 -6))}
      {:tokengroup 7 :tokengroupitems ((1) (2 :actionslots (null (:stop(2)) ()))) :movementtable
      ((1 2) (2 1))})})"),
            R"({:Scene ("~/s" 0)
  :Items (
    {:Palette 1}
    {:Link 2
      :EventSource 0
      :EventType IsRunning
      :LinkEffect (
        :Run(3)
        :SetPosition(4 :IndirectRef 5 -6)
      )
    }
    {:TokenGroup 7
      :MovementTable ((1 2) (2 1))
      :TokenGroupItems (
        (1)
        (2 :ActionSlots (
          NULL
          (
            :Stop(2)
          )
          ()
        ))
      )
    }
  )
  :SceneCS 720 576
}
)");
}

TEST(TextWriter, default_values_are_omitted_except_for_required_attributes) {
  EXPECT_EQ(Written("{:Application 0 :StdVersion 1 :TextCHook -1 :BackgroundColour -1 :Items "
                    "({:IntegerVar 1 :InitiallyActive TRUE :OrigValue 0})}"),
            "{:Application 0\n  :Items (\n    {:IntegerVar 1\n      :OrigValue 0\n    }\n  )\n}\n");
}

TEST(TextWriter, referenced_content_is_written_in_parentheses) {
  EXPECT_NE(Written("{:Scene 0 :Items ({:Bitmap 1 :OrigBoxSize 1 1 :OrigContent :ContentRef "
                    "\"~/p\" :CCPriority 5})}")
                .find(":OrigContent :ContentRef (\"~/p\" :CCPriority 5)\n"),
            std::string::npos);
}

TEST(TextWriter, text_is_written_in_double_quotes_and_other_bytes_in_single_quotes) {
  EXPECT_EQ(WrittenString(""), "\"\"");
  EXPECT_EQ(WrittenString("a 'b' =41"), "\"a 'b' =41\"");
  EXPECT_EQ(WrittenString("a\"b\\c"), "\"a\\\"b\\\\c\"");
  EXPECT_EQ(WrittenString("caf\xC3\xA9 \xE2\x82\xAC"), "\"caf\xC3\xA9 \xE2\x82\xAC\"");
  EXPECT_EQ(WrittenString("one\ntwo"), "'one=0Atwo'");
  EXPECT_EQ(WrittenString(std::string("a\0'=\x7F", 5)), "'a=00=27=3D=7F'");
  EXPECT_EQ(WrittenString("\xE9t\xE9"), "'=E9t=E9'") << "not UTF-8";
  EXPECT_EQ(WrittenString("cut \xE2\x82"), "'cut =E2=82'");
}

TEST(TextWriter, only_utf_8_characters_are_written_in_double_quotes) {
  for (int first = 0; first < 256; ++first) {
    // The bytes that must follow the first one, or -1 if no character begins with it.
    const int following = first >= 0x20 && first <= 0x7E   ? 0
                          : first >= 0xC2 && first <= 0xDF ? 1
                          : first >= 0xE0 && first <= 0xEF ? 2
                          : first >= 0xF0 && first <= 0xF4 ? 3
                                                           : -1;
    for (int count = 0; count < 5; ++count) {
      const auto bytes =
          static_cast<char>(first) + std::string(static_cast<std::size_t>(count), '\xA0');
      const char quote = count == following ? '"' : '\'';
      EXPECT_EQ(WrittenString(bytes).front(), quote) << first << " and " << count;
    }
  }
  EXPECT_EQ(WrittenString("\xC3\x7F").front(), '\'');
  EXPECT_EQ(WrittenString("\xC3\xC0").front(), '\'');
}

TEST(TextWriter, colours_are_written_as_hexadecimal_bytes) {
  EXPECT_NE(Written("{:Application 0 :TextColour \"abcd\"}").find(":TextColour '=61=62=63=64'"),
            std::string::npos);
}

TEST(TextWriter, an_unknown_enumeration_value_is_refused_and_located) {
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Palette 1} {:Text 5 :OrigBoxSize 1 1})}");
  group->Items.At(1)->As<Text>().StartCorner = StartCorner{9};
  OctetString written;
  ASSERT_TRUE(written.Assign("before"));
  WordlessValue wordless;
  EXPECT_EQ(WriteTextGroup(*group, written, &wordless), Status::Refused);
  EXPECT_EQ(written.View(), "before");
  EXPECT_EQ(wordless.object, 5);
  EXPECT_STREQ(wordless.keyword, ":StartCorner");
  EXPECT_EQ(wordless.number, 9);
}

TEST(TextWriter, an_unknown_event_type_is_refused) {
  const OwnedGroup group =
      Read("{:Scene 0 :Items ({:Link 8 :EventSource 0 :EventType IsRunning :LinkEffect ()})}");
  group->Items.At(0)->As<Link>().Condition.EventType = EventType{32};
  OctetString written;
  WordlessValue wordless;
  EXPECT_EQ(WriteTextGroup(*group, written, &wordless), Status::Refused);
  EXPECT_EQ(wordless.object, 8);
  EXPECT_EQ(wordless.number, 32);
}

TEST(TextWriter, an_action_without_a_keyword_is_refused_by_its_number) {
  for (const std::uint8_t number : std::initializer_list<std::uint8_t>{0, 111, 200}) {
    const OwnedGroup group = Read(
        "{:Scene 0 :Items ({:Link 8 :EventSource 0 :EventType IsRunning :LinkEffect (:Run(1))})}");
    group->Items.At(0)->As<Link>().LinkEffect.At(0)->ActionType = number;
    OctetString written;
    WordlessValue wordless;
    EXPECT_EQ(WriteTextGroup(*group, written, &wordless), Status::Refused);
    EXPECT_EQ(WriteTextGroup(*group, written), Status::Refused);
    EXPECT_EQ(wordless.object, 8);
    EXPECT_EQ(wordless.number, number);
  }
}

TEST(TextWriter, without_memory_nothing_is_written) {
  const OwnedGroup group = Read("{:Scene 0 :Items ({:Text 1 :OrigBoxSize 2 3})}");
  OctetString written;
  const std::size_t failures =
      test::FailEachInTurn([&] { return WriteTextGroup(*group, written); },
                           [&written](Status status, bool hasFailed) {
                             EXPECT_EQ(status, hasFailed ? Status::Refused : Status::Done);
                             EXPECT_EQ(written.IsEmpty(), hasFailed);
                           });
  EXPECT_GT(failures, 0U);
}

TEST(TextWriter, an_unknown_event_type_of_an_action_is_written_as_a_number) {
  const std::string text =
      Written("{:Application 0 :OnStartUp (:SendEvent(0 0 6 :GInteger 1) :SendEvent(0 0 32))}");
  EXPECT_NE(text.find(":SendEvent(0 0 UserInput :GInteger 1)"), std::string::npos);
  EXPECT_NE(text.find(":SendEvent(0 0 32)"), std::string::npos);
}

}  // namespace
}  // namespace korvel
