// The command line of the tool: the files it writes, its messages, and its exit status.
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

TEST_F(Tool, compiles_one_file_to_another) {
  Write("s.mheg", kScene);
  const ToolOutcome run = Call("compile s.mheg -o s");
  EXPECT_EQ(run.status, 0) << run.output;
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(File("s").substr(0, 1), "\xA1");
  EXPECT_EQ(Call("decompile s -o back.mheg").status, 0);
  EXPECT_EQ(File("back.mheg"), kScene);
}

TEST_F(Tool, compiles_several_files_into_a_folder_under_their_names) {
  Write("one.mheg", kScene);
  Write("two.mheg", kScene);
  EXPECT_EQ(Call("compile one.mheg two.mheg --output out/ --jobs 2").status, 0);
  EXPECT_EQ(File("out/one"), File("out/two"));
  EXPECT_FALSE(File("out/one").empty());
  EXPECT_EQ(Call("decompile out/one out/two -o .").status, 0);
  EXPECT_EQ(File("two.mheg"), kScene);
}

TEST_F(Tool, errors_in_source_text_are_reported_with_line_and_column_and_nothing_is_written) {
  Write("good.mheg", kScene);
  Write("bad.mheg", "{:Scene (\"~/s\" 0)\n  :SceneCS 720\n}\n");
  const ToolOutcome run = Call("compile bad.mheg good.mheg -o out/");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.Messages(), "bad.mheg:3:1: in Scene :SceneCS: found }, expected an integer\n");
  EXPECT_FALSE(Exists("out/bad"));
  EXPECT_TRUE(Exists("out/good"));
}

TEST_F(Tool, missing_attributes_are_reported_and_nothing_is_written) {
  Write("s.mheg", "{:Scene 0\n :Items (\n  {:Rectangle 1}\n  {:Link 2 :EventSource 0 :EventType "
                  "IsRunning}\n )\n}\n");
  const ToolOutcome run = Call("compile s.mheg -o s");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.Messages(), "s.mheg:3:3: Rectangle lacks :OrigBoxSize\ns.mheg:4:3: Link lacks "
                            ":LinkEffect\n");
  EXPECT_FALSE(Exists("s"));
}

TEST_F(Tool, errors_in_ber_are_reported_with_file_and_byte) {
  Write("s", std::string("\xA1\x03\x02\x05\x00", 5));
  const ToolOutcome run = Call("decompile s -o s.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output,
            "s: byte 2: in Scene: expected an element that ends within what encloses it\n");
  EXPECT_FALSE(Exists("s.mheg"));
}

TEST_F(Tool, input_in_the_wrong_form_is_rejected) {
  Write("s.mheg", kScene);
  EXPECT_EQ(Call("decompile s.mheg -o x").status, 1);
  EXPECT_EQ(Call("compile s.mheg -o s").status, 0);
  EXPECT_EQ(Call("compile s -o x").status, 1);
  EXPECT_FALSE(Exists("x"));
}

TEST_F(Tool, an_unknown_enumeration_value_is_reported_and_not_written) {
  // A scene with Text 5, whose start corner (tag 90) is 9.
  Write("s", std::string("\xA1\x0E\x02\x01\x00\xA8\x09\xBD\x07\x02\x01\x05\x9F\x5A\x01\x09", 16));
  const ToolOutcome run = Call("decompile s -o s.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("object 5"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find(":StartCorner 9"), std::string::npos) << run.output;
  EXPECT_FALSE(Exists("s.mheg"));
}

TEST_F(Tool, dumps_of_both_forms_are_equal) {
  Write("s.mheg", kScene);
  ASSERT_EQ(Call("compile s.mheg -o s").status, 0);
  const ToolOutcome text = Call("dump s.mheg");
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(text.output.rfind("|---SCene:\n", 0), 0U);
  EXPECT_EQ(Call("dump s").output, text.output);
  EXPECT_EQ(Call("dump s.mheg s").output, text.output + text.output);
}

TEST_F(Tool, check_returns_1_if_it_reports_an_error) {
  Write("s.mheg", kScene);
  EXPECT_EQ(Call("check .").status, 0);
  Write("s.mheg", "{:Scene 0 :OnStartUp (:Run(5)) :SceneCS 720 576}");
  const ToolOutcome run = Call("check .");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "./s.mheg:1:23: error: object 0: refers to object 5, which does not exist "
                        "[unknown-object]\n"
                        "    1 | {:Scene 0 :OnStartUp (:Run(5)) :SceneCS 720 576}\n"
                        "      |                       ^\n");
}

TEST_F(Tool, notes_do_not_fail_the_check_and_findings_can_be_ignored) {
  Write("s.mheg", "{:Scene (\"~/s\" 0) :SceneCS 720 576 :AspectRatio 16 9 :InputEventReg 6}");
  const ToolOutcome run = Call("check . --ignore input-register");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(
      run.Messages(),
      "./s.mheg:1:36: note: object 0: :AspectRatio of Scene has no effect [idle-attribute]\n");
  EXPECT_EQ(Call("check . --ignore idle-attribute").status, 1);
  EXPECT_EQ(Call("check . --ignore idle-attribute --ignore input-register").output, "");
}

TEST_F(Tool, an_unknown_rule_or_form_is_wrong_usage) {
  Write("s.mheg", kScene);
  EXPECT_EQ(Call("check . --ignore nonsense").status, 2);
  EXPECT_EQ(Call("check . --format xml").status, 2);
}

TEST_F(Tool, findings_go_to_standard_output) {
  Write("s.mheg", "{:Scene 0 :TextColor 1}");
  const ToolOutcome run = Call("check . 2>/dev/null");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("[invalid-group]"), std::string::npos) << run.output;
}

TEST_F(Tool, an_invalid_file_does_not_stop_the_dump_of_other_files) {
  Write("bad", std::string("\xA1\x03\x02\x05\x00", 5));
  Write("good.mheg", kScene);
  const ToolOutcome run = Call("dump bad good.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("bad: byte 2: "), std::string::npos) << run.output;
  EXPECT_NE(run.output.find("|---SCene:\n"), std::string::npos) << run.output;
}

TEST_F(Tool, errors_go_to_standard_error_and_dumps_to_standard_output) {
  Write("bad.mheg", "{");
  Write("good.mheg", kScene);
  EXPECT_EQ(Call("dump bad.mheg good.mheg 2>/dev/null").output.rfind("|---SCene:\n", 0), 0U);
  EXPECT_EQ(Call("dump bad.mheg good.mheg >/dev/null").Messages(),
            "bad.mheg:1:2: found the end of the text, expected :Application or :Scene\n");
}

TEST_F(Tool, an_unknown_word_is_reported_once) {
  Write("bad.mheg", "{:Application 0 :TextColor 1}");
  EXPECT_EQ(Call("compile bad.mheg -o bad").output,
            "bad.mheg:1:17: in Application: found :TextColor, expected } or an attribute of "
            "Application (did you mean :TextColour?)\n"
            "    1 | {:Application 0 :TextColor 1}\n"
            "      |                 ^~~~~~~~~~\n");
}

TEST_F(Tool, check_of_one_file_does_not_report_other_files) {
  Write("bad.mheg", "{:Scene 0 :TextColor 1}");
  Write("s.mheg", kScene);
  const ToolOutcome run = Call("check s.mheg");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
}

TEST_F(Tool, wrong_usage_returns_2) {
  Write("one.mheg", kScene);
  Write("two.mheg", kScene);
  EXPECT_EQ(Call("").status, 2);
  EXPECT_EQ(Call("translate one.mheg").status, 2);
  EXPECT_EQ(Call("compile one.mheg").status, 2);
  EXPECT_EQ(Call("compile nowhere.mheg -o x").status, 2);
  EXPECT_EQ(Call("dump").status, 2);
  EXPECT_EQ(Call("check one.mheg --jobs few").status, 2);
  EXPECT_EQ(Call("compile one.mheg two.mheg -o x").status, 2);
}

TEST_F(Tool, version_is_one_line) {
  const ToolOutcome run = Call("--version");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "mheg " TOOL_VERSION "\n");
}

TEST_F(Tool, every_command_has_help) {
  for (const auto& [command, description] : Commands()) {
    const ToolOutcome run = Call(command + " --help");
    EXPECT_EQ(run.status, 0) << command;
    EXPECT_TRUE(run.output.starts_with(description + "\n")) << run.output;
    EXPECT_NE(run.output.find("\nUsage: mheg " + command + " "), std::string::npos) << run.output;
  }
}

TEST_F(Tool, messages_are_in_file_order_with_any_number_of_jobs) {
  std::string names;
  std::string expected;
  for (int i = 0; i < 40; ++i) {
    const std::string name = std::to_string(i) + ".mheg";
    Write(name, i % 3 == 0 ? "{:Scene }" : kScene);
    names += " " + name;
    if (i % 3 == 0)
      expected +=
          name + ":1:9: in Scene: found }, expected an object number or (\"group\" number)\n";
  }
  for (const char* jobs : {"", " --jobs 0", " --jobs 1", " -j 7"}) {
    const ToolOutcome run = Call("compile" + names + " -o out/" + jobs);
    EXPECT_EQ(run.status, 1) << jobs;
    EXPECT_EQ(run.Messages(), expected) << jobs;
    EXPECT_TRUE(Exists("out/38"));
    EXPECT_FALSE(Exists("out/39"));
  }
}

}  // namespace
}  // namespace mheg
