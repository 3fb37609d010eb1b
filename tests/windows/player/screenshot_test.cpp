// Tests pictures of windows whose client area differs from the size of a scene, as it can with the
// system's window frame.
#include "player/screenshot.h"

#include <gtest/gtest.h>

namespace player::test {

namespace {

constexpr int kWidth = 720;
constexpr int kHeight = 576;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kColourBits = 0xFFFFFF;

}  // namespace

// A white window without a frame.
class ScreenshotTest : public testing::Test {
 protected:
  ~ScreenshotTest() override { DestroyWindow(window_); }

  void Open(int width, int height) {
    window_ = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, width, height, nullptr,
                              nullptr, nullptr, nullptr);
    const HDC deviceContext = GetDC(window_);
    PatBlt(deviceContext, 0, 0, width, height, WHITENESS);
    ReleaseDC(window_, deviceContext);
    ASSERT_TRUE(Capture(window_, picture_));
  }

  // Expects white in the first `columns` columns and `rows` rows, and black elsewhere.
  void ExpectWhite(int columns, int rows) const {
    ASSERT_EQ(picture_.pixels.size(), std::size_t{kWidth} * kHeight);
    for (int y = 0; y < kHeight; ++y) {
      for (int x = 0; x < kWidth; ++x) {
        const std::uint32_t pixel = picture_.pixels[static_cast<std::size_t>(y * kWidth + x)];
        ASSERT_EQ(pixel & kColourBits, x < columns && y < rows ? kWhite : 0) << x << ", " << y;
      }
    }
  }

 private:
  HWND window_ = nullptr;
  Picture picture_;
};

TEST_F(ScreenshotTest, missing_rows_are_black) {
  Open(kWidth, kHeight - 1);
  ExpectWhite(kWidth, kHeight - 1);
}

TEST_F(ScreenshotTest, missing_columns_are_black) {
  Open(kWidth - 20, kHeight);
  ExpectWhite(kWidth - 20, kHeight);
}

TEST_F(ScreenshotTest, a_larger_window_is_cropped_to_the_scene) {
  Open(kWidth + 10, kHeight + 6);
  ExpectWhite(kWidth, kHeight);
}

}  // namespace player::test
