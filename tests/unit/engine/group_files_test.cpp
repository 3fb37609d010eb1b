// Which file a group name refers to, and the current directory that names are resolved against.
#include "support/engine_fixture.h"

namespace korvel::test {
namespace {

class GroupFiles : public EngineTest {
 protected:
  // The path that is fetched when the name is resolved, or "refused" if none is.
  std::string PathOf(std::string_view name) {
    TheHost().fetched.clear();
    OctetString bytes;
    const Status result = Do([&] { return ResolveGroup(name, bytes); });
    EXPECT_EQ(result, Status::Refused);
    EXPECT_LE(TheHost().fetched.size(), 1U) << "a name is tried once";
    return TheHost().fetched.empty() ? "refused" : TheHost().fetched.front();
  }

  // Starts an application in the directory "d/" of the current directory.
  void StartInDirectoryD() {
    Serve("d/startup", ApplicationText("~/a", ""));
    ASSERT_EQ(Start("d"), Status::Done);
  }
  void StartAtTheTop() {
    ServeApplication("");
    ASSERT_EQ(Start(), Status::Done);
  }

  // The current directory after a launch of `name`, served as `file`.
  std::string DirectoryAfterLaunch(const std::string& name, const std::string& file) {
    Serve(file, ApplicationText("~/launched", ""));
    EXPECT_EQ(Do([&] { return Launch(name); }), Status::Done) << name;
    TheHost().files.erase(file);
    std::string path = PathOf("~/x");
    EXPECT_EQ(path.back(), 'x');
    path.pop_back();
    return path;
  }
  std::string DirectoryAfterSpawn(const std::string& name, const std::string& file) {
    Serve(file, ApplicationText("~/spawned", ""));
    EXPECT_EQ(Do([&] { return Spawn(name); }), Status::Done) << name;
    TheHost().files.erase(file);
    std::string path = PathOf("~/x");
    EXPECT_EQ(path.back(), 'x');
    path.pop_back();
    return path;
  }
};

TEST_F(GroupFiles, a_resolved_name_returns_the_bytes_of_its_file) {
  StartAtTheTop();
  const std::string content("\0zero inside\xff", 13);
  TheHost().files["x"] = content;
  OctetString bytes;
  EXPECT_EQ(Do([&] { return ResolveGroup("~/x", bytes); }), Status::Done);
  EXPECT_EQ(bytes.View(), content);
  EXPECT_EQ(TheHost().pausedMs, 0U);
}

TEST_F(GroupFiles, a_missing_file_is_refused_after_a_pause) {
  StartAtTheTop();
  OctetString bytes;
  ASSERT_TRUE(bytes.Assign("before"));
  EXPECT_EQ(Do([&] { return ResolveGroup("~/x", bytes); }), Status::Refused);
  EXPECT_EQ(bytes.View(), "before");
  EXPECT_EQ(TheHost().pausedMs, 500U);
}

TEST_F(GroupFiles, relative_names_are_files_of_the_current_directory) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("~/a"), "d/a");
  EXPECT_EQ(PathOf("DSM:/x"), "d/x");
  EXPECT_EQ(PathOf("/x"), "d/x");
  EXPECT_EQ(PathOf("~/x/y"), "d/x/y");
}

TEST_F(GroupFiles, names_with_two_slashes_are_relative_to_the_root) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("DSM://x/y"), "x/y");
  EXPECT_EQ(PathOf("DSM://x"), "x");
  EXPECT_EQ(PathOf("~//x"), "x");
}

TEST_F(GroupFiles, names_without_a_slash_are_files_of_the_current_directory) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("n"), "d/n");
  EXPECT_EQ(PathOf("name"), "d/name");
}

TEST_F(GroupFiles, text_before_the_first_slash_is_ignored) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("p/q"), "d/q");
  EXPECT_EQ(PathOf("p/q/r"), "d/q/r");
}

TEST_F(GroupFiles, a_name_that_ends_at_its_first_slash_is_used_unchanged) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("~/"), "~/");
  EXPECT_EQ(PathOf("DSM:/"), "DSM:/");
}

TEST_F(GroupFiles, from_the_root_no_name_may_begin_with_a_step_up) {
  StartAtTheTop();
  EXPECT_EQ(PathOf("~/../a"), "refused");
  EXPECT_EQ(PathOf("~/.."), "refused");
  EXPECT_EQ(PathOf("DSM:/../a"), "refused");
  EXPECT_EQ(PathOf("DSM://../a"), "refused");
}

TEST_F(GroupFiles, from_a_directory_only_root_names_may_not_begin_with_a_step_up) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("DSM://../a"), "refused");
  EXPECT_EQ(PathOf("~/../a"), "a") << "one directory up from d/";
}

TEST_F(GroupFiles, a_step_up_removes_the_directory_before_it) {
  StartAtTheTop();
  EXPECT_EQ(PathOf("~/x/y/../z"), "xz") << "no slash is inserted";
  EXPECT_EQ(PathOf("~/x/../z"), "z");
  EXPECT_EQ(PathOf("~/x/y/w/../../z"), "x/y../z") << "the second step up is no longer one";
  EXPECT_EQ(PathOf("DSM://x/y/../z"), "xz");
}

TEST_F(GroupFiles, a_step_up_is_resolved_within_the_current_directory) {
  StartInDirectoryD();
  EXPECT_EQ(PathOf("~/x/y/../z"), "d/xz");
}

TEST_F(GroupFiles, a_remaining_step_up_is_passed_to_the_host) {
  StartAtTheTop();
  EXPECT_EQ(PathOf("~/a/../../x"), "../x");
}

TEST_F(GroupFiles, a_step_up_formed_by_resolving_another_is_resolved_too) {
  StartAtTheTop();
  EXPECT_EQ(PathOf("~/a/./b/.././c"), "c");
}

TEST_F(GroupFiles, a_name_of_many_steps_up_is_resolved_in_linear_time) {
  StartAtTheTop();
  std::string name = "~/x";
  for (int count = 0; count < 300'000; ++count) name += "/..";
  EXPECT_LT(PathOf(name + "/y").size(), 10U);
}

TEST_F(GroupFiles, names_that_begin_with_ci_are_never_fetched) {
  StartAtTheTop();
  EXPECT_EQ(PathOf("CI:/x"), "refused");
  EXPECT_EQ(PathOf("CI://x"), "refused");
  EXPECT_EQ(PathOf("CI:x"), "refused");
  EXPECT_EQ(PathOf("ci:/x"), "x") << "lower case makes it an ordinary name";
}

TEST_F(GroupFiles, a_transition_to_a_name_that_begins_with_ci_reports_a_missing_scene) {
  ServeApplication(LinkOn(1, "0", "EngineEvent :EventData 2", Note("2")));
  ASSERT_EQ(Start(), Status::Done);
  TheHost().fetched.clear();
  EXPECT_EQ(GoTo("CI:/menu"), Status::Refused);
  EXPECT_TRUE(TheHost().fetched.empty());
  EXPECT_EQ(Notes(), "2");
}

TEST_F(GroupFiles, malformed_names_are_refused) {
  StartAtTheTop();
  for (const std::string_view name : {"", "/", "//", "~", "~~", "///", ".", "..", "/..", "/../"}) {
    OctetString bytes;
    EXPECT_EQ(Do([&] { return ResolveGroup(name, bytes); }), Status::Refused) << name;
  }
}

TEST_F(GroupFiles, names_may_be_long_and_hold_any_byte) {
  StartInDirectoryD();
  const std::string longName(100'000, 'n');
  EXPECT_EQ(PathOf("~/" + longName), "d/" + longName);
  EXPECT_EQ(PathOf("~/\xff\x80\x01"), "d/\xff\x80\x01");
}

// ---- The current directory ----

TEST_F(GroupFiles, launching_a_root_name_sets_its_first_directory_only) {
  StartInDirectoryD();
  EXPECT_EQ(DirectoryAfterLaunch("DSM://dir/sub/app", "dir/sub/app"), "dir/");
  EXPECT_EQ(DirectoryAfterLaunch("DSM://dir/app", "dir/app"), "dir/");
  EXPECT_EQ(DirectoryAfterLaunch("DSM://app", "app"), "") << "no directory in the name";
}

TEST_F(GroupFiles, launching_a_dsm_name_with_one_slash_finds_the_file_from_the_old_directory) {
  StartInDirectoryD();
  EXPECT_EQ(DirectoryAfterLaunch("DSM:/dir/sub/app", "d/dir/sub/app"), "dir/");
}

TEST_F(GroupFiles, launching_another_name_sets_the_directories_between_its_slashes) {
  StartInDirectoryD();
  EXPECT_EQ(DirectoryAfterLaunch("~/dir/sub/app", "d/dir/sub/app"), "dir/sub/");
  EXPECT_EQ(DirectoryAfterLaunch("~//dir/app", "dir/app"), "dir/");
  EXPECT_EQ(DirectoryAfterLaunch("/up/app", "dir/up/app"), "up/");
}

TEST_F(GroupFiles, launching_a_name_without_a_directory_keeps_the_current_one) {
  StartInDirectoryD();
  EXPECT_EQ(DirectoryAfterLaunch("~/app", "d/app"), "d/");
  EXPECT_EQ(DirectoryAfterLaunch("app", "d/app"), "d/");
}

TEST_F(GroupFiles, spawning_sets_the_directory_from_the_third_character_without_its_slash) {
  StartAtTheTop();
  EXPECT_EQ(DirectoryAfterSpawn("~/dir/app", "dir/app"), "dir");
  EXPECT_EQ(DirectoryAfterSpawn("~/e/app", "dire/app"), "e") << "the directory has no slash";
  EXPECT_EQ(DirectoryAfterSpawn("DSM://f/app", "f/app"), "M://f");
}

TEST_F(GroupFiles, spawning_a_name_without_a_directory_keeps_the_current_one) {
  StartInDirectoryD();
  EXPECT_EQ(DirectoryAfterSpawn("~/app", "d/app"), "d/");
}

TEST_F(GroupFiles, a_refused_launch_or_spawn_keeps_the_current_directory) {
  StartInDirectoryD();
  EXPECT_EQ(Do([] { return Launch("DSM://dir/missing"); }), Status::Refused);
  EXPECT_EQ(PathOf("~/x"), "d/x");
  EXPECT_EQ(Do([] { return Spawn("~/dir/missing"); }), Status::Refused);
  EXPECT_EQ(PathOf("~/x"), "d/x");
}

TEST_F(GroupFiles, a_transition_keeps_the_current_directory) {
  StartAtTheTop();
  Serve("dir/menu", SceneText("~/menu", ""));
  EXPECT_EQ(GoTo("DSM://dir/menu"), Status::Done);
  EXPECT_EQ(PathOf("~/x"), "x");
}

TEST_F(GroupFiles, a_current_directory_may_be_long) {
  StartAtTheTop();
  const std::string directory(300, 'd');
  EXPECT_EQ(DirectoryAfterLaunch("DSM://" + directory + "/app", directory + "/app"),
            directory + "/");
  const std::string next(400, 'n');
  EXPECT_EQ(DirectoryAfterSpawn("~/" + next + "/app", directory + "/" + next + "/app"), next);
}

}  // namespace
}  // namespace korvel::test
