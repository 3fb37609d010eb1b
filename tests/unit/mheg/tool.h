// A test fixture that runs the built tool in a temporary folder.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "unit/mheg/scratch_folder.h"

namespace mheg {

namespace fs = std::filesystem;

// The tool that was built with the tests, unless the environment variable KORVEL_TOOL names
// another.
inline std::string ToolPath() {
  const char* other = std::getenv("KORVEL_TOOL");
  return other != nullptr ? other : KORVEL_TOOL;
}

struct ToolOutcome {
  int status = -1;
  std::string output;  // standard output and standard error

  // The output without the excerpts of source lines.
  [[nodiscard]] std::string Messages() const {
    std::istringstream lines(output);
    std::string messages;
    for (std::string line; std::getline(lines, line);) {
      const bool isExcerpt = line.find_first_not_of(" 0123456789") == 6 && line[6] == '|';
      if (!isExcerpt) messages += line + "\n";
    }
    return messages;
  }
};

class Tool : public testing::Test, protected ScratchFolder {
 protected:
  // Runs a shell command in the temporary folder.
  [[nodiscard]] ToolOutcome OutcomeOf(const std::string& command) const {
    ToolOutcome run;
    FILE* pipe = popen(("exec 2>&1; cd '" + folder_.string() + "' && " + command).c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
      run.output += static_cast<char>(c);
    }
    run.status = WEXITSTATUS(pclose(pipe));
    return run;
  }
  // Runs the tool. `prefix` precedes its command, for example to set an environment variable.
  ToolOutcome Call(const std::string& arguments, const std::string& prefix = "") const {
    return OutcomeOf(prefix + "'" + ToolPath() + "' " + arguments);
  }
  // A prefix for Call under which file permissions matter: the superuser can read everything unless
  // these capabilities are dropped.
  [[nodiscard]] static std::string Restricted() {
    return geteuid() == 0 ? "setpriv --bounding-set=-dac_override,-dac_read_search " : "";
  }
  // Starts the tool in the background with its output in the file "log", and returns its process.
  [[nodiscard]] pid_t Start(const std::string& arguments) const {
    const std::string command = "cd '" + folder_.string() + "' && '" + ToolPath() + "' " +
                                arguments + " >log 2>&1 & echo $!";
    FILE* pipe = popen(command.c_str(), "r");
    pid_t process = 0;
    EXPECT_EQ(std::fscanf(pipe, "%d", &process), 1);
    pclose(pipe);
    return process;
  }
  // Waits until the condition is true, for at most ten seconds.
  template <class Condition> [[nodiscard]] static bool Until(Condition&& isTrue) {
    for (int i = 0; i < 1000 && !isTrue(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return isTrue();
  }
  // The names of the commands and their descriptions, in the order of the help.
  [[nodiscard]] std::vector<std::pair<std::string, std::string>> Commands() const {
    std::istringstream lines(Call("--help").output);
    std::string line;
    while (std::getline(lines, line) && line != "Subcommands:") {
    }
    std::vector<std::pair<std::string, std::string>> commands;
    while (std::getline(lines, line) && !line.empty()) {
      std::istringstream words(line);
      commands.emplace_back();
      std::getline(words >> commands.back().first >> std::ws, commands.back().second);
    }
    EXPECT_FALSE(commands.empty());
    return commands;
  }
  [[nodiscard]] std::string File(const std::string& name) const { return FileText(folder_ / name); }
  [[nodiscard]] bool Exists(const std::string& name) const { return fs::exists(folder_ / name); }
};

constexpr const char* kScene = "{:Scene (\"~/s\" 0)\n  :SceneCS 720 576\n}\n";

}  // namespace mheg
