// Scenes that have too much in them: what can be drawn within a second is drawn.
#include <random>
#include <vector>

#include "presentation/canvas.h"
#include "presentation/presentation.h"
#include "windows/presentation/content.h"
#include "windows/presentation/processor_time.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

class PaintingTimeTest : public Stage {
 protected:
  void RedrawWithinASecond(const char* what) {
    EXPECT_LT(MillisecondsFor([] {
                ResetRedrawCounter();
                EXPECT_EQ(Redraw(), Status::Done);
              }),
              1000U)
        << what;
  }
};

TEST_F(PaintingTimeTest, of_ten_thousand_rectangles_the_lowest_are_drawn_and_shown) {
  std::vector<Rectangle> many(10'000);
  for (Rectangle& rectangle : many) {
    Place(rectangle, 0, 0, 720, 576);
    Fill(rectangle, kRedBytes);
    Show(ItemType::Rectangle, rectangle);
  }
  Fill(many.back(), kGreenBytes);
  RedrawWithinASecond("10,000 rectangles");
  EXPECT_TRUE(BackBufferPixels().IsAll(kWholeScene, kRed)) << "the highest is left out";
  EXPECT_TRUE(Shown().IsAll(kWholeScene, kRed));
}

TEST_F(PaintingTimeTest, the_next_redraw_has_all_its_time_again) {
  std::vector<Rectangle> many(10'000);
  for (Rectangle& rectangle : many) {
    Place(rectangle, 0, 0, 720, 576);
    Fill(rectangle, kRedBytes);
    Show(ItemType::Rectangle, rectangle);
  }
  RedrawWithinASecond("10,000 rectangles");
  App().DisplayStack.Clear();
  many.resize(20);
  for (Rectangle& rectangle : many) Show(ItemType::Rectangle, rectangle);
  Fill(many.back(), kGreenBytes);
  EXPECT_TRUE(Paint().IsAll(kWholeScene, kGreen));
}

TEST_F(PaintingTimeTest, a_thousand_pictures_and_a_thousand_missing_ones_end_in_time) {
  TheHost().files["picture"] = FlatPng(720, 576, kBlue);
  for (const char* content : {"~/picture", "~/absent"}) {
    std::vector<Bitmap> many(1000);
    for (Bitmap& bitmap : many) {
      Place(bitmap, 0, 0, 720, 576);
      bitmap.ContentHOOK = 4;
      bitmap.Content.IsReferenced = true;
      bitmap.Content.Data = Octets(content);
      Show(ItemType::Bitmap, bitmap);
    }
    RedrawWithinASecond(content);
    App().DisplayStack.Clear();
  }
}

TEST_F(PaintingTimeTest, an_event_that_asks_for_another_painting_gets_no_second_second) {
  Bitmap absent;
  Place(absent, 0, 0, 10, 10);
  absent.ContentHOOK = 4;
  absent.Content.IsReferenced = true;
  absent.Content.Data = Octets("~/absent");
  Show(ItemType::Bitmap, absent);
  std::vector<Rectangle> many(10'000);
  for (Rectangle& rectangle : many) {
    Place(rectangle, 0, 0, 720, 576);
    Fill(rectangle, kRedBytes);
    Show(ItemType::Rectangle, rectangle);
  }
  TheEngine().onRaise = [] {
    for (int request = 0; request < 5; ++request) static_cast<void>(Redraw());
    return Status::Done;
  };
  RedrawWithinASecond("painted twice");
}

TEST_F(PaintingTimeTest, one_object_of_any_size_takes_a_part_of_a_second) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  Rectangle rectangle;
  Fill(rectangle, kRedBytes);
  Show(ItemType::Rectangle, rectangle);
  for (const std::int32_t style : {1, 2, 3}) {
    for (const std::int32_t width : {1, 2, 3, 7, 50, kLargest}) {
      for (const std::int32_t extent : {720, 4000, 40000, kLargest}) {
        Place(rectangle, -extent / 2, -extent / 2, extent, extent);
        rectangle.LineStyle = style;
        rectangle.LineWidth = width;
        RedrawWithinASecond("a rectangle");
      }
    }
  }
}

TEST_F(PaintingTimeTest, polygons_of_any_corners_take_a_part_of_a_second) {
  constexpr std::int32_t kLargest = 0x7FFFFFFF;
  Canvas* canvas = NewCanvas(720, 576);
  std::mt19937 numbers(1);
  for (const std::size_t count : {std::size_t{500}, std::size_t{100'000}}) {
    for (const std::int32_t extent : {700, 40'000}) {
      std::uniform_int_distribution<std::int32_t> places(0, extent);
      std::vector<CanvasPoint> corners(count);
      for (CanvasPoint& corner : corners) corner = {places(numbers), places(numbers)};
      for (const std::int32_t width : {0, 1, 2, 20, kLargest}) {
        for (const std::int32_t style : {1, 3}) {
          EXPECT_LT(MillisecondsFor([&] {
                      EXPECT_EQ(
                          CanvasPolygon(corners, {width, style, 0xFF000080}, 0x00FF0080, canvas),
                          Status::Done);
                    }),
                    1000U)
              << count << " corners within " << extent << ", width " << width << ", style "
              << style;
        }
      }
    }
  }
  DestroyCanvas(canvas);
}

TEST_F(PaintingTimeTest, dotted_lines_of_any_length_take_a_part_of_a_second) {
  Canvas* canvas = NewCanvas(720, 576);
  const LineAttributes dots{.Width = 2, .Style = 3, .Ink = 0xFF000000};
  EXPECT_LT(MillisecondsFor([&] {
              EXPECT_EQ(CanvasLine({-40000, 9}, {40000, 9}, dots, canvas), Status::Done);
              EXPECT_EQ(CanvasArc({-9000, 9}, 18000, 9, 0, 360, dots, 0, ArcForm::Arc, canvas),
                        Status::Done);
            }),
            1000U);
  DestroyCanvas(canvas);
}

}  // namespace korvel::test
