// Tests the files of a series of pictures.
#include "player/picture_series.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "windows/support/temporary_folder.h"

namespace player::test {

Picture Filled(std::uint32_t colour) {
  return {std::vector<std::uint32_t>(std::size_t{kPictureWidth} * kPictureHeight, colour)};
}

TEST(PictureSeries, lists_each_picture_that_differs_from_the_last_one_with_its_duration) {
  const korvel::test::TemporaryFolder temporary;
  const std::filesystem::path folder = std::filesystem::path(temporary.Path()) / "series";
  PictureSeries series(folder, 1000);
  series.Add(Filled(0xFF0000), 1100);
  series.Add(Filled(0xFF0000), 1500);
  series.Add(Filled(0x0000FF), 2150);
  ASSERT_TRUE(series.End(4150));
  EXPECT_TRUE(std::filesystem::exists(folder / "0001.png"));
  EXPECT_TRUE(std::filesystem::exists(folder / "0002.png"));
  EXPECT_FALSE(std::filesystem::exists(folder / "0003.png"));
  std::ifstream list(folder / "series.ffconcat", std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(list), {});
  list.close();
  EXPECT_EQ(text, "ffconcat version 1.0\nfile 0001.png\nduration 1.050\nfile 0002.png\n"
                  "duration 2.000\nfile 0002.png\n");
  std::filesystem::remove_all(folder);
}

TEST(PictureSeries, is_due_25_times_a_second) {
  const korvel::test::TemporaryFolder temporary;
  PictureSeries series(temporary.Path(), 1000);
  EXPECT_TRUE(series.IsDue(1000));
  series.Add(Filled(0), 1003);
  EXPECT_FALSE(series.IsDue(1042));
  EXPECT_TRUE(series.IsDue(1043));
}

TEST(PictureSeries, fails_if_its_folder_cannot_be_created) {
  const korvel::test::TemporaryFolder temporary;
  const std::string file = temporary.Path() + "file";
  std::ofstream(file) << "no folder";
  PictureSeries series(file, 0);
  series.Add(Filled(0), 0);
  EXPECT_FALSE(series.End(1));
}

}  // namespace player::test
