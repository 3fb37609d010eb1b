// Tests copying the picture to the window.
#include "platform/screen.h"
#include "presentation/presentation.h"
#include "presentation/state.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

class DeviceUpdateTest : public Stage {
 protected:
  // Paints the whole scene in one colour, without showing it.
  void PaintAll(std::string_view colour) {
    App().DisplayStack.Clear();
    Place(rectangle_, 0, 0, 720, 576);
    Fill(rectangle_, colour);
    Show(ItemType::Rectangle, rectangle_);
    App().LockCount = 1;
    static_cast<void>(Paint());
    App().LockCount = 0;
  }

 private:
  Rectangle rectangle_;
};

TEST_F(DeviceUpdateTest, the_window_shows_the_whole_picture_pixel_by_pixel) {
  PaintAll(kBlueBytes);
  DeviceUpdate();
  EXPECT_EQ(Shown(), BackBufferPixels());
  EXPECT_EQ(Shown().At(719, 575), kBlue);
}

TEST_F(DeviceUpdateTest, two_updates_within_a_millisecond_copy_once) {
  TheHost().milliseconds = 1500;
  PaintAll(kRedBytes);
  DeviceUpdate();
  PaintAll(kGreenBytes);
  DeviceUpdate();
  EXPECT_EQ(Shown().At(0, 0), kRed);
  LetTimePass();
  DeviceUpdate();
  EXPECT_EQ(Shown().At(0, 0), kGreen);
}

TEST_F(DeviceUpdateTest, an_update_in_the_next_second_copies_again) {
  TheHost().milliseconds = 1999;
  PaintAll(kRedBytes);
  DeviceUpdate();
  TheHost().milliseconds = 2000;
  PaintAll(kGreenBytes);
  DeviceUpdate();
  EXPECT_EQ(Shown().At(0, 0), kGreen);
}

TEST_F(DeviceUpdateTest, without_a_stamp_an_update_is_never_skipped) {
  PaintAll(kRedBytes);
  DeviceUpdate();
  PaintAll(kGreenBytes);
  DiscardUpdateStamp();
  DeviceUpdate();
  EXPECT_EQ(Shown().At(0, 0), kGreen);
}

TEST_F(DeviceUpdateTest, uncovering_shows_the_finished_picture_and_not_the_one_being_drawn) {
  PaintAll(kRedBytes);
  DeviceUpdate();
  PaintAll(kGreenBytes);
  HDC deviceContext = GetDC(Window());
  PatBlt(deviceContext, 0, 0, 720, 576, WHITENESS);
  PaintWindow(deviceContext);
  ReleaseDC(Window(), deviceContext);
  EXPECT_TRUE(Shown().IsAll(kWholeScene, kRed));
}

TEST_F(DeviceUpdateTest, uncovering_before_the_first_picture_paints_nothing) {
  HDC deviceContext = GetDC(Window());
  PatBlt(deviceContext, 0, 0, 720, 576, WHITENESS);
  PaintWindow(deviceContext);
  ReleaseDC(Window(), deviceContext);
  EXPECT_TRUE(Shown().IsAll(kWholeScene, kWhite));
}

TEST_F(DeviceUpdateTest, the_trace_lists_copies_and_the_start_of_skipped_ones) {
  DeviceUpdate();
  DeviceUpdate();
  const std::vector<std::string> expected = {
      ">>>>>>>>DeviceUpdate !!\n", ">>>>>>>>DeviceUpdate END!!\n", ">>>>>>>>DeviceUpdate !!\n"};
  EXPECT_EQ(TheHost().traced, expected);
}

TEST_F(DeviceUpdateTest, the_picture_starts_opaque_black) {
  EXPECT_TRUE(BackBufferPixels().IsAll(kWholeScene, kBlack));
  DeviceUpdate();
  EXPECT_TRUE(Shown().IsAll(kWholeScene, kBlack));
}

TEST(Presentation, opens_and_draws_after_calls_without_effect) {
  OpenScreen();
  ClearSurface();
  DrawScreenText("Please Wait");
  DeviceUpdate();
  ResetRedrawCounter();
  EXPECT_EQ(Redraw(), Status::Done);
  ClearImageCache();
  PaintWindow(nullptr);
  ReleasePictures();
  ClosePresentation();
  OpenPresentation(nullptr);
  EXPECT_TRUE(BackBufferPixels().IsAll(kWholeScene, kBlack));
  DrawScreenText("Please Wait");
  EXPECT_FALSE(BackBufferPixels().IsAll(kWholeScene, kBlack));
  ReleasePictures();
  ClosePresentation();
  CloseScreen();
}

TEST(Presentation, opens_and_closes_many_times_in_one_process) {
  for (int run = 0; run < 20; ++run) {
    OpenScreen();
    OpenPresentation(nullptr);
    DrawScreenText("Please Wait");
    EXPECT_FALSE(BackBufferPixels().IsAll(kWholeScene, kBlack)) << run;
    DeviceUpdate();
    ReleasePictures();
    ClosePresentation();
    CloseScreen();
  }
}

TEST(Presentation, releases_its_pictures_before_the_canvases) {
  OpenScreen();
  OpenPresentation(nullptr);
  Canvas* canvas = NewCanvas(10, 10);
  ASSERT_NE(canvas, nullptr);
  ReleasePictures();
  EXPECT_EQ(State().backBuffer, nullptr);
  ClearCanvas(kTransparentColour, canvas);
  DestroyCanvas(canvas);
  ClosePresentation();
  CloseScreen();
}

}  // namespace korvel::test
