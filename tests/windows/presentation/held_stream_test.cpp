// The file in which a stream goes to the decoder, when others use the same one; and decoders that
// do not keep to what the engine expects.
#include <gmock/gmock.h>

#include <atomic>
#include <fstream>
#include <functional>
#include <thread>

#include "presentation/i_frame.h"
#include "presentation/presentation.h"
#include "windows/presentation/content.h"
#include "windows/presentation/decoder.h"
#include "windows/presentation/stage.h"
#include "windows/support/waiting.h"

namespace korvel::test {

namespace {

constexpr std::uint8_t kWhiteLuma = 235;
constexpr std::uint8_t kGreyLuma = 126;
constexpr std::uint32_t kWhiteOfLuma = 0xFEFEFE;
constexpr DWORD kAllShares = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE Open(const std::string& path, DWORD access, DWORD shares) {
  return CreateFileA(path.c_str(), access, shares, nullptr, OPEN_EXISTING, 0, nullptr);
}

// The bytes by way of such a handle; empty when there is none.
std::string ReadBy(const std::string& path, DWORD access, DWORD shares) {
  std::string bytes(64, '\0');
  HANDLE file = Open(path, access, shares);
  DWORD read = 0;
  if (file == INVALID_HANDLE_VALUE || ReadFile(file, bytes.data(), 64, &read, nullptr) == FALSE) {
    return {};
  }
  CloseHandle(file);
  return bytes.substr(0, read);
}

}  // namespace

// Does something all the time, on a thread of its own.
class Rival {
 public:
  explicit Rival(const std::function<void()>& work)
      : thread_([this, work] {
          for (; !isOver_; ++rounds_) work();
        }) {}
  ~Rival() {
    isOver_ = true;
    thread_.join();
  }
  Rival(const Rival&) = delete;
  Rival& operator=(const Rival&) = delete;

  [[nodiscard]] int Rounds() const { return rounds_; }

 private:
  std::atomic<bool> isOver_ = false;
  std::atomic<int> rounds_ = 0;
  std::thread thread_;
};

enum class Painted { Right, Missing, Wrong };

class HeldStream : public Stage {
 protected:
  HeldStream() {
    Place(bitmap_, 0, 0, 64, 32);
    bitmap_.ContentHOOK = 2;
    bitmap_.Content.IsReferenced = true;
    bitmap_.Content.Data = Octets("~/frame");
    Show(ItemType::Bitmap, bitmap_);
    TheHost().files["frame"] = white;
    decoder.DecodeBy(
        [](const char* path, std::uint8_t* buffer) { DecodeStream(FileBytes(path), buffer); });
    TheHost().onPause = [] { Sleep(10); };
  }
  [[nodiscard]] std::string Path() const { return TemporaryPath() + "mheg_bmp_tmpfile000.m2v"; }
  [[nodiscard]] HANDLE HoldPath() const { return Open(Path(), GENERIC_READ, FILE_SHARE_READ); }
  // What another engine or program writes: a frame that is larger and grey.
  void WriteLargeFrame() const {
    std::ofstream(Path(), std::ios::binary) << Stream(1920, 1152, kGreyLuma);
  }
  // What is painted while the rival has been at work.
  [[nodiscard]] Painted PaintBeside(const Rival& rival) {
    const int rounds = rival.Rounds();
    EXPECT_TRUE(WaitUntil([&] { return rival.Rounds() > rounds; }));
    TheEngine().raised.clear();
    const Pixels picture = Paint();
    if (picture.IsAll({0, 0, 64, 32}, kWhiteOfLuma)) return Painted::Right;
    const bool isMissing = picture.IsAll(kWholeScene, kBlack) && TheEngine().raised.size() == 1;
    return isMissing ? Painted::Missing : Painted::Wrong;
  }
  // Whether the frame is painted as it should be, by a decoder that opens the file like this.
  [[nodiscard]] bool IsPaintedBy(DWORD access, DWORD shares) {
    decoder.DecodeBy([=](const char* path, std::uint8_t* buffer) {
      DecodeStream(ReadBy(path, access, shares), buffer);
    });
    return Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma);
  }

  const std::string white = Stream(64, 32, kWhiteLuma);
  Decoder decoder;

 private:
  Bitmap bitmap_;
};

TEST_F(HeldStream, is_decoded_by_whoever_reads_it) {
  EXPECT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  for (const DWORD shares : {DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
    EXPECT_TRUE(IsPaintedBy(GENERIC_READ, shares)) << shares;
  }
  EXPECT_EQ(decoder.Record().calls, 3) << "once each";
}

TEST_F(HeldStream, cannot_be_changed_while_it_is_decoded) {
  int attempts = 0;
  decoder.DecodeBy([&](const char* path, std::uint8_t* buffer) {
    EXPECT_EQ(Open(path, GENERIC_WRITE, kAllShares), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_FALSE(std::ofstream(path, std::ios::binary).is_open());
    EXPECT_EQ(DeleteFileA(path), FALSE);
    EXPECT_EQ(MoveFileA(path, (TemporaryPath() + "moved").c_str()), FALSE);
    ++attempts;
    DecodeStream(FileBytes(path), buffer);
  });
  EXPECT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  EXPECT_EQ(attempts, 1);
  EXPECT_NE(DeleteFileA(Path().c_str()), FALSE) << "afterwards it is free";
}

TEST_F(HeldStream, is_let_go_for_a_decoder_that_wants_it_for_itself) {
  EXPECT_TRUE(IsPaintedBy(GENERIC_READ, 0));
  EXPECT_TRUE(IsPaintedBy(GENERIC_READ | GENERIC_WRITE, kAllShares));
  EXPECT_EQ(decoder.Record().calls, 4) << "twice each";
}

TEST_F(HeldStream, has_room_for_whatever_frame_a_decoder_finds) {
  decoder.DecodeBy([](const char* path, std::uint8_t* buffer) {
    constexpr std::size_t kLargest = std::size_t{4096} * 4096 * 3 / 2;
    std::fill_n(buffer, kLargest, std::uint8_t{128});
    DecodeStream(FileBytes(path), buffer);
  });
  for (int count = 0; count < 5; ++count) {
    ASSERT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  }
}

TEST_F(HeldStream, is_never_that_of_a_program_that_does_nothing_but_write) {
  const Rival rival([this] { WriteLargeFrame(); });
  for (int count = 0; count < 10; ++count) {
    ASSERT_NE(PaintBeside(rival), Painted::Wrong);
  }
}

TEST_F(HeldStream, is_shared_with_an_engine_that_paints_all_the_time) {
  const Rival rival([this] {
    WriteLargeFrame();
    HANDLE held = HoldPath();
    Sleep(2);  // decoding
    if (held != INVALID_HANDLE_VALUE) CloseHandle(held);
    Sleep(2);
  });
  int right = 0;
  for (int count = 0; count < 40; ++count) {
    const Painted painted = PaintBeside(rival);
    ASSERT_NE(painted, Painted::Wrong);
    right += painted == Painted::Right ? 1 : 0;
  }
  EXPECT_GT(right, 20);
}

TEST_F(HeldStream, is_waited_for_while_another_engine_decodes) {
  ASSERT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  HANDLE held = HoldPath();
  int pauses = 0;
  TheHost().onPause = [&] {
    if (++pauses == 5) CloseHandle(held);
  };
  EXPECT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  EXPECT_EQ(pauses, 5);
}

TEST_F(HeldStream, is_missing_when_the_file_cannot_be_had_in_a_part_of_a_second) {
  std::vector<Bitmap> more(20);
  for (Bitmap& bitmap : more) {
    Place(bitmap, 100, 0, 64, 32);
    bitmap.ContentHOOK = 2;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/frame");
    Show(ItemType::Bitmap, bitmap);
  }
  ASSERT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  HANDLE held = HoldPath();
  for (const std::uint32_t waitedMs : {200U, 400U}) {
    EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
    EXPECT_EQ(TheHost().pausedMs, waitedMs) << "the whole painting together";
  }
  EXPECT_EQ(TheEngine().raised.size(), 2 * (more.size() + 1));
  CloseHandle(held);
  EXPECT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
}

TEST_F(HeldStream, is_waited_for_no_longer_once_the_engine_closes) {
  ASSERT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  HANDLE held = HoldPath();
  int pauses = 0;
  TheHost().onPause = [&] { TheHost().isClosing = ++pauses == 3; };
  static_cast<void>(Paint());
  EXPECT_EQ(pauses, 3);
  CloseHandle(held);
}

TEST_F(HeldStream, is_not_waited_for_when_nobody_has_the_file) {
  ASSERT_NE(CreateDirectoryA(Path().c_str(), nullptr), FALSE);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  EXPECT_EQ(TheHost().pausedMs, 0U);
}

TEST_F(HeldStream, is_in_the_folder_of_the_engines_start) {
  const std::string before = TemporaryPath();
  const TemporaryFolder later;
  ASSERT_NE(later.Path(), before);
  EXPECT_TRUE(Paint().IsAll({0, 0, 64, 32}, kWhiteOfLuma));
  EXPECT_EQ(FileBytes(before + "mheg_bmp_tmpfile000.m2v"), white);
}

TEST_F(HeldStream, of_a_larger_frame_than_its_header_says_is_not_decoded) {
  TheHost().files["frame"] = white + std::string("\x00\x00\x01\xB5\x14\x8B\x00\x01\x00\x00", 10);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  EXPECT_EQ(decoder.Record().calls, 0);
  EXPECT_EQ(TheEngine().raised.size(), 1U);
}

}  // namespace korvel::test
