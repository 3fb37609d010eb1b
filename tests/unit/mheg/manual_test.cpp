// The manual page and the completions that `mheg manual` writes.
#include <regex>
#include <set>

#include "unit/mheg/tool.h"

namespace mheg {
namespace {

constexpr const char* kPage = "share/man/man1/mheg.1";
constexpr const char* kCompletions = "share/bash-completion/completions/mheg";

class Manual : public Tool {
 protected:
  void SetUp() override { ASSERT_EQ(Call("manual .").status, 0); }
  // The completions that bash offers for a line whose last word is to be completed.
  [[nodiscard]] std::string Completions(const std::string& line) const {
    Write("complete",
          "source " + std::string(kCompletions) + "\nCOMP_WORDS=(" + line +
              ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_mheg\necho ${COMPREPLY[@]}\n");
    return OutcomeOf("bash complete").output;
  }
  // The manual page as plain text.
  [[nodiscard]] std::string Page() const {
    return OutcomeOf("mandoc -T utf8 " + std::string(kPage) + " | sed 's/.\\x08//g'").output;
  }
};

// All long options in a text.
std::set<std::string> OptionsIn(const std::string& text) {
  static const std::regex kOption("--[a-z-]+");
  return {std::sregex_token_iterator(text.begin(), text.end(), kOption), {}};
}

TEST_F(Manual, the_page_has_every_command_and_option_of_the_help) {
  const std::string page = Page();
  std::size_t begin = page.find("\nCOMMANDS\n");
  EXPECT_EQ(OptionsIn(page.substr(0, begin)), OptionsIn(Call("--help").output));
  const auto commands = Commands();
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const std::string& command = commands[i].first;
    begin = page.find("\n   " + command + "\n", begin);
    ASSERT_NE(begin, std::string::npos) << command << " is missing or in another order\n" << page;
    const std::size_t end = i + 1 < commands.size()
                                ? page.find("\n   " + commands[i + 1].first + "\n", begin)
                                : page.size();
    std::set<std::string> options = OptionsIn(Call(command + " --help").output);
    options.erase("--help");  // described once for all commands
    EXPECT_EQ(OptionsIn(page.substr(begin, end - begin)), options) << command;
  }
  EXPECT_EQ(page.find("mheg manual"), std::string::npos);
}

TEST_F(Manual, the_page_has_usages_values_defaults_and_the_exit_status) {
  const std::string page = Page();
  for (const char* words : {"mheg build SRC --output OUTPUT [--watch] [--jobs N]",
                            "--format dot|svg", "1 if a file is invalid", "Default: 0."}) {
    EXPECT_NE(page.find(words), std::string::npos) << words << "\n" << page;
  }
}

TEST_F(Manual, the_page_has_no_errors_of_mandoc) {
  EXPECT_EQ(OutcomeOf("mandoc -T lint -W error " + std::string(kPage)).output, "");
}

TEST_F(Manual, bash_completes_commands_options_and_words) {
  EXPECT_EQ(Completions("mheg b"), "build\n");
  EXPECT_EQ(Completions("mheg --v"), "--version\n");
  EXPECT_EQ(Completions("mheg build --w"), "--watch\n");
  EXPECT_EQ(Completions("mheg graph . --format s"), "svg\n");
  EXPECT_EQ(Completions("mheg graph . --format ''"), "dot svg\n");
  EXPECT_EQ(Completions("mheg check . --format ''"), "text json sarif\n");
  EXPECT_EQ(Completions("mheg dump --w"), "\n");
  EXPECT_EQ(Completions("mheg build x"), "\n") << "files are completed by bash itself";
}

TEST_F(Manual, a_folder_that_cannot_be_written_is_an_error) {
  const ToolOutcome run = Call("manual /dev/null/x");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "/dev/null/x/share/man/man1/mheg.1: cannot be written\n");
}

}  // namespace
}  // namespace mheg
