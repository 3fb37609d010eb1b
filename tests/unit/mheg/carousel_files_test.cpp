// The files that a carousel folder has, and the paths by which the engine finds them.
#include "mheg/carousel_files.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/mheg/scratch_folder.h"

namespace {

// A temporary carousel folder next to a file that must not be readable.
class CarouselTest : public testing::Test, protected mheg::ScratchFolder {
 protected:
  void SetUp() override {
    Write("secret", "outside");
    Write("root/a", "start-up");
    Write("root/pictures/logo.png", "logo");
    Write("root/empty", "");
  }

  // The content of the file at a path, or "none".
  std::string Read(std::string_view path) {
    mheg::CarouselFiles files;
    mheg::Messages messages;
    files.Load(folder_ / "root", messages);
    EXPECT_TRUE(messages.empty());
    const mheg::CarouselFile* file = files.Find(path);
    return file != nullptr ? file->bytes : "none";
  }

  // The messages of loading the folder.
  std::string Problems() {
    mheg::CarouselFiles files;
    mheg::Messages messages;
    files.Load(folder_ / "root", messages);
    std::string lines;
    for (const mheg::Message& message : messages) lines += OneLine(message) + "\n";
    return lines;
  }
};

TEST_F(CarouselTest, slashes_and_backslashes_are_separators) {
  EXPECT_EQ(Read("pictures/logo.png"), "logo");
  EXPECT_EQ(Read("pictures\\logo.png"), "logo");
}

TEST_F(CarouselTest, leading_and_doubled_slashes_are_ignored) {
  EXPECT_EQ(Read("/a"), "start-up");
  EXPECT_EQ(Read("\\a"), "start-up");
  EXPECT_EQ(Read("//pictures\\\\logo.png"), "logo");
}

TEST_F(CarouselTest, dots_are_resolved_inside_the_folder) {
  EXPECT_EQ(Read("./a"), "start-up");
  EXPECT_EQ(Read("pictures/../a"), "start-up");
  EXPECT_EQ(Read("pictures\\.\\logo.png"), "logo");
}

TEST_F(CarouselTest, paths_out_of_the_folder_find_no_file) {
  EXPECT_EQ(Read("../secret"), "none");
  EXPECT_EQ(Read("..\\secret"), "none");
  EXPECT_EQ(Read("pictures/../../secret"), "none");
  EXPECT_EQ(Read("../root/a"), "none");
  EXPECT_EQ(Read((folder_ / "secret").string()), "none");
}

TEST_F(CarouselTest, drives_and_streams_find_no_file) {
  EXPECT_EQ(Read("c:x"), "none");
  EXPECT_EQ(Read("C:\\a"), "none");
  EXPECT_EQ(Read("a::$DATA"), "none");
}

TEST_F(CarouselTest, trailing_dots_and_spaces_are_part_of_the_name) {
  EXPECT_EQ(Read("a."), "none");
  EXPECT_EQ(Read("a "), "none");
  EXPECT_EQ(Read("pictures /logo.png"), "none");
}

TEST_F(CarouselTest, upper_and_lower_case_differ) { EXPECT_EQ(Read("A"), "none"); }

TEST_F(CarouselTest, files_that_are_not_broadcast_do_not_exist) {
  Write("root/README.md", "for authors");
  Write("root/test.script", "exit");
  Write("root/.hidden", "");
  Write("root/.git/config", "");
  Write("root/below/README.md", "broadcast");
  EXPECT_EQ(Read("README.md"), "none");
  EXPECT_EQ(Read("test.script"), "none");
  EXPECT_EQ(Read(".hidden"), "none");
  EXPECT_EQ(Read(".git/config"), "none");
  EXPECT_EQ(Read("below/README.md"), "broadcast");
}

TEST_F(CarouselTest, a_source_file_is_compiled_and_loses_its_extension) {
  Write("root/b.mheg", "{:Application (\"~/b\" 0)}");
  EXPECT_EQ(Read("b.mheg"), "none");
  EXPECT_EQ(static_cast<unsigned char>(Read("b").at(0)), 0xA0U);
}

TEST_F(CarouselTest, files_that_build_rejects_are_rejected_with_the_same_message) {
  Write("root/b", "old");
  Write("root/b.mheg", "{:Application (\"~/b\" 0)}");
  const std::string root = (folder_ / "root").string();
  EXPECT_EQ(Problems(), root + "/b.mheg: has the same name in the carousel as " + root + "/b\n");
  std::filesystem::remove(folder_ / "root/b");
  Write("root/b.mheg", Read("b"));
  EXPECT_EQ(Problems(), root + "/b.mheg: is not a text\n");
}

TEST_F(CarouselTest, a_file_that_cannot_be_read_is_reported) {
  // Reading it fails, even for the superuser.
  std::filesystem::create_symlink("/proc/self/mem", folder_ / "root/memory");
  EXPECT_EQ(Problems(), (folder_ / "root/memory").string() + ": cannot be read\n");
}

TEST_F(CarouselTest, a_removed_file_does_not_exist) {
  mheg::CarouselFiles files;
  mheg::Messages messages;
  files.Load(folder_ / "root", messages);
  EXPECT_TRUE(files.Remove("/pictures\\logo.png"));
  EXPECT_FALSE(files.Remove("/pictures\\logo.png"));
  EXPECT_EQ(files.Find("pictures/logo.png"), nullptr);
}

TEST_F(CarouselTest, a_name_with_a_zero_byte_finds_no_file) {
  EXPECT_EQ(Read(std::string_view("a\0b", 3)), "none");
}

TEST_F(CarouselTest, folders_and_missing_files_are_not_found) {
  EXPECT_EQ(Read("pictures"), "none");
  EXPECT_EQ(Read("missing"), "none");
  EXPECT_EQ(Read(""), "none");
  EXPECT_EQ(Read("pictures/.."), "none");
}

TEST_F(CarouselTest, an_empty_file_reads_as_no_bytes) { EXPECT_EQ(Read("empty"), ""); }

}  // namespace
