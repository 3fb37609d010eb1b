// How the interpreter runs a list of actions: which results end it, which actions it skips, and
// what it returns.
#include "actions/actions.h"
#include "stage.h"
#include "support/text_content.h"

namespace korvel::test {
namespace {

using RunActionsTest = Stage;

constexpr char kVariables[] = "{:IntegerVar 1 :OrigValue 0} {:IntegerVar 2 :OrigValue 7}"
                              "{:OStringVar 3 :OrigValue \"text\"} {:BooleanVar 4 :OrigValue FALSE}"
                              "{:ObjectRefVar 5 :OrigValue :ObjectRef 1}"
                              "{:ContentRefVar 6 :OrigValue :ContentRef \"~/c\"}"
                              "{:Text 10 :InitiallyActive FALSE :OrigContent \"x\""
                              " :OrigBoxSize 10 10}";

TEST_F(RunActionsTest, an_empty_list_and_no_list_do_nothing) {
  Start(kVariables);
  const ActionList empty;
  EXPECT_EQ(RunActions(Scope::ApplicationFirst, {&empty, CurrentApplication()}, "~/a"),
            Status::Done);
  EXPECT_EQ(RunActions(Scope::ApplicationFirst, {}, "~/a"), Status::Done);
}

TEST_F(RunActionsTest, quit_ends_the_list_and_requests_a_restart) {
  Start(kVariables);
  EXPECT_EQ(Run(":Add(1 1) :Add(1 1) :Quit(0) :LockScreen(0)"), Status::Failure);
  EXPECT_EQ(CurrentApplication(), nullptr);
  ASSERT_EQ(TheHost().restarts.size(), 1U);
  EXPECT_EQ(TheHost().restarts[0], RestartReason::QuitWithoutParent);
}

TEST_F(RunActionsTest, an_action_after_quit_is_not_run) {
  AddFile("b", R"({:Application ("~/b" 0) :Items ({:IntegerVar 1 :OrigValue 0})})");
  Start(kVariables);
  EXPECT_EQ(Run(R"(:Spawn(("~/b" 0)))"), Status::Replaced);
  const OwnedGroup list = ParseText(R"({:Application ("~/b" 0) :OnCloseDown (:Add(1 1) :Quit(0)
                    :SetCachePriority(("~/a" 0) 5))})");
  EXPECT_EQ(RunActions(Scope::ApplicationFirst, {&list->OnCloseDown, CurrentApplication()}, "~/b"),
            Status::Replaced);
  ASSERT_NE(CurrentApplication(), nullptr);
  EXPECT_EQ(CurrentApplication()->Reference.GroupIdentifier.View(), "~/a");
  EXPECT_EQ(CurrentApplication()->GroupCachePriority, 127);
}

TEST_F(RunActionsTest, an_unknown_action_number_is_reported_and_the_rest_runs) {
  Start(kVariables);
  ActionList list;
  ASSERT_NE(list.Append(ElementaryAction{}), nullptr);
  ElementaryAction unknown;
  unknown.ActionType = 120;
  ASSERT_NE(list.Append(std::move(unknown)), nullptr);
  ElementaryAction add;
  add.ActionType = static_cast<std::uint8_t>(Action::Add);
  add.Target = ReferenceValue(1);
  add.Parameters = ParametersOf(IntegerValue(3));
  ASSERT_NE(list.Append(std::move(add)), nullptr);
  testing::internal::CaptureStdout();
  EXPECT_EQ(RunActions(Scope::ApplicationFirst, {&list, CurrentApplication()}, "~/a"),
            Status::Refused);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "RunActions error ActionIndex 0\nRunActions error ActionIndex 120\n");
  EXPECT_EQ(Integer(1), 3);
}

TEST_F(RunActionsTest, an_action_on_a_class_that_does_not_accept_it_is_skipped_silently) {
  Start(kVariables);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":SetVariable(10 :GInteger 1) :Add(3 1) :Add(77 1) :Add(1 4)"), Status::Done);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(Integer(1), 4);
}

TEST_F(RunActionsTest, an_indirect_target_is_read_from_an_object_reference_variable) {
  Start(kVariables);
  EXPECT_EQ(Run(":Add(:IndirectRef 5 2) :Add(:IndirectRef 2 100) :Add(:IndirectRef 77 100)"),
            Status::Done);
  EXPECT_EQ(Integer(1), 2);
  EXPECT_EQ(Integer(2), 7);
}

TEST_F(RunActionsTest, indirect_parameters_are_read_from_variables_of_their_class) {
  Start(kVariables);
  EXPECT_EQ(Run(":Add(1 :IndirectRef 2) :Add(1 :IndirectRef 3) :Add(1 :IndirectRef 77)"),
            Status::Done);
  EXPECT_EQ(Integer(1), 7);
  EXPECT_EQ(Run(":Append(3 :IndirectRef 3) :SetOverwriteMode(10 :IndirectRef 4)"), Status::Done);
  EXPECT_EQ(Octets(3), "texttext");
}

TEST_F(RunActionsTest, an_action_without_a_required_parameter_is_skipped) {
  Start(kVariables);
  EXPECT_EQ(RunOne(Action::Add, 1, {}), Status::Done);
  EXPECT_EQ(RunOne(Action::SetVariable, 1, {}), Status::Done);
  EXPECT_EQ(RunOne(Action::TestVariable, 1, ParametersOf(IntegerValue(1))), Status::Done);
  EXPECT_EQ(RunOne(Action::SetData, 10, {}), Status::Done);
  EXPECT_EQ(RunOne(Action::SetPosition, 10, ParametersOf(IntegerValue(1))), Status::Done);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(RunActionsTest, a_group_name_with_number_0_refers_to_the_group_itself) {
  Start(kVariables);
  EXPECT_EQ(Run(R"(:LockScreen(("~/a" 0)) :LockScreen(("/a" 0)))"), Status::Done);
  EXPECT_EQ(CurrentApplication()->LockCount, 2);
}

TEST_F(RunActionsTest, unsupported_actions_have_no_effect) {
  Start(std::string(kVariables) + "{:PushButton 20 :OrigBoxSize 9 9 :OrigLabel \"old\"}"
                                  "{:SwitchButton 21 :OrigBoxSize 9 9 :ButtonStyle checkbox}"
                                  "{:Text 22 :OrigBoxSize 9 9}");
  const std::string before = Stack();
  EXPECT_EQ(Run(":Clone(22 5) :OpenConnection(0 4 \"p\" \"a\" 1) :CloseConnection(0 1)"
                ":GetCursorPosition(0 1 2) :SetCursorPosition(0 9 9) :SetCursorShape(0 22)"
                ":GetLabel(20 3) :SetLabel(20 \"new\") :GetSelectionStatus(21 4) :Toggle(21)"
                ":Unload(22) :Add(1 1)"),
            Status::Done);
  EXPECT_EQ(Integer(1), 1);
  EXPECT_EQ(Integer(2), 7);
  EXPECT_EQ(Octets(3), "text");
  EXPECT_FALSE(Boolean(4));
  EXPECT_EQ(Object<PushButton>(20).Label.View(), "old");
  EXPECT_FALSE(Object<SwitchButton>(21).SelectionStatus);
  EXPECT_TRUE(Object<Text>(22).AvailabilityStatus);
  EXPECT_TRUE(IsRunning(22));
  EXPECT_EQ(Stack(), before);
}

TEST_F(RunActionsTest, a_transition_in_a_scenes_list_returns_its_own_result) {
  AddScene("t", "");
  StartWithScene(kVariables, "");
  EXPECT_EQ(Run(R"(:TransitionTo(("~/s" 0)) :Add(("~/a" 1) 1))", Scope::SceneFirst),
            Status::Refused);
  EXPECT_EQ(Run(R"(:TransitionTo(("~/t" 0)) :Add(("~/a" 1) 1))", Scope::SceneFirst), Status::Done);
  EXPECT_EQ(CurrentScene()->Reference.GroupIdentifier.View(), "~/t");
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(RunActionsTest, a_transition_in_the_applications_list_returns_replaced_even_when_refused) {
  StartWithScene(kVariables, "");
  EXPECT_EQ(Run(R"(:TransitionTo(("~/s" 0)) :Add(1 1))"), Status::Replaced);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(RunActionsTest, a_transition_reads_an_indirect_name_from_a_string_or_a_reference) {
  AddScene("t", "");
  AddScene("u", "");
  Start("{:OStringVar 1 :OrigValue \"~/t\"} {:ObjectRefVar 2 :OrigValue :ObjectRef (\"~/u\" 0)}"
        "{:IntegerVar 3 :OrigValue 0}");
  EXPECT_EQ(Run(":TransitionTo(:IndirectRef 1)"), Status::Replaced);
  EXPECT_EQ(CurrentScene()->Reference.GroupIdentifier.View(), "~/t");
  EXPECT_EQ(Run(":TransitionTo(:IndirectRef 2)"), Status::Replaced);
  EXPECT_EQ(CurrentScene()->Reference.GroupIdentifier.View(), "~/u");
  EXPECT_EQ(Run(":TransitionTo(:IndirectRef 3) :Add(3 1)"), Status::Done);
  EXPECT_EQ(Integer(3), 1);
}

TEST_F(RunActionsTest, a_transition_ignores_its_connection_and_its_effect) {
  AddFile("text", "{:Scene (\"~/text\" 0)}");
  for (const char* arguments : {":IndirectRef 77 1", "NULL :IndirectRef 77", ":IndirectRef 3"}) {
    StartWithScene("{:ContentRefVar 3 :OrigValue :ContentRef \"~/text\"}", "");
    AddScene("t", "");
    TheHost().fetched.clear();
    EXPECT_EQ(Run(std::string(R"(:TransitionTo(("~/t" 0) )") + arguments + ")"), Status::Replaced);
    EXPECT_EQ(CurrentScene()->Reference.GroupIdentifier.View(), "~/t") << arguments;
    EXPECT_EQ(TheHost().fetched, std::vector<std::string>{"t"}) << arguments;
  }
}

TEST_F(RunActionsTest, a_refused_launch_ends_the_list_and_returns_replaced) {
  AddScene("t", "");
  Start(kVariables);
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(R"(:Launch(("~/t" 0)) :Add(1 1))"), Status::Replaced);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Launch error\n");
  EXPECT_EQ(Run(R"(:Launch(("~/missing" 0)) :Add(1 1))"), Status::Replaced);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(RunActionsTest, a_launch_reads_an_indirect_name_from_an_octet_string_variable) {
  AddFile("b", R"({:Application ("~/b" 0)})");
  Start("{:OStringVar 1 :OrigValue \"~/b\"}");
  EXPECT_EQ(Run(":Launch(:IndirectRef 1)"), Status::Replaced);
  EXPECT_EQ(CurrentApplication()->Reference.GroupIdentifier.View(), "~/b");
}

TEST_F(RunActionsTest, a_launch_without_a_name_in_its_variable_fails_like_a_missing_file) {
  Start("{:ObjectRefVar 2 :OrigValue :ObjectRef (\"~/b\" 0)} {:IntegerVar 3 :OrigValue 0}" +
        Watch(0, "EngineEvent", "missing", "2"));
  for (const char* variable : {"2", "3", "77"}) {
    const Generations before = CurrentGenerations();
    EXPECT_EQ(Run(":Launch(:IndirectRef " + std::string(variable) + ") :Add(3 1)"),
              Status::Replaced);
    EXPECT_EQ(Integer(3), 0);
    EXPECT_EQ(TakeLog(), "missing");
    EXPECT_EQ(CurrentGenerations().application, static_cast<std::uint8_t>(before.application + 1));
  }
}

TEST_F(RunActionsTest, a_failed_launch_ends_the_list_and_returns_failure) {
  TheHost().files["junk"] = "junk";
  Start(kVariables);
  EXPECT_EQ(Run(R"(:Launch(("~/junk" 0)) :Add(1 1))"), Status::Failure);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(RunActionsTest, an_outer_list_ends_when_an_inner_one_changes_the_scene) {
  AddScene("t", "");
  StartWithScene(std::string(kVariables) +
                     R"({:Link 20 :Shared TRUE :EventSource 1 :EventType TestEvent
                         :LinkEffect (:TransitionTo(("~/t" 0)))})",
                 "");
  EXPECT_EQ(Run(":Run(20) :Activate(20) :TestVariable(1 1 :GInteger 0) :Add(2 1)"),
            Status::Replaced);
  EXPECT_EQ(Integer(2), 7);
}

TEST_F(RunActionsTest, a_refused_spawn_does_not_end_the_list) {
  AddScene("t", "");
  Start(kVariables);
  EXPECT_EQ(Run(R"(:Spawn(("~/t" 0)) :Spawn(("~/missing" 0)) :Add(1 1))"), Status::Done);
  EXPECT_EQ(Integer(1), 1);
}

TEST_F(RunActionsTest, a_successful_spawn_ends_the_list) {
  AddFile("b", R"({:Application ("~/b" 0) :Items ({:IntegerVar 1 :OrigValue 0})})");
  Start(kVariables);
  EXPECT_EQ(Run(R"(:Spawn(("~/b" 0)) :Add(("~/b" 1) 1))"), Status::Replaced);
  EXPECT_EQ(FindObject(Scope::ApplicationFirst, "~/b", 1).As<IntegerVariable>().Value, 0);
}

TEST_F(RunActionsTest, a_refused_action_does_not_end_the_list) {
  Start(kVariables);
  EXPECT_EQ(Run(":Divide(1 0) :SetTransparency(10 1000) :SetBoxSize(10 -1 5) :Add(1 1)"),
            Status::Done);
  EXPECT_EQ(Integer(1), 1);
}

TEST_F(RunActionsTest, the_screen_is_redrawn_when_the_last_lock_is_released) {
  Start(kVariables);
  const int before = ThePresentation().redraws;
  EXPECT_EQ(Run(":LockScreen(0) :LockScreen(0) :UnlockScreen(0)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before);
  EXPECT_EQ(Run(":UnlockScreen(0)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 1);
  EXPECT_EQ(Run(":UnlockScreen(0)"), Status::Done);
  EXPECT_EQ(ThePresentation().redraws, before + 1);
  EXPECT_EQ(CurrentApplication()->LockCount, 0);
}

TEST_F(RunActionsTest, a_failed_redraw_ends_the_list) {
  Start(kVariables);
  ThePresentation().onRedraw = [] { return Status::Failure; };
  EXPECT_EQ(Run(":LockScreen(0) :UnlockScreen(0) :Add(1 1)"), Status::Failure);
  EXPECT_EQ(Integer(1), 0);
}

TEST_F(RunActionsTest, only_an_available_scene_accepts_an_input_register) {
  StartWithScene(kVariables, "");
  const auto set = [](std::int32_t value) {
    ElementaryAction action;
    action.ActionType = static_cast<std::uint8_t>(Action::SetInputRegister);
    action.Target = ReferenceValue(0);
    action.Parameters = ParametersOf(IntegerValue(value));
    ActionList list;
    EXPECT_NE(list.Append(std::move(action)), nullptr);
    return RunActions(Scope::SceneFirst, {&list, CurrentScene()}, "~/s");
  };
  EXPECT_EQ(set(3), Status::Done);
  EXPECT_EQ(CurrentScene()->InputEventReg, 3);
  CurrentScene()->AvailabilityStatus = false;
  EXPECT_EQ(set(5), Status::Done);
  EXPECT_EQ(CurrentScene()->InputEventReg, 3);
}

TEST_F(RunActionsTest, send_event_raises_the_event_with_the_given_source_and_data) {
  StartWithScene(std::string(kVariables) + Watch(2, "UserInput", "none") +
                     Watch(2, "UserInput", "six", "6") + Watch(2, "UserInput", "true", "TRUE"),
                 "");
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput :GInteger 6))"), Status::Done);
  EXPECT_EQ(TakeLog(), "none six");
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput :GBoolean TRUE))"), Status::Done);
  EXPECT_EQ(TakeLog(), "none true");
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput))"), Status::Done);
  EXPECT_EQ(TakeLog(), "none");
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput :GOctetString "6"))"), Status::Done);
  EXPECT_EQ(TakeLog(), "none");
}

TEST_F(RunActionsTest, an_event_whose_data_cannot_be_read_is_not_sent) {
  StartWithScene(std::string(kVariables) + "{:Text 50 :OrigContent \"\" :OrigBoxSize 9 9}" +
                     Watch(2, "UserInput", "sent"),
                 "");
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput :GInteger :IndirectRef 77))"), Status::Done);
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput :GInteger :IndirectRef 50))"), Status::Done);
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(Run(R"(:SendEvent(("~/s" 0) 2 UserInput :GInteger :IndirectRef 1))"), Status::Done);
  EXPECT_EQ(TakeLog(), "sent");
}

TEST_F(RunActionsTest, each_group_stores_its_own_cache_priority) {
  StartWithScene(kVariables, "");
  EXPECT_EQ(Run(R"(:SetCachePriority(0 1) :SetCachePriority(("~/s" 0) 2))"), Status::Done);
  EXPECT_EQ(CurrentApplication()->GroupCachePriority, 1);
  EXPECT_EQ(CurrentScene()->GroupCachePriority, 2);
}

// The generation counters are bytes. After 256 changes they have their old values, and only the end
// of its group stops a list.
TEST_F(RunActionsTest, a_list_of_an_ended_scene_stops_even_if_the_counters_have_wrapped) {
  AddScene("u", R"({:Text 1 :OrigContent "x" :OrigBoxSize 9 9})");
  StartWithScene("{:IntegerVar 9 :OrigValue 0}", R"({:IntegerVar 1 :OrigValue 0}
      {:Link 2 :EventSource 1 :EventType TestEvent :LinkEffect (:TransitionTo(("~/u" 0)))})");
  const Generations before = CurrentGenerations();
  ThePresentation().onRedraw = [] {
    CurrentGenerations().scene = static_cast<std::uint8_t>(CurrentGenerations().scene + 255);
    return Status::Done;
  };
  EXPECT_EQ(Run(R"(:TestVariable(1 1 :GInteger 0) :Add(("~/a" 9) 1))", Scope::SceneFirst),
            Status::Replaced);
  EXPECT_EQ(CurrentGenerations(), before) << "the counters have wrapped";
  EXPECT_EQ(CurrentScene()->Reference.GroupIdentifier.View(), "~/u");
  EXPECT_EQ(Integer(9), 0);
}

TEST_F(RunActionsTest, a_list_that_triggers_itself_without_end_is_stopped) {
  Start(std::string(kVariables) + "{:Link 20 :EventSource 1 :EventType TestEvent"
                                  " :LinkEffect (:Add(2 1) :TestVariable(1 1 :GInteger 0))}");
  testing::internal::CaptureStdout();
  EXPECT_EQ(Run(":TestVariable(1 1 :GInteger 0) :Add(1 1)"), Status::Failure);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Event nesting too deep\n");
  EXPECT_EQ(Integer(1), 0);
}

}  // namespace
}  // namespace korvel::test
