// The files that content references mean.
#include "appearance/content_path.h"

#include <gtest/gtest.h>

namespace korvel::test {

std::string PathOf(std::string_view reference) {
  OctetString path;
  EXPECT_TRUE(ContentPath(reference, path));
  return std::string(path.View());
}

TEST(ContentPath, everything_up_to_the_first_slash_goes) {
  EXPECT_EQ(PathOf("~/a.png"), "a.png");
  EXPECT_EQ(PathOf("DSM:/a.png"), "a.png");
  EXPECT_EQ(PathOf("dir/a.png"), "a.png");
}

TEST(ContentPath, other_slashes_are_turned) {
  EXPECT_EQ(PathOf("~/a/b.png"), "a\\b.png");
  EXPECT_EQ(PathOf("DSM://a/b"), "\\a\\b");
}

TEST(ContentPath, a_reference_without_a_slash_stays) {
  EXPECT_EQ(PathOf("b.png"), "b.png");
  EXPECT_EQ(PathOf("~b.png"), "~b.png");
  EXPECT_EQ(PathOf(""), "");
}

}  // namespace korvel::test
