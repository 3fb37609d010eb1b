// Polygons of any number of corners. Those that GDI+ would take too long for look as GDI+ draws
// them, GDI+ as Wine has it: below the limit, where both ways can draw, they are compared pixel by
// pixel.
#include "presentation/polygon.h"

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "windows/presentation/processor_time.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

namespace {

constexpr std::int32_t kWidth = 200;
constexpr std::int32_t kHeight = 150;

using Corners = std::vector<CanvasPoint>;

// Round and round a square, from pixel to pixel.
Corners Rounds(std::int32_t left, std::int32_t top, std::int32_t size, int rounds) {
  Corners corners;
  for (int round = 0; round < rounds; ++round) {
    for (std::int32_t step = 0; step < size; ++step) corners.push_back({left + step, top});
    for (std::int32_t step = 0; step < size; ++step) corners.push_back({left + size, top + step});
    for (std::int32_t step = size; step > 0; --step) corners.push_back({left + step, top + size});
    for (std::int32_t step = size; step > 0; --step) corners.push_back({left, top + step});
  }
  return corners;
}

// Every pixel of a canvas, alpha included.
std::vector<std::uint32_t> PixelsOf(const Canvas& canvas) {
  Gdiplus::BitmapData data{};
  const Gdiplus::GpRect all(0, 0, canvas.Width, canvas.Height);
  std::vector<std::uint32_t> pixels;
  EXPECT_TRUE(Succeeded(gdip::GdipBitmapLockBits(canvas.Picture, &all, Gdiplus::ImageLockModeRead,
                                                 PixelFormat32bppARGB, &data)));
  for (INT y = 0; y < canvas.Height; ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(static_cast<const BYTE*>(data.Scan0) +
                                                             y * data.Stride);
    pixels.insert(pixels.end(), row, row + canvas.Width);
  }
  EXPECT_TRUE(Succeeded(gdip::GdipBitmapUnlockBits(canvas.Picture, &data)));
  return pixels;
}

}  // namespace

class PolygonTest : public Stage {
 protected:
  PolygonTest() : canvas(NewCanvas(kWidth, kHeight)) {}
  ~PolygonTest() override { DestroyCanvas(canvas); }
  PolygonTest(const PolygonTest&) = delete;
  PolygonTest& operator=(const PolygonTest&) = delete;

  [[nodiscard]] std::int32_t Random(std::int32_t from, std::int32_t to) {
    return std::uniform_int_distribution<std::int32_t>(from, to)(numbers);
  }

  // All over the canvas and beyond it.
  [[nodiscard]] Corners Scattered(std::int32_t count) {
    Corners corners(static_cast<std::size_t>(count));
    for (CanvasPoint& corner : corners) corner = {Random(-60, 260), Random(-60, 210)};
    return corners;
  }

  // Each a few pixels from the one before, or at the same place.
  [[nodiscard]] Corners Dense(std::int32_t count) {
    Corners corners{{kWidth / 2, kHeight / 2}};
    while (corners.size() < static_cast<std::size_t>(count)) {
      corners.push_back({corners.back().X + Random(-4, 4), corners.back().Y + Random(-4, 4)});
    }
    return corners;
  }

  // Corners on a wide grid: many of them equal, many sides level, upright or back on themselves.
  [[nodiscard]] Corners OnGrid(std::int32_t count) {
    Corners corners = Scattered(count);
    for (CanvasPoint& corner : corners) corner = {corner.X & ~31, corner.Y & ~31};
    return corners;
  }

  [[nodiscard]] Corners AnyPolygon(std::int32_t most = 100) {
    const std::int32_t count = std::array{3, 5, 20, most}[numbers() % 4];
    switch (numbers() % 3) {
    case 0: return Scattered(count);
    case 1: return Dense(count);
    default: return OnGrid(count);
    }
  }

  // How many pixels differ after the polygon was drawn in the two ways over some ground.
  [[nodiscard]] int Differences(const Corners& corners, const LineAttributes& line,
                                DrawnColour fill) {
    const auto drawnBy = [&](auto&& draw) {
      EXPECT_EQ(ClearCanvas(kTransparentColour, canvas), Status::Done);
      EXPECT_EQ(CanvasOval({50, 20}, 100, 100, 0x3060C080, canvas), Status::Done);
      EXPECT_EQ(CanvasOval({20, 50}, 100, 80, 0xE0902000, canvas), Status::Done);
      draw(corners, line, fill, *canvas);
      return PixelsOf(*canvas);
    };
    const std::vector<std::uint32_t> expected = drawnBy(DrawPolygonWithGdiPlus);
    const std::vector<std::uint32_t> actual = drawnBy(DrawPolygonByCoverage);
    int differences = 0;
    for (std::size_t pixel = 0; pixel < expected.size(); ++pixel) {
      if (expected[pixel] != actual[pixel]) ++differences;
    }
    return differences;
  }

  std::mt19937 numbers{1};
  Canvas* canvas;
};

TEST_F(PolygonTest, fills_cover_the_pixels_that_gdi_plus_covers) {
  const LineAttributes none{.Width = 0};
  for (int polygon = 0; polygon < 200; ++polygon) {
    const DrawnColour fill = polygon % 2 == 0 ? 0x00FF0000 : 0x80FF4070;
    ASSERT_EQ(Differences(AnyPolygon(), none, fill), 0) << "polygon " << polygon;
  }
}

TEST_F(PolygonTest, outlines_cover_the_pixels_that_gdi_plus_covers) {
  for (const std::int32_t style : {1, 2, 3}) {
    for (const std::int32_t width : {1, 2, 5, 20}) {
      int differences = 0;
      for (int polygon = 0; polygon < 30; ++polygon) {
        const LineAttributes line{width, style, polygon % 2 == 0 ? 0xFF000000 : 0xFF408090};
        // GDI+ draws no more than 3000 dots.
        differences += Differences(AnyPolygon(style == 1 ? 100 : 9), line, kTransparentColour);
      }
      // The end of a dash may be rounded differently.
      EXPECT_LE(differences, width > 1 && style != 1 ? 3 : 0) << width << " wide, style " << style;
    }
  }
}

TEST_F(PolygonTest, fills_lie_over_outlines) {
  const LineAttributes line{.Width = 9, .Style = 1, .Ink = 0xFF000040};
  for (int polygon = 0; polygon < 20; ++polygon) {
    ASSERT_EQ(Differences(AnyPolygon(), line, 0x0000FF60), 0) << "polygon " << polygon;
  }
}

TEST_F(PolygonTest, the_drawable_area_limits_both_ways_alike) {
  EXPECT_EQ(ClipCanvas(120, 90, canvas), Status::Done);
  const LineAttributes line{.Width = 5, .Style = 1, .Ink = 0xFF000040};
  for (int polygon = 0; polygon < 20; ++polygon) {
    ASSERT_EQ(Differences(AnyPolygon(), line, 0x0000FF60), 0) << "polygon " << polygon;
  }
}

TEST_F(PolygonTest, thousands_of_corners_are_drawn_by_the_same_rules) {
  const LineAttributes line{.Width = 4, .Style = 1, .Ink = 0xFF000000};
  const auto at = [&](std::int32_t x, std::int32_t y) {
    return PixelsOf(*canvas)[static_cast<std::size_t>(y * kWidth + x)];
  };
  EXPECT_EQ(CanvasPolygon(Rounds(20, 20, 90, 9), line, 0x00FF0000, canvas), Status::Done);
  EXPECT_EQ(at(65, 65), 0xFF00FF00) << "enclosed an odd number of times";
  EXPECT_EQ(at(19, 65), 0xFFFF0000);
  EXPECT_EQ(at(111, 111), 0xFFFF0000);
  EXPECT_EQ(at(17, 65), 0U);
  EXPECT_EQ(ClearCanvas(kTransparentColour, canvas), Status::Done);
  EXPECT_EQ(CanvasPolygon(Rounds(20, 20, 90, 10), line, 0x00FF0000, canvas), Status::Done);
  EXPECT_EQ(at(65, 65), 0U) << "enclosed an even number of times";
  EXPECT_EQ(at(21, 65), 0xFFFF0000) << "no fill lies over the inner half of the outline";
}

TEST_F(PolygonTest, a_translucent_outline_of_thousands_of_corners_is_nowhere_blended_twice) {
  for (const std::int32_t width : {1, 2, 7}) {
    EXPECT_EQ(ClearCanvas(kTransparentColour, canvas), Status::Done);
    EXPECT_EQ(CanvasPolygon(Scattered(3000), {width, 1, 0xFF000080}, kTransparentColour, canvas),
              Status::Done);
    for (const std::uint32_t pixel : PixelsOf(*canvas)) {
      ASSERT_TRUE(pixel == 0 || pixel == 0x7FFF0000) << std::hex << pixel;
    }
  }
}

TEST_F(PolygonTest, long_outlines_keep_their_dashes) {
  Corners upAndDown;
  for (std::int32_t x = 5; x < 195; x += 4) {
    for (const CanvasPoint& corner : Corners{{x, 5}, {x, 145}, {x + 2, 145}, {x + 2, 5}}) {
      upAndDown.push_back(corner);
    }
  }
  for (std::int32_t step = 0; step < 2; ++step) upAndDown.push_back({193 * (1 - step), 2});
  const auto inkOf = [&](std::int32_t style) {
    EXPECT_EQ(ClearCanvas(kTransparentColour, canvas), Status::Done);
    EXPECT_EQ(CanvasPolygon(upAndDown, {1, style, 0xFF000000}, kTransparentColour, canvas),
              Status::Done);
    const std::vector<std::uint32_t> pixels = PixelsOf(*canvas);
    return static_cast<double>(std::ranges::count(pixels, 0xFFFF0000));
  };
  const double solid = inkOf(1);
  EXPECT_GT(solid, 12'000);
  EXPECT_NEAR(inkOf(2) / solid, 0.75, 0.01);
  EXPECT_NEAR(inkOf(3) / solid, 0.5, 0.01);
}

TEST_F(PolygonTest, thousands_of_corners_stay_within_the_drawable_area) {
  EXPECT_EQ(ClipCanvas(70, 50, canvas), Status::Done);
  const LineAttributes line{.Width = 9, .Style = 1, .Ink = 0xFF000000};
  EXPECT_EQ(CanvasPolygon(Scattered(3000), line, 0x00FF0000, canvas), Status::Done);
  const std::vector<std::uint32_t> pixels = PixelsOf(*canvas);
  int drawn = 0;
  for (std::int32_t y = 0; y < kHeight; ++y) {
    for (std::int32_t x = 0; x < kWidth; ++x) {
      const bool isDrawn = pixels[static_cast<std::size_t>(y * kWidth + x)] != 0;
      ASSERT_FALSE(isDrawn && (x >= 70 || y >= 50)) << x << ", " << y;
      drawn += isDrawn ? 1 : 0;
    }
  }
  EXPECT_GT(drawn, 70 * 50 * 9 / 10);
  EXPECT_EQ(ClipCanvas(0, 50, canvas), Status::Done);
  EXPECT_EQ(CanvasPolygon(Scattered(3000), line, 0x0000FF00, canvas), Status::Done);
  EXPECT_EQ(PixelsOf(*canvas), pixels);
}

// A canvas of several parts, which are drawn one after the other.
TEST_F(PolygonTest, thousands_of_corners_fill_a_large_canvas_without_a_seam) {
  Canvas* large = NewCanvas(3000, 2000);
  ASSERT_NE(large, nullptr);
  EXPECT_EQ(CanvasPolygon(Rounds(50, 50, 1900, 1), {.Width = 0}, 0x00FF0080, large), Status::Done);
  const std::vector<std::uint32_t> pixels = PixelsOf(*large);
  for (std::size_t y = 0; y < 2000; ++y) {
    for (std::size_t x = 0; x < 3000; ++x) {
      const bool isInside = x >= 50 && x < 1950 && y >= 50 && y < 1950;
      ASSERT_EQ(pixels[y * 3000 + x], isInside ? 0x7F00FF00 : 0U) << x << ", " << y;
    }
  }
  DestroyCanvas(large);
}

TEST_F(PolygonTest, a_thousand_times_the_same_point_draws_nothing) {
  for (const CanvasPoint point : {CanvasPoint{40, 40}, CanvasPoint{-9999, 40}}) {
    const Corners corners(1000, point);
    for (const std::int32_t width : {0, 1, 4}) {
      for (const std::int32_t style : {1, 2}) {
        EXPECT_EQ(CanvasPolygon(corners, {width, style, 0xFF000000}, 0x00FF0000, canvas),
                  Status::Done);
      }
    }
  }
  EXPECT_EQ(PixelsOf(*canvas), std::vector<std::uint32_t>(kWidth * kHeight));
}

}  // namespace korvel::test
