// Inputs and outputs that the tool cannot use. Each results in one message and an exit status.
#include <unistd.h>

#include "unit/mheg/tool.h"

namespace mheg {
namespace {

TEST_F(Tool, a_folder_is_rejected_as_an_input) {
  fs::create_directory(folder_ / "menu");
  for (const char* command : {"compile menu -o x", "decompile menu -o x", "dump menu"}) {
    const ToolOutcome run = Call(command);
    EXPECT_EQ(run.status, 1) << command;
    EXPECT_EQ(run.output, "menu: is a folder, expected a file\n") << command;
  }
  EXPECT_FALSE(Exists("x"));
}

// Address 0 of a process is not mapped, so reading its memory fails for every user.
TEST_F(Tool, a_read_error_is_reported) {
  for (const char* arguments : {"compile /proc/self/mem -o x", "dump /proc/self/mem"}) {
    const ToolOutcome run = Call(arguments);
    EXPECT_EQ(run.status, 1) << arguments;
    EXPECT_EQ(run.output, "/proc/self/mem: cannot be read\n") << arguments;
  }
}

TEST_F(Tool, an_endless_file_is_rejected) {
  const ToolOutcome run = Call("dump /dev/zero");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "/dev/zero: is longer than 128 MiB\n");
}

TEST_F(Tool, an_empty_file_is_rejected) {
  Write("s.mheg", "");
  for (const char* command : {"compile s.mheg -o x", "decompile s.mheg -o x", "dump s.mheg"}) {
    const ToolOutcome run = Call(command);
    EXPECT_EQ(run.status, 1) << command;
    EXPECT_EQ(run.output, "s.mheg:1:1: found the end of the text, expected {\n") << command;
  }
}

TEST_F(Tool, a_file_of_100_megabytes_is_rejected) {
  Write("s.mheg", "");
  fs::resize_file(folder_ / "s.mheg", 100000000);
  ToolOutcome run = Call("compile s.mheg -o x");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("a text of at most 65535 bytes\n"), std::string::npos) << run.output;
  Write("s", "\xA1\x84\x7F\xFF\xFF\xFF");  // a scene whose length exceeds the file
  fs::resize_file(folder_ / "s", 100000000);
  run = Call("decompile s -o x");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.rfind("s: byte ", 0), 0U) << run.output;
}

TEST_F(Tool, check_reports_impossible_file_names_as_missing) {
  const std::string name = "~/" + std::string(300, 'x');
  Write("s.mheg", "{:Scene 0 :Items ({:Bitmap 1 :OrigBoxSize 1 1 :OrigContent :ContentRef \"" +
                      name + "\"}) :OnStartUp (:TransitionTo((\"" + name + "\" 0)))}");
  const ToolOutcome run = Call("check s.mheg --ignore no-scene-size");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.Messages(), "s.mheg:1:47: error: object 1: takes content from " + name +
                                ", which is not there [missing-content]\n"
                                "s.mheg:1:391: error: object 0: refers to the group " +
                                name + ", which is not there [unknown-group]\n");
}

TEST_F(Tool, check_skips_a_symbolic_link_to_itself) {
  fs::create_symlink("loop", folder_ / "loop");
  fs::create_symlink("loop.mheg", folder_ / "loop.mheg");
  Write("s.mheg", kScene);
  const ToolOutcome run = Call("check .");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
}

TEST_F(Tool, check_reports_a_link_to_a_folder_that_contains_it) {
  fs::create_directory(folder_ / "below");
  fs::create_directory_symlink("..", folder_ / "below/up");
  Write("s.mheg", kScene);
  const ToolOutcome run = Call("check .");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "./below/up: error: leads back to a folder around it [invalid-group]\n");
}

TEST_F(Tool, check_finds_the_groups_that_build_finds) {
  fs::create_directories(folder_ / "mine/.git");
  fs::create_directory(folder_ / "other");
  fs::create_directory_symlink("../other", folder_ / "mine/link");
  for (const char* name : {"mine/.git/s.mheg", "mine/.s.mheg", "other/s.mheg"}) Write(name, "{");
  EXPECT_EQ(Call("check mine").Messages().substr(0, 21), "mine/link/s.mheg:1:2:");
  Write("other/s.mheg", "{:Scene (\"~/link/s\" 0)\n  :SceneCS 720 576\n}\n");
  EXPECT_EQ(Call("check mine").output, "");
}

TEST_F(Tool, check_reports_a_folder_without_groups) {
  fs::create_directory(folder_ / "empty");
  Write("picture.png", "\x89PNG");
  Write("notes", "text");
  const ToolOutcome run = Call("check . empty");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, ".: error: has no groups [no-groups]\n"
                        "empty: error: has no groups [no-groups]\n");
}

TEST_F(Tool, check_reports_unreadable_files_and_checks_the_rest) {
  fs::create_directories(folder_ / "closed");
  Write("closed/t.mheg", kScene);
  Write("ber", "\xA1");
  Write("s.mheg", "{:Scene 0 :OnStartUp (:Run(5)) :SceneCS 720 576}");
  for (const char* name : {"closed", "ber"}) fs::permissions(folder_ / name, fs::perms::none);
  const ToolOutcome run = Call("check .", Restricted());
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.Messages(), "./closed: error: cannot be read [invalid-group]\n"
                            "./ber: error: cannot be read [invalid-group]\n"
                            "./s.mheg:1:23: error: object 0: refers to object 5, which does not "
                            "exist [unknown-object]\n");
  EXPECT_EQ(Call("check closed", Restricted()).output,
            "closed: error: cannot be read [invalid-group]\n");
  fs::permissions(folder_ / "closed", fs::perms::owner_all);
}

TEST_F(Tool, an_output_that_would_overwrite_an_input_is_rejected) {
  Write("s", kScene);
  Write("t.mheg", kScene);
  fs::create_symlink("s", folder_ / "link");
  fs::create_hard_link(folder_ / "s", folder_ / "twin");
  for (const char* output : {"s", "./s", ".", "link", "twin"}) {
    const ToolOutcome run = Call(std::string("compile s -o ") + output);
    EXPECT_EQ(run.status, 2) << output;
    EXPECT_NE(run.output.find("is an input and would be overwritten"), std::string::npos)
        << run.output;
    EXPECT_EQ(File("s"), kScene) << output;
  }
  ASSERT_EQ(Call("compile t.mheg -o ber").status, 0);
  EXPECT_EQ(Call("decompile ber -o t.mheg").status, 0);
  Write("t", File("ber"));
  EXPECT_EQ(Call("decompile t t.mheg -o .").status, 2) << "the output for t would be t.mheg";
}

TEST_F(Tool, two_inputs_with_the_same_output_are_rejected) {
  Write("s", kScene);
  Write("s.mheg", kScene);
  const ToolOutcome run = Call("compile s s.mheg -o out/");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.output, "mheg: out/s: would be written twice\n");
  EXPECT_FALSE(Exists("out/s"));
}

TEST_F(Tool, outputs_that_cannot_be_written_are_reported) {
  Write("s.mheg", kScene);
  Write("file", "");
  const std::string longName(300, 'x');
  for (const std::string& output :
       {std::string("missing/s"), std::string("/dev/full"), std::string("file/s"), longName}) {
    const ToolOutcome run = Call("compile s.mheg -o " + output);
    EXPECT_EQ(run.status, 1) << output;
    EXPECT_EQ(run.output, output + ": cannot be written\n");
  }
  for (const std::string& output : {std::string("file/"), longName + "/"}) {
    const ToolOutcome run = Call("compile s.mheg -o " + output);
    EXPECT_EQ(run.status, 1) << output;
    EXPECT_EQ(run.output, output + ": cannot be made\n");
  }
  EXPECT_EQ(Call("compile s.mheg s.mheg -o " + longName).status, 2);
}

TEST_F(Tool, a_standard_output_that_is_closed_or_full_is_an_error) {
  Write("s.mheg", kScene);
  for (const char* output : {" >/dev/full", " >&-"}) {
    for (const char* command : {"dump s.mheg", "--help", "check --help"}) {
      const ToolOutcome run = Call(std::string(command) + output);
      EXPECT_EQ(run.status, 1) << command << output;
      EXPECT_EQ(run.output, "mheg: the standard output cannot be written\n") << command << output;
    }
    EXPECT_EQ(Call(std::string("compile s.mheg -o s") + output).status, 0)
        << "compile prints nothing";
  }
}

constexpr const char* kByteOrderMark = "\xEF\xBB\xBF";

TEST_F(Tool, a_byte_order_mark_is_skipped) {
  Write("plain.mheg", kScene);
  Write("marked.mheg", std::string(kByteOrderMark) + kScene);
  const ToolOutcome run = Call("compile plain.mheg marked.mheg -o out/");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(File("out/marked"), File("out/plain"));
}

TEST_F(Tool, columns_are_counted_after_a_byte_order_mark) {
  Write("marked.mheg", std::string(kByteOrderMark) + "{:Scene 0 :Items ({:Text 1})}");
  EXPECT_EQ(Call("compile marked.mheg -o x").Messages(),
            "marked.mheg:1:19: Text lacks :OrigBoxSize\n");
  Write("marked.mheg", std::string(kByteOrderMark) + "{:Scene }");
  EXPECT_EQ(Call("compile marked.mheg -o x").output,
            "marked.mheg:1:9: in Scene: found }, expected an object number or (\"group\" number)\n"
            "    1 | {:Scene }\n      |         ^\n");
}

TEST_F(Tool, a_source_file_of_maximum_length_may_have_a_byte_order_mark) {
  const std::string text = kScene;
  Write("marked.mheg", kByteOrderMark + text + std::string(65535 - text.size(), ' '));
  EXPECT_EQ(Call("compile marked.mheg -o x").output, "");
}

}  // namespace
}  // namespace mheg
