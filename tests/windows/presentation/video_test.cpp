// Tests the picture that replaces broadcast video, and the cache that holds it.
#include "platform/screen.h"
#include "presentation/picture.h"
#include "presentation/presentation.h"
#include "windows/presentation/stage.h"

namespace korvel::test {

class VideoTest : public Stage {
 protected:
  VideoTest() {
    Place(video, 0, 0, 720, 576);
    Show(ItemType::Video, video);
  }
  Video video;
};

TEST_F(VideoTest, a_running_video_shows_the_placeholder) {
  const Pixels picture = Paint();
  EXPECT_GT(picture.Extent(kWholeScene).Width(), 600);
  EXPECT_GT(picture.Extent(kWholeScene).Height(), 480);
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(VideoTest, without_scaling_the_box_shows_the_top_left_part) {
  const Pixels whole = Paint();
  Place(video, 100, 50, 360, 288);
  const Pixels part = Paint();
  for (int y = 0; y < 288; ++y) {
    for (int x = 0; x < 360; ++x) {
      ASSERT_EQ(part.At(100 + x, 50 + y), whole.At(x, y)) << x << ' ' << y;
    }
  }
  EXPECT_TRUE(part.IsAll({460, 0, 720, 576}, kBlack));
  EXPECT_TRUE(part.IsAll({0, 338, 720, 576}, kBlack));
}

TEST_F(VideoTest, scaled_to_half_its_size_the_box_shows_the_whole_picture) {
  const Pixels whole = Paint();
  Place(video, 0, 0, 360, 288);
  video.ScaledSize = {360, 288};
  const Pixels half = Paint();
  int close = 0;
  for (int y = 4; y < 284; y += 4) {
    for (int x = 4; x < 356; x += 4) {
      const std::uint32_t small = half.At(x, y);
      const std::uint32_t large = whole.At(2 * x, 2 * y);
      int distance = 0;
      for (const int shift : {0, 8, 16}) {
        distance += std::abs(static_cast<int>(small >> shift & 0xFF) -
                             static_cast<int>(large >> shift & 0xFF));
      }
      close += distance < 60 ? 1 : 0;
    }
  }
  EXPECT_GT(close, 70 * 88 * 9 / 10);
}

TEST_F(VideoTest, a_stopped_video_is_not_drawn_whatever_its_termination) {
  for (const int termination : {1, 2}) {
    video.Termination = Termination{termination};
    video.RunningStatus = true;
    EXPECT_FALSE(Paint().IsAll(kWholeScene, kBlack));
    video.RunningStatus = false;
    EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  }
}

TEST_F(VideoTest, the_picture_is_decoded_once_until_a_restart) {
  const Gdiplus::GpImage* first = NamedImage("video.jpg");
  ASSERT_NE(first, nullptr);
  static_cast<void>(Paint());
  EXPECT_EQ(NamedImage("video.jpg"), first);
  ClearImageCache();
  // Reuses the memory of the first image, so that the next one has another address.
  ASSERT_NE(NamedImage("another"), nullptr);
  EXPECT_NE(NamedImage("video.jpg"), nullptr);
  EXPECT_NE(NamedImage("video.jpg"), first);
  EXPECT_FALSE(Paint().IsAll(kWholeScene, kBlack));
}

TEST_F(VideoTest, starting_and_ending_a_stream_changes_no_picture) {
  const Pixels before = Paint();
  const Stream stream;
  EXPECT_EQ(StartVideo(stream, 1, {10, 10}, {100, 100}), Status::Done);
  EXPECT_EQ(EndStream(stream), Status::Done);
  EXPECT_EQ(BackBufferPixels(), before);
  EXPECT_EQ(Paint(), before);
}

TEST_F(VideoTest, scaled_to_nothing_it_is_not_drawn_or_reported_missing) {
  for (const korvel::BoxSize size : {korvel::BoxSize{0, 288}, {360, 0}, {0, 0}}) {
    video.ScaledSize = {size.Width, size.Height};
    EXPECT_TRUE(Paint().IsAll(kWholeScene, kBlack));
  }
  EXPECT_TRUE(TheEngine().raised.empty());
}

TEST_F(VideoTest, the_first_100_bytes_of_names_are_compared) {
  const Gdiplus::GpImage* first = NamedImage("video.jpg");
  EXPECT_NE(NamedImage("Video.jpg"), first);
  const std::string longName(100, 'n');
  EXPECT_EQ(NamedImage(longName + "one"), NamedImage(longName + "other"));
}

}  // namespace korvel::test
