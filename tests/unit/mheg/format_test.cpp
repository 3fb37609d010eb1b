// `mheg format`: which files it changes, its messages and its exit status.
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

constexpr const char* kScattered = "{ :Scene (\"~/s\" 0)\n:SceneCS 720 576 }";

TEST_F(Tool, format_lays_out_files_and_the_source_files_in_folders) {
  fs::create_directories(folder_ / "shop" / "more");
  Write("one.mheg", kScattered);
  Write("shop/two.mheg", kScattered);
  Write("shop/more/three.mheg", kScattered);
  Write("shop/readme.txt", kScattered);
  const ToolOutcome run = Call("format one.mheg shop");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.output, "");
  EXPECT_EQ(File("one.mheg"), kScene);
  EXPECT_EQ(File("shop/two.mheg"), kScene);
  EXPECT_EQ(File("shop/more/three.mheg"), kScene);
  EXPECT_EQ(File("shop/readme.txt"), kScattered);
}

TEST_F(Tool, format_does_not_write_files_that_are_already_laid_out) {
  Write("s.mheg", kScene);
  const auto before = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(folder_ / "s.mheg", before);
  EXPECT_EQ(Call("format s.mheg").status, 0);
  EXPECT_EQ(fs::last_write_time(folder_ / "s.mheg"), before);
}

TEST_F(Tool, format_check_lists_files_that_would_change_and_changes_none) {
  Write("good.mheg", kScene);
  Write("bad.mheg", kScattered);
  const ToolOutcome run = Call("format --check .");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output, "./bad.mheg\n");
  EXPECT_EQ(File("bad.mheg"), kScattered);
  EXPECT_EQ(Call("format --check good.mheg").status, 0);
}

TEST_F(Tool, format_reports_files_with_errors_and_does_not_change_them) {
  Write("bad.mheg", "{:Scene 0 :SceneCS 720}");
  Write("group", "\xA1");
  Write("s.mheg", kScattered);
  const ToolOutcome run = Call("format bad.mheg group s.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.output.find("bad.mheg:1:23: "), std::string::npos) << run.output;
  EXPECT_NE(run.output.find("group: "), std::string::npos) << run.output;
  EXPECT_EQ(File("bad.mheg"), "{:Scene 0 :SceneCS 720}");
  EXPECT_EQ(File("group"), "\xA1");
  EXPECT_EQ(File("s.mheg"), kScene);
  Write("s.mheg", kScene);
  ASSERT_EQ(Call("compile s.mheg -o s").status, 0);
  EXPECT_EQ(Call("format s").output, "s: is not a text\n");
}

TEST_F(Tool, format_rejects_a_file_that_would_become_too_long) {
  std::string text = "{:Scene 0 :Items (";
  for (int i = 0; text.size() < 65000; ++i) text += "{:Palette " + std::to_string(i) + "}";
  text += ")}";
  Write("s.mheg", text);
  const ToolOutcome run = Call("format s.mheg");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.output,
            "s.mheg: would be longer than 65535 bytes, the most that a text can have\n");
  EXPECT_EQ(File("s.mheg"), text);
}

TEST_F(Tool, format_skips_hidden_and_linked_folders) {
  fs::create_directories(folder_ / "mine/.git");
  fs::create_directory(folder_ / "other");
  fs::create_directory_symlink("../other", folder_ / "mine/link");
  for (const char* name : {"mine/s.mheg", "mine/.git/s.mheg", "mine/.s.mheg", "other/s.mheg"}) {
    Write(name, kScattered);
  }
  EXPECT_EQ(Call("format --check mine").output, "mine/s.mheg\n");
  EXPECT_EQ(Call("format mine").status, 0);
  EXPECT_EQ(File("mine/s.mheg"), kScene);
  EXPECT_EQ(File("mine/.git/s.mheg"), kScattered);
  EXPECT_EQ(File("mine/.s.mheg"), kScattered);
  EXPECT_EQ(File("other/s.mheg"), kScattered);
}

TEST_F(Tool, format_keeps_the_permissions_of_a_file_and_links_to_it) {
  Write("s.mheg", kScattered);
  fs::permissions(folder_ / "s.mheg", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("s.mheg", folder_ / "link.mheg");
  EXPECT_EQ(Call("format link.mheg").status, 0);
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.mheg"));
  EXPECT_EQ(File("s.mheg"), kScene);
  EXPECT_EQ(fs::status(folder_ / "s.mheg").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_FALSE(Exists("s.mheg.part"));
}

}  // namespace
}  // namespace mheg
