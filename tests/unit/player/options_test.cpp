// The command line of the host application: the options read, and the mistakes reported.
#include "player/options.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace {

std::optional<int> Read(std::vector<const char*> words, player::Options& options) {
  words.insert(words.begin(), "korvel-player");
  return player::ReadCommandLine(static_cast<int>(words.size()), words.data(), options);
}

TEST(Options, a_folder_alone_is_enough) {
  player::Options options;
  EXPECT_FALSE(Read({"."}, options));
  EXPECT_EQ(options.carousel, ".");
  EXPECT_TRUE(options.script.empty());
  EXPECT_TRUE(options.screenshot.empty());
  EXPECT_EQ(options.waitMs, 1500U);
  EXPECT_EQ(options.limitS, 30U);
  EXPECT_FALSE(options.isVerbose);
}

TEST(Options, all_options_are_read) {
  const std::string script = testing::TempDir() + "options_test.script";
  std::ofstream(script) << "exit\n";
  player::Options options;
  EXPECT_FALSE(Read({"--script", script.c_str(), "--screenshot", "x.png", "--wait", "20", "--limit",
                     "7", "--verbose", "."},
                    options));
  EXPECT_EQ(options.script, script);
  EXPECT_EQ(options.screenshot, "x.png");
  EXPECT_EQ(options.waitMs, 20U);
  EXPECT_EQ(options.limitS, 7U);
  EXPECT_TRUE(options.isVerbose);
}

TEST(Options, every_mistake_prints_one_line_and_returns_2) {
  const std::vector<std::vector<const char*>> mistakes = {
      {},
      {"no such folder"},
      {".", "--wait", "soon"},
      {".", "--wait", "-5"},
      {".", "--limit", "long"},
      {".", "--script", "no such file"},
      {".", "--loud"},
      {".", "second folder"},
  };
  for (const auto& words : mistakes) {
    player::Options options;
    testing::internal::CaptureStderr();
    EXPECT_EQ(Read(words, options), 2);
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_EQ(printed.find('\n'), printed.size() - 1) << printed;
    EXPECT_TRUE(printed.starts_with("korvel-player: ")) << printed;
    EXPECT_TRUE(options.carousel.empty());
  }
}

TEST(Options, version_is_one_line) {
  player::Options options;
  testing::internal::CaptureStdout();
  EXPECT_EQ(Read({"--version"}, options), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "korvel-player " TOOL_VERSION "\n");
}

TEST(Options, help_returns_0) {
  player::Options options;
  testing::internal::CaptureStdout();
  EXPECT_EQ(Read({"--help"}, options), 0);
  EXPECT_NE(testing::internal::GetCapturedStdout().find("--screenshot"), std::string::npos);
}

}  // namespace
