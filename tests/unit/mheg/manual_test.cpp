// The manual page and the completions that `mheg manual` writes.
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

constexpr const char* kPage = "share/man/man1/mheg.1";
constexpr const char* kCompletions = "share/bash-completion/completions/mheg";

class Manual : public Tool {
 protected:
  void SetUp() override {
    Tool::SetUp();
    ASSERT_EQ(Call("manual .").status, 0);
  }
  // What bash offers for a line that ends with the word to complete.
  [[nodiscard]] std::string Completions(const std::string& line) const {
    Write("complete",
          "source " + std::string(kCompletions) + "\nCOMP_WORDS=(" + line +
              ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_mheg\necho ${COMPREPLY[@]}\n");
    return Output("bash complete");
  }
  [[nodiscard]] std::string Output(const std::string& command) const {
    std::string output;
    FILE* pipe = popen(("cd '" + folder_.string() + "' && " + command + " 2>&1").c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) output += static_cast<char>(c);
    pclose(pipe);
    return output;
  }
};

TEST_F(Manual, the_page_has_every_command_and_option_of_the_help) {
  const std::string page = Output("mandoc -T utf8 " + std::string(kPage) + " | sed 's/.\\x08//g'");
  for (const char* words : {"mheg build SRC --output OUTPUT [--watch] [--jobs N]", "--keys",
                            "--format dot|svg", "1 if a file is invalid", "Default: 0."}) {
    EXPECT_NE(page.find(words), std::string::npos) << words << "\n" << page;
  }
  const std::string help = Call("--help").output;
  for (const char* command :
       {"compile", "decompile", "dump", "check", "format", "build", "new", "graph", "run"}) {
    EXPECT_NE(help.find(command), std::string::npos) << command;
    EXPECT_NE(page.find(std::string("mheg ") + command + " "), std::string::npos) << command;
  }
  EXPECT_EQ(help.find("manual"), std::string::npos);
  EXPECT_EQ(page.find("mheg manual"), std::string::npos);
}

TEST_F(Manual, the_page_is_valid) {
  EXPECT_EQ(Output("mandoc -T lint -W error " + std::string(kPage)), "");
}

TEST_F(Manual, bash_completes_commands_options_and_words) {
  EXPECT_EQ(Completions("mheg b"), "build\n");
  EXPECT_EQ(Completions("mheg --v"), "--version\n");
  EXPECT_EQ(Completions("mheg build --w"), "--watch\n");
  EXPECT_EQ(Completions("mheg graph . --format s"), "svg\n");
  EXPECT_EQ(Completions("mheg graph . --format ''"), "dot svg\n");
  EXPECT_EQ(Completions("mheg dump --w"), "\n");
  EXPECT_EQ(Completions("mheg build x"), "\n") << "files are completed by bash itself";
}

TEST_F(Manual, a_folder_that_cannot_be_written_is_an_error) {
  EXPECT_EQ(Call("manual /dev/null/x").status, 1);
}

}  // namespace
}  // namespace mheg
