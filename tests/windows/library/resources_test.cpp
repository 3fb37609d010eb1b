// Tests that other programs can find the library's resources.
#include <gtest/gtest.h>

#include <string_view>
#include <vector>

#include <windows.h>

namespace {

constexpr WORD kTraditionalChinese = 1028;

class Resources : public testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(library_ = LoadLibraryA("korvel.dll"), nullptr); }
  void TearDown() override { FreeLibrary(library_); }

  std::string_view BytesOf(HRSRC resource) const {
    const HGLOBAL block = LoadResource(library_, resource);
    return {static_cast<const char*>(LockResource(block)), SizeofResource(library_, resource)};
  }

  HMODULE library_ = nullptr;
};

TEST_F(Resources, video_picture_is_a_progressive_jpeg_of_the_fixed_size) {
  const HRSRC resource = FindResourceA(library_, MAKEINTRESOURCEA(101), "VIDEO_JPG");
  ASSERT_NE(resource, nullptr);
  const std::string_view bytes = BytesOf(resource);
  EXPECT_EQ(bytes.size(), 31701U);
  EXPECT_TRUE(bytes.starts_with("\xFF\xD8"));
  // The frame header of a progressive picture, with 8 bits, 576 rows and 720 columns.
  constexpr std::string_view kFrame("\xFF\xC2\x00\x11\x08\x02\x40\x02\xD0", 9);
  EXPECT_NE(bytes.find(kFrame), std::string_view::npos);
}

TEST_F(Resources, video_picture_is_found_by_its_language) {
  EXPECT_NE(FindResourceExA(library_, "VIDEO_JPG", MAKEINTRESOURCEA(101), kTraditionalChinese),
            nullptr);
}

TEST_F(Resources, icon_loads_in_both_sizes) {
  for (const int size : {16, 32}) {
    const HANDLE icon =
        LoadImageA(library_, MAKEINTRESOURCEA(104), IMAGE_ICON, size, size, LR_DEFAULTCOLOR);
    EXPECT_NE(icon, nullptr) << size;
    DestroyIcon(static_cast<HICON>(icon));
  }
}

TEST_F(Resources, version_block_names_the_library) {
  DWORD unused = 0;
  std::vector<char> block(GetFileVersionInfoSizeA("korvel.dll", &unused));
  ASSERT_FALSE(block.empty());
  ASSERT_TRUE(GetFileVersionInfoA("korvel.dll", 0, static_cast<DWORD>(block.size()), block.data()));
  void* value = nullptr;
  UINT length = 0;
  ASSERT_TRUE(
      VerQueryValueA(block.data(), "\\StringFileInfo\\040904B0\\InternalName", &value, &length));
  EXPECT_STREQ(static_cast<const char*>(value), "korvel");
}

}  // namespace
