// `mheg build`: the files of the carousel, which files are written, and `--watch`.
#include "unit/mheg/tool.h"

#include <set>

namespace mheg {
namespace {

// A key may lead to any scene, so the check has nothing to report.
constexpr const char* kApplication = R"({:Application ("~/a" 0)
  :OnStartUp (:TransitionTo(("~/s" 0)))
  :Items (
    {:OStringVar 1 :OrigValue "~/s"}
    {:Link 2 :Shared TRUE :EventSource 0 :EventType UserInput
      :LinkEffect (:TransitionTo(:IndirectRef 1))}
  )
}
)";
constexpr const char* kOtherScene = "{:Scene (\"~/more/t\" 0)\n  :SceneCS 720 576\n}\n";

class BuildTool : public Tool {
 protected:
  void SetUp() override {
    fs::create_directories(folder_ / "src" / "more");
    Write("src/a.mheg", kApplication);
    Write("src/s.mheg", kScene);
    Write("src/picture.png", "a picture");
    Write("src/more/t.mheg", kOtherScene);
    Write("src/more/sound", "a sound");
  }

  // The group of a source file in BER.
  std::string Compiled(const std::string& source) const {
    Write("one.mheg", source);
    EXPECT_EQ(Call("compile one.mheg -o one").status, 0);
    return File("one");
  }
  // All files below a folder, with paths relative to it.
  [[nodiscard]] std::set<std::string> FilesIn(const std::string& folder) const {
    std::set<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder_ / folder)) {
      if (!entry.is_directory()) {
        files.insert(entry.path().lexically_relative(folder_ / folder).string());
      }
    }
    return files;
  }
  using Names = std::set<std::string>;
};

TEST_F(BuildTool, source_files_are_compiled_and_all_others_are_copied) {
  const ToolOutcome run = Call("build src -o out");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "out: 5 written, 0 removed, 0 up to date\n");
  EXPECT_EQ(FilesIn("out"), (Names{"a", "s", "picture.png", "more/t", "more/sound"}));
  EXPECT_EQ(File("out/a"), Compiled(kApplication));
  EXPECT_EQ(File("out/more/t"), Compiled(kOtherScene));
  EXPECT_EQ(File("out/picture.png"), "a picture");
  EXPECT_EQ(File("out/more/sound"), "a sound");
}

TEST_F(BuildTool, files_for_authors_are_not_broadcast) {
  fs::create_directories(folder_ / "src" / ".git");
  for (const char* name : {"README.md", "test.script", ".hidden", ".git/config", "more/.hidden"}) {
    Write(std::string("src/") + name, "for authors");
  }
  for (const char* name : {"more/README.md", "more/x.script"}) {
    Write(std::string("src/") + name, "for viewers");
  }
  ASSERT_EQ(Call("build src/ -o out/").status, 0);
  EXPECT_EQ(FilesIn("out"), (Names{"a", "s", "picture.png", "more/t", "more/sound",
                                   "more/README.md", "more/x.script"}));
}

TEST_F(BuildTool, linked_files_and_folders_are_copied) {
  fs::rename(folder_ / "src/more", folder_ / "elsewhere");
  fs::create_directory_symlink("../elsewhere", folder_ / "src/more");
  ASSERT_EQ(Call("build src -o out").status, 0);
  EXPECT_FALSE(fs::is_symlink(folder_ / "out/more"));
  EXPECT_EQ(File("out/more/sound"), "a sound");
}

TEST_F(BuildTool, only_files_that_change_are_written) {
  ASSERT_EQ(Call("build src -o out").status, 0);
  const auto before = fs::last_write_time(folder_ / "out/s");
  EXPECT_EQ(Call("build src -o out").output, "out: 0 written, 0 removed, 5 up to date\n");
  Write("src/a.mheg", "// With a comment.\n" + std::string(kApplication));
  Write("src/picture.png", "b picture");
  Write("src/new", "new");
  EXPECT_EQ(Call("build src -o out").output, "out: 2 written, 0 removed, 4 up to date\n");
  EXPECT_EQ(File("out/picture.png"), "b picture");
  EXPECT_EQ(fs::last_write_time(folder_ / "out/s"), before);
}

TEST_F(BuildTool, products_that_are_missing_or_modified_are_written_again) {
  ASSERT_EQ(Call("build src -o out").status, 0);
  fs::remove(folder_ / "out/picture.png");
  Write("out/s", "something else");
  EXPECT_EQ(Call("build src -o out").output, "out: 2 written, 0 removed, 3 up to date\n");
  EXPECT_EQ(File("out/s"), Compiled(kScene));
}

TEST_F(BuildTool, errors_in_a_source_file_keep_its_old_product_and_do_not_stop_the_others) {
  ASSERT_EQ(Call("build src -o out").status, 0);
  Write("src/s.mheg", "{:Scene 0 :SceneCS 720}");
  Write("src/picture.png", "another picture");
  for (int i = 0; i < 2; ++i) {
    const ToolOutcome run = Call("build src -o out");
    EXPECT_EQ(run.status, 1);
    const std::string message = "src/s.mheg:1:23: ";
    EXPECT_NE(run.output.find(message), std::string::npos) << run.output;
    EXPECT_EQ(run.output.find(message), run.output.rfind(message)) << run.output;
    EXPECT_EQ(File("out/s"), Compiled(kScene));
    EXPECT_EQ(File("out/picture.png"), "another picture");
  }
  fs::remove(folder_ / "src/s.mheg");
  (void)Call("build src -o out");
  EXPECT_FALSE(Exists("out/s")) << "the old file is still in the list of products";
}

TEST_F(BuildTool, products_without_a_source_are_removed_and_other_files_are_not) {
  ASSERT_EQ(Call("build src -o out").status, 0);
  Write("out/mine", "not built");
  fs::remove_all(folder_ / "src/more");
  EXPECT_EQ(Call("build src -o out").output, "out: 0 written, 2 removed, 3 up to date\n");
  EXPECT_EQ(FilesIn("out"), (Names{"a", "s", "picture.png", "mine"}));
  EXPECT_FALSE(Exists("out/more"));
}

TEST_F(BuildTool, nothing_outside_the_carousel_is_removed) {
  ASSERT_EQ(Call("build src -o out").status, 0);
  Write("mine", "not built");
  Write(".out.mheg-build", File(".out.mheg-build") + "../mine\nmore/../../mine\n" +
                               (folder_ / "mine").string() + "\n\n.\nmore/\n");
  EXPECT_EQ(Call("build src -o out").output, "out: 0 written, 0 removed, 5 up to date\n");
  EXPECT_TRUE(Exists("mine"));
}

TEST_F(BuildTool, an_error_in_the_source_folder_removes_nothing) {
  ASSERT_EQ(Call("build src -o out").status, 0);
  fs::create_symlink("loop", folder_ / "src/loop");
  fs::create_directory_symlink("..", folder_ / "src/more/up");
  const ToolOutcome run = Call("build src -o out");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "src/more/up: leads back to a folder around it\n");
  EXPECT_TRUE(Exists("out/picture.png"));
}

TEST_F(BuildTool, a_file_that_cannot_be_read_does_not_stop_the_others) {
  fs::create_symlink("loop", folder_ / "src/loop");
  ASSERT_EQ(Call("build src -o out").output,
            "src/loop: cannot be read\nout: 5 written, 0 removed, 0 up to date\n");
  fs::remove(folder_ / "src/loop");
  fs::permissions(folder_ / "src/picture.png", fs::perms::none);
  Write("src/more/sound", "another sound");
  fs::remove(folder_ / "out/picture.png");
  const ToolOutcome run = Call("build src -o out", Restricted());
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output,
            "src/picture.png: cannot be read\nout: 1 written, 0 removed, 3 up to date\n");
}

TEST_F(BuildTool, two_sources_of_one_product_are_rejected) {
  Write("src/s", "a file");
  const ToolOutcome run = Call("build src -o out");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "src/s.mheg: has the same name in the carousel as src/s\n"
                        "out: 4 written, 0 removed, 0 up to date\n");
  EXPECT_FALSE(Exists("out/s"));
}

TEST_F(BuildTool, findings_are_printed_but_do_not_fail_the_build) {
  Write("src/s.mheg", "{:Scene (\"~/s\" 0) :OnStartUp (:Run(5)) :SceneCS 720 576}");
  const ToolOutcome run = Call("build src -o out");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.output.find("refers to object 5, which does not exist [unknown-object]\n"),
            std::string::npos)
      << run.output;
}

TEST_F(BuildTool, wrong_folders_return_2) {
  EXPECT_EQ(Call("build nowhere -o out").status, 2);
  EXPECT_EQ(Call("build src/a.mheg -o out").status, 2);
  EXPECT_EQ(Call("build src").status, 2);
  EXPECT_EQ(Call("build src -o src").status, 2);
  EXPECT_EQ(Call("build src -o src/more/out").status, 2);
  EXPECT_EQ(Call("build src -o src2").status, 0);
}

TEST_F(BuildTool, a_carousel_that_cannot_be_written_is_an_error) {
  Write("out", "a file");
  EXPECT_EQ(Call("build src -o out").status, 1);
  EXPECT_EQ(File("out"), "a file");
}

TEST_F(BuildTool, watch_builds_after_each_change) {
  const pid_t process = Start("build src -o out --watch");
  EXPECT_TRUE(Until([&] { return Exists("out/more/t"); }));
  Write("src/picture.png", "another picture");
  EXPECT_TRUE(Until([&] { return File("out/picture.png") == "another picture"; }));
  Write("src/s.mheg", "{");
  EXPECT_TRUE(Until([&] { return File("log").find("src/s.mheg:1:2: ") != std::string::npos; }));
  fs::remove(folder_ / "src/s.mheg");
  EXPECT_TRUE(Until([&] { return !Exists("out/s"); }));
  fs::create_directories(folder_ / "src/new/folder");
  Write("src/new/folder/t.mheg", kScene);
  EXPECT_TRUE(Until([&] { return Exists("out/new/folder/t"); }));
  Write("src/new/folder/u.mheg", kScene);
  EXPECT_TRUE(Until([&] { return Exists("out/new/folder/u"); }));
  EXPECT_EQ(kill(process, SIGTERM), 0) << "the tool has ended";
}

TEST_F(BuildTool, watch_fails_when_the_folder_is_moved) {
  const pid_t process = Start("build src -o out --watch");
  EXPECT_TRUE(Until([&] { return Exists("out/more/t"); }));
  fs::rename(folder_ / "src", folder_ / "src2");
  EXPECT_TRUE(Until([&] { return kill(process, 0) != 0; })) << File("log");
  EXPECT_TRUE(Exists("out/more/t"));
  EXPECT_NE(File("log").find("src: cannot be watched"), std::string::npos);
}

}  // namespace
}  // namespace mheg
