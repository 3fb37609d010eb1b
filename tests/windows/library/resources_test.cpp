// Tests that other programs can find the library's resources, and that each product reports its
// version.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "korvel.h"

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

// The version block of a file in the current folder.
class VersionBlock {
 public:
  explicit VersionBlock(const char* file) {
    DWORD unused = 0;
    bytes_.resize(GetFileVersionInfoSizeA(file, &unused));
    const auto size = static_cast<DWORD>(bytes_.size());
    if (size == 0 || !GetFileVersionInfoA(file, 0, size, bytes_.data())) bytes_.clear();
  }

  // Empty if there is none.
  std::string Text(const std::string& name) const {
    void* value = nullptr;
    UINT length = 0;
    const std::string path = "\\StringFileInfo\\040904B0\\" + name;
    if (bytes_.empty() || !VerQueryValueA(bytes_.data(), path.c_str(), &value, &length)) return "";
    return static_cast<const char*>(value);
  }

  // The numbers that installers compare, with dots between them.
  std::string Number() const {
    void* value = nullptr;
    UINT length = 0;
    if (bytes_.empty() || !VerQueryValueA(bytes_.data(), "\\", &value, &length)) return "";
    const auto& fixed = *static_cast<const VS_FIXEDFILEINFO*>(value);
    std::string number;
    for (const DWORD part : {fixed.dwFileVersionMS, fixed.dwFileVersionLS}) {
      number += (number.empty() ? "" : ".") + std::to_string(HIWORD(part)) + "." +
                std::to_string(LOWORD(part));
    }
    return number;
  }

 private:
  std::vector<char> bytes_;
};

TEST(Products, each_has_a_block_with_the_version_of_the_header) {
  const std::string version = KORVEL_VERSION ".0";
  for (const std::string name : {"korvel.dll", "MenuAPI.dll", "korvel-player.exe", "mheg.exe"}) {
    const VersionBlock block(name.c_str());
    EXPECT_EQ(block.Number(), version) << name;
    EXPECT_EQ(block.Text("FileVersion"), version) << name;
    EXPECT_EQ(block.Text("ProductVersion"), version) << name;
    EXPECT_EQ(block.Text("OriginalFilename"), name);
    EXPECT_EQ(block.Text("InternalName"), name.substr(0, name.rfind('.')));
  }
}

TEST(Products, version_text_of_the_header_matches_its_numbers) {
  EXPECT_EQ(KORVEL_VERSION, std::to_string(KORVEL_VERSION_MAJOR) + "." +
                                std::to_string(KORVEL_VERSION_MINOR) + "." +
                                std::to_string(KORVEL_VERSION_PATCH));
}

}  // namespace
