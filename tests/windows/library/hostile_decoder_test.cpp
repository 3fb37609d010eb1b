// Tests I-frame decoders that are missing, incomplete, blocked, or careless with the buffer. The
// engine must keep working and show its own buffer.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <optional>

#include "windows/library/hostile_fixture.h"
#include "windows/support/decoder.h"
#include "windows/support/temporary_folder.h"

namespace korvel::test {
namespace {

using namespace std::chrono_literals;

constexpr COLORREF kUnwritten = RGB(0, 135, 0);  // luma and chroma 0
constexpr COLORREF kMissing = RGB(0, 0, 0);

// A frame, and above it a blue square that turns red when a picture is missing.
constexpr const char* kFrame = R"(
    {:Bitmap 5 :CHook 2 :OrigContent :ContentRef ("~/frame") :OrigBoxSize 720 576}
    {:Rectangle 6 :OrigBoxSize 40 40 :OrigPosition 600 400 :OrigLineWidth 0
      :OrigRefFillColour '=00=00=FF=00'}
    {:Link 7 :EventSource ("~/a" 0) :EventType EngineEvent :EventData 3
      :LinkEffect (:SetFillColour(6 :NewAbsoluteColour '=FF=00=00=00'))})";

class HostileDecoder : public HostileHost {
 protected:
  HostileDecoder() {
    ServeScene(std::string(kFrame) + kLamp);
    host.Serve("frame", Stream(720, 576, 235));
  }
  ~HostileDecoder() override { Close(); }

  // Shows the frame as decoded by `decode`, and checks its colour.
  void ExpectColour(Decoder::Decode decode, COLORREF colour) {
    decoder.emplace();
    decoder->DecodeBy(std::move(decode));
    Start();
    WaitForLamp();
    WaitForColour(400, 300, colour);
    EXPECT_EQ(Shown(610, 410), RGB(0, 0, 255)) << "no picture is missing";
    EXPECT_GT(decoder->Record().calls, 0);
    ExpectWorkingScene();
    EXPECT_EQ(Shown(400, 300), colour);
  }
  void ExpectMissingPicture() {
    Start();
    WaitForColour(610, 410, RGB(255, 0, 0));
    EXPECT_EQ(Shown(400, 300), kMissing);
    ExpectWorkingScene();
  }

  const TemporaryFolder temporaryFolder;
  std::optional<Decoder> decoder;
};

TEST_F(HostileDecoder, that_is_not_installed_leaves_a_missing_picture) {
  const auto folderOfLibraries = std::filesystem::current_path();
  std::filesystem::current_path(temporaryFolder.Path());
  ExpectMissingPicture();
  ASSERT_EQ(GetModuleHandleA("MenuAPI"), nullptr);
  std::filesystem::current_path(folderOfLibraries);
}

TEST_F(HostileDecoder, without_the_function_leaves_a_missing_picture) {
  decoder.emplace();
  decoder->RemoveFunction();
  ExpectMissingPicture();
  EXPECT_EQ(decoder->Record().calls, 0);
}

TEST_F(HostileDecoder, that_returns_at_once_shows_an_unwritten_frame) {
  ExpectColour([](const char*, std::uint8_t**) {}, kUnwritten);
}

TEST_F(HostileDecoder, that_writes_too_little_shows_the_rest_unwritten) {
  ExpectColour([](const char*, std::uint8_t** buffer) { std::fill_n(*buffer, 720 * 100, 235); },
               kUnwritten);
}

TEST_F(HostileDecoder, that_clears_the_pointer_shows_the_engines_buffer) {
  ExpectColour([](const char*, std::uint8_t** buffer) { *buffer = nullptr; }, kUnwritten);
}

TEST_F(HostileDecoder, that_replaces_the_pointer_shows_the_engines_buffer) {
  static std::uint8_t own[720 * 576 * 3 / 2];
  std::ranges::fill(own, std::uint8_t{235});
  ExpectColour([](const char*, std::uint8_t** buffer) { *buffer = own; }, kUnwritten);
  EXPECT_TRUE(std::ranges::all_of(own, [](int byte) { return byte == 235; }));
}

TEST_F(HostileDecoder, that_blocks_delays_the_close_but_nothing_else) {
  std::atomic<bool> isBlocked = false;
  std::atomic<bool> isReleased = false;
  decoder.emplace();
  decoder->DecodeBy([&](const char*, std::uint8_t**) {
    isBlocked = true;
    static_cast<void>(WaitUntil([&] { return isReleased.load(); }, 60s));
  });
  Start();
  ASSERT_TRUE(WaitUntil([&] { return isBlocked.load(); }));
  EXPECT_TRUE(IsWindowResponding());
  InvalidateRect(engineWindow, nullptr, TRUE);
  EXPECT_TRUE(WaitUntil([this] { return GetUpdateRect(engineWindow, nullptr, FALSE) == 0; }));
  EXPECT_EQ(library.exit(), 0U);
  EXPECT_FALSE(WaitUntil([this] { return window.Closes() > 0; }, 300ms));
  EXPECT_TRUE(IsWindowResponding()) << "while it waits for the worker";
  isReleased = true;
  WaitForClosed();
}

TEST_F(HostileDecoder, that_calls_every_function_closes_the_engine_once) {
  decoder.emplace();
  decoder->DecodeBy([this](const char*, std::uint8_t**) { CallEverything(); });
  Start();
  WaitForClosed();
  library.waitForClose();
  EXPECT_EQ(host.CountOf("Release"), 1);
  ExpectColour([](const char*, std::uint8_t**) {}, kUnwritten);
}

}  // namespace
}  // namespace korvel::test
