// Runs the built tool in a temporary folder.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>

namespace mheg {

namespace fs = std::filesystem;

// The tool that was built with the tests, unless KORVEL_TOOL names another.
inline std::string ToolPath() {
  const char* other = std::getenv("KORVEL_TOOL");
  return other != nullptr ? other : KORVEL_TOOL;
}

struct ToolOutcome {
  int status = -1;
  std::string output;  // both streams

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

class Tool : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "mheg-test-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  void TearDown() override { fs::remove_all(folder_); }

  // Runs the tool in the temporary folder. `by` is a command prefix, such as a wrapper program.
  ToolOutcome Call(const std::string& arguments, const std::string& by = "") const {
    const std::string command =
        "exec 2>&1; cd '" + folder_.string() + "' && " + by + "'" + ToolPath() + "' " + arguments;
    ToolOutcome run;
    FILE* pipe = popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
      run.output += static_cast<char>(c);
    }
    run.status = WEXITSTATUS(pclose(pipe));
    return run;
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
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }
  [[nodiscard]] std::string File(const std::string& name) const {
    std::ifstream stream(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  [[nodiscard]] bool Exists(const std::string& name) const { return fs::exists(folder_ / name); }

  fs::path folder_;
};

constexpr const char* kScene = "{:Scene (\"~/s\" 0)\n  :SceneCS 720 576\n}\n";

}  // namespace mheg
