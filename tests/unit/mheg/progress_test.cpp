// Tests on a terminal: the colours of messages, and the progress line of long runs. Also tests
// files processed in parallel. A pipe as an input blocks the tool until the test has written to it.
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>
#include <vector>

#include "unit/mheg/tool.h"

namespace mheg {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kLimit{20000};
constexpr const char* kShown = "\r1 of 2 files";
constexpr const char* kCleared = "\r            \r";

// A run of the tool on a new terminal.
class OnTerminal {
 public:
  OnTerminal(const fs::path& folder, std::vector<const char*> arguments) {
    const std::string tool = ToolPath();
    arguments.insert(arguments.begin(), tool.c_str());
    arguments.push_back(nullptr);
    process_ = forkpty(&terminal_, nullptr, nullptr, nullptr);
    if (process_ != 0) return;
    if (chdir(folder.c_str()) == 0) {
      execv(tool.c_str(), const_cast<char* const*>(arguments.data()));
    }
    _exit(127);
  }
  ~OnTerminal() {
    close(terminal_);
    if (hasEnded_ || process_ <= 0) return;  // kill(-1) would end every process
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  OnTerminal(const OnTerminal&) = delete;
  OnTerminal& operator=(const OnTerminal&) = delete;

  // Waits for the text on the terminal. Returns false if the time limit or the end of the tool
  // comes first.
  bool Shows(const std::string& text) {
    while (shown_.find(text) == std::string::npos) {
      if (!ReadMore()) return false;
    }
    return true;
  }
  // Waits for the tool to end. Returns its exit status, or -1 at the time limit.
  int Status() {
    while (ReadMore()) {
    }
    int status = -1;
    if (steady_clock::now() > end_) return -1;
    hasEnded_ = waitpid(process_, &status, 0) == process_;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  [[nodiscard]] const std::string& Shown() const { return shown_; }

 private:
  bool ReadMore() {
    pollfd waiting{terminal_, POLLIN, 0};
    const auto left = std::chrono::duration_cast<milliseconds>(end_ - steady_clock::now());
    if (left.count() <= 0 || poll(&waiting, 1, static_cast<int>(left.count())) != 1) return false;
    char bytes[256];
    const ssize_t count = read(terminal_, bytes, sizeof bytes);
    if (count <= 0) return false;
    shown_.append(bytes, static_cast<std::size_t>(count));
    return true;
  }

  steady_clock::time_point end_ = steady_clock::now() + kLimit;  // the time limit
  bool hasEnded_ = false;
  int terminal_ = -1;
  pid_t process_ = -1;
  std::string shown_;
};

class LongRun : public Tool {
 protected:
  void MakePipe(const char* name) { ASSERT_EQ(mkfifo((folder_ / name).c_str(), 0600), 0); }

  // Returns the write end of the pipe once the tool has opened it for reading, or -1 at the limit.
  int BeginToWrite(const char* name, milliseconds limit = kLimit) {
    const auto end = steady_clock::now() + limit;
    do {
      const int pipe = open((folder_ / name).c_str(), O_WRONLY | O_NONBLOCK);
      if (pipe != -1 || errno != ENXIO) return pipe;
      std::this_thread::sleep_for(milliseconds(5));
    } while (steady_clock::now() < end);
    return -1;
  }
  static void EndWriting(int pipe) {
    const std::string_view text = kScene;
    EXPECT_EQ(write(pipe, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(pipe);
  }
};

TEST_F(LongRun, shows_its_progress_on_a_terminal_after_a_second_and_clears_it_at_the_end) {
  MakePipe("slow.mheg");
  Write("quick.mheg", kScene);
  const auto start = steady_clock::now();
  OnTerminal tool(folder_, {"compile", "slow.mheg", "quick.mheg", "-o", "out/", "--jobs", "2"});
  const int slow = BeginToWrite("slow.mheg");
  ASSERT_NE(slow, -1);
  EXPECT_TRUE(tool.Shows(kShown)) << tool.Shown();
  EXPECT_GE(steady_clock::now() - start, milliseconds(1000));
  EndWriting(slow);
  EXPECT_EQ(tool.Status(), 0);
  EXPECT_TRUE(tool.Shown().ends_with(kCleared)) << tool.Shown();
  EXPECT_EQ(File("out/slow"), File("out/quick"));
}

TEST_F(LongRun, clears_its_progress_before_messages) {
  MakePipe("slow.mheg");
  Write("bad.mheg", "{");
  OnTerminal tool(folder_, {"compile", "slow.mheg", "bad.mheg", "-o", "out/", "--jobs", "2"});
  const int slow = BeginToWrite("slow.mheg");
  ASSERT_NE(slow, -1);
  EXPECT_TRUE(tool.Shows(kShown));
  EndWriting(slow);
  EXPECT_EQ(tool.Status(), 1);
  EXPECT_NE(tool.Shown().find(std::string(kCleared) + "\x1B[1mbad.mheg:1:2: "), std::string::npos)
      << tool.Shown();
}

TEST_F(LongRun, of_less_than_a_second_shows_nothing) {
  Write("quick.mheg", kScene);
  OnTerminal tool(folder_, {"compile", "quick.mheg", "-o", "quick"});
  EXPECT_EQ(tool.Status(), 0);
  EXPECT_EQ(tool.Shown(), "");
}

TEST_F(LongRun, shows_nothing_without_a_terminal) {
  MakePipe("slow.mheg");
  std::thread writer([this] {
    const int slow = BeginToWrite("slow.mheg");
    std::this_thread::sleep_for(milliseconds(1500));  // long enough for a progress line
    EndWriting(slow);
  });
  const ToolOutcome run = Call("compile slow.mheg -o slow");
  writer.join();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
}

TEST_F(LongRun, with_two_jobs_processes_two_files_in_parallel) {
  MakePipe("one.mheg");
  MakePipe("two.mheg");
  OnTerminal tool(folder_, {"compile", "one.mheg", "two.mheg", "-o", "out/", "--jobs", "2"});
  const int two = BeginToWrite("two.mheg");
  const int one = BeginToWrite("one.mheg");
  ASSERT_NE(one, -1);
  ASSERT_NE(two, -1);
  EndWriting(two);
  EndWriting(one);
  EXPECT_EQ(tool.Status(), 0);
  EXPECT_TRUE(Exists("out/one"));
  EXPECT_TRUE(Exists("out/two"));
}

TEST_F(LongRun, with_one_job_processes_one_file_after_the_other) {
  MakePipe("one.mheg");
  MakePipe("two.mheg");
  OnTerminal tool(folder_, {"compile", "one.mheg", "two.mheg", "-o", "out/", "--jobs", "1"});
  const int one = BeginToWrite("one.mheg");
  ASSERT_NE(one, -1);
  EXPECT_EQ(BeginToWrite("two.mheg", milliseconds(200)), -1);
  EndWriting(one);
  const int two = BeginToWrite("two.mheg");
  ASSERT_NE(two, -1);
  EndWriting(two);
  EXPECT_EQ(tool.Status(), 0);
}

TEST_F(Tool, messages_are_coloured_on_a_terminal_unless_no_color_is_set) {
  Write("bad.mheg", "{:Scene }");
  unsetenv("NO_COLOR");
  OnTerminal coloured(folder_, {"compile", "bad.mheg", "-o", "x"});
  EXPECT_TRUE(coloured.Shows("\x1B[1mbad.mheg:1:9: \x1B[0min Scene"));
  EXPECT_TRUE(coloured.Shows("\x1B[1;32m^\x1B[0m"));
  EXPECT_EQ(coloured.Status(), 1);
  setenv("NO_COLOR", "1", 1);
  OnTerminal plain(folder_, {"compile", "bad.mheg", "-o", "x"});
  EXPECT_TRUE(plain.Shows("bad.mheg:1:9: in Scene"));
  EXPECT_EQ(plain.Status(), 1);
  unsetenv("NO_COLOR");
}

}  // namespace
}  // namespace mheg
