// The tool as it is called: what it writes, what it says, and its exit status.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status = -1;
  std::string output;  // both streams
};

class Tool : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "mheg-test-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  void TearDown() override { fs::remove_all(folder_); }

  // Runs the tool in the scratch folder.
  Outcome Call(const std::string& arguments) const {
    const std::string command =
        "cd '" + folder_.string() + "' && '" KORVEL_TOOL "' " + arguments + " 2>&1";
    Outcome run;
    FILE* pipe = popen(command.c_str(), "r");
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
      run.output += static_cast<char>(c);
    }
    run.status = WEXITSTATUS(pclose(pipe));
    return run;
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }
  [[nodiscard]] std::string File(const std::string& name) const {
    std::ifstream stream(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  [[nodiscard]] bool Exists(const std::string& name) const { return fs::exists(folder_ / name); }

  fs::path folder_;
};

constexpr const char* kScene = "{:Scene (\"~/s\" 0)\n  :SceneCS 720 576\n}\n";
TEST_F(Tool, compiles_one_file_to_another) {
  Write("s.mheg", kScene);
  const Outcome run = Call("compile s.mheg -o s");
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

TEST_F(Tool, bad_text_is_reported_with_file_line_and_column_and_not_written) {
  Write("good.mheg", kScene);
  Write("bad.mheg", "{:Scene (\"~/s\" 0)\n  :SceneCS 720\n}\n");
  const Outcome run = Call("compile bad.mheg good.mheg -o out/");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "bad.mheg:3:1: found }, expected an integer\n");
  EXPECT_FALSE(Exists("out/bad"));
  EXPECT_TRUE(Exists("out/good"));
}

TEST_F(Tool, missing_attributes_are_reported_and_nothing_is_written) {
  Write("s.mheg", "{:Scene 0\n :Items (\n  {:Rectangle 1}\n  {:Link 2 :EventSource 0 :EventType "
                  "IsRunning}\n )\n}\n");
  const Outcome run = Call("compile s.mheg -o s");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "s.mheg:3:3: Rectangle lacks :OrigBoxSize\ns.mheg:4:3: Link lacks "
                        ":LinkEffect\n");
  EXPECT_FALSE(Exists("s"));
}

TEST_F(Tool, bad_ber_is_reported_with_file_and_byte) {
  Write("s", std::string("\xA1\x03\x02\x05\x00", 5));
  const Outcome run = Call("decompile s -o s.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output.rfind("s: byte 2: expected ", 0), 0U) << run.output;
  EXPECT_FALSE(Exists("s.mheg"));
}

TEST_F(Tool, the_wrong_form_is_refused) {
  Write("s.mheg", kScene);
  EXPECT_EQ(Call("decompile s.mheg -o x").status, 1);
  EXPECT_EQ(Call("compile s.mheg -o s").status, 0);
  EXPECT_EQ(Call("compile s -o x").status, 1);
  EXPECT_FALSE(Exists("x"));
}

TEST_F(Tool, a_value_without_a_word_is_reported_and_not_written) {
  // A scene with a Text of number 5 whose start corner, under tag 90, is 9.
  Write("s", std::string("\xA1\x0E\x02\x01\x00\xA8\x09\xBD\x07\x02\x01\x05\x9F\x5A\x01\x09", 16));
  const Outcome run = Call("decompile s -o s.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("object 5"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find(":StartCorner 9"), std::string::npos) << run.output;
  EXPECT_FALSE(Exists("s.mheg"));
}

TEST_F(Tool, dumps_both_forms_alike) {
  Write("s.mheg", kScene);
  ASSERT_EQ(Call("compile s.mheg -o s").status, 0);
  const Outcome text = Call("dump s.mheg");
  EXPECT_EQ(text.status, 0);
  EXPECT_EQ(text.output.rfind("|---SCene:\n", 0), 0U);
  EXPECT_EQ(Call("dump s").output, text.output);
  EXPECT_EQ(Call("dump s.mheg s").output, text.output + text.output);
}

TEST_F(Tool, check_tells_by_its_status_whether_all_is_well) {
  Write("s.mheg", kScene);
  EXPECT_EQ(Call("check .").status, 0);
  Write("s.mheg", "{:Scene 0 :OnStartUp (:Run(5))}");
  const Outcome run = Call("check .");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "./s.mheg: object 0: refers to object 5, which does not exist\n");
}

TEST_F(Tool, wrong_use_has_a_status_of_its_own) {
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

TEST_F(Tool, every_command_explains_itself) {
  for (const char* command : {"", "compile", "decompile", "dump", "check"}) {
    const Outcome run = Call(std::string(command) + " --help");
    EXPECT_EQ(run.status, 0) << command;
    EXPECT_NE(run.output.find("Usage: mheg"), std::string::npos) << run.output;
  }
}

TEST_F(Tool, what_cannot_be_written_is_an_error) {
  Write("s.mheg", kScene);
  EXPECT_EQ(Call("compile s.mheg -o no/such/folder").status, 1);
}

}  // namespace
