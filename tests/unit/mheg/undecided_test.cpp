// Content that looks faulty but may be correct, so the check must not report it. Each case is a
// scene "s" of a carousel whose application enters it.
#include <gtest/gtest.h>

#include "mheg/check/check.h"
#include "unit/mheg/scratch_folder.h"

namespace mheg {
namespace {

struct Undecided {
  const char* name;
  const char* items;  // of the scene
  const char* applicationItems = "";
};

std::ostream& operator<<(std::ostream& stream, const Undecided& content) {
  return stream << content.name;
}

class UndecidedContent : public testing::TestWithParam<Undecided> {};

TEST_P(UndecidedContent, is_not_reported) {
  const ScratchFolder folder;
  folder.Write("a.mheg",
               std::string("{:Application (\"~/a\" 0) :Items ({:Link 900 :EventSource 0 "
                           ":EventType IsRunning :LinkEffect (:TransitionTo((\"~/s\" 0)))}") +
                   GetParam().applicationItems + ")}");
  folder.Write("s.mheg", std::string("{:Scene (\"~/s\" 0) :Items (") + GetParam().items +
                             ") :SceneCS 720 576}");
  EXPECT_EQ(LinesOf(Check({folder.Path()}, 1)), "");
}

constexpr const char* kVariableWithTest =
    "{:IntegerVar 1 :OrigValue 0} {:Link 2 :EventSource 0 :EventType "
    "UserInput :LinkEffect (:TestVariable(1 1 :GInteger 1))}";

const std::string kLoopByAnotherLink =
    std::string(kVariableWithTest) +
    "{:Link 3 :EventSource 1 :EventType TestEvent :EventData FALSE :LinkEffect (:Add(1 1))}"
    "{:Link 4 :EventSource 1 :EventType TestEvent :EventData FALSE "
    ":LinkEffect (:TestVariable(1 1 :GInteger 9))}";

const char* const kLoopByALinkOfTheApplication =
    "{:Link 2 :EventSource 0 :EventType UserInput "
    ":LinkEffect (:TestVariable((\"~/a\" 1) 1 :GInteger 1))}"
    "{:Link 4 :EventSource (\"~/a\" 1) :EventType TestEvent :EventData FALSE "
    ":LinkEffect (:TestVariable((\"~/a\" 1) 1 :GInteger 9))}";

const std::string kLoopThatEnds = std::string(kVariableWithTest) +
                                  "{:Link 4 :EventSource 1 :EventType TestEvent :EventData FALSE "
                                  ":LinkEffect (:Add(1 1) :TestVariable(1 1 :GInteger 9))}";

const std::string kLinkThatTurnsItselfOff =
    std::string(kVariableWithTest) +
    "{:Link 4 :EventSource 1 :EventType TestEvent :EventData FALSE "
    ":LinkEffect (:Deactivate(4) :TestVariable(1 1 :GInteger 9))}";

const std::string kTestWithTheOtherResult =
    std::string(kVariableWithTest) + "{:Link 4 :EventSource 1 :EventType TestEvent :EventData TRUE "
                                     ":LinkEffect (:TestVariable(1 1 :GInteger 9))}";

INSTANTIATE_TEST_SUITE_P(
    Check, UndecidedContent,
    testing::Values(
        Undecided{"loop_by_another_link", kLoopByAnotherLink.c_str()},
        Undecided{"loop_by_a_link_of_the_application", kLoopByALinkOfTheApplication,
                  "{:IntegerVar 1 :Shared TRUE :OrigValue 0}"
                  "{:Link 3 :Shared TRUE :EventSource 1 :EventType TestEvent :EventData FALSE "
                  ":LinkEffect (:Add(1 1))}"},
        Undecided{"loop_that_ends", kLoopThatEnds.c_str()},
        Undecided{"link_that_turns_itself_off", kLinkThatTurnsItselfOff.c_str()},
        Undecided{"test_with_the_other_result", kTestWithTheOtherResult.c_str()},
        Undecided{"timer_with_a_number_from_a_variable",
                  "{:IntegerVar 1 :OrigValue 7} {:Link 2 :EventSource 0 :EventType TimerFired "
                  ":EventData 7 :LinkEffect (:SetTimer(0 :IndirectRef 1 100))}"},
        Undecided{"timer_that_the_application_sets",
                  "{:Link 2 :EventSource 0 :EventType TimerFired :EventData 7 :LinkEffect ()}",
                  "{:Link 3 :Shared TRUE :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:SetTimer((\"~/s\" 0) 7 100))}"},
        Undecided{"variable_that_the_application_tests",
                  "{:IntegerVar 1 :OrigValue 0}"
                  "{:Link 2 :EventSource 1 :EventType TestEvent :LinkEffect ()}",
                  "{:Link 3 :Shared TRUE :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:TestVariable((\"~/s\" 1) 1 :GInteger 0))}"},
        Undecided{"event_that_is_sent",
                  "{:Link 2 :EventSource 0 :EventType TimerFired :EventData 7 :LinkEffect ()}"
                  "{:Link 3 :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:SendEvent(0 0 TimerFired :GInteger 7))}"},
        Undecided{"field_that_a_variable_names",
                  "{:EntryField 1 :OrigBoxSize 100 30} {:ObjectRefVar 2 :OrigValue :ObjectRef 1}"
                  "{:Link 3 :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:SetInteractionStatus(:IndirectRef 2 TRUE))}"},
        Undecided{"interaction_with_a_status_from_a_variable",
                  "{:EntryField 1 :OrigBoxSize 100 30} {:BooleanVar 2 :OrigValue TRUE}"
                  "{:Link 3 :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:SetInteractionStatus(1 :IndirectRef 2))}"},
        Undecided{"movement_and_slot_from_a_variable",
                  "{:IntegerVar 1 :OrigValue 9} {:Text 2 :OrigBoxSize 100 40}"
                  "{:TokenGroup 3 :TokenGroupItems ((2))}"
                  "{:Link 4 :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:Move(3 :IndirectRef 1) :CallActionSlot(3 :IndirectRef 1))}"},
        Undecided{"program_that_takes_anything",
                  "{:BooleanVar 1 :OrigValue TRUE} {:ResidentPrg 2 :Name \"DBG\"}"
                  "{:Link 4 :EventSource 0 :EventType UserInput "
                  ":LinkEffect (:Call(2 1 :GInteger 1 :GBoolean TRUE))}"},
        Undecided{
            "text_in_a_box_that_an_action_resizes",
            "{:Text 1 :OrigContent \"A text that is longer than its box\" :OrigBoxSize 40 20}"
            "{:Link 4 :EventSource 0 :EventType UserInput :LinkEffect (:SetBoxSize(1 600 40))}"},
        Undecided{
            "visible_that_an_action_moves",
            "{:Rectangle 1 :OrigBoxSize 9 9 :OrigPosition 900 0}"
            "{:Link 4 :EventSource 0 :EventType UserInput :LinkEffect (:SetPosition(1 0 0))}"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace mheg
