// Checks each line of tests/malformed/interchange.txt: the bytes, and the result of decoding them.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "substitutes/memory.h"
#include "support/ber_bytes.h"

namespace korvel::test {
namespace {

struct Line {
  std::string expected;  // "done" or "refused@<offset>"
  Bytes bytes;
  std::string meaning;
};

Line ParseLine(const std::string& text) {
  Line line;
  const std::size_t bar = text.find('|');
  line.meaning = text.substr(bar + 1);
  std::istringstream words(text.substr(0, bar));
  words >> line.expected;
  for (std::string word; words >> word;) {
    if (word != "-") line.bytes += static_cast<char>(std::stoi(word, nullptr, 16));
  }
  return line;
}

TEST(MalformedFiles, each_has_the_stated_result_and_leaks_nothing) {
  std::ifstream file(std::string(KORVEL_TESTS_FOLDER) + "/malformed/interchange.txt");
  ASSERT_TRUE(file);
  int count = 0;
  for (std::string text; std::getline(file, text);) {
    if (text.empty() || text[0] == '#') continue;
    ASSERT_NE(text.find('|'), std::string::npos) << text;
    const Line line = ParseLine(text);
    const std::size_t before = LiveBlocks();
    {
      const Decoded decoded = Decode(line.bytes);
      const std::string result =
          decoded.IsDone() ? "done" : "refused@" + std::to_string(decoded.error.offset);
      EXPECT_EQ(result, line.expected) << line.meaning;
    }
    EXPECT_EQ(LiveBlocks(), before) << line.meaning;
    ++count;
  }
  EXPECT_GT(count, 50);
}

}  // namespace
}  // namespace korvel::test
