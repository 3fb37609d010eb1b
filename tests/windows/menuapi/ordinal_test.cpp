// Tests the I-frame decoder as the engine uses it: the library loaded by name, the function by
// ordinal, the stream in a file and the frame in the caller's buffer.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <vector>

#include "unit/menuapi/stream_writer.h"

namespace menuapi::test {

namespace {

using DecodeFrame = int(__cdecl*)(const char* path, std::uint8_t** buffer, int one);

constexpr int kDone = 0;
constexpr int kDamaged = 1;
constexpr int kRefused = 2;
constexpr std::uint8_t kUntouched = 0xA5;
constexpr std::size_t kFrameBytes = 32 * 32 * 3 / 2;

class Ordinal : public testing::Test {
 protected:
  Ordinal() { Load(); }
  ~Ordinal() override {
    FreeLibrary(module_);
    DeleteFileA(path_.c_str());
  }
  void SetUp() override {
    ASSERT_NE(module_, nullptr);
    ASSERT_NE(decode_, nullptr);
    char folder[MAX_PATH] = {};
    GetTempPathA(MAX_PATH, folder);
    path_ = std::string(folder) + "menuapi_test_" + std::to_string(GetCurrentProcessId()) + ".m2v";
  }

  void Load() {
    module_ = LoadLibraryA("MenuAPI");
    if (module_ == nullptr) return;
    decode_ = reinterpret_cast<DecodeFrame>(
        reinterpret_cast<void*>(GetProcAddress(module_, MAKEINTRESOURCEA(1))));
  }
  void Write(const std::vector<std::uint8_t>& bytes) const {
    std::FILE* file = std::fopen(path_.c_str(), "wb");
    ASSERT_NE(file, nullptr);
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
  }
  int Decode() {
    std::uint8_t* buffer = planes_.data();
    const int result = decode_(path_.c_str(), &buffer, 1);
    EXPECT_EQ(buffer, planes_.data());
    EXPECT_TRUE(std::all_of(planes_.begin() + kFrameBytes, planes_.end(),
                            [](int byte) { return byte == kUntouched; }));
    return result;
  }

  HMODULE module_ = nullptr;
  DecodeFrame decode_ = nullptr;
  std::string path_;
  std::vector<std::uint8_t> planes_ = std::vector<std::uint8_t>(kFrameBytes + 64, kUntouched);
};

// A stream of one 32 x 32 frame with `rows` rows of macroblocks, each in one colour.
std::vector<std::uint8_t> Stream(unsigned rows) {
  StreamWriter stream({});
  stream.Headers();
  for (unsigned row = 0; row < rows; ++row) {
    stream.FlatRow(row, 50 + 50 * static_cast<int>(row), 90, 200);
  }
  return stream.Bytes();
}

}  // namespace

TEST_F(Ordinal, decodes_the_file_into_the_callers_buffer) {
  Write(Stream(2));
  EXPECT_EQ(Decode(), kDone);
  EXPECT_EQ(planes_[0], 50);
  EXPECT_EQ(planes_[31], 52);
  EXPECT_EQ(planes_[32 * 32 - 1], 102);
  EXPECT_EQ(planes_[32 * 32], 90);
  EXPECT_EQ(planes_[kFrameBytes - 1], 200);
}

TEST_F(Ordinal, missing_rows_and_frames_without_rows_are_black) {
  Write(Stream(1));
  EXPECT_EQ(Decode(), kDamaged);
  EXPECT_EQ(planes_[0], 50);
  EXPECT_EQ(planes_[32 * 32 - 1], 16);
  Write(Stream(0));
  EXPECT_EQ(Decode(), kRefused);
  EXPECT_EQ(planes_[0], 16);
  EXPECT_EQ(planes_[kFrameBytes - 1], 128);
}

TEST_F(Ordinal, writes_nothing_if_the_size_is_unknown) {
  EXPECT_EQ(Decode(), kRefused);  // the file does not exist
  Write({'G', 'I', 'F', '8', '9', 'a', 0, 1, 2, 3});
  EXPECT_EQ(Decode(), kRefused);
  EXPECT_EQ(planes_[0], kUntouched);
}

TEST_F(Ordinal, decodes_after_calls_without_a_path_or_a_buffer) {
  std::uint8_t* none = nullptr;
  std::uint8_t* buffer = planes_.data();
  EXPECT_EQ(decode_(nullptr, &buffer, 1), kRefused);
  EXPECT_EQ(decode_(path_.c_str(), nullptr, 1), kRefused);
  EXPECT_EQ(decode_(path_.c_str(), &none, 1), kRefused);
  Write(Stream(2));
  EXPECT_EQ(Decode(), kDone);
}

// The engine unloads the library when it closes, and loads it again after the next start.
TEST_F(Ordinal, can_be_loaded_again_after_the_library_was_unloaded) {
  Write(Stream(2));
  for (int round = 0; round < 50; ++round) {
    FreeLibrary(module_);
    ASSERT_EQ(GetModuleHandleA("MenuAPI"), nullptr);
    Load();
    ASSERT_NE(decode_, nullptr);
    std::fill(planes_.begin(), planes_.end(), kUntouched);
    ASSERT_EQ(Decode(), kDone);
  }
}

}  // namespace menuapi::test
