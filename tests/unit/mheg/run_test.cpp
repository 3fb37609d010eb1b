// `mheg run`: the steps of a script, expectations, the virtual clock, the trace with its reasons,
// and the scene graph.
#include <vector>

#include "unit/mheg/tool.h"

namespace mheg {
namespace {

std::string OnKey(int number, int key, const std::string& effect, const std::string& more = "") {
  return "{:Link " + std::to_string(number) + " " + more +
         " :EventSource 0 :EventType UserInput :EventData " + std::to_string(key) +
         " :LinkEffect (" + effect + ")}\n";
}

void ExpectHas(const std::string& text, const std::string& part) {
  EXPECT_NE(text.find(part), std::string::npos) << "no " << part << "\nin " << text;
}
void ExpectLacks(const std::string& text, const std::string& part) {
  EXPECT_EQ(text.find(part), std::string::npos) << part << "\nin " << text;
}

class Run : public Tool {
 protected:
  // Writes an application that enters the scene "~/s", and that scene with these items.
  void WriteScene(const std::string& items, const std::string& attributes = "") const {
    Write("a.mheg", "{:Application (\"~/a\" 0) :Items (\n{:IntegerVar 1 :OrigValue 7}\n"
                    "{:Link 2 :EventSource 0 :EventType IsRunning\n"
                    " :LinkEffect (:TransitionTo((\"~/s\" 0)))})}\n");
    Write("s.mheg",
          "{:Scene (\"~/s\" 0) :SceneCS 720 576 " + attributes + " :Items (\n" + items + ")}\n");
  }
  [[nodiscard]] ToolOutcome Keys(const std::string& keys, const std::string& options = "") const {
    return Call("run . --keys '" + keys + "' " + options);
  }
  [[nodiscard]] ToolOutcome Script(const std::string& script,
                                   const std::string& options = "") const {
    Write("t.script", script);
    return Call("run . --script t.script " + options);
  }
  // The trace of pressing keys in a scene with these items.
  [[nodiscard]] std::string TraceOf(const std::string& items, const std::string& keys = "red",
                                    const std::string& attributes = "") const {
    WriteScene(items, attributes);
    return Keys(keys, "--trace").output;
  }
  // Expects that the script fails the run with this message.
  void ExpectFailure(const std::string& script, const std::string& message) const {
    const ToolOutcome run = Script(script);
    EXPECT_EQ(run.status, 1) << script;
    EXPECT_EQ(run.output, message);
  }
  void ExpectSuccess(const std::string& script) const {
    const ToolOutcome run = Script(script);
    EXPECT_EQ(run.status, 0) << script << run.output;
    EXPECT_EQ(run.output, "");
  }
};

const char* const kCounting = "{:IntegerVar 5 :OrigValue 0}\n";

// ---- Steps ----

TEST_F(Run, plays_source_files_that_are_not_compiled) {
  WriteScene(kCounting + OnKey(6, 100, ":Add(5 1)"));
  ExpectSuccess("key Red\nkey Red\nexpect variable 5 2\nexpect scene ~/s\nexpect application ~/a\n"
                "expect silence\nexit\n");
}

TEST_F(Run, plays_a_compiled_carousel_in_the_same_way) {
  WriteScene(kCounting + OnKey(6, 100, ":Add(5 1)"));
  ASSERT_EQ(Call("compile a.mheg s.mheg -o built/").status, 0);
  Write("t.script", "key Red\nexpect variable 5 1\n");
  EXPECT_EQ(Call("run built --script t.script").status, 0);
}

TEST_F(Run, presses_the_keys_of_the_command_line_repeatedly_and_waits) {
  WriteScene("{:Link 6 :EventSource 0 :EventType TimerFired :EventData 1 :LinkEffect "
             "(:TransitionTo((\"~/t\" 0)))}" +
             OnKey(7, 2, ":Add((\"~/a\" 1) 1) :SetTimer(0 1 1900)"));
  Write("t.mheg", "{:Scene (\"~/t\" 0) :SceneCS 720 576}");
  const auto scene = [&](const std::string& keys) {
    const ToolOutcome run = Keys(keys, "--trace");
    EXPECT_EQ(run.status, 0);
    return run.output.find("Scene ~/t becomes current") == std::string::npos ? "s" : "t";
  };
  EXPECT_STREQ(scene("down*3 wait:1s"), "s");
  EXPECT_STREQ(scene("down*3 wait:1899"), "s");
  EXPECT_STREQ(scene("down*3 wait:1900ms"), "t");
  EXPECT_STREQ(scene("down wait:2s"), "t");
}

TEST_F(Run, skips_the_steps_of_the_player_that_need_a_picture) {
  WriteScene("");
  ExpectSuccess("# a remark\n\nshot a.png\nuntil 1 2 #FF0000\ncatch 1 2 #FF0000 b.png\nexpose\n");
}

TEST_F(Run, ignores_steps_after_the_exit) {
  WriteScene("");
  ExpectSuccess("exit\nexpect scene ~/other\n");
}

TEST_F(Run, rejects_an_unknown_word_before_anything_runs) {
  WriteScene("");
  struct Case {
    const char* script;
    const char* problem;
  };
  const Case cases[] = {
      {"key Red\npress Red\n", "mheg: t.script:2: no such step: press Red (steps: key NAME"},
      {"key Purple\n", "mheg: t.script:1: no such key: Purple (keys: Up, Down"},
      {"wait soon\n", "mheg: t.script:1: no such time: soon ("},
      {"expect weather fine\n", "mheg: t.script:1: no such state: weather fine (states: scene"},
      {"expect variable 5\n", "mheg: t.script:1: no such state: variable 5 (states: scene"},
      {"exit now\n", "mheg: t.script:1: no such step: exit now (steps:"},
  };
  for (const Case& one : cases) {
    const ToolOutcome run = Script(one.script, "--trace");
    EXPECT_EQ(run.status, 2) << one.script;
    EXPECT_EQ(run.output.rfind(one.problem, 0), 0U) << run.output;
  }
  EXPECT_EQ(Keys("down purple").status, 2);
  EXPECT_EQ(Keys("down*x").status, 2);
  EXPECT_EQ(Keys("wait:").status, 2);
}

TEST_F(Run, rejects_a_script_that_cannot_be_read) {
  WriteScene("");
  // Address 0 of a process is not mapped, so reading its memory fails for every user.
  ToolOutcome run = Call("run . --script /proc/self/mem");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "mheg: /proc/self/mem: cannot be read\n");
  Write("t.script", "expect scene ~/other\n");
  fs::permissions(folder_ / "t.script", fs::perms::none);
  run = Call("run . --script t.script", Restricted());
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "mheg: t.script: cannot be read\n");
}

TEST_F(Run, fails_if_there_is_no_application) {
  Write("s.mheg", kScene);
  const ToolOutcome run = Call("run . --keys red");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "mheg: there is no application to start\n");
}

TEST_F(Run, a_start_up_file_that_cannot_be_decoded_gets_only_one_reason) {
  Write("a", "\xA0\x01");
  const std::string trace = Keys("red", "--trace").output;
  ExpectHas(trace, "the file holds no group");
  ExpectHas(trace, "Parser failed");
  ExpectLacks(trace, "the file holds a scene");
}

TEST_F(Run, fails_if_a_source_file_cannot_be_compiled) {
  WriteScene("");
  Write("bad.mheg", "{");
  const ToolOutcome run = Call("run . --keys red");
  EXPECT_EQ(run.status, 1);
  ExpectHas(run.output, "bad.mheg:1:2: found the end of the text");
}

TEST_F(Run, starts_the_application_of_a_path) {
  WriteScene("");
  fs::create_directory(folder_ / "other");
  Write("other/a.mheg", "{:Application (\"~/o\" 0)}");
  Write("t.script", "expect application ~/o\n");
  EXPECT_EQ(Call("run . --start other --script t.script").status, 0);
}

TEST_F(Run, fails_if_the_application_quits_whenever_it_starts) {
  Write("a.mheg", "{:Application (\"~/a\" 0) :Items ({:Link 1 :EventSource 0 :EventType IsRunning "
                  ":LinkEffect (:Quit(0))})}");
  const ToolOutcome run = Call("run .");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "mheg: the application quits whenever it starts\n");
}

TEST_F(Run, starts_again_after_the_application_has_quit) {
  WriteScene(OnKey(6, 100, ":Quit((\"~/a\" 0))") + OnKey(7, 101,
                                                         ":SetVariable((\"~/a\" 1) "
                                                         ":GInteger 8)"));
  ExpectSuccess("key Green\nexpect variable ~/a 1 8\nkey Red\nexpect variable ~/a 1 7\n"
                "expect scene ~/s\n");
}

// ---- The virtual clock ----

TEST_F(Run, without_steps_ends_when_nothing_can_happen_any_more) {
  WriteScene("{:Link 6 :EventSource 0 :EventType IsRunning :LinkEffect (:SetTimer(0 1 30000))}");
  const ToolOutcome run = Call("run . --trace");
  EXPECT_EQ(run.status, 0);
  ExpectHas(run.output, "\n   30.000  timer 1 expires\n");
  ExpectHas(run.output, "\n   30.000  close\n");
}

TEST_F(Run, without_steps_ends_after_60_seconds_although_timers_are_pending) {
  WriteScene("{:Link 6 :EventSource 0 :EventType IsRunning :LinkEffect (:SetTimer(0 1 0))}"
             "{:Link 7 :EventSource 0 :EventType TimerFired :LinkEffect (:SetTimer(0 1 0))}");
  const ToolOutcome run = Call("run . --trace");
  EXPECT_EQ(run.status, 0);
  ExpectHas(run.output, "\n   60.000  close\n");
}

TEST_F(Run, timers_expire_in_the_order_of_their_times) {
  WriteScene("{:OStringVar 5 :OrigValue \"\"}"
             "{:Link 6 :EventSource 0 :EventType IsRunning :LinkEffect "
             "(:SetTimer(0 1 200) :SetTimer(0 2 100) :SetTimer(0 3 200) :SetTimer(0 4 -1))}"
             "{:Link 7 :EventSource 0 :EventType TimerFired :EventData 1 :LinkEffect "
             "(:Append(5 \"1\"))}"
             "{:Link 8 :EventSource 0 :EventType TimerFired :EventData 2 :LinkEffect "
             "(:Append(5 \"2\"))}"
             "{:Link 9 :EventSource 0 :EventType TimerFired :EventData 3 :LinkEffect "
             "(:Append(5 \"3\"))}");
  ExpectSuccess("wait 99\nexpect variable 5 \"\"\nwait 1\nexpect variable 5 2\nwait 1s\n"
                "expect variable 5 \"213\"\n");
}

TEST_F(Run, the_date_option_sets_the_local_time_which_advances) {
  WriteScene("{:ResidentPrg 5 :Name \"GCD\"}{:BooleanVar 6 :OrigValue FALSE}"
             "{:IntegerVar 7 :OrigValue 0}{:IntegerVar 8 :OrigValue 0}" +
             OnKey(9, 100, ":Call(5 6 :GObjectRef 7 :GObjectRef 8)"));
  // 51544 is the first of January 2000. The time is in decimal digits of four bits: 0x230401.
  Write("t.script", "wait 2s\nkey Red\nexpect variable 7 51544\nexpect variable 8 2294785\n");
  EXPECT_EQ(Call("run . --script t.script --date 2000-01-01T25:03:59").status, 2);
  EXPECT_EQ(Call("run . --script t.script --date 2000-13-01").status, 2);
  EXPECT_EQ(Call("run . --script t.script --date 2000-1-01ab").status, 2);
  EXPECT_EQ(Call("run . --script t.script --date 2000-01-01T").status, 2);
  EXPECT_EQ(Call("run . --script t.script --date 2000-01-01").status, 1);
  const ToolOutcome run = Call("run . --script t.script --date 2000-01-01T23:03:59");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
}

TEST_F(Run, each_file_read_takes_the_latency) {
  WriteScene("");
  ExpectHas(Keys("", "--trace --latency 250").output, "\n    0.500  close\n");
}

// ---- Files ----

TEST_F(Run, a_missing_scene_raises_the_engine_event) {
  WriteScene("");
  Write("a.mheg", "{:Application (\"~/a\" 0) :Items ({:IntegerVar 1 :OrigValue 0}"
                  "{:Link 2 :EventSource 0 :EventType IsRunning "
                  ":LinkEffect (:TransitionTo((\"~/s\" 0)))}"
                  "{:Link 3 :EventSource 0 :EventType EngineEvent :EventData 2 "
                  ":LinkEffect (:SetVariable(1 :GInteger 5))})}");
  Write("t.script", "expect scene none\nexpect variable ~/a 1 5\n");
  EXPECT_EQ(Call("run . --script t.script --missing s").output, "");
  EXPECT_EQ(Call("run . --script t.script").status, 1);
  EXPECT_EQ(Call("run . --missing nothing").status, 2);
}

TEST_F(Run, a_missing_picture_raises_the_engine_event) {
  Write("picture.png", "any bytes");
  WriteScene("{:Bitmap 5 :OrigContent :ContentRef (\"~/picture.png\") :OrigBoxSize 10 10}");
  Write("a.mheg", "{:Application (\"~/a\" 0) :Items ({:IntegerVar 1 :OrigValue 0}"
                  "{:Link 2 :EventSource 0 :EventType IsRunning "
                  ":LinkEffect (:TransitionTo((\"~/s\" 0)))}"
                  "{:Link 3 :Shared TRUE :EventSource 0 :EventType EngineEvent :EventData 3 "
                  ":LinkEffect (:SetVariable(1 :GInteger 5))})}");
  Write("t.script", "expect variable ~/a 1 5\n");
  EXPECT_EQ(Call("run . --script t.script --missing picture.png").output, "");
  EXPECT_EQ(Call("run . --script t.script").output,
            "t.script:1: expected variable ~/a 1 5, found 0\n");
}

// The value of a variable that was set from another one ends in a zero byte.
TEST_F(Run, a_picture_is_found_by_a_path_that_was_copied_between_variables) {
  Write("picture.png", "any bytes");
  WriteScene("{:Bitmap 5 :OrigBoxSize 10 10 :OrigContent :ContentRef (\"~/picture.png\")}"
             "{:ContentRefVar 6 :OrigValue :ContentRef (\"~/picture.png\")}"
             "{:ContentRefVar 7 :OrigValue :ContentRef (\"~/none\")}"
             "{:IntegerVar 8 :OrigValue 0}" +
             OnKey(9, 100,
                   ":SetVariable(7 :GContentRef :IndirectRef 6) "
                   ":SetData(5 :NewRefContent (:IndirectRef 7))") +
             "{:Link 10 :EventSource 0 :EventType EngineEvent :EventData 3 "
             ":LinkEffect (:SetVariable(8 :GInteger 5))}");
  ExpectSuccess("key Red\nexpect variable 8 0\n");
}

// ---- Expectations ----

TEST_F(Run, an_unmet_expectation_is_reported_with_its_line_and_the_actual_state) {
  WriteScene("{:OStringVar 5 :OrigValue \"one two\"}{:BooleanVar 6 :OrigValue TRUE}"
             "{:ObjectRefVar 7 :OrigValue :ObjectRef 5}"
             "{:ContentRefVar 8 :OrigValue :ContentRef \"~/x\"}"
             "{:Rectangle 10 :OrigBoxSize 10 10 :OrigPosition 3 -4}"
             "{:Rectangle 11 :InitiallyActive FALSE :OrigBoxSize 10 10}"
             "{:Text 12 :OrigContent \"a \\\"quote\\\"\" :OrigBoxSize 10 10}");
  ExpectSuccess("expect variable 5 \"one two\"\nexpect variable 6 TRUE\n"
                "expect variable ~/s 7 (\"~/s\" 5)\n"
                "expect running 10\nexpect available 10\nexpect stopped 11\n"
                "expect position 10 3 -4\nexpect text 12 \"a \\\"quote\\\"\"\n");
  ExpectFailure("# first\nexpect variable 5 one\n",
                "t.script:2: expected variable 5 one, found \"one two\"\n");
  ExpectFailure("expect variable 6 FALSE\n", "t.script:1: expected variable 6 FALSE, found TRUE\n");
  ExpectFailure("expect variable 1 8\n", "t.script:1: expected variable 1 8, found 7\n");
  ExpectFailure("expect variable ~/s 1 7\n",
                "t.script:1: expected variable ~/s 1 7, found no such object\n");
  ExpectFailure("expect variable 10 7\n",
                "t.script:1: expected variable 10 7, found an object of class Rectangle\n");
  ExpectFailure("expect running 11\n", "t.script:1: expected running 11, found not available\n");
  ExpectFailure("expect available 11\n",
                "t.script:1: expected available 11, found not available\n");
  ExpectFailure("expect stopped 10\n", "t.script:1: expected stopped 10, found running\n");
  ExpectFailure("expect position 10 3 4\n", "t.script:1: expected position 10 3 4, found 3 -4\n");
  ExpectFailure("expect scene ~/t\n", "t.script:1: expected scene ~/t, found ~/s\n");
  ExpectFailure("expect application ~/b\nexpect scene none\n",
                "t.script:1: expected application ~/b, found ~/a\n"
                "t.script:2: expected scene none, found ~/s\n");
}

TEST_F(Run, a_list_is_compared_by_its_first_item_its_items_and_their_selection) {
  WriteScene("{:Text 1 :InitiallyActive FALSE :OrigBoxSize 10 10 :OrigContent \"\"}"
             "{:Text 2 :InitiallyActive FALSE :OrigBoxSize 10 10 :OrigContent \"\"}"
             "{:ListGroup 5 :TokenGroupItems ((1) (2)) :Positions ((0 0)) :WrapAround TRUE "
             ":MultipleSelection FALSE}" +
             OnKey(6, 100, ":ScrollItems(5 1) :SelectItem(5 2)"));
  ExpectSuccess("expect list 5 1 1 2\nexpect list 5 1\nkey Red\nexpect list 5 2 1 2*\n");
  ExpectFailure("key Red\nexpect list 5 1 1 2\n",
                "t.script:2: expected list 5 1 1 2, found 2 1 2*\n");
}

TEST_F(Run, expecting_silence_fails_after_a_message) {
  WriteScene("{:TokenGroup 5 :MovementTable ((1)) :TokenGroupItems ((6))}"
             "{:Rectangle 6 :OrigBoxSize 1 1}" +
             OnKey(7, 100, ":Move(5 9)"));
  ExpectFailure("expect silence\nkey Red\nexpect silence\n",
                "MovementIdentifier Error\n"
                "t.script:3: expected silence, found the message MovementIdentifier Error\n");
}

// ---- The trace ----

TEST_F(Run, the_trace_nests_consequences_and_shows_times_and_source_lines) {
  WriteScene("{:IntegerVar 5 :OrigValue 0}\n"
             "{:Link 6 :EventSource 0 :EventType UserInput :EventData 100 :LinkEffect (\n"
             "  :Add(5 2)\n"
             "  :TestVariable(5 1 :GInteger 2)\n"
             ")}\n"
             "{:Link 7 :EventSource 5 :EventType TestEvent :EventData TRUE :LinkEffect (\n"
             "  :SetTimer(0 9 1500) :SetVariable((\"~/a\" 1) :GInteger 3)\n"
             ")}\n");
  const ToolOutcome run = Keys("red wait:2s", "--trace");
  EXPECT_EQ(run.status, 0);
  const std::size_t key = run.output.find("    0.000  key Red\n");
  ASSERT_NE(key, std::string::npos) << run.output;
  const std::size_t close = run.output.find("    2.000  close\n");
  EXPECT_EQ(run.output.substr(key, close - key),
            "    0.000  key Red\n"
            "    0.000    EngineEvent 100\n"
            "    0.000    UserInput 100 (Red)\n"
            "    0.000      link 6 of ~/s  (s.mheg:3)\n"
            "    0.000        :Add(5 2)  (s.mheg:4)\n"
            "    0.000          IntegerVar 5 of ~/s = 2\n"
            "    0.000        :TestVariable(5 1 :GInteger 2)  (s.mheg:5)\n"
            "    0.000          TestEvent TRUE from IntegerVar 5 of ~/s\n"
            "    0.000            link 7 of ~/s  (s.mheg:7)\n"
            "    0.000              :SetTimer(0 9 1500)  (s.mheg:8)\n"
            "    0.000                timer 9 set to 1500 ms\n"
            "    0.000              :SetVariable((\"~/a\" 1) :GInteger 3)  (s.mheg:8)\n"
            "    0.000                IntegerVar 1 of ~/a = 3\n"
            "    0.000  wait 2000 ms\n"
            "    1.500  timer 9 expires\n"
            "    1.500    TimerFired 9 from Scene ~/s\n");
}

TEST_F(Run, the_trace_shows_files_that_are_read_and_groups_that_start_and_end) {
  WriteScene("");
  const ToolOutcome run = Call("run . --trace");
  EXPECT_EQ(run.output.rfind("    0.000  start\n    0.000    file a read, ", 0), 0U) << run.output;
  ExpectHas(run.output, "    0.000    Application ~/a becomes current\n");
  ExpectHas(run.output, "          Scene ~/s becomes current\n");
  const std::string end = "    0.000    Scene ~/s has ended\n"
                          "    0.000    IsDeleted from Application ~/a\n"
                          "    0.000    Application ~/a has ended\n";
  EXPECT_TRUE(run.output.ends_with(end)) << run.output;
}

TEST_F(Run, the_trace_of_a_compiled_carousel_has_no_source_lines) {
  WriteScene(kCounting + OnKey(6, 100, ":Add(5 1)"));
  ASSERT_EQ(Call("compile a.mheg s.mheg -o built/").status, 0);
  const std::string trace = Call("run built --keys red --trace").output;
  ExpectHas(trace, "      link 6 of ~/s\n");
  ExpectHas(trace, "        :Add(5 1)\n");
}

std::string RedLink(const std::string& effect) { return OnKey(20, 100, effect); }

TEST_F(Run, a_skipped_link_has_a_reason) {
  ExpectHas(TraceOf(OnKey(12, 100, ":Run(5)", ":InitiallyActive FALSE")),
            "link 12 of ~/s skipped: not active  (s.mheg:2)\n");
  std::string six;
  for (int number = 21; number <= 27; ++number) six += OnKey(number, 100, ":Stop(5)");
  const std::string trace = TraceOf(six);
  ExpectHas(trace, "      link 26 of ~/s skipped: sixth link of this event");
  ExpectHas(trace, "      link 25 of ~/s  (");
  ExpectLacks(trace, "      link 26 of ~/s  (");
  Write("t.mheg", "{:Scene (\"~/t\" 0) :SceneCS 720 576}");
  ExpectHas(TraceOf(OnKey(21, 100, ":TransitionTo((\"~/t\" 0))") + OnKey(22, 100, ":Run(5)")),
            "link 22 of ~/s skipped: its group has ended");
}

TEST_F(Run, a_key_that_does_not_reach_the_scene_has_a_reason) {
  ExpectHas(TraceOf("", "up", ":InputEventReg 3"),
            "key Up\n    0.000    input register 3 keeps the key out\n");
  ExpectHas(TraceOf("{:EntryField 5 :OrigBoxSize 10 10}"
                    "{:Link 6 :EventSource 0 :EventType IsRunning :LinkEffect "
                    "(:SetInteractionStatus(5 TRUE))}",
                    "5"),
            "the interaction in progress takes the key\n");
}

TEST_F(Run, a_skipped_action_has_a_reason) {
  const std::string objects =
      "{:IntegerVar 1 :OrigValue 0}{:OStringVar 2 :OrigValue \"\"}{:BooleanVar 3 :OrigValue FALSE}"
      "{:Rectangle 40 :OrigBoxSize 10 10}{:Rectangle 41 :InitiallyActive FALSE :OrigBoxSize 1 1}"
      "{:TokenGroup 50 :MovementTable ((1)) :TokenGroupItems ((40 :ActionSlots (NULL)))}"
      "{:TokenGroup 51 :InitiallyActive FALSE :MovementTable ((1)) :TokenGroupItems ((40))}"
      "{:EntryField 60 :InitiallyActive FALSE :OrigBoxSize 10 10}"
      "{:IntegerVar 4 :InitiallyActive FALSE :OrigValue 0}"
      "{:Link 42 :EventSource 40 :EventType IsStopped :LinkEffect ()}"
      "{:Link 43 :InitiallyActive FALSE :EventSource 40 :EventType IsStopped :LinkEffect ()}";
  struct Case {
    const char* action;
    const char* reason;
  };
  const Case cases[] = {
      {":Move(40 1)", "target 40 is of class Rectangle, Move wants TokenGroup or ListGroup"},
      {":Move(45 1)", "target 45 does not exist"},
      {":Add(1 :IndirectRef 2)", "parameter 1 is missing, cannot be read or is of the wrong type"},
      {":SetVariable(1 :GInteger :IndirectRef 45)",
       "parameter 1 is missing, cannot be read or is of the wrong type"},
      {":TestVariable(1 1 :GInteger :IndirectRef 45)",
       "parameter 2 is missing, cannot be read or is of the wrong type"},
      {":SetVariable(1 :GBoolean TRUE)", "the variable is of another type than the value"},
      {":TestVariable(1 1 :GBoolean TRUE)", "the variable is of another type than the value"},
      {":SetVariable(4 :GInteger 1)", "the object is not available"},
      {":SetPosition(41 1 1)", "the object is not available"},
      {":Move(51 1)", "the object does not run"},
      {":MoveTo(50 1)", "the token is there already"},
      {":Move(50 7)", "nothing at number 7"},
      {":CallActionSlot(50 1)", "nothing at number 1"},
      {":Divide(1 0)", "division by zero"},
      {":GetPosition(40 2 1)",
       "parameter 1 names no variable, or one of another type than the answer"},
      {":SetInteractionStatus(60 TRUE)",
       "the object does not run, or another interaction is in progress"},
      {":Stop(41)", nullptr},
      {":SetHighlightStatus(60 TRUE)", "nothing to do"},
      {":Deactivate(42)", nullptr},
      {":Deactivate(43)", "nothing to do"},
      {":TransitionTo(0)", "it is the current scene"},
      {":TransitionTo((\"CI:x\" 0))", "no name of a file"},
      {":TransitionTo((\"~/none\" 0))", "the file cannot be read"},
      {":TransitionTo((\"~/broken\" 0))", "the file holds no group"},
      {":TransitionTo((\"~/a\" 0))",
       "the file holds a scene instead of an application, or the other way round"},
  };
  Write("broken", "bytes");
  for (const Case& one : cases) {
    const std::string trace = TraceOf(objects + RedLink(one.action));
    const std::size_t action = trace.find(std::string("        ") + one.action + "  (s.mheg:");
    ASSERT_NE(action, std::string::npos) << one.action << "\n" << trace;
    const std::string rest = trace.substr(action, trace.find("  close", action) - action);
    if (one.reason == nullptr) {
      EXPECT_EQ(rest.find("          "), std::string::npos) << rest;
    } else {
      ExpectHas(rest, std::string("          ") + one.reason + "\n");
    }
  }
}

TEST_F(Run, actions_skipped_after_a_rejected_transition_have_a_reason) {
  ExpectHas(TraceOf(RedLink(":TransitionTo((\"~/s\" 0)) :Stop(5)")),
            "        the rest of these actions is skipped");
}

TEST_F(Run, the_trace_shows_messages_below_the_action_that_causes_them) {
  ExpectHas(TraceOf("{:TokenGroup 5 :MovementTable ((1)) :TokenGroupItems ((6))}"
                    "{:Rectangle 6 :OrigBoxSize 1 1}" +
                    RedLink(":Move(5 9)")),
            "          message: MovementIdentifier Error\n");
}

TEST_F(Run, each_line_of_a_json_trace_is_an_object) {
  WriteScene("{:OStringVar 5 :OrigValue \"\"}{:Rectangle 40 :OrigBoxSize 10 10}"
             "{:TokenGroup 6 :MovementTable ((1)) :TokenGroupItems ((40))}"
             "{:Text 7 :OrigContent \"caf\xC3\xA9\" :OrigBoxSize 1 1}" +
             RedLink(":SetVariable(5 :GOctetString '=1B=FF\"\\') :Move(40 1) :Move(6 9) "
                     ":TransitionTo((\"~/no\" 0))"));
  Write("read.py", "import json, sys\n"
                   "for line in sys.stdin:\n"
                   "    entry = json.loads(line)\n"
                   "    assert list(entry)[:3] == ['time', 'depth', 'what'], line\n"
                   "    print(entry['what'], entry.get('reason', ''), entry.get('line', ''))\n");
  const ToolOutcome run =
      Call("run . --keys red --trace=json --scene-graph | /usr/bin/python3 read.py");
  EXPECT_EQ(run.status, 0) << run.output;
  ExpectHas(run.output, "reason ClassNotAccepted \n");
  ExpectHas(run.output, "link  2\n");
  ExpectHas(run.output, "visible  \n");
  const std::string json = Call("run . --keys red --trace=json --scene-graph").output;
  ExpectHas(json, "\"text\":\"caf\xC3\xA9\"");
  ExpectHas(json, "{\"time\":0,\"depth\":0,\"what\":\"key\",\"step\":\"key Red\"}\n");
}

TEST_F(Run, the_same_keys_give_the_same_trace) {
  const std::string command =
      "run '" KORVEL_SOURCE_DIR "/examples/quiz' --keys 'red down ok wait:3s' --trace";
  const std::string first = Call(command).output;
  EXPECT_GT(first.size(), 5000U);
  EXPECT_EQ(Call(command).output, first);
}

// ---- The scene graph ----

TEST_F(Run, the_scene_graph_lists_the_display_stack_from_bottom_to_top) {
  WriteScene("{:Rectangle 5 :OrigBoxSize 720 576}"
             "{:Text 6 :OrigContent \"Hello\" :OrigBoxSize 100 30 :OrigPosition 20 -5}"
             "{:Rectangle 7 :InitiallyActive FALSE :OrigBoxSize 1 1}" +
             RedLink(":SendToBack(6)"));
  const std::string rectangle = "    0.000  Rectangle 5 of ~/s at 0 0, size 720 576, running\n";
  const std::string text = "    0.000  Text 6 of ~/s at 20 -5, size 100 30, running, \"Hello\"\n";
  EXPECT_EQ(Call("run . --scene-graph").output, rectangle + text);
  EXPECT_EQ(Keys("red", "--scene-graph").output, text + rectangle);
}

}  // namespace
}  // namespace mheg
