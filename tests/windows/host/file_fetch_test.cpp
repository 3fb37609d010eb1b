// Tests reading broadcast files through the host object. Runs on the worker, as in the engine.
#include <gmock/gmock.h>

#include <optional>

#include "platform/files.h"
#include "platform/running.h"
#include "windows/host/host_threads.h"

namespace korvel::test {
namespace {

using testing::ElementsAre;
using namespace std::chrono_literals;

class FileFetch : public HostThreads {
 protected:
  // Fetches the file inside StartEngine and stores the result in the members below.
  void FetchOnWorker(std::string_view path, bool isWanted = true) {
    substitutes.onStartEngine = [=, this] {
      isFetched = FetchFile(path, isWanted ? &bytes : nullptr);
      return Status::Done;
    };
    Start();
  }
  [[nodiscard]] std::vector<std::string> FetchCalls() const {
    auto names = host.Names();
    std::erase_if(names, [](const std::string& name) {
      return !name.starts_with("ReadFile") && name != "FreeBuffer";
    });
    return names;
  }

  std::optional<bool> isFetched;
  OctetString bytes;
};

TEST_F(FileFetch, copies_exactly_the_bytes_and_releases_the_buffer) {
  const std::string content("four\0bytes and more", 18);
  host.Serve("dir/file", content);
  FetchOnWorker("dir/file");
  EXPECT_EQ(isFetched, true);
  EXPECT_EQ(bytes.View(), content);
  EXPECT_THAT(FetchCalls(), ElementsAre("ReadFile dir/file", "FreeBuffer"));
  EXPECT_EQ(host.HeldBuffers(), 0);
  EXPECT_EQ(host.ReadsWithoutSize(), 0);
  EXPECT_FALSE(host.IsMisused());
}

TEST_F(FileFetch, returns_an_empty_string_for_an_empty_file) {
  host.Serve("empty", "");
  FetchOnWorker("empty");
  EXPECT_EQ(isFetched, true);
  EXPECT_TRUE(bytes.IsPresent());
  EXPECT_TRUE(bytes.IsEmpty());
  EXPECT_EQ(host.HeldBuffers(), 0);
}

TEST_F(FileFetch, without_output_only_checks_that_the_file_exists) {
  host.Serve("there", "content");
  FetchOnWorker("there", false);
  EXPECT_EQ(isFetched, true);
  EXPECT_EQ(host.ReadsWithoutSize(), 1);
  EXPECT_THAT(FetchCalls(), ElementsAre("ReadFile there", "FreeBuffer"));
  EXPECT_EQ(host.HeldBuffers(), 0);
}

TEST_F(FileFetch, fails_at_once_on_any_other_result) {
  for (const std::uint32_t result : {2U, 3U, 0x80004005U}) {
    host.SetResult("lost", result);
    bytes.Clear();
    FetchOnWorker("lost");
    EXPECT_EQ(isFetched, false) << result;
    EXPECT_FALSE(bytes.IsPresent());
    EXPECT_EQ(host.CountOf("FreeBuffer"), 0);
    Close();
    journal.Clear();
  }
  EXPECT_EQ(host.CountOf("ReadFile lost"), 3);
}

TEST_F(FileFetch, does_not_call_the_host_for_an_empty_path) {
  FetchOnWorker("");
  EXPECT_EQ(isFetched, false);
  EXPECT_THAT(FetchCalls(), testing::IsEmpty());
}

TEST_F(FileFetch, retries_every_half_second_while_the_file_is_not_available) {
  host.SetResult("late", kMHEG5FileNotYetAvailable);
  host.Serve("ready", "");
  int reads = 0;
  host.onCall = [&](const std::string& name) {
    if (name == "ReadFile late" && ++reads == 3) host.SetResult("late", kNoSuchFile);
  };
  FetchOnWorker("late");
  EXPECT_EQ(isFetched, false);
  const auto calls = host.Calls();
  std::vector<std::chrono::steady_clock::time_point> times;
  for (const HostCall& call : calls) {
    if (call.name == "ReadFile late") times.push_back(call.time);
  }
  ASSERT_EQ(times.size(), 3U);
  EXPECT_GE(times[1] - times[0], 480ms);
  EXPECT_GE(times[2] - times[1], 480ms);
}

TEST_F(FileFetch, fails_when_the_engine_may_not_run) {
  host.Serve("there", "content");
  substitutes.onStartEngine = [this] {
    RequestRestart(RestartReason::QuitWithoutParent);
    isFetched = FetchFile("there", &bytes);
    substitutes.onStartEngine = nullptr;
    return Status::Refused;
  };
  Start();
  EXPECT_EQ(isFetched, false);
  EXPECT_EQ(host.CountOf("ReadFile there"), 0);
}

TEST_F(FileFetch, fails_within_one_pause_after_a_close_request) {
  host.SetResult("never", kMHEG5FileNotYetAvailable);
  substitutes.onStartEngine = [this] {
    isFetched = FetchFile("never", &bytes);
    return Status::Refused;
  };
  StartWithoutWaiting();
  ASSERT_TRUE(WaitUntil([this] { return host.CountOf("ReadFile never") == 2; }));
  ExitMHEG5();
  const auto requested = std::chrono::steady_clock::now();
  ASSERT_TRUE(WaitUntil([this] { return window.Closes() == 1; }));
  EXPECT_LT(std::chrono::steady_clock::now() - requested, 3000ms);
  EXPECT_EQ(isFetched, false);
  EXPECT_EQ(host.CountOf("ReadFile never"), 2);
}

}  // namespace
}  // namespace korvel::test
