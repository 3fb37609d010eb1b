// The fixed messages: each has its own text and is printed somewhere, and the portable code prints
// nothing else to standard output.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>

#include "objects/messages.h"

namespace korvel::test {
namespace {

namespace fs = std::filesystem;

const fs::path kSources = fs::path(KORVEL_SOURCE_DIR) / "src";

const std::set<std::string> kFixedTexts = {
    "Can't allocate memory for new event\n",
    "Launch error\n",
    "RunActions error ActionIndex %d\n",
    "Parser failed\n",
    "startup error\n",
    "Spawn error\n",
    "Parse error\n",
    "TransitionTo error\n",
    "Can't allocate memory for DisplayStack\n",
    "Can't allocate memory for DisplayStack item\n",
    "GetItemType Error\n",
    "Month error\n",
    "Can't allocate memory for Persistent\n",
    "Can't allocate memory for Persistent FileName\n",
    "Can't allocate memory for %s%s%s GroupIdentifier\n",
    "Can't allocate memory for GroupId in Parameter\n",
    "Unknown ItemType\n",
    "Error string : %s\n",
    "Can't allocate memory for CharVal\n",
    "Can't allocate memory for ObjectRefVal\n",
    "Can't allocate memory for NewVariableValue\n",
    "Can't allocate memory for TextData\n",
    "%d\n",
    "Can't allocate memory for TextContentVar\n",
    "Can't allocate memory for LastAnchorFiredVar\n",
    "Can't allocate memory for NewStr\n",
    "MovementIdentifier Error\n",
    "Element Error\n",
    "TokenGroupItem Error\n",
    "TokenGroup Activation Error\n",
    "Can't allocate memory for Points\n",
    "MHEG_DYNAMICLINEART_SetLineColour Error\n",
    "MHEG_DYNAMICLINEART_SetFillColour Error\n",
    "Event nesting too deep\n",
    "Too many actions\n",
};

std::string Contents(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::set<std::string> Matches(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::set<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match)
    found.insert((*match)[1]);
  return found;
}

// The portable code, without the table of messages. The dump is excluded because it prints to a
// given stream.
std::string PortableCode() {
  std::string code;
  for (const char* folder : {"objects", "textual", "appearance", "engine", "actions"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kSources / folder)) {
      if (entry.is_regular_file() && entry.path().stem() != "messages" &&
          entry.path().stem() != "observer")
        code += Contents(entry.path());
    }
  }
  return code;
}

TEST(Messages, each_fixed_text_belongs_to_one_message) {
  std::set<std::string> texts;
  for (std::uint8_t number = 0; number <= static_cast<std::uint8_t>(Message::NoMemoryForGroup);
       ++number) {
    const std::string text = TextOf(static_cast<Message>(number));
    EXPECT_TRUE(texts.insert(text).second) << "twice: " << text;
  }
  EXPECT_EQ(texts, kFixedTexts);
}

TEST(Messages, each_message_is_printed_by_some_code) {
  const std::string header = Contents(kSources / "objects" / "messages.h");
  const std::set<std::string> listed = Matches(header, R"(\n  (\w+),)");
  EXPECT_EQ(listed.size(), kFixedTexts.size());
  EXPECT_EQ(Matches(PortableCode(), R"(\bMessage::(\w+))"), listed);
}

TEST(Messages, nothing_else_prints_to_standard_output) {
  const std::set<std::string> prints =
      Matches(PortableCode(), R"(\b(stdout|std::(?:v?printf|puts|putchar|cout))\b)");
  EXPECT_EQ(prints, std::set<std::string>{});
}

TEST(Messages, say_inserts_its_values_into_the_text) {
  testing::internal::CaptureStdout();
  Say(Message::UnknownAction, 250);
  Say(Message::TextLength, 12);
  Say(Message::UnknownWord, "WORD");
  Say(Message::NoMemoryForGroup, "Link", " ", "EventSource");
  Say(Message::NoMemoryForGroup, "Bitmap", "", "");
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "RunActions error ActionIndex 250\n"
            "12\n"
            "Error string : WORD\n"
            "Can't allocate memory for Link EventSource GroupIdentifier\n"
            "Can't allocate memory for Bitmap GroupIdentifier\n");
}

}  // namespace
}  // namespace korvel::test
