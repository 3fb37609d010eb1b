// Tests the order of the worker's calls at start, for each queued message, and at its end.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

#include "host/threads.h"
#include "platform/running.h"
#include "platform/screen.h"
#include "presentation/presentation.h"
#include "windows/host/host_threads.h"

namespace korvel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Worker : public HostThreads {};

constexpr WPARAM kEnter = 13;

TEST_F(Worker, starts_by_showing_please_wait_and_then_the_application) {
  Start();
  EXPECT_THAT(WorkerLines(),
              ElementsAre("OpenScreen", "OpenPresentation", "EmptyPersistentStore", "ClearSurface",
                          "DrawScreenText Please Wait", "DeviceUpdate", "BeginWork",
                          "ResetRedrawCounter", "StartEngine ", "DiscardUpdateStamp",
                          "ResetRedrawCounter", "Redraw", "DeviceUpdate"));
  EXPECT_TRUE(WaitUntil(MayRun));
}

TEST_F(Worker, shows_no_service_on_a_cleared_picture_when_no_application_starts) {
  substitutes.onStartEngine = [] { return Status::Refused; };
  Start();
  const auto lines = WorkerLines();
  ASSERT_GE(lines.size(), 5U);
  EXPECT_THAT(std::vector(lines.end() - 5, lines.end()),
              ElementsAre("StartEngine ", "DiscardUpdateStamp", "ClearSurface",
                          "DrawScreenText No MHEG5 Service", "DeviceUpdate"));
  EXPECT_FALSE(MayRun());
}

TEST_F(Worker, treats_a_start_that_failed_half_way_as_started) {
  substitutes.onStartEngine = [] { return Status::Failure; };
  Start();
  EXPECT_EQ(journal.CountOf("DrawScreenText No MHEG5 Service"), 0);
  EXPECT_TRUE(WaitUntil(MayRun));
}

TEST_F(Worker, may_run_while_it_looks_for_the_start_up_application) {
  bool mayRun = false;
  substitutes.onStartEngine = [&] {
    mayRun = MayRun();
    return Status::Refused;
  };
  Start();
  EXPECT_TRUE(mayRun);
}

TEST_F(Worker, deletes_the_trace_file_of_an_earlier_run) {
  // Uses a folder of its own, because every engine that starts deletes the file.
  std::filesystem::create_directory("trace_file_test");
  std::filesystem::current_path("trace_file_test");
  std::ofstream("debug.txt") << "old";
  ASSERT_TRUE(std::filesystem::exists("debug.txt"));
  Start();
  EXPECT_FALSE(std::filesystem::exists("debug.txt"));
  std::filesystem::current_path("..");
  std::filesystem::remove("trace_file_test");
}

TEST_F(Worker, raises_a_key_between_two_resets_of_the_redraw_counter) {
  Start();
  journal.Clear();
  PostKeys({kEnter});
  WaitForLine("Redraw");
  EXPECT_THAT(WorkerLines(), ElementsAre("BeginWork", "ResetRedrawCounter", "Raise 0 6 15",
                                         "DiscardUpdateStamp", "ResetRedrawCounter", "Redraw"));
}

TEST_F(Worker, resets_the_redraw_counter_after_a_timer_but_not_before) {
  Start();
  journal.Clear();
  Post(WM_TIMER, 77);
  WaitForLine("Redraw");
  EXPECT_THAT(WorkerLines(), ElementsAre("BeginWork", "Raise 0 8 77", "DiscardUpdateStamp",
                                         "ResetRedrawCounter", "Redraw"));
}

TEST_F(Worker, redraws_after_an_unmapped_key) {
  Start();
  journal.Clear();
  PostKeys({'A'});
  WaitForLine("Redraw");
  EXPECT_THAT(WorkerLines(), ElementsAre("BeginWork", "ResetRedrawCounter", "DiscardUpdateStamp",
                                         "ResetRedrawCounter", "Redraw"));
}

TEST_F(Worker, drops_keys_and_timers_while_no_service_is_shown) {
  substitutes.onStartEngine = [] { return Status::Refused; };
  Start();
  PostKeys({kEnter});
  Post(WM_TIMER, 5);
  FinishPosted();
  EXPECT_THAT(Raised(), IsEmpty());
  EXPECT_EQ(journal.CountOf("Redraw"), 0);
}

TEST_F(Worker, drops_an_expiry_that_was_queued_before_the_running_flag_was_cleared) {
  Start();
  substitutes.onRaise = [](std::int32_t) {
    SendMessageA(FindEngineWindow(), WM_TIMER, 5, 0);
    RequestRestart(RestartReason::Tune);
  };
  PostKeys({kEnter});
  WaitForLine("StartEngine ", 2);
  EXPECT_THAT(Raised(), ElementsAre("6 15"));
}

TEST_F(Worker, starts_again_after_a_quit_with_an_empty_store) {
  Start();
  journal.Clear();
  Post(kRestartAfterQuit);
  WaitForLine("DeviceUpdate");
  EXPECT_THAT(WorkerLines(),
              ElementsAre("BeginWork", "EmptyPersistentStore", "ClearImageCache", "BeginWork",
                          "ResetRedrawCounter", "StartEngine ", "DiscardUpdateStamp",
                          "ResetRedrawCounter", "Redraw", "DeviceUpdate"));
}

TEST_F(Worker, starts_again_after_a_tune_and_keeps_the_store) {
  Start();
  journal.Clear();
  Post(kRestartAfterTune);
  WaitForLine("DeviceUpdate");
  EXPECT_THAT(WorkerLines(), ElementsAre("BeginWork", "CloseDown", "ClearImageCache", "BeginWork",
                                         "ResetRedrawCounter", "StartEngine ", "DiscardUpdateStamp",
                                         "ResetRedrawCounter", "Redraw", "DeviceUpdate"));
}

TEST_F(Worker, draws_no_text_when_a_restart_fails) {
  Start();
  journal.Clear();
  bool mayRunInside = false;
  substitutes.onStartEngine = [&] {
    mayRunInside = MayRun();
    return Status::Refused;
  };
  Post(kRestartAfterQuit);
  WaitForLine("StartEngine ");
  FinishPosted();
  EXPECT_TRUE(mayRunInside);
  EXPECT_TRUE(WaitUntil([] { return !MayRun(); }));
  EXPECT_EQ(journal.CountOf("ClearSurface"), 0);
  EXPECT_EQ(journal.CountOf("DrawScreenText No MHEG5 Service"), 0);
  EXPECT_EQ(journal.CountOf("DeviceUpdate"), 0);
}

TEST_F(Worker, stops_showing_no_service_when_a_restart_succeeds) {
  substitutes.onStartEngine = [] { return Status::Refused; };
  Start();
  substitutes.onStartEngine = nullptr;
  Post(kRestartAfterQuit);
  WaitForLine("DeviceUpdate", 3);
  EXPECT_TRUE(WaitUntil(MayRun));
}

TEST_F(Worker, clears_the_surface_and_the_flag_on_a_restart_request) {
  Start();
  bool mayRunAfter = true;
  journal.Clear();
  substitutes.onRaise = [&](std::int32_t) {
    RequestRestart(RestartReason::QuitWithoutParent);
    mayRunAfter = MayRun();
  };
  PostKeys({kEnter});
  WaitForLine("StartEngine ");
  EXPECT_FALSE(mayRunAfter);
  EXPECT_EQ(journal.CountOf("ClearSurface"), 1);
  EXPECT_EQ(journal.CountOf("EmptyPersistentStore"), 1);
}

TEST_F(Worker, ends_by_closing_down_and_then_releasing_everything) {
  host.onCall = [this](const std::string& name) { journal.Write("host " + name); };
  Start();
  journal.Clear();
  Close();
  EXPECT_THAT(WorkerLines(),
              ElementsAre("BeginWork", "CloseDown", "DiscardUpdateStamp", "ReleasePictures",
                          "host SetExitCallback null", "host Release", "ResetEngine",
                          "ClosePresentation", "CloseScreen"));
}

}  // namespace
}  // namespace korvel::test
