// Running out of memory at any moment: an application and a scene start and run with the n-th
// allocation failing, for every n until none fails.
#include <set>
#include <sstream>

#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class OutOfMemory : public EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    ServeApplication("{:IntegerVar 1 :OrigValue 3} {:ObjectRefVar 2 :OrigValue :ObjectRef 1}"
                     "{:ContentRefVar 3 :OrigValue :ContentRef \"~/x\"}" +
                         RectangleText(4) +
                         LinkOn(5, "0", "IsRunning",
                                ":Add(1 1) " + Note("r") + TransitionAction("~/the_main_menu"),
                                kShared) +
                         LinkOnKey(6, 103, SpawnAction("~/b"), kShared) +
                         LinkOn(7, "(\"~/the_main_menu\" 0)", "IsDeleted", Note("d"), kShared),
                     ":OnStartUp (:SetVariable(1 :GInteger 5) :LockScreen(0))");
    ServeScene("the_main_menu",
               RectangleText(1) +
                   "{:Text 2 :OrigContent \"A text that takes a block\" :OrigBoxSize 100 20}"
                   "{:BooleanVar 3 :OrigValue TRUE}"
                   "{:Stream 8 :Multiplex ({:Audio 9 :ComponentTag 1})}" +
                   LinkOnKey(4, 100, ":SetTimer(0 5 100) :TestVariable(3 1 :GBoolean TRUE)") +
                   LinkOn(5, "3", "TestEvent :EventData TRUE", Note("t")) +
                   LinkOnKey(6, 101,
                             ":BringToFront(1) :Stop(2) :Run(2) " + TransitionAction("~/missing")) +
                   LinkOn(7, "0", "TimerFired :EventData 5", TransitionAction("~/next")),
               ":OnStartUp (" + Note("s") + ")");
    ServeScene("next", RectangleText(1));
    Serve("b", ApplicationText("~/b", RectangleText(1) + LinkOnKey(2, 104, QuitAction()) +
                                          LinkOnKey(3, 102, LaunchAction("~/b"))));
  }

  // Starts the engine, sends it keys and a timer expiry, and ends it.
  void RunEngine() {
    static_cast<void>(Start());
    for (const std::int32_t key : {100, 101, 1}) static_cast<void>(Press(key));
    static_cast<void>(Expire(5));
    for (const std::int32_t key : {103, 102, 104, 15}) static_cast<void>(Press(key));
    EndEngine();
  }
};

TEST_F(OutOfMemory, no_failed_allocation_crashes_or_leaks) {
  RunEngine();  // allocates what the test itself keeps
  const std::size_t blocks = LiveBlocks();
  static_cast<void>(Printed());
  TheHost().fetched.clear();
  RunEngine();
  const auto expectedFiles = TheHost().fetched;
  ASSERT_EQ(expectedFiles,
            (std::vector<std::string>{"a", "the_main_menu", "missing", "next", "b", "b", "a"}));
  ASSERT_EQ(Printed(), "");

  std::set<std::string> messages;
  std::size_t failing = 0;
  do {
    ++failing;
    SCOPED_TRACE("allocation " + std::to_string(failing));
    const auto files = TheHost().files;
    TheHost() = {};
    TheHost().files = files;
    FailAllocation(failing);
    RunEngine();
    ASSERT_EQ(LiveBlocks(), blocks);
    EXPECT_TRUE(TheHost().timers.empty());
    std::istringstream lines(Printed());
    for (std::string line; std::getline(lines, line);) messages.insert(line);
  } while (HasFailedAllocation());
  FailAllocation(0);

  EXPECT_EQ(TheHost().fetched, expectedFiles) << "the last run had no failed allocation";
  EXPECT_GT(failing, 120U) << "fewer allocations than expected";
  EXPECT_EQ(messages.count("Can't allocate memory for new event"), 1U);
  EXPECT_EQ(messages.count("Can't allocate memory for DisplayStack"), 1U);
  EXPECT_EQ(messages.count("Parser failed"), 1U);
  EXPECT_EQ(messages.count("Parse error"), 1U);
  EXPECT_EQ(messages.count("Can't allocate memory for Link GroupIdentifier"), 1U);
  for (const std::string& message : messages) {
    EXPECT_TRUE(message.starts_with("Can't allocate memory for ") || message == "Parser failed" ||
                message == "Parse error")
        << message;
  }
}

TEST_F(OutOfMemory, a_link_that_cannot_be_registered_fails_the_start) {
  // Finds the first allocation whose failure is reported as that of a link entry.
  std::size_t failing = 0;
  Status result = Status::Done;
  std::string printed;
  do {
    ++failing;
    EndEngine();
    static_cast<void>(Printed());
    FailAllocation(failing);
    result = Start();
    printed = Printed();
  } while (HasFailedAllocation() && printed != "Can't allocate memory for new event\n");
  FailAllocation(0);
  EXPECT_EQ(printed, "Can't allocate memory for new event\n");
  EXPECT_EQ(result, Status::Failure) << "not Refused: the engine has started";
  ASSERT_NE(CurrentApplication(), nullptr);
  EXPECT_FALSE(CurrentApplication()->AvailabilityStatus);
}

TEST_F(OutOfMemory, the_engine_works_after_an_event_that_ran_out_of_memory) {
  ASSERT_NE(Start(), Status::Refused);
  for (std::size_t failing = 1; failing <= 20; ++failing) {
    BeginWork();
    FailAllocation(failing);
    static_cast<void>(Continue([] { return RaiseOutsideEvent(0, EventType::UserInput, 100); }));
    FailAllocation(0);
  }
  TakeNotes();
  EXPECT_EQ(Press(100), Status::Done);
  EXPECT_EQ(Notes(), "t");
}

}  // namespace
}  // namespace korvel::test
