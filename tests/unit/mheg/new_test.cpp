// `mheg new`: the application that it makes works, and no file is overwritten.
#include "unit/mheg/tool.h"

namespace mheg {
namespace {

TEST_F(Tool, new_makes_an_application_that_passes_its_script_and_the_check) {
  const ToolOutcome run = Call("new my/shop");
  EXPECT_EQ(run.status, 0);
  for (const char* name : {"a.mheg", "menu.mheg", "greeting.mheg", "lamp.mheg", "test.script"}) {
    EXPECT_TRUE(Exists(std::string("my/shop/") + name)) << name;
    EXPECT_NE(run.output.find(std::string("my/shop/") + name + "\n"), std::string::npos);
  }
  const ToolOutcome tested = Call("run my/shop --script my/shop/test.script");
  EXPECT_EQ(tested.status, 0) << tested.output;
  const ToolOutcome checked = Call("check my/shop");
  EXPECT_EQ(checked.status, 0);
  EXPECT_EQ(checked.output, "");
  EXPECT_EQ(Call("format --check my/shop").output, "");
  EXPECT_EQ(Call("build my/shop -o carousel").output,
            "carousel: 4 written, 0 removed, 0 up to date\n");
}

TEST_F(Tool, the_script_of_new_fails_if_the_application_is_broken) {
  ASSERT_EQ(Call("new shop").status, 0);
  std::string lamp = File("shop/lamp.mheg");
  lamp.replace(lamp.find(":Run(4)"), 7, ":Stop(4)");
  Write("shop/lamp.mheg", lamp);
  EXPECT_EQ(Call("run shop --script shop/test.script").status, 1);
}

TEST_F(Tool, new_rejects_a_folder_that_is_not_empty) {
  fs::create_directory(folder_ / "empty");
  EXPECT_EQ(Call("new empty").status, 0);
  const ToolOutcome again = Call("new empty");
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(again.output, "empty: is not empty\n");
  Write("file", "mine");
  EXPECT_EQ(Call("new file").output, "file: is a file\n");
  EXPECT_EQ(File("file"), "mine");
  EXPECT_EQ(Call("new").status, 2);
}

}  // namespace
}  // namespace mheg
