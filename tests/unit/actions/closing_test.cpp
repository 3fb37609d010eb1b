// What content has made long does not keep a close waiting: every walk along it ends once the time
// that a pending close leaves is over, and says so. The engine can go on afterwards.
#include <functional>
#include <ostream>

#include "engine/core.h"
#include "stage.h"

namespace korvel::test {
namespace {

// More steps than a close leaves time for, at a millisecond for each question.
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

// A close is never taken back. The account that it opened ends with the engine; here the engine
// goes on instead, to show that the walk has left everything in order.
void TakeCloseBack() {
  TheHost().isClosing = false;
  TheHost().millisecondsPerReading = 0;
  TheCore().closeNoticedAt.reset();
  BeginWork();
}

// ---- Walks that one action makes ----

struct Walk {
  const char* name;
  std::string items;  // before all others, so that the action finds its target at once
  std::string before;
  std::string action;
};

std::ostream& operator<<(std::ostream& out, const Walk& walk) { return out << walk.name; }

std::string ListGroupText(const std::string& members, const std::string& positions,
                          const std::string& attributes) {
  return "{:ListGroup 10 " + attributes + " :TokenGroupItems (" + members + ") :Positions (" +
         positions + ")}";
}
// References to objects that there need not be.
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

const Walk kWalks[] = {
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
    {"variables_to_store", kVariables, "",
     ":StorePersistent(0 2 (" + Repeated([](int) { return std::string("3 "); }) + ") \"file\")"},
};

class ClosingWalk : public Stage, public testing::WithParamInterface<Walk> {};

TEST_P(ClosingWalk, ends_when_the_time_is_over) {
  const Walk& walk = GetParam();
  testing::internal::CaptureStdout();
  Start(walk.items + "{:IntegerVar 1 :OrigValue 0}");
  EXPECT_EQ(Run(walk.before + ":Add(1 1)"), Status::Done);
  if (walk.name == std::string("items_to_deselect")) {
    Object<ListGroup>(10).MultipleSelection = false;
  }
  RequestClose();
  EXPECT_EQ(Run(walk.action), Status::Failure);
  TakeCloseBack();
  EXPECT_EQ(Run(":Add(1 1)"), Status::Done);
  EXPECT_EQ(Integer(1), 2);
  testing::internal::GetCapturedStdout();
}

TEST_P(ClosingWalk, is_not_disturbed_without_a_close) {
  const Walk& walk = GetParam();
  testing::internal::CaptureStdout();
  Start(walk.items);
  EXPECT_EQ(Run(walk.before + walk.action), Status::Done);
  testing::internal::GetCapturedStdout();
}

INSTANTIATE_TEST_SUITE_P(Along, ClosingWalk, testing::ValuesIn(kWalks),
                         [](const testing::TestParamInfo<Walk>& tested) {
                           return tested.param.name;
                         });

// ---- Walks of the engine ----

class Closing : public Stage {};

TEST_F(Closing, ends_the_start_of_items) {
  ThePresentation().onRedraw = [] {
    RequestClose();
    return Status::Done;
  };
  AddFile("a", "{:Application (\"~/a\" 0) :Items (" + Repeated([](int number) {
                 return "{:Rectangle " + std::to_string(number) + " :OrigBoxSize 9 9}";
               }) + ")}");
  EXPECT_EQ(StartEngine(""), Status::Failure);
  ThePresentation().onRedraw = nullptr;
  TakeCloseBack();
  EXPECT_TRUE(IsRunning(1));
  EXPECT_FALSE(IsRunning(kSteps));
}

TEST_F(Closing, ends_the_entering_of_links) {
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
  TakeCloseBack();
  EXPECT_TRUE(IsRunning(1));
  EXPECT_FALSE(IsRunning(kSteps));
}

TEST_F(Closing, ends_the_search_for_an_object) {
  Start(Repeated(
      [](int number) { return "{:IntegerVar " + std::to_string(number) + " :OrigValue 0}"; }));
  RequestClose();
  EXPECT_FALSE(static_cast<bool>(FindObject(Scope::ApplicationFirst, "~/a", kSteps)));
  TakeCloseBack();
  EXPECT_TRUE(static_cast<bool>(FindObject(Scope::ApplicationFirst, "~/a", kSteps)));
}

TEST_F(Closing, ends_the_search_for_links) {
  Start(Repeated([](int number) {
          return "{:Link " + std::to_string(1000 + number) +
                 " :EventSource 77 :EventType UserInput :LinkEffect (:Add(1 1))}";
        }) +
        "{:IntegerVar 1 :OrigValue 0}"
        "{:Link 2 :EventSource 1 :EventType UserInput :LinkEffect (:Quit(0))}");
  RequestClose();
  EXPECT_EQ(RaiseEvent("~/a", 1, EventType::UserInput, {}), Status::Done);
  EXPECT_NE(CurrentApplication(), nullptr);
  TakeCloseBack();
  EXPECT_EQ(RaiseEvent("~/a", 1, EventType::UserInput, {}), Status::Failure);
  EXPECT_EQ(CurrentApplication(), nullptr);
}

// The window takes its timers with it.
TEST_F(Closing, leaves_the_last_of_many_timers_to_the_window) {
  Start(kVariables);
  EXPECT_EQ(
      Run(Repeated([](int number) { return ":SetTimer(0 " + std::to_string(number) + " 1000)"; })),
      Status::Done);
  RequestClose();
  CloseDown();
  EXPECT_LT(TheHost().killedTimers.size(), static_cast<std::size_t>(kSteps));
  TakeCloseBack();
  Start(kVariables);
}

TEST_F(Closing, ends_a_search_in_a_text) {
  const std::string text = std::string(kSteps, 'a') + "b";
  Start("{:ResidentPrg 1 :Name \"SSS\"} {:IntegerVar 3 :OrigValue 0}" + kVariables +
        "{:OStringVar 4 :OrigValue \"" + text + "\"}");
  const std::string search = ":Call(1 2 :GOctetString :IndirectRef 4 :GInteger 1"
                             " :GOctetString \"ab\" :GInteger :IndirectRef 3)";
  RequestClose();
  static_cast<void>(Run(search));
  TakeCloseBack();
  EXPECT_NE(Integer(3), kSteps);
  EXPECT_EQ(Run(search), Status::Done);
  EXPECT_EQ(Integer(3), kSteps);
}

}  // namespace
}  // namespace korvel::test
