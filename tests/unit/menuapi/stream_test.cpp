// The layers below the video syntax: the bits and units of a stream, and a stream in a file.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "menuapi/start_codes.h"
#include "menuapi/stream_file.h"
#include "unit/menuapi/planes.h"
#include "unit/menuapi/stream_writer.h"

namespace menuapi::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

class StreamFile : public testing::Test {
 protected:
  StreamFile() {
    std::string name = (std::filesystem::temp_directory_path() / "menuapi-test-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~StreamFile() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::string Path() const { return (folder_ / "frame.m2v").string(); }
  void Write(const Bytes& bytes) const {
    std::ofstream(Path(), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
  }

  std::filesystem::path folder_;
};

}  // namespace

TEST(BitReader, reads_across_bytes) {
  const Bytes bytes = {0xAB, 0xCD, 0xEF, 0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD};
  BitReader reader(bytes);
  EXPECT_EQ(reader.Read(4), 0xAU);
  EXPECT_EQ(reader.Peek(12), 0xBCDU);
  EXPECT_EQ(reader.Read(32), 0xBCDEF012U);
  EXPECT_TRUE(!reader.ReadFlag() && !reader.ReadFlag() && reader.ReadFlag());
  EXPECT_EQ(reader.Read(1), 1U);
  EXPECT_EQ(reader.Read(32), 0x456789ABU);
  EXPECT_FALSE(reader.HasPassedEnd());
}

TEST(BitReader, reads_zeros_past_the_end_and_reports_it) {
  for (std::size_t size = 0; size < 12; ++size) {
    const Bytes bytes(size, 0xFF);
    BitReader reader(bytes);
    for (std::size_t index = 0; index < size; ++index) EXPECT_EQ(reader.Read(8), 0xFFU);
    EXPECT_FALSE(reader.HasPassedEnd());
    EXPECT_EQ(reader.Peek(32), 0U);
    EXPECT_FALSE(reader.HasPassedEnd());
    for (int round = 0; round < 20; ++round) EXPECT_EQ(reader.Read(31), 0U);
    EXPECT_TRUE(reader.HasPassedEnd());
  }
}

TEST(StartCodes, divide_a_stream_into_units) {
  const Bytes bytes = {9, 0, 0, 1, 0xB3, 5, 6, 0, 0, 0, 1, 0x01, 0, 0, 1, 0xB7};
  StartCodes units(bytes);
  EXPECT_EQ(units.Current().code, 0xB3);
  EXPECT_EQ(units.Current().payload.size(), 3U);
  EXPECT_EQ(units.Current().payload[0], 5);
  units.Advance();
  EXPECT_TRUE(units.Current().IsSlice());
  EXPECT_TRUE(units.Current().payload.empty());
  units.Advance();
  EXPECT_EQ(units.Current().code, 0xB7);
  EXPECT_FALSE(units.IsAtEnd());
  units.Advance();
  EXPECT_TRUE(units.IsAtEnd());
  EXPECT_FALSE(units.Current().IsSlice());
  units.Advance();
  EXPECT_TRUE(units.IsAtEnd());
}

TEST(StartCodes, are_at_the_end_if_no_prefix_with_a_code_follows) {
  for (const Bytes& bytes :
       {Bytes{}, Bytes{0}, Bytes{0, 0}, Bytes{0, 0, 1}, Bytes{1, 2, 3, 4, 5}}) {
    EXPECT_TRUE(StartCodes(bytes).IsAtEnd());
  }
}

TEST_F(StreamFile, is_decoded) {
  StreamWriter stream({});
  stream.Headers();
  stream.FlatRow(0, 50);
  stream.FlatRow(1, 60);
  Write(stream.Bytes());
  Bytes planes(32 * 32 * 3 / 2, kUntouched);
  EXPECT_EQ(DecodeFrameFile(Path().c_str(), planes.data()), Result::Done);
  EXPECT_EQ(planes[0], 50);
  EXPECT_EQ(planes[31 * 32], 60);
}

TEST_F(StreamFile, is_rejected_if_it_cannot_be_read_or_has_no_sequence_header) {
  Bytes planes(64, kUntouched);
  EXPECT_EQ(DecodeFrameFile(Path().c_str(), planes.data()), Result::Rejected);
  EXPECT_EQ(DecodeFrameFile(folder_.c_str(), planes.data()), Result::Rejected);
  for (const Bytes& bytes : {Bytes{}, Bytes{0, 0, 1, 0xB3, 0, 0}, Bytes(3000000, 0x55)}) {
    Write(bytes);
    EXPECT_EQ(DecodeFrameFile(Path().c_str(), planes.data()), Result::Rejected);
  }
  EXPECT_EQ(planes, Bytes(64, kUntouched));
}

}  // namespace menuapi::test
