// Tests which redraw requests paint, the order of drawing the display stack, and the effects of
// events that drawing raises.
#include "platform/screen.h"
#include "presentation/presentation.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

class RedrawTest : public Stage {
 protected:
  // A bitmap whose file is missing.
  void ShowMissingBitmap(Bitmap& bitmap) {
    Place(bitmap, 0, 0, 10, 10);
    bitmap.ContentHOOK = 4;
    bitmap.Content.IsReferenced = true;
    bitmap.Content.Data = Octets("~/missing.png");
    Show(ItemType::Bitmap, bitmap);
  }
  void ShowFilled(Rectangle& rectangle, std::string_view colour) {
    Fill(rectangle, colour);
    Show(ItemType::Rectangle, rectangle);
  }
};

TEST_F(RedrawTest, one_request_in_five_paints) {
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  for (int request = 1; request <= 11; ++request) {
    ClearSurface();
    EXPECT_EQ(Redraw(), Status::Done);
    const bool hasPainted = BackBufferPixels().At(120, 120) == kRed;
    EXPECT_EQ(hasPainted, request == 1 || request == 6 || request == 11) << request;
  }
}

TEST_F(RedrawTest, a_reset_makes_the_next_request_paint) {
  EXPECT_EQ(Redraw(), Status::Done);
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  ResetRedrawCounter();
  EXPECT_EQ(Redraw(), Status::Done);
  EXPECT_EQ(BackBufferPixels().At(120, 120), kRed);
}

TEST_F(RedrawTest, without_an_application_the_picture_is_cleared_and_the_window_is_unchanged) {
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  static_cast<void>(Paint());
  ASSERT_EQ(Shown().At(120, 120), kRed);
  TheEngine().application = nullptr;
  LetTimePass();
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  EXPECT_EQ(Shown().At(120, 120), kRed);
}

TEST_F(RedrawTest, the_bottom_of_the_stack_is_drawn_first) {
  Rectangle bottom;
  Rectangle top;
  Place(bottom, 100, 100, 50, 50);
  Place(top, 120, 120, 50, 50);
  ShowFilled(bottom, kRedBytes);
  ShowFilled(top, kGreenBytes);
  const Pixels picture = Paint();
  EXPECT_EQ(picture.At(119, 119), kRed);
  EXPECT_EQ(picture.At(130, 130), kGreen);
}

TEST_F(RedrawTest, every_visible_of_a_large_scene_is_drawn) {
  std::vector<Rectangle> many(1000);
  for (Rectangle& rectangle : many) {
    Place(rectangle, 0, 0, 720, 576);
    ShowFilled(rectangle, kRedBytes);
  }
  Fill(many.back(), kGreenBytes);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kGreen));
  EXPECT_TRUE(Shown().IsAll(kWholeScene, kGreen));
}

TEST_F(RedrawTest, objects_that_do_not_run_are_not_drawn) {
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  rectangle.RunningStatus = false;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
}

TEST_F(RedrawTest, a_video_that_does_not_run_is_not_drawn) {
  Video video;
  Place(video, 0, 0, 720, 576);
  Show(ItemType::Video, video);
  EXPECT_FALSE(Paint().IsAll(kWholeScene, kBlack));
  video.RunningStatus = false;
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(RedrawTest, objects_of_classes_that_are_not_drawn_are_skipped) {
  PushButton button;
  LineArt lineArt;
  RTGraphics graphics;
  HotSpot hotSpot;
  Rectangle stream;  // added to the stack as a class that is not drawn
  lineArt.RefFillColour = Absolute(kRedBytes);
  stream.RefFillColour = Absolute(kRedBytes);
  for (Visible* visible : {static_cast<Visible*>(&button), static_cast<Visible*>(&lineArt),
                           static_cast<Visible*>(&graphics), static_cast<Visible*>(&hotSpot),
                           static_cast<Visible*>(&stream)}) {
    Place(*visible, 0, 0, 700, 500);
  }
  Show(ItemType::PushButton, button);
  Show(ItemType::LineArt, lineArt);
  Show(ItemType::RTGraphics, graphics);
  Show(ItemType::HotSpot, hotSpot);
  Show(ItemType::Stream, stream);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
}

TEST_F(RedrawTest, a_locked_screen_is_painted_and_not_shown) {
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  static_cast<void>(Paint());
  Fill(rectangle, kGreenBytes);
  App().LockCount = 1;
  LetTimePass();
  EXPECT_EQ(Paint().At(120, 120), kGreen);
  EXPECT_EQ(Shown().At(120, 120), kRed);
  // Uncovering the window paints the last picture that was shown.
  HDC deviceContext = GetDC(Window());
  PaintWindow(deviceContext);
  ReleaseDC(Window(), deviceContext);
  EXPECT_EQ(Shown().At(120, 120), kRed);
  App().LockCount = 0;
  LetTimePass();
  static_cast<void>(Paint());
  EXPECT_EQ(Shown().At(120, 120), kGreen);
}

TEST_F(RedrawTest, a_missing_picture_is_an_engine_event_of_the_application) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  EXPECT_EQ(Paint().At(120, 120), kRed) << "the rest of the stack is still drawn";
  ASSERT_EQ(TheEngine().raised.size(), 1U);
  const RaisedEvent& event = TheEngine().raised.front();
  EXPECT_EQ(event.group, "~/app");
  EXPECT_EQ(event.number, 0);
  EXPECT_EQ(event.type, EventType::EngineEvent);
  EXPECT_EQ(event.data.kind, ValueKind::Integer);
  EXPECT_EQ(event.data.value, 3);
}

TEST_F(RedrawTest, an_event_that_fails_ends_the_redraw_at_once) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  TheEngine().onRaise = [] { return Status::Failure; };
  EXPECT_EQ(Redraw(), Status::Failure);
  EXPECT_EQ(BackBufferPixels().At(120, 120), kBlack);
  EXPECT_TRUE(Shown().IsAll({100, 100, 150, 150}, Shown().At(0, 0))) << "nothing was copied";
}

TEST_F(RedrawTest, objects_of_a_group_that_an_event_ended_are_skipped) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  Scene scene;
  Rectangle ended;
  Place(ended, 100, 100, 50, 50);
  ended.owner = &scene;
  ShowFilled(ended, kRedBytes);
  Rectangle alive;
  Place(alive, 200, 200, 50, 50);
  ShowFilled(alive, kGreenBytes);
  TheEngine().onRaise = [&scene] {
    scene.life.isDead = true;
    return Status::Done;
  };
  const Pixels picture = Paint();
  EXPECT_EQ(picture.At(120, 120), kBlack);
  EXPECT_EQ(picture.At(220, 220), kGreen);
}

TEST_F(RedrawTest, an_event_that_replaces_the_application_ends_the_drawing_without_failure) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  const Pixels before = Shown();
  Application other;
  TheEngine().onRaise = [&other] {
    TheEngine().application = &other;
    return Status::Replaced;
  };
  EXPECT_EQ(Paint().At(120, 120), kBlack);
  EXPECT_EQ(Shown(), before);
}

TEST_F(RedrawTest, the_stack_may_be_emptied_by_an_event) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  TheEngine().onRaise = [this] {
    App().DisplayStack.Clear();
    return Status::Done;
  };
  EXPECT_EQ(Paint().At(120, 120), kRed) << "all objects that were in the stack at first are drawn";
}

TEST_F(RedrawTest, requests_from_events_of_a_painting_paint_once_more_after_it) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  int depth = 0;
  TheEngine().onRaise = [&depth] {
    ++depth;
    EXPECT_EQ(depth, 1) << "a painting inside a painting";
    for (int request = 0; request < 5; ++request) EXPECT_EQ(Redraw(), Status::Done);
    --depth;
    return Status::Done;
  };
  static_cast<void>(Paint());
  EXPECT_EQ(TheEngine().raised.size(), 2U);
}

TEST_F(RedrawTest, ended_groups_are_kept_while_it_paints) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  int busy = 0;
  TheEngine().onRaise = [&busy] {
    busy = TheEngine().busy;
    return Status::Done;
  };
  static_cast<void>(Paint());
  EXPECT_GT(busy, 0);
  EXPECT_EQ(TheEngine().busy, 0);
}

TEST_F(RedrawTest, after_a_close_request_redraw_requests_are_counted_and_not_painted) {
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  TheHost().isClosing = true;
  EXPECT_EQ(Redraw(), Status::Done);
  TheHost().isClosing = false;
  EXPECT_EQ(Redraw(), Status::Done);
  EXPECT_EQ(BackBufferPixels().At(120, 120), kBlack);
}

TEST_F(RedrawTest, a_close_request_while_it_paints_ends_the_drawing) {
  Bitmap bitmap;
  ShowMissingBitmap(bitmap);
  Rectangle rectangle;
  Place(rectangle, 100, 100, 50, 50);
  ShowFilled(rectangle, kRedBytes);
  const Pixels before = Shown();
  TheEngine().onRaise = [] {
    TheHost().isClosing = true;
    return Status::Done;
  };
  EXPECT_EQ(Paint().At(120, 120), kBlack);
  EXPECT_EQ(Shown(), before);
}

}  // namespace korvel::test
