// Loops whose length content decides must not delay a close. Each stops once the time allowed for a
// pending close has passed, and reports it. The engine remains usable afterwards.
#include <functional>
#include <ostream>

#include "engine/core.h"
#include "stage.h"

namespace korvel::test {
namespace {

// More steps than a loop can take before a pending close stops it, if each reading of the clock
// takes a millisecond.
constexpr int kSteps = 600;

std::string Repeated(const std::function<std::string(int)>& piece, int count = kSteps) {
  std::string text;
  for (int number = 1; number <= count; ++number) text += piece(number);
  return text;
}

void RequestClose() {
  TheHost().isClosing = true;
  TheHost().millisecondsPerReading = 1;
}

// The engine never cancels a close, and keeps the time when it noticed one until it ends. Clearing
// both lets the engine continue, to show that the interrupted loop left everything in order.
void CancelClose() {
  TheHost().isClosing = false;
  TheHost().millisecondsPerReading = 0;
  TheCore().closeNoticedAt.reset();
  BeginWork();
}

// ---- Loops within one action ----

struct Loop {
  const char* name;
  std::string items;  // begin with the target, so that the action finds it immediately
  std::string before;
  std::string action;
};

std::ostream& operator<<(std::ostream& out, const Loop& loop) { return out << loop.name; }

std::string ListGroupText(const std::string& members, const std::string& positions,
                          const std::string& attributes) {
  return "{:ListGroup 10 " + attributes + " :TokenGroupItems (" + members + ") :Positions (" +
         positions + ")}";
}
// References to `count` objects, which need not exist.
std::string Members(int count) {
  return Repeated([](int number) { return "(" + std::to_string(2000 + number) + ")"; }, count);
}
std::string Cells(int count) {
  return Repeated([](int) { return std::string("(0 0)"); }, count);
}
std::string TokenGroupText(const std::string& attributes) {
  return "{:TokenGroup 10 " + attributes + " :TokenGroupItems (" + Members(kSteps) + ")}";
}
std::string StreamText(const std::string& component, const std::string& attributes) {
  return "{:Stream 10 " + attributes + " :Multiplex (" + Repeated([&](int number) {
           return "{:" + component + " " + std::to_string(2000 + number) + " :ComponentTag 1 " +
                  (component == "Video" ? ":OrigBoxSize 9 9" : "") + "}";
         }) +
         ")}";
}

const std::string kInactive = ":InitiallyActive FALSE";
const std::string kVariables = "{:BooleanVar 2 :OrigValue FALSE} {:OStringVar 3 :OrigValue \"f\"}";

std::string StoreText(int count) {
  const std::string variables = Repeated([](int) { return std::string("3 "); }, count);
  return ":StorePersistent(0 2 (" + variables + ") \"file\")";
}

const Loop kLoops[] = {
    {"items_without_a_cell", ListGroupText(Members(kSteps), Cells(1), ""), "",
     ":ScrollItems(10 1)"},
    {"cells_without_an_item", ListGroupText(Members(1), Cells(kSteps), ""), "",
     ":ScrollItems(10 1)"},
    {"items_of_a_list_that_stops", ListGroupText(Members(kSteps), "", ""), "", ":Stop(10)"},
    {"items_of_a_list_that_is_prepared", ListGroupText(Members(kSteps), "", kInactive), "",
     ":Run(10)"},
    {"items_to_deselect", ListGroupText(Members(kSteps), "", ":MultipleSelection TRUE"),
     Repeated([](int number) { return ":SelectItem(10 " + std::to_string(number + 1) + ")"; },
              kSteps - 1),
     ":SelectItem(10 1)"},
    {"members_of_a_token_group_that_runs", TokenGroupText(kInactive), "", ":Run(10)"},
    {"members_of_a_token_group_that_stops", TokenGroupText(""), "", ":Stop(10)"},
    {"components_of_a_stream_that_runs", StreamText("Audio", kInactive), "", ":Run(10)"},
    {"components_of_a_stream_that_stops", StreamText("Audio", ""), "", ":Stop(10)"},
    {"variables_to_store", kVariables, "", StoreText(kSteps)},
    {"values_to_store", kVariables, "", StoreText(kSteps / 4)},  // finding them takes half the time
};

class ClosingLoop : public Stage, public testing::WithParamInterface<Loop> {};

TEST_P(ClosingLoop, stops_when_the_time_for_closing_is_over) {
  const Loop& loop = GetParam();
  testing::internal::CaptureStdout();
  Start(loop.items + "{:IntegerVar 1 :OrigValue 0}");
  EXPECT_EQ(Run(loop.before + ":Add(1 1)"), Status::Done);
  if (loop.name == std::string("items_to_deselect")) {
    Object<ListGroup>(10).MultipleSelection = false;
  }
  RequestClose();
  EXPECT_EQ(Run(loop.action), Status::Failure);
  CancelClose();
  EXPECT_EQ(Run(":Add(1 1)"), Status::Done);
  EXPECT_EQ(Integer(1), 2);
  testing::internal::GetCapturedStdout();
}

TEST_P(ClosingLoop, completes_without_a_close) {
  const Loop& loop = GetParam();
  testing::internal::CaptureStdout();
  Start(loop.items);
  EXPECT_EQ(Run(loop.before + loop.action), Status::Done);
  testing::internal::GetCapturedStdout();
}

INSTANTIATE_TEST_SUITE_P(Over, ClosingLoop, testing::ValuesIn(kLoops),
                         [](const testing::TestParamInfo<Loop>& tested) {
                           return tested.param.name;
                         });

// ---- Loops of the engine ----

class Closing : public Stage {};

TEST_F(Closing, stops_starting_items) {
  ThePresentation().onRedraw = [] {
    RequestClose();
    return Status::Done;
  };
  AddFile("a", "{:Application (\"~/a\" 0) :Items (" + Repeated([](int number) {
                 return "{:Rectangle " + std::to_string(number) + " :OrigBoxSize 9 9}";
               }) + ")}");
  EXPECT_EQ(StartEngine(""), Status::Failure);
  ThePresentation().onRedraw = nullptr;
  CancelClose();
  EXPECT_TRUE(IsRunning(1));
  EXPECT_FALSE(IsRunning(kSteps));
}

TEST_F(Closing, stops_starting_links) {
  ThePresentation().onRedraw = [] {
    RequestClose();
    return Status::Done;
  };
  AddFile("a", "{:Application (\"~/a\" 0) :OnStartUp (:LockScreen(0) :UnlockScreen(0)) :Items (" +
                   Repeated([](int number) {
                     return "{:Link " + std::to_string(number) +
                            " :EventSource 0 :EventType UserInput :LinkEffect (:Quit(0))}";
                   }) +
                   ")}");
  EXPECT_EQ(StartEngine(""), Status::Failure);
  ThePresentation().onRedraw = nullptr;
  CancelClose();
  EXPECT_TRUE(IsRunning(1));
  EXPECT_FALSE(IsRunning(kSteps));
}

TEST_F(Closing, stops_searching_for_an_object) {
  Start(Repeated([](int /*number*/) { return "{:IntegerVar (\"~/x\" 1) :OrigValue 0}"; }) +
        "{:IntegerVar 1 :OrigValue 0}");
  RequestClose();
  EXPECT_FALSE(static_cast<bool>(FindObject(Scope::ApplicationFirst, "~/a", 1)));
  CancelClose();
  EXPECT_TRUE(static_cast<bool>(FindObject(Scope::ApplicationFirst, "~/a", 1)));
}

TEST_F(Closing, stops_searching_for_links) {
  Start(Repeated([](int number) {
          return "{:Link " + std::to_string(1000 + number) +
                 " :EventSource (\"~/x\" 1) :EventType UserInput :LinkEffect (:Add(1 1))}";
        }) +
        "{:IntegerVar 1 :OrigValue 0}"
        "{:Link 2 :EventSource 1 :EventType UserInput :LinkEffect (:Quit(0))}");
  RequestClose();
  EXPECT_EQ(RaiseEvent("~/a", 1, EventType::UserInput, {}), Status::Done);
  EXPECT_NE(CurrentApplication(), nullptr);
  CancelClose();
  EXPECT_EQ(RaiseEvent("~/a", 1, EventType::UserInput, {}), Status::Failure);
  EXPECT_EQ(CurrentApplication(), nullptr);
}

// Destroying the window also ends its timers, so a close may skip them.
TEST_F(Closing, skips_killing_timers_when_the_time_for_closing_is_over) {
  Start(kVariables);
  EXPECT_EQ(
      Run(Repeated([](int number) { return ":SetTimer(0 " + std::to_string(number) + " 1000)"; })),
      Status::Done);
  RequestClose();
  CloseDown();
  EXPECT_LT(TheHost().killedTimers.size(), static_cast<std::size_t>(kSteps));
  CancelClose();
  Start(kVariables);
}

TEST_F(Closing, stops_searching_a_string) {
  const std::string text = std::string(kSteps, 'a') + "b";
  Start("{:ResidentPrg 1 :Name \"SSS\"} {:IntegerVar 3 :OrigValue 0}" + kVariables +
        "{:OStringVar 4 :OrigValue \"" + text + "\"}");
  const std::string search = ":Call(1 2 :GOctetString :IndirectRef 4 :GInteger 1"
                             " :GOctetString \"ab\" :GInteger :IndirectRef 3)";
  RequestClose();
  static_cast<void>(Run(search));
  CancelClose();
  EXPECT_NE(Integer(3), kSteps);
  EXPECT_EQ(Run(search), Status::Done);
  EXPECT_EQ(Integer(3), kSteps);
}

TEST_F(Closing, stops_formatting_a_date) {
  const std::string format(kSteps, 'x');
  Start("{:ResidentPrg 1 :Name \"FDa\"}" + kVariables);
  const std::string call = ":Call(1 2 :GOctetString \"" + format +
                           "\" :GInteger 0 :GInteger 0 :GOctetString :IndirectRef 3)";
  RequestClose();
  EXPECT_EQ(Run(call), Status::Failure);
  CancelClose();
  EXPECT_EQ(Octets(3), "f");
  EXPECT_EQ(Run(call), Status::Done);
  EXPECT_EQ(Octets(3), format);
}

}  // namespace
}  // namespace korvel::test
