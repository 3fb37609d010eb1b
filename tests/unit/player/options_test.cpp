// The command line of the host application: the options read, and the mistakes reported.
#include "player/options.h"

#include <gtest/gtest.h>

#include <fstream>
#include <vector>

namespace {

std::optional<int> Read(const std::vector<std::string>& arguments, player::Options& options) {
  return player::ReadCommandLine(arguments, options);
}

TEST(Options, have_their_defaults_if_only_the_folder_is_given) {
  player::Options options;
  EXPECT_FALSE(Read({"."}, options));
  EXPECT_EQ(options.carousel, ".");
  EXPECT_TRUE(options.script.empty());
  EXPECT_TRUE(options.screenshot.empty());
  EXPECT_EQ(options.waitMs, 1500U);
  EXPECT_EQ(options.limitS, 30U);
  EXPECT_TRUE(options.record.empty());
  EXPECT_TRUE(options.series.empty());
  EXPECT_EQ(options.latencyMs, 0U);
  EXPECT_EQ(options.notYet, 0U);
  EXPECT_TRUE(options.missing.empty());
  EXPECT_FALSE(options.isWatching);
  EXPECT_FALSE(options.isVerbose);
  EXPECT_TRUE(options.IsInteractive());
}

TEST(Options, are_all_read_from_the_command_line) {
  const std::string script = testing::TempDir() + "options_test.script";
  std::ofstream(script) << "exit\n";
  player::Options options;
  EXPECT_FALSE(Read({"--script",  script,      "--screenshot",
                     "x.png",     "--wait",    "20",
                     "--limit",   "7",         "--verbose",
                     "--record",  "r",         "--series",
                     "s",         "--latency", "5",
                     "--not-yet", "2",         "--missing",
                     "a",         "--missing", "b",
                     "--watch",   "."},
                    options));
  EXPECT_EQ(options.script, script);
  EXPECT_EQ(options.screenshot, "x.png");
  EXPECT_EQ(options.waitMs, 20U);
  EXPECT_EQ(options.limitS, 7U);
  EXPECT_TRUE(options.isVerbose);
  EXPECT_EQ(options.record, "r");
  EXPECT_EQ(options.series, "s");
  EXPECT_EQ(options.latencyMs, 5U);
  EXPECT_EQ(options.notYet, 2U);
  EXPECT_EQ(options.missing, (std::vector<std::string>{"a", "b"}));
  EXPECT_TRUE(options.isWatching);
  EXPECT_FALSE(options.IsInteractive());
}

TEST(Options, every_mistake_prints_one_line_and_returns_2) {
  const std::vector<std::vector<std::string>> mistakes = {
      {},
      {"no such folder"},
      {".", "--wait", "soon"},
      {".", "--wait", "-5"},
      {".", "--latency", "-1"},
      {".", "--missing"},
      {".", "--limit", "long"},
      {".", "--script", "no such file"},
      {".", "--loud"},
      {".", "second folder"},
  };
  for (const auto& arguments : mistakes) {
    player::Options options;
    testing::internal::CaptureStderr();
    EXPECT_EQ(Read(arguments, options), 2);
    const std::string printed = testing::internal::GetCapturedStderr();
    EXPECT_EQ(printed.find('\n'), printed.size() - 1) << printed;
    EXPECT_TRUE(printed.starts_with("korvel-player: ")) << printed;
    EXPECT_TRUE(options.carousel.empty());
  }
}

// The output for an argument that ends the program successfully.
std::string Printed(const char* argument) {
  player::Options options;
  testing::internal::CaptureStdout();
  EXPECT_EQ(Read({argument}, options), 0);
  return testing::internal::GetCapturedStdout();
}

TEST(Options, help_explains_the_options_and_the_keys) {
  const std::string help = Printed("--help");
  EXPECT_NE(help.find("--screenshot"), std::string::npos);
  EXPECT_NE(help.find("F5 loads the folder again"), std::string::npos);
  EXPECT_NE(help.find("0 to 9, Red, Green"), std::string::npos);
}

TEST(Options, version_is_one_line) {
  EXPECT_EQ(Printed("--version"), "korvel-player " TOOL_VERSION "\n");
}

}  // namespace
